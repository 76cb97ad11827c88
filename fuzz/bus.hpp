// A platform whose bus answers each call with the same bytes.
#pragma once

#include <string>

#include "seam/platform.hpp"

namespace kova::fuzz {

class Bus : public seam::Platform {
 public:
  ubus_context* ubus_connect(const char* socket) override;
  void ubus_free(ubus_context* bus) override;
  int ubus_lookup_id(ubus_context* bus, const char* object, uint32_t* id) override;
  int ubus_invoke_fd(ubus_context* bus, uint32_t id, const char* method, blob_attr* message,
                     ubus_data_handler_t handler, void* context, int timeout, int file) override;

  std::string reply;  // what is behind a reply's header
  int status = 0;     // of every call; with another than 0 there is no reply
};

}  // namespace kova::fuzz

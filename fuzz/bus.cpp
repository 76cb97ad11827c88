#include "bus.hpp"

#include <arpa/inet.h>

#include "input.hpp"

namespace kova::fuzz {
namespace {

// A reply's header says how long it is, as the bus library has checked before anybody sees it.
void reply_with(const std::string& reply, ubus_data_handler_t handler, void* context) {
  static Guarded memory(1 << 16);
  std::string message = std::string(sizeof(blob_attr), '\0') + reply.substr(0, 60000);
  message.resize((message.size() + 3) & ~size_t{3});
  char* const start = memory.place(message);
  const uint32_t length = htonl(static_cast<uint32_t>(message.size()));
  memcpy(start, &length, sizeof length);
  ubus_request request = {};
  request.priv = context;
  handler(&request, UBUS_MSG_DATA, reinterpret_cast<blob_attr*>(start));
}

}  // namespace

ubus_context* Bus::ubus_connect(const char* /*socket*/) { return reinterpret_cast<ubus_context*>(this); }
void Bus::ubus_free(ubus_context* /*bus*/) {}
int Bus::ubus_lookup_id(ubus_context* /*bus*/, const char* /*object*/, uint32_t* id) {
  *id = 1;
  return 0;
}
int Bus::ubus_invoke_fd(ubus_context* /*bus*/, uint32_t /*id*/, const char* /*method*/, blob_attr* /*message*/,
                        ubus_data_handler_t handler, void* context, int /*timeout*/, int /*file*/) {
  if (status == 0) reply_with(reply, handler, context);
  return status;
}

}  // namespace kova::fuzz

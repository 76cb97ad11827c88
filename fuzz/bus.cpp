#include "bus.hpp"

extern "C" {
#include <libubus.h>
}
#include <arpa/inet.h>

#include "input.hpp"

namespace kova::fuzz {

std::string bus_reply;
int bus_status = 0;

namespace {

// A reply's header says how long it is, as the bus library has checked before anybody sees it.
void reply_with(ubus_data_handler_t handler, void* context) {
  static Guarded memory(1 << 16);
  std::string message = std::string(sizeof(blob_attr), '\0') + bus_reply.substr(0, 60000);
  message.resize((message.size() + 3) & ~size_t{3});
  char* const start = memory.place(message);
  const uint32_t length = htonl(static_cast<uint32_t>(message.size()));
  memcpy(start, &length, sizeof length);
  ubus_request request = {};
  request.priv = context;
  handler(&request, UBUS_MSG_DATA, reinterpret_cast<blob_attr*>(start));
}

}  // namespace
}  // namespace kova::fuzz

// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name)
extern "C" {

ubus_context* ubus_connect(const char* /*path*/) {
  static char bus;
  return reinterpret_cast<ubus_context*>(&bus);
}
void ubus_free(ubus_context* /*bus*/) {}
int ubus_lookup_id(ubus_context* /*bus*/, const char* /*object*/, uint32_t* id) {
  *id = 1;
  return 0;
}
int ubus_invoke_fd(ubus_context* /*bus*/, uint32_t /*id*/, const char* /*method*/, blob_attr* /*message*/,
                   ubus_data_handler_t handler, void* context, int /*timeout*/, int /*file*/) {
  if (kova::fuzz::bus_status == 0) kova::fuzz::reply_with(handler, context);
  return kova::fuzz::bus_status;
}
}
// NOLINTEND(readability-inconsistent-declaration-parameter-name)

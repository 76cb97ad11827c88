extern "C" {
#include "libubus.h"
}

#include <algorithm>
#include <exception>
#include <iterator>
#include <memory>

#include "answers.hpp"

using namespace lab;

struct ubus_context {
  std::vector<std::string> objects;  // an object's id is its place, counted from 1
};

ubus_context* ubus_connect(const char* /*path*/) try {
  auto objects = bus_objects();
  return objects ? new ubus_context{std::move(*objects)} : nullptr;
} catch (const std::exception&) {
  return nullptr;
}

void ubus_free(ubus_context* ctx) { delete ctx; }

int ubus_lookup_id(ubus_context* ctx, const char* object, uint32_t* id) {
  const auto found = std::find(ctx->objects.begin(), ctx->objects.end(), object);
  if (found == ctx->objects.end()) return UBUS_STATUS_NOT_FOUND;
  *id = static_cast<uint32_t>(found - ctx->objects.begin()) + 1;
  return UBUS_STATUS_OK;
}

int ubus_invoke_fd(ubus_context* ctx, uint32_t id, const char* method, blob_attr* msg, ubus_data_handler_t cb,
                   void* priv, int /*timeout*/, int /*fd*/) {
  if (id == 0 || id > ctx->objects.size()) return UBUS_STATUS_NOT_FOUND;
  const std::string& object = ctx->objects[id - 1];
  try {
    const Json request = msg != nullptr ? to_json(blob_data(msg), blob_len(msg)) : Json::object();
    const BusAnswer answer = bus_answer(object, method, request);
    blob_buf message = {};
    const std::unique_ptr<blob_buf, decltype(&blob_buf_free)> owner(&message, &blob_buf_free);
    for (const Json& reply : answer.replies) {
      if (blob_buf_init(&message, 0) != 0) return UBUS_STATUS_NO_MEMORY;
      add_members(message, reply);
      ubus_request request_made = {ctx, priv};
      if (cb != nullptr) cb(&request_made, UBUS_MSG_DATA, message.head);
    }
    return answer.status;
  } catch (const std::exception& fault) {
    fprintf(stderr, "ubus stand-in: %s %s: %s\n", object.c_str(), method, fault.what());
    return UBUS_STATUS_PARSE_ERROR;
  }
}

const char* ubus_strerror(int error) {
  static constexpr const char* kTexts[] = {"Success",
                                           "Invalid command",
                                           "Invalid argument",
                                           "Method not found",
                                           "Not found",
                                           "No response",
                                           "Permission denied",
                                           "Request timed out",
                                           "Operation not supported",
                                           "Unknown error",
                                           "Connection failed",
                                           "Out of memory",
                                           "Parsing message data failed",
                                           "System error"};
  return error >= 0 && error < static_cast<int>(std::size(kTexts)) ? kTexts[error] : "Unknown error";
}

// ubus: the bus's command line, over the stand-in library.
#include <fnmatch.h>
#include <unistd.h>

#include <cstdio>
#include <exception>
#include <memory>
#include <string>

#include "answers.hpp"
extern "C" {
#include "libubus.h"
}

namespace {

using lab::Json;

int usage() {
  fputs(
      "Usage: ubus [-S] [-t timeout] COMMAND\n"
      "  call OBJECT METHOD [MESSAGE]   call a method with a JSON message\n"
      "  list [PATTERN]                 list objects\n"
      "This is a development stand-in for OpenWrt's tool: answers come from files.\n",
      stderr);
  return 1;
}

int unreachable() {
  fputs("Failed to connect to ubus\n", stderr);
  return 255;
}

int list(const std::string& pattern) {
  const auto objects = lab::bus_objects();
  if (!objects) return unreachable();
  for (const std::string& object : *objects) {
    if (fnmatch(pattern.c_str(), object.c_str(), 0) == 0) puts(object.c_str());
  }
  return 0;
}

int fail(int status) {
  fprintf(stderr, "Command failed: %s\n", ubus_strerror(status));
  return status;
}

int call(const std::string& object, const std::string& method, const std::string& message, bool compact) {
  const Json request = Json::parse(message, nullptr, false);
  if (!request.is_object()) {
    fputs("Failed to parse message data\n", stderr);
    return -1;
  }
  blob_buf buffer = {};
  const std::unique_ptr<blob_buf, decltype(&blob_buf_free)> owner(&buffer, &blob_buf_free);
  blob_buf_init(&buffer, 0);
  lab::add_members(buffer, request);

  ubus_context* bus = ubus_connect(nullptr);
  if (bus == nullptr) return unreachable();
  uint32_t id = 0;
  int status = ubus_lookup_id(bus, object.c_str(), &id);
  const auto print = [](ubus_request* request_made, int, blob_attr* reply) {
    const Json json = lab::to_json(blob_data(reply), blob_len(reply));
    const bool one_line = *static_cast<const bool*>(request_made->priv);
    puts((one_line ? json.dump() : json.dump(1, '\t')).c_str());
  };
  if (status == UBUS_STATUS_OK) status = ubus_invoke(bus, id, method.c_str(), buffer.head, print, &compact, 30000);
  ubus_free(bus);
  return status == UBUS_STATUS_OK ? 0 : fail(status);
}

}  // namespace

int main(int argc, char** argv) {
  bool compact = false;
  for (int option = 0; (option = getopt(argc, argv, "+St:")) != -1;) {
    if (option == 'S') compact = true;
    if (option == '?') return usage();
  }
  const std::vector<std::string> words(argv + optind, argv + argc);
  try {
    if (words.size() >= 3 && words.size() <= 4 && words[0] == "call")
      return call(words[1], words[2], words.size() == 4 ? words[3] : "{}", compact);
    if (!words.empty() && words.size() <= 2 && words[0] == "list") return list(words.size() == 2 ? words[1] : "*");
  } catch (const std::exception& fault) {
    fprintf(stderr, "ubus: %s\n", fault.what());
    return 1;
  }
  return usage();
}

#include "walk.hpp"

extern "C" {
#include <libubox/blobmsg.h>
#include <libubus.h>
}
#include <dlfcn.h>
#include <stdio.h>
#include <stdlib.h>
#include <uci.h>

#include "call.hpp"
#include "families.h"
#include "platform.hpp"

namespace kova::bench {
namespace {

constexpr parameter_handler kHandlers[] = {
#undef KOVA_PARAMETER
#define KOVA_PARAMETER(handler, ...) handler,
#include "families.h"
};

struct Recording {
  bool on = false;
  std::vector<std::function<void()>> calls;
  const char* directory = nullptr;  // of the store, as last set
  std::string object;               // of the bus, as last looked up

  void add(std::function<void()> call) {
    if (on) calls.push_back(std::move(call));
  }
};

Recording recording;

void walk() {
  static char output[1 << 16];
  for (const parameter_handler handler : kHandlers) get_first_row(handler, output);
}

void record() {
  walk();  // makes the files that scripts make once
  recording.on = true;
  walk();
  recording.on = false;
}

template <typename Function>
Function* real(Function* /*of this type*/, const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace

Figure walk_of_everything() {
  return {"walk of everything", walk, [] {
            if (recording.calls.empty()) record();
            for (const auto& call : recording.calls) call();
          }};
}

}  // namespace kova::bench

using kova::bench::recording;

// What the plug-in and this program call is recorded on its way to the platform.
// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name)
extern "C" {

FILE* popen(const char* command, const char* mode) {
  static const auto real = kova::bench::real(popen, "popen");
  recording.add([text = std::string(command)] { kova::bench::read_command(text.c_str()); });
  return real(command, mode);
}

int system(const char* command) {
  static const auto real = kova::bench::real(system, "system");
  recording.add([text = std::string(command)] { system(text.c_str()); });
  return real(command);
}

uci_context* uci_alloc_context() {
  static const auto real = kova::bench::real(uci_alloc_context, "uci_alloc_context");
  recording.directory = nullptr;
  return real();
}

int uci_set_confdir(uci_context* context, const char* directory) {
  static const auto real = kova::bench::real(uci_set_confdir, "uci_set_confdir");
  recording.directory = directory;
  return real(context, directory);
}

int uci_load(uci_context* context, const char* name, uci_package** package) {
  static const auto real = kova::bench::real(uci_load, "uci_load");
  recording.add([directory = recording.directory, name = std::string(name)] {
    kova::bench::load_package(directory, name.c_str());
  });
  return real(context, name, package);
}

int ubus_lookup_id(ubus_context* bus, const char* object, uint32_t* id) {
  static const auto real = kova::bench::real(ubus_lookup_id, "ubus_lookup_id");
  recording.object = object;
  return real(bus, object, id);
}

int ubus_invoke_fd(ubus_context* bus, uint32_t object, const char* method, blob_attr* message,
                   ubus_data_handler_t handler, void* context, int timeout, int file) {
  static const auto real = kova::bench::real(ubus_invoke_fd, "ubus_invoke_fd");
  const auto* start = reinterpret_cast<const char*>(message);
  recording.add([object = recording.object, method = std::string(method),
                 copy = std::string(start, message != nullptr ? blob_raw_len(message) : 0)]() mutable {
    auto* sent = copy.empty() ? nullptr : reinterpret_cast<blob_attr*>(copy.data());
    kova::bench::call_bus(object.c_str(), method.c_str(), sent, "");
  });
  return real(bus, object, method, message, handler, context, timeout, file);
}
}
// NOLINTEND(readability-inconsistent-declaration-parameter-name)

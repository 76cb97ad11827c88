#include "walk.hpp"

#include <functional>
#include <string>
#include <vector>

#include "call.hpp"
#include "families.h"
#include "platform.hpp"
#include "seam/platform.hpp"

namespace kova::bench {
namespace {

constexpr parameter_handler kHandlers[] = {
#undef KOVA_PARAMETER
#define KOVA_PARAMETER(handler, ...) handler,
#include "families.h"
};

// Notes what the plug-in asks for, to be asked again without it.
class Recorder final : public seam::Platform {
 public:
  FILE* popen(const char* command, const char* mode) override {
    add([text = std::string(command)] { read_command(text.c_str()); });
    return Platform::popen(command, mode);
  }
  int system(const char* command) override {
    add([text = std::string(command)] { ::system(text.c_str()); });
    return Platform::system(command);
  }
  uci_context* uci_alloc_context() override {
    directory_ = nullptr;
    return Platform::uci_alloc_context();
  }
  int uci_set_confdir(uci_context* context, const char* directory) override {
    directory_ = directory;
    return Platform::uci_set_confdir(context, directory);
  }
  int uci_load(uci_context* context, const char* name, uci_package** package) override {
    add([directory = directory_, name = std::string(name)] { load_package(directory, name.c_str()); });
    return Platform::uci_load(context, name, package);
  }
  int ubus_lookup_id(ubus_context* bus, const char* object, uint32_t* id) override {
    object_ = object;
    return Platform::ubus_lookup_id(bus, object, id);
  }
  int ubus_invoke_fd(ubus_context* bus, uint32_t id, const char* method, blob_attr* message,
                     ubus_data_handler_t handler, void* context, int timeout, int file) override {
    const auto* start = reinterpret_cast<const char*>(message);
    add([object = object_, method = std::string(method),
         copy = std::string(start, message != nullptr ? blob_raw_len(message) : 0)]() mutable {
      auto* sent = copy.empty() ? nullptr : reinterpret_cast<blob_attr*>(copy.data());
      call_bus(object.c_str(), method.c_str(), sent, "");
    });
    return Platform::ubus_invoke_fd(bus, id, method, message, handler, context, timeout, file);
  }

  std::vector<std::function<void()>> calls;

 private:
  void add(std::function<void()> call) { calls.push_back(std::move(call)); }

  const char* directory_ = nullptr;  // of the store, as last set
  std::string object_;               // of the bus, as last looked up
};

void walk() {
  static char output[1 << 16];
  for (const parameter_handler handler : kHandlers) get_first_row(handler, output);
}

std::vector<std::function<void()>> calls_of_walk() {
  walk();  // makes the files that scripts make once
  Recorder recorder;
  const seam::InUse in_use(recorder, seam::Calls::OF_PROCESS);
  walk();
  return recorder.calls;
}

}  // namespace

Figure walk_of_everything() {
  return {"walk of everything", walk, [] {
            static const auto calls = calls_of_walk();
            for (const auto& call : calls) call();
          }};
}

}  // namespace kova::bench

#include "walk.hpp"

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "call.hpp"
#include "device/walk.hpp"
#include "families.h"
#include "platform.hpp"
#include "seam/platform.hpp"
#include "seam/snapshot.hpp"

namespace kova::bench {
namespace {

using Work = std::function<void()>;

constexpr parameter_handler kHandlers[] = {
#undef KOVA_PARAMETER
#define KOVA_PARAMETER(handler, ...) handler,
#include "families.h"
};

// Notes what the plug-in asks for, to be asked again without it; the same question only `once`, or as often.
class Recorder final : public seam::Platform {
 public:
  explicit Recorder(bool once) : once_(once) {}

  FILE* popen(const char* command, const char* mode) override {
    add(command, [text = std::string(command)] { read_command(text.c_str()); });
    return Platform::popen(command, mode);
  }
  int system(const char* command) override {
    add(command, [text = std::string(command)] { ::system(text.c_str()); });
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
    add((directory_ != nullptr ? directory_ : "") + std::string(" ") + name,
        [directory = directory_, name = std::string(name)] { load_package(directory, name.c_str()); });
    return Platform::uci_load(context, name, package);
  }
  int ubus_lookup_id(ubus_context* bus, const char* object, uint32_t* id) override {
    object_ = object;
    return Platform::ubus_lookup_id(bus, object, id);
  }
  int ubus_invoke_fd(ubus_context* bus, uint32_t id, const char* method, blob_attr* message,
                     ubus_data_handler_t handler, void* context, int timeout, int file) override {
    const auto* start = reinterpret_cast<const char*>(message);
    const std::string bytes(start, message != nullptr ? blob_raw_len(message) : 0);
    add(object_ + " " + method + bytes, [object = object_, method = std::string(method), bytes = bytes]() mutable {
      auto* sent = bytes.empty() ? nullptr : reinterpret_cast<blob_attr*>(bytes.data());
      call_bus(object.c_str(), method.c_str(), sent, "");
    });
    return Platform::ubus_invoke_fd(bus, id, method, message, handler, context, timeout, file);
  }

  std::vector<Work> calls;

 private:
  void add(const std::string& question, Work call) {
    const bool is_new = asked_.insert(question).second;
    if (is_new || !once_) calls.push_back(std::move(call));
  }

  const bool once_;
  std::set<std::string> asked_;
  const char* directory_ = nullptr;  // of the store, as last set
  std::string object_;               // of the bus, as last looked up
};

void walk() {
  static char output[1 << 16];
  for (const parameter_handler handler : kHandlers) get_first_row(handler, output);
}

void in_one_look(const Work& work) {
  kova_look_begin();
  work();
  kova_look_end();
}

// ---- The bare platform's part ----

enum class Calls { ALL, ONCE };

std::vector<Work> calls_of(const Work& work, Calls which) {
  work();  // makes the files that scripts make once
  Recorder recorder(which == Calls::ONCE);
  const seam::InUse in_use(recorder, seam::Calls::OF_PROCESS);
  work();
  return recorder.calls;
}

// Makes the calls that `work` asks for, as recorded when it is done first.
Work platform_of(const Work& work, Calls which) {
  return [=, calls = std::optional<std::vector<Work>>()]() mutable {
    if (!calls) calls = calls_of(work, which);
    for (const Work& call : *calls) call();
  };
}

// ---- A large household ----

constexpr char kLeases[] = "/etc/config/dhcp";
constexpr char kHosts[] = "/tmp/tr069/hosts";

void make_household(int hosts, int leases) {
  static const std::string few_leases = seam::read_file(kLeases);
  std::string text = few_leases;
  for (int i = 1; i <= leases; ++i)
    text += "\nconfig host 'static" + std::to_string(i) + "'\n\toption name 'device" + std::to_string(i) +
            "'\n\toption mac '02:00:5e:00:00:01'\n\toption ip '192.168.1.10'\n";
  seam::write_file(kLeases, text);
  text.clear();
  for (int i = 1; i <= hosts; ++i)
    text += "\nconfig host '" + std::to_string(i) +
            "'\n\toption ip '192.168.1.10'\n\toption mac '02:00:5e:00:00:01'\n\toption hostname 'laptop'\n\toption "
            "addresssource 'DHCP'\n\toption lease_remain '41233'\n\toption iftype '802.11'\n\toption active "
            "'1'\n\toption lay2if 'wlan00'\n\toption SignalStrength '-58'\n";
  seam::write_file(kHosts, text + "\nconfig info 'info'\n\toption count '" + std::to_string(hosts) + "'\n");
}

// Everything as kovadm walks it, instances expanded.
void walk_all_rows() {
  static kovadm::Agent agent(PLUGIN, {});
  kovadm::walk(agent, "", [&](const kovadm::Parameter& parameter) {
    return std::holds_alternative<std::string>(agent.get(parameter));
  });
}

}  // namespace

Figure walk_of_everything() { return {"walk of everything", walk, platform_of(walk, Calls::ALL)}; }

Figure walk_in_one_look() {
  const Work work = [] { in_one_look(walk); };
  return {"walk in one look", work, platform_of(work, Calls::ONCE)};
}

Figure walk_of_household(int hosts, int leases) {
  const Work work = [=] {
    static int there = 0;
    if (std::exchange(there, hosts) != hosts) make_household(hosts, leases);
    in_one_look(walk_all_rows);
  };
  return {"walk in one look, " + std::to_string(hosts) + " hosts and " + std::to_string(leases) + " leases", work,
          platform_of(work, Calls::ONCE)};
}

}  // namespace kova::bench

#include "seam/trace.hpp"

#include <poll.h>
#include <sys/ioctl.h>

#include <cerrno>
#include <map>
#include <string_view>

#include "seam/caught_output.hpp"
#include "seam/debug_switch.hpp"
#include "seam/paths.hpp"
#include "seam/platform.hpp"
#include "seam/snapshot.hpp"

namespace seam {
namespace {

// A package that the plug-in has loaded and not yet left.
struct LoadedPackage {
  uci_context* context;
  std::string name;
  bool searched = false;  // for a section's name
};

// ---- Configuration ----

std::string package_name(const uci_package& package) {
  std::string path = package.path != nullptr ? package.path : "";
  const std::string root = platform().place("");
  if (path.starts_with(root)) path.erase(0, root.size());
  return path.starts_with(std::string(kMainStore) + "/") || path.empty() ? package.e.name : path;
}

// ---- Commands ----

// Whether there is something to read. Waits for it, as a handler does that has a pipe. Takes nothing of it into the
// stream, beside which one look reads.
bool has_text(FILE* pipe) {
  pollfd wanted = {fileno(pipe), POLLIN, 0};
  while (wanted.fd >= 0 && poll(&wanted, 1, -1) < 0 && errno == EINTR) continue;
  int size = 0;
  return ioctl(wanted.fd, FIONREAD, &size) == 0 && size > 0;
}

// ---- Bus ----

std::string status_text(int status) { return status == 0 ? "" : " (status " + std::to_string(status) + ")"; }

// The debug log goes to standard error too.
std::string without(std::string text, const std::vector<std::string>& messages) {
  for (const std::string& message : messages) {
    const std::size_t position = text.find(message);
    if (position != std::string::npos) text.erase(position, message.size());
  }
  return text;
}

// Notes what the plug-in asks for on its way to the platform below.
class Observer final : public Platform {
 public:
  Trace take() {
    leave_packages([&](const auto&...) { return true; });
    return std::move(trace_);
  }

  FILE* popen(const char* command, const char* mode) override {
    trace_.commands.emplace_back(command);
    ++trace_.asked[command];
    FILE* pipe = Platform::popen(command, mode);
    if (pipe != nullptr) {
      pipes_[pipe] = trace_.ends.size();
      trace_.ends.push_back({command, 0, has_text(pipe)});
    } else {
      trace_.ends.push_back({command, -1, false});
    }
    return pipe;
  }
  int pclose(FILE* pipe) override {
    const int status = Platform::pclose(pipe);
    if (const auto known = pipes_.extract(pipe)) trace_.ends[known.mapped()].status = status;
    return status;
  }
  int system(const char* command) override {
    trace_.commands.emplace_back(command);
    trace_.started.emplace_back(command);
    const int status = Platform::system(command);
    trace_.ends.push_back({command, status, true});
    return status;
  }

  FILE* fopen(const char* path, const char* mode) override {
    FILE* file = Platform::fopen(path, mode);
    trace_.files.push_back({path, file != nullptr ? "" : "cannot be opened"});
    return file;
  }
  int open(const char* path, int flags, mode_t mode) override {
    const int file = Platform::open(path, flags, mode);
    trace_.files.push_back({path, file >= 0 ? "" : "cannot be opened"});
    return file;
  }
  int access(const char* path, int mode) override {
    const int result = Platform::access(path, mode);
    if (path != std::string_view(kDebugFile)) trace_.files.push_back({path, result == 0 ? "exists" : "does not exist"});
    return result;
  }
  void vsyslog(int priority, const char* format, va_list arguments) override {
    trace_.log.push_back(formatted(format, arguments));
    Platform::vsyslog(priority, format, arguments);
  }

  int uci_set_confdir(uci_context* context, const char* directory) override {
    directories_[context] = directory;
    return Platform::uci_set_confdir(context, directory);
  }
  int uci_load(uci_context* context, const char* name, uci_package** package) override {
    const int result = Platform::uci_load(context, name, package);
    if (result != UCI_OK) {
      trace_.look_ups.push_back({missing_package(context, name), std::nullopt, result == UCI_ERR_PARSE});
    } else {
      packages_[*package] = {context, package_name(**package)};
      ++trace_.asked[package_name(**package)];
    }
    return result;
  }
  int uci_unload(uci_context* context, uci_package* package) override {
    leave_packages([&](const uci_package* loaded, const auto&) { return loaded == package; });
    return Platform::uci_unload(context, package);
  }
  void uci_free_context(uci_context* context) override {
    leave_packages([&](const auto&, const LoadedPackage& loaded) { return loaded.context == context; });
    directories_.erase(context);
    Platform::uci_free_context(context);
  }
  int uci_lookup_next(uci_context* context, uci_element** element, uci_list* list, const char* name) override {
    const int result = Platform::uci_lookup_next(context, element, list, name);
    look_up(list, name, result == UCI_OK ? *element : nullptr);
    return result;
  }

  ubus_context* ubus_connect(const char* socket) override {
    ubus_context* bus = Platform::ubus_connect(socket);
    if (bus == nullptr) trace_.bus_calls.emplace_back(kNoBus);
    return bus;
  }
  int ubus_lookup_id(ubus_context* bus, const char* object, uint32_t* id) override {
    const int status = Platform::ubus_lookup_id(bus, object, id);
    if (status == 0) {
      bus_objects_[*id] = object;
    } else {
      trace_.bus_calls.push_back(object + status_text(status));
    }
    return status;
  }
  int ubus_invoke_fd(ubus_context* bus, uint32_t id, const char* method, blob_attr* message,
                     ubus_data_handler_t handler, void* context, int timeout, int file) override {
    const int status = Platform::ubus_invoke_fd(bus, id, method, message, handler, context, timeout, file);
    const std::string question = bus_objects_[id] + " " + method + message_text(message);
    trace_.bus_calls.push_back(question + status_text(status));
    ++trace_.asked[question];
    return status;
  }

 private:
  // Forgets packages that are about to be freed.
  template <typename Which>
  void leave_packages(Which which) {
    std::erase_if(packages_, [&](const auto& entry) {
      const auto& [package, loaded] = entry;
      if (!which(package, loaded)) return false;
      if (!loaded.searched) trace_.walked_packages.push_back(loaded.name);
      return true;
    });
  }

  // A package by its file, where that is not in the main store.
  std::string missing_package(uci_context* context, const std::string& name) const {
    const auto directory = directories_.find(context);
    const bool is_main = directory == directories_.end() || directory->second == kMainStore;
    return is_main ? name : directory->second + "/" + name;
  }

  // A name that was looked up in a list, and what was found there; nullptr for nothing.
  void look_up(const uci_list* list, const char* name, uci_element* found) {
    for (auto& [package, loaded] : packages_) {
      if (list == &package->sections) {
        loaded.searched = true;
        if (found == nullptr) trace_.look_ups.push_back({loaded.name + "." + name, std::nullopt, false});
        return;
      }
      uci_element* element = nullptr;
      uci_foreach_element(&package->sections, element) {
        if (list != &uci_to_section(element)->options) continue;
        trace_.look_ups.push_back({loaded.name + "." + element->name + "." + name,
                                   found != nullptr ? std::optional(value_of(*uci_to_option(found))) : std::nullopt,
                                   false});
        return;
      }
    }
  }

  Trace trace_;
  std::map<const uci_package*, LoadedPackage> packages_;
  std::map<uci_context*, std::string> directories_;
  std::map<FILE*, std::size_t> pipes_;  // the ends of their commands
  std::map<uint32_t, std::string> bus_objects_;
};

}  // namespace

Trace trace(const std::function<void()>& work) {
  const DebugSwitch debug;
  CaughtOutput output({STDOUT_FILENO, STDERR_FILENO});
  Observer observer;
  {
    const InUse in_use(observer);
    work();
  }
  Trace trace = observer.take();
  trace.printed = without(output.take(), trace.log);
  return trace;
}

std::string message_text(blob_attr* message) {
  std::string text;
  if (message == nullptr) return text;
  auto rest = static_cast<std::size_t>(blob_len(message));
  for (auto* field = static_cast<blob_attr*>(blob_data(message));
       rest >= sizeof(blob_attr) && blob_pad_len(field) <= rest;
       rest -= blob_pad_len(field), field = blob_next(field)) {
    text.append(" ").append(blobmsg_name(field)).append("=");
    if (blobmsg_type(field) == BLOBMSG_TYPE_STRING) {
      text += blobmsg_get_string(field);
    } else if (blobmsg_type(field) == BLOBMSG_TYPE_INT32) {
      text += std::to_string(blobmsg_get_u32(field));
    } else {
      text += "...";
    }
  }
  return text;
}

std::string formatted(const char* format, va_list arguments) {
  va_list copy;
  va_copy(copy, arguments);
  const int length = std::vsnprintf(nullptr, 0, format, copy);
  va_end(copy);
  std::string text(static_cast<std::size_t>(length) + 1, '\0');
  va_copy(copy, arguments);
  std::vsnprintf(text.data(), text.size(), format, copy);
  va_end(copy);
  text.pop_back();
  return text;
}

}  // namespace seam

#include "trace.hpp"

extern "C" {
#include <libubox/blobmsg.h>
#include <libubus.h>
#include <uci.h>
}
#include <dlfcn.h>
#include <syslog.h>
#include <unistd.h>

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <map>

#include "caught_output.hpp"
#include "debug_switch.hpp"
#include "interpose.hpp"
#include "processes.hpp"

namespace kovadm {
namespace {

constexpr std::string_view kMainStore = "/etc/config/";
constexpr std::string_view kDebugFile = "/tmp/cwmp_debug";

// A package that the plug-in has loaded and not yet left.
struct LoadedPackage {
  uci_context* context;
  std::string name;
  bool searched = false;  // for a section's name
};

struct Recorder {
  const void* library;
  Trace trace;
  std::map<const uci_package*, LoadedPackage> packages;
  std::map<uint32_t, std::string> bus_objects;
};

Recorder* recorder = nullptr;

const void* library_of(const void* code) {
  Dl_info info = {};
  return dladdr(code, &info) != 0 ? info.dli_fbase : nullptr;
}

// The recorder when the plug-in itself is the caller: what a platform library does for it is not of interest.
Recorder* recorder_for(const void* caller) {
  return recorder != nullptr && library_of(caller) == recorder->library ? recorder : nullptr;
}

// ---- Configuration ----

std::string package_name(const uci_package& package) {
  const std::string path = package.path != nullptr ? package.path : "";
  return path.starts_with(kMainStore) || path.empty() ? package.e.name : path;
}

std::optional<std::string> value_of(uci_element* element) {
  if (element == nullptr) return std::nullopt;
  uci_option* option = uci_to_option(element);
  if (option->type == UCI_TYPE_STRING) return option->v.string;
  std::string list;
  uci_element* item = nullptr;
  uci_foreach_element(&option->v.list, item) list += (list.empty() ? "" : " ") + std::string(item->name);
  return list;
}

void note_look_up(Recorder& into, const uci_list* list, const char* name, uci_element* found) {
  for (auto& [package, loaded] : into.packages) {
    if (list == &package->sections) {
      loaded.searched = true;
      if (found == nullptr) into.trace.look_ups.push_back({loaded.name + "." + name, std::nullopt});
      return;
    }
    uci_element* element = nullptr;
    uci_foreach_element(&package->sections, element) {
      if (list != &uci_to_section(element)->options) continue;
      into.trace.look_ups.push_back({loaded.name + "." + element->name + "." + name, value_of(found)});
      return;
    }
  }
}

void note_load(Recorder& into, uci_context* context, const char* name, const uci_package* package) {
  if (package == nullptr) {
    into.trace.look_ups.push_back({name, std::nullopt});
  } else {
    into.packages[package] = {context, package_name(*package)};
  }
}

// Forgets packages that are about to be freed.
template <typename Which>
void leave_packages(Recorder& into, Which which) {
  std::erase_if(into.packages, [&](const auto& entry) {
    const auto& [package, loaded] = entry;
    if (!which(package, loaded)) return false;
    if (!loaded.searched) into.trace.walked_packages.push_back(loaded.name);
    return true;
  });
}

// ---- Bus ----

std::string message_text(blob_attr* message) {
  std::string text;
  if (message == nullptr) return text;
  auto rest = static_cast<std::size_t>(blob_len(message));
  for (auto* field = static_cast<blob_attr*>(blob_data(message));
       rest >= sizeof(blob_attr) && blob_pad_len(field) <= rest;
       rest -= blob_pad_len(field), field = blob_next(field)) {
    text += std::string(" ") + blobmsg_name(field) + "=";
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

std::string status_text(int status) { return status == 0 ? "" : " (status " + std::to_string(status) + ")"; }

// ---- Log ----

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

// The debug log goes to standard error too.
std::string without(std::string text, const std::vector<std::string>& messages) {
  for (const std::string& message : messages) {
    const std::size_t position = text.find(message);
    if (position != std::string::npos) text.erase(position, message.size());
  }
  return text;
}

}  // namespace

Trace trace(const void* code, const std::function<void()>& work) {
  const DebugSwitch debug;
  CaughtOutput output({STDOUT_FILENO, STDERR_FILENO});
  Recorder local = {library_of(code), {}, {}, {}};
  recorder = &local;
  work();
  recorder = nullptr;
  leave_packages(local, [](const auto&...) { return true; });
  local.trace.printed = without(output.take(), local.trace.log);
  return local.trace;
}

}  // namespace kovadm

using namespace kovadm;

#define CALLER __builtin_return_address(0)

// The declarations are the C library's and the platform's, and so are their parameter names.
// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name)
extern "C" {

FILE* popen(const char* command, const char* mode) {
  REAL(popen);
  if (Recorder* into = recorder_for(CALLER)) into->trace.commands.emplace_back(command);
  return real(command, mode);
}

int system(const char* command) {
  if (command == nullptr) return 1;  // there is a shell
  if (Recorder* into = recorder_for(CALLER)) into->trace.commands.emplace_back(command);
  return run_in_shell(command);
}

FILE* fopen(const char* path, const char* mode) {
  REAL(fopen);
  FILE* file = real(path, mode);
  if (Recorder* into = recorder_for(CALLER))
    into->trace.files.push_back(std::string(path) + (file == nullptr ? " (cannot be opened)" : ""));
  return file;
}

int access(const char* path, int mode) noexcept {
  REAL(access);
  const int result = real(path, mode);
  if (Recorder* into = recorder_for(CALLER); into != nullptr && path != kDebugFile)
    into->trace.files.push_back(std::string(path) + (result == 0 ? " (exists)" : " (does not exist)"));
  return result;
}

void vsyslog(int priority, const char* format, va_list arguments) {
  REAL(vsyslog);
  if (Recorder* into = recorder_for(CALLER)) into->trace.log.push_back(formatted(format, arguments));
  real(priority, format, arguments);
}

int uci_load(struct uci_context* context, const char* name, struct uci_package** package) {
  REAL(uci_load);
  const int result = real(context, name, package);
  if (Recorder* into = recorder_for(CALLER)) note_load(*into, context, name, result == UCI_OK ? *package : nullptr);
  return result;
}

int uci_unload(struct uci_context* context, struct uci_package* package) {
  REAL(uci_unload);
  if (recorder != nullptr)
    leave_packages(*recorder, [&](const uci_package* loaded, const auto&) { return loaded == package; });
  return real(context, package);
}

void uci_free_context(struct uci_context* context) {
  REAL(uci_free_context);
  if (recorder != nullptr)
    leave_packages(*recorder, [&](const auto&, const LoadedPackage& loaded) { return loaded.context == context; });
  real(context);
}

int uci_lookup_next(struct uci_context* context, struct uci_element** element, struct uci_list* list,
                    const char* name) {
  REAL(uci_lookup_next);
  const int result = real(context, element, list, name);
  if (Recorder* into = recorder_for(CALLER)) note_look_up(*into, list, name, result == UCI_OK ? *element : nullptr);
  return result;
}

int ubus_lookup_id(struct ubus_context* context, const char* object, uint32_t* id) {
  REAL(ubus_lookup_id);
  const int result = real(context, object, id);
  if (Recorder* into = recorder_for(CALLER)) {
    if (result == 0) {
      into->bus_objects[*id] = object;
    } else {
      into->trace.bus_calls.push_back(object + status_text(result));
    }
  }
  return result;
}

int ubus_invoke_fd(struct ubus_context* context, uint32_t id, const char* method, struct blob_attr* message,
                   ubus_data_handler_t handler, void* context_of_handler, int timeout, int descriptor) {
  REAL(ubus_invoke_fd);
  const int result = real(context, id, method, message, handler, context_of_handler, timeout, descriptor);
  if (Recorder* into = recorder_for(CALLER))
    into->trace.bus_calls.push_back(into->bus_objects[id] + " " + method + message_text(message) + status_text(result));
  return result;
}
}
// NOLINTEND(readability-inconsistent-declaration-parameter-name)

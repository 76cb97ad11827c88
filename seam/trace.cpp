#include "seam/trace.hpp"

extern "C" {
#include <libubox/blobmsg.h>
#include <libubus.h>
#include <uci.h>
}
#include <unistd.h>

#include <cstdarg>
#include <cstdio>
#include <map>

#include "seam/caught_output.hpp"
#include "seam/debug_switch.hpp"
#include "seam/platform.hpp"

namespace kovadm {
namespace {

constexpr std::string_view kMainStore = "/etc/config/";

// A package that the plug-in has loaded and not yet left.
struct LoadedPackage {
  uci_context* context;
  std::string name;
  bool searched = false;  // for a section's name
};

struct Recorder {
  Trace trace;
  std::map<const uci_package*, LoadedPackage> packages;
  std::map<uint32_t, std::string> bus_objects;
};

Recorder* recorder = nullptr;

// ---- Configuration ----

std::string package_name(const uci_package& package) {
  std::string path = package.path != nullptr ? package.path : "";
  const std::string root = platform().place("");
  if (path.starts_with(root)) path.erase(0, root.size());
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

// Forgets packages that are about to be freed.
template <typename Which>
void leave_packages(Which which, Recorder& into) {
  std::erase_if(into.packages, [&](const auto& entry) {
    const auto& [package, loaded] = entry;
    if (!which(package, loaded)) return false;
    if (!loaded.searched) into.trace.walked_packages.push_back(loaded.name);
    return true;
  });
}

// ---- Bus ----

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

Trace trace(const std::function<void()>& work) {
  const DebugSwitch debug;
  CaughtOutput output({STDOUT_FILENO, STDERR_FILENO});
  Recorder local;
  recorder = &local;
  work();
  recorder = nullptr;
  leave_packages([&](const auto&...) { return true; }, local);
  local.trace.printed = without(output.take(), local.trace.log);
  return local.trace;
}

namespace note {

void command(const char* command) {
  if (recorder != nullptr) recorder->trace.commands.emplace_back(command);
}

void file(const char* path, const char* finding) {
  if (recorder != nullptr) recorder->trace.files.push_back({path, finding});
}

void message(const char* format, va_list arguments) {
  if (recorder != nullptr) recorder->trace.log.push_back(formatted(format, arguments));
}

void load(uci_context* context, const char* name, const uci_package* package) {
  if (recorder == nullptr) return;
  if (package == nullptr) {
    recorder->trace.look_ups.push_back({name, std::nullopt});
  } else {
    recorder->packages[package] = {context, package_name(*package)};
  }
}

void package_end(const uci_package* package) {
  if (recorder == nullptr) return;
  leave_packages([&](const uci_package* loaded, const auto&) { return loaded == package; }, *recorder);
}

void context_end(const uci_context* context) {
  if (recorder == nullptr) return;
  leave_packages([&](const auto&, const LoadedPackage& loaded) { return loaded.context == context; }, *recorder);
}

void look_up(const uci_list* list, const char* name, uci_element* found) {
  if (recorder == nullptr) return;
  for (auto& [package, loaded] : recorder->packages) {
    if (list == &package->sections) {
      loaded.searched = true;
      if (found == nullptr) recorder->trace.look_ups.push_back({loaded.name + "." + name, std::nullopt});
      return;
    }
    uci_element* element = nullptr;
    uci_foreach_element(&package->sections, element) {
      if (list != &uci_to_section(element)->options) continue;
      recorder->trace.look_ups.push_back({loaded.name + "." + element->name + "." + name, value_of(found)});
      return;
    }
  }
}

void bus_object(const char* object, uint32_t id, int status) {
  if (recorder == nullptr) return;
  if (status == 0) {
    recorder->bus_objects[id] = object;
  } else {
    recorder->trace.bus_calls.push_back(object + status_text(status));
  }
}

void bus_call(uint32_t id, const char* method, blob_attr* message, int status) {
  if (recorder == nullptr) return;
  recorder->trace.bus_calls.push_back(recorder->bus_objects[id] + " " + method + message_text(message) +
                                      status_text(status));
}

}  // namespace note
}  // namespace kovadm

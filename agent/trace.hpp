// Observes what the plug-in does during a call. The loading process comes first when the plug-in's symbols are
// resolved: kovadm defines the services that handlers work through (popen, system, fopen, vsyslog, uci_load, ...),
// notes what the plug-in asks of them, and does it.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace kovadm {

// Something looked up in the configuration: an option, or the section or package that was missing.
struct LookUp {
  std::string path;                  // "package.section.option"; for other stores than /etc/config the package's file
  std::optional<std::string> value;  // nothing when it was not found
};

struct Trace {
  std::vector<LookUp> look_ups;
  std::vector<std::string> walked_packages;  // searched section by section instead of by name
  std::vector<std::string> commands;
  std::vector<std::string> files;      // opened or tested
  std::vector<std::string> bus_calls;  // object, method, message
  std::vector<std::string> log;        // messages with module and line
  std::string printed;                 // by the commands, beside what the handler read
};

// Calls `work` with the debug log on, observing the library that `code`, a function of it, belongs to. Calls must not
// nest.
Trace trace(const void* code, const std::function<void()>& work);

}  // namespace kovadm

// Observes what the plug-in asks of the platform during a call.
#pragma once

extern "C" {
#include <libubus.h>
#include <uci.h>
}
#include <cstdarg>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace seam {

// Something looked up in the configuration: an option, or the section or package that was missing.
struct LookUp {
  std::string path;                  // "package.section.option"; for other stores than /etc/config the package's file
  std::optional<std::string> value;  // nothing when it was not found
  bool broken = false;               // a package that cannot be parsed
};

struct FileUse {
  std::string path;
  std::string finding;  // "exists", "cannot be opened", ...; may be empty
};

// A command that ended.
struct CommandEnd {
  std::string command;
  int status;    // as wait() tells it; -1: could not be run
  bool printed;  // something that the handler could read, where it reads it
};

struct Trace {
  std::vector<LookUp> look_ups;
  std::vector<std::string> walked_packages;  // searched section by section instead of by name
  std::vector<std::string> commands;
  std::vector<std::string> started;  // those of the commands whose output is not read
  std::vector<CommandEnd> ends;
  std::vector<FileUse> files;          // opened or tested
  std::vector<std::string> bus_calls;  // object, method, message
  std::map<std::string, int> asked;    // packages, commands read and bus calls, and how often
  std::vector<std::string> log;        // messages with module and line
  std::string printed;                 // by the commands, beside what the handler read
};

// Calls `work` with the debug log on, observing. Calls must not nest.
Trace trace(const std::function<void()>& work);

// Among the calls of the bus: there is no way to it.
inline constexpr char kNoBus[] = "(no connection)";

// A message of the bus for people: " NAME=VALUE" for each field.
std::string message_text(blob_attr* message);

// A message of the log.
std::string formatted(const char* format, va_list arguments);

}  // namespace seam

#include "device/causes.hpp"

#include <sys/wait.h>

#include <algorithm>
#include <csignal>

#include "device/processes.hpp"
#include "model/data_files.hpp"
#include "model/value_type.hpp"
#include "seam/paths.hpp"

namespace kovadm {
namespace {

using Kind = Cause::Kind;

Cause cause_of(const Needed& needed) {
  switch (needed.need) {
    case Need::PROGRAM:
      return {Kind::PROGRAM, needed.name};
    case Need::PACKAGE:
      return {Kind::PACKAGE, needed.name};
    case Need::BUS_OBJECT:
      return {Kind::BUS_OBJECT, needed.name};
    case Need::FILE:
      break;
  }
  return {Kind::FILE, needed.name};
}

// Whether it lacks something.
bool add_of_command(const std::string& command, Inventory& inventory, std::set<Cause>& causes) {
  bool lacks = false;
  for (const Needed& needed : needs_of(command)) {
    if (inventory.has(needed)) continue;
    causes.insert(cause_of(needed));
    lacks = true;
  }
  return lacks;
}

// What the tests that a server asks for leave, once one has run.
bool is_of_a_test(const std::string& path) {
  return path.starts_with(std::string(seam::kTestFiles) + "/") || path == std::string(seam::kStateFiles) + "/aplist";
}

void add_file(const std::string& path, Inventory& inventory, std::set<Cause>& causes) {
  if (!is_of_a_test(path) && !inventory.has({Need::FILE, path})) causes.insert({Kind::FILE, path});
}

// Packages and sections; an option that is not there has a default.
void add_of_look_up(const seam::LookUp& look_up, Inventory& inventory, std::set<Cause>& causes) {
  if (look_up.value) return;
  const bool is_path = look_up.path.starts_with('/');
  const std::string name = look_up.path.substr(look_up.path.rfind('/') + 1);
  switch (std::ranges::count(name, '.')) {
    case 0:
      if (look_up.broken) {
        causes.insert({Kind::BROKEN, look_up.path});
      } else if (is_path) {
        add_file(look_up.path, inventory, causes);
      } else {
        causes.insert({Kind::PACKAGE, name});
      }
      break;
    case 1:
      causes.insert({Kind::SECTION, look_up.path});
      break;
    default:
      break;
  }
}

// "OBJECT METHOD MESSAGE (status N)", without the method where there is no such object.
void add_of_bus_call(const std::string& call, std::set<Cause>& causes) {
  const std::size_t status = call.rfind(" (status ");
  if (call == seam::kNoBus) {
    causes.insert({Kind::BUS_OBJECT, call});
  } else if (status != std::string::npos) {
    const std::string asked = call.substr(0, status);
    if (asked.find(' ') == std::string::npos) {
      causes.insert({Kind::BUS_OBJECT, asked});
    } else {
      causes.insert({Kind::FAILED, "bus call " + call});
    }
  }
}

// Where status 1 says that there is nothing of that kind.
bool asks_whether(const std::string& command) {
  std::string last;
  for (const Needed& needed : needs_of(command)) {
    if (needed.need == Need::PROGRAM) last = needed.name;
  }
  return last == "grep" || last == "uci";
}

void add_of_end(const seam::CommandEnd& end, std::set<Cause>& causes) {
  const int status = exit_status(end.status);
  if (end.printed && WIFSIGNALED(end.status) && WTERMSIG(end.status) == SIGPIPE) return;  // more than was read
  if (status != 0 && (status != 1 || !asks_whether(end.command))) {
    causes.insert({Kind::FAILED, end.command + " (status " + std::to_string(status) + ")"});
  } else if (!end.printed) {
    causes.insert({Kind::SILENT, end.command});
  }
}

void add_of_trace(const seam::Trace& trace, Inventory& inventory, std::set<Cause>& causes) {
  for (const seam::CommandEnd& end : trace.ends) {
    if (!add_of_command(end.command, inventory, causes)) add_of_end(end, causes);
  }
  for (const std::string& program : programs_missed_in(trace.printed)) causes.insert({Kind::PROGRAM, program});
  for (const auto& [path, finding] : trace.files) {
    if (!finding.empty() && finding != "exists") add_file(path, inventory, causes);
  }
  for (const seam::LookUp& look_up : trace.look_ups) add_of_look_up(look_up, inventory, causes);
  for (const std::string& call : trace.bus_calls) add_of_bus_call(call, causes);
}

// An option that is not there mostly has a default, but not where its parameter fails.
void add_of_fault(const seam::Trace& trace, std::set<Cause>& causes) {
  causes.insert({Kind::FAULT, ""});
  for (const seam::LookUp& look_up : trace.look_ups) {
    if (!look_up.value) causes.insert({Kind::OPTION, look_up.path});
  }
}

// What is behind others: a script without its program makes no state file, and a command without it prints nothing.
int rank(const Cause& cause) {
  switch (cause.kind) {
    case Kind::PROGRAM:
    case Kind::PACKAGE:
    case Kind::BUS_OBJECT:
    case Kind::BROKEN:
      return 0;
    case Kind::FILE:
      return static_cast<int>(cause.name.starts_with("/tmp/") ? Kind::SECTION : Kind::FILE);  // scripts make those
    default:
      return static_cast<int>(cause.kind);
  }
}

std::set<Cause> without_consequences(std::set<Cause> causes) {
  if (causes.empty()) return causes;
  const int first = rank(*std::ranges::min_element(causes, {}, rank));
  std::erase_if(causes, [first](const Cause& cause) { return rank(cause) > first; });
  return causes;
}

}  // namespace

bool is_root(const Cause& cause) { return rank(cause) == 0; }

bool is_missing(const Cause& cause) { return cause.kind < Kind::SILENT; }

std::string kind_text(const Cause& cause) {
  switch (cause.kind) {
    case Kind::PROGRAM:
      return "program";
    case Kind::PACKAGE:
    case Kind::BROKEN:
      return "package";
    case Kind::BUS_OBJECT:
      return "bus";
    case Kind::FILE:
      return "file";
    case Kind::SECTION:
      return "section";
    case Kind::FAILED:
      return "failed";
    case Kind::OPTION:
      return "option";
    case Kind::FAULT:
      return "fault";
    case Kind::SILENT:
      return "silent";
    case Kind::NO_VALUE:
      return "type";
  }
  return "";
}

std::string to_text(const Cause& cause) {
  switch (cause.kind) {
    case Kind::PROGRAM:
      return "program " + cause.name + ": not found";
    case Kind::BROKEN:
      return "package " + cause.name + ": cannot be read";
    case Kind::FAILED:
      return "failed: " + cause.name;
    case Kind::FAULT:
      return "faults of which no reason was seen";
    case Kind::SILENT:
      return "printed nothing: " + cause.name;
    case Kind::NO_VALUE:
      return "no " + cause.name;
    default:
      return kind_text(cause) + " " + cause.name + ": not there";
  }
}

std::set<Cause> causes_of(const Parameter& parameter, const std::optional<std::string>& value, const seam::Trace& trace,
                          Inventory& inventory) {
  std::set<Cause> causes;
  add_of_trace(trace, inventory, causes);
  const Type type = parameter.row->type;
  if (!value) add_of_fault(trace, causes);
  if (value && !is_of_type(*value, type)) causes.insert({Kind::NO_VALUE, to_text(type)});
  return without_consequences(std::move(causes));
}

std::set<Cause> causes_of_commands(const std::vector<std::string>& commands, Inventory& inventory) {
  std::set<Cause> causes;
  for (const std::string& command : commands) add_of_command(command, inventory, causes);
  return without_consequences(std::move(causes));
}

std::vector<std::string> paths_below(const std::vector<std::string>& prefixes) {
  std::vector<std::string> paths;
  for (const Row& row : catalogue()) {
    std::ranges::copy_if(row.paths, std::back_inserter(paths), [&](const std::string& path) {
      return prefixes.empty() || std::ranges::any_of(prefixes, [&](const std::string& prefix) {
               return path.starts_with(catalogue_path(prefix));
             });
    });
  }
  return paths;
}

std::vector<std::pair<std::string, std::vector<std::string>>> set_commands(const std::vector<std::string>& prefixes) {
  std::vector<std::pair<std::string, std::vector<std::string>>> sets;
  const std::vector<std::string> paths = paths_below(prefixes);
  for (const auto& cells : read_table(kSetCommandTable)) {
    if (std::ranges::find(paths, cells.at(0)) == paths.end()) continue;
    if (sets.empty() || sets.back().first != cells.at(0)) sets.push_back({cells.at(0), {}});
    sets.back().second.push_back(cells.at(1));
  }
  return sets;
}

}  // namespace kovadm

// Why parameters cannot answer, or be set: what the device lacks of what their handlers ask of it.
#pragma once

#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "device/needs.hpp"
#include "model/data_model.hpp"
#include "seam/trace.hpp"

namespace kovadm {

struct Cause {
  // Of what a parameter lacks only the first kinds are told that it has: the others follow from them.
  enum class Kind { PROGRAM, PACKAGE, BUS_OBJECT, BROKEN, FAILED, FILE, SECTION, OPTION, FAULT, SILENT, NO_VALUE };

  Kind kind;
  std::string name;

  auto operator<=>(const Cause&) const = default;
};

// Whether others can follow from it: also in scripts, which are not looked into.
bool is_root(const Cause& cause);

// Whether something is missing or fails. Else it is only odd: a command that printed nothing, a value of no valid type.
bool is_missing(const Cause& cause);

std::string kind_text(const Cause& cause);  // "program"
std::string to_text(const Cause& cause);    // "program iwinfo: not found"

// Of a get, by its value (nothing for a fault) and what it was seen to ask.
std::set<Cause> causes_of(const Parameter& parameter, const std::optional<std::string>& value, const seam::Trace& trace,
                          Inventory& inventory);

// Of command lines that have not been run.
std::set<Cause> causes_of_commands(const std::vector<std::string>& commands, Inventory& inventory);

// ---- Sets, by what they are known to run ----

// The catalogue's paths that begin so, with numbers or placeholders; all without prefixes.
std::vector<std::string> paths_below(const std::vector<std::string>& prefixes);

// The parameters among them with the commands that a set of each runs or records, where it does.
std::vector<std::pair<std::string, std::vector<std::string>>> set_commands(const std::vector<std::string>& prefixes);

}  // namespace kovadm

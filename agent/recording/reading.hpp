// Reading all of a device's parameters, and what each is read from.
#pragma once

#include <optional>
#include <set>
#include <string>
#include <vector>

#include "device/agent.hpp"
#include "device/causes.hpp"
#include "output/output.hpp"
#include "recording/secrets.hpp"
#include "seam/trace.hpp"

namespace kovadm {

struct Reading {
  Parameter parameter;
  std::optional<std::string> value;  // nothing: a fault
};

// The parameters below the prefixes, all where there is none; what secret ones have read is noted in `secrets`, if
// there is such. A prefix that is wrong is a fault of the output's.
std::vector<Reading> read_all(Agent& agent, const std::vector<std::string>& prefixes, Output& output, Secrets* secrets);

// The same, with all that each get asked of the platform, and what was missing there.
struct WatchedReading : Reading {
  seam::Trace trace;
  std::set<Cause> causes;
};

std::vector<WatchedReading> watch_all(Agent& agent, const std::vector<std::string>& prefixes, Output& output);

}  // namespace kovadm

// Walks the data model below a prefix, tables expanded to the instances that the device has.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "device/agent.hpp"

namespace kovadm {

// Of one table, with those in it: no device has more.
inline constexpr int kMostRows = 512;

// Whether the parameter answers, as far as that is asked.
using Visit = std::function<bool(const Parameter&)>;

// Calls `visit` for every parameter whose path begins with `prefix`. Otherwise the fault: the catalogue has no such
// parameter, or the prefix names an instance that the device does not have. Devices may be broken or hostile: how many
// rows they say that there are is believed within bounds, and the agent warned beyond.
std::optional<Fault> walk(Agent& agent, const std::string& prefix, const Visit& visit);

}  // namespace kovadm

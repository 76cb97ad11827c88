// Walks the data model below a prefix, tables expanded to the instances that the device has.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "agent.hpp"

namespace kovadm {

// Calls `visit` for every parameter whose path begins with `prefix`. Otherwise the fault: the catalogue has no such
// parameter, or the prefix names an instance that the device does not have.
std::optional<Fault> walk(Agent& agent, const std::string& prefix, const std::function<void(const Parameter&)>& visit);

}  // namespace kovadm

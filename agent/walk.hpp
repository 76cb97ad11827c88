// Walks the data model below a prefix, tables expanded to the instances that the device has.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "agent.hpp"

namespace kovadm {

// Calls `visit` for every parameter whose path begins with `prefix`. Instances that the prefix names are visited
// without asking whether they exist. False when the catalogue has no such parameter.
bool walk(Agent& agent, std::string_view prefix, const std::function<void(const Parameter&)>& visit);

}  // namespace kovadm

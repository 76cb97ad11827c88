// Which instances of a table the device has.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "device/agent.hpp"

namespace kovadm {

// An object of the device that a node of the catalogue's tree stands for.
struct Place {
  std::string path;  // without a dot at its end
  std::vector<int32_t> instances;

  Place below(const std::string& component) const;
};

// Their number, which is that of the last one, too: by the table's counter where it has one, else until no parameter of
// an instance answers. `instance` is the table's node for instances.
int32_t count_instances(Agent& agent, const Node& instance, const Place& table);

// The fault of a path that names an instance which the device does not have.
std::optional<Fault> missing_instance(Agent& agent, const std::string& path);

}  // namespace kovadm

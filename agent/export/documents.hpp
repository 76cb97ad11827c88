// What is served, in the forms of the data models' publishers (TR-106).
#pragma once

#include <string>

#include "model/data_model.hpp"

namespace kovadm {

// A device-type document of one tree, `root`: its model with the objects and parameters that are served. Throws
// SetupError where kovadm was built without a library for XML.
std::string device_type(const Node& root);

// The model that it refers to: the published one of the tree, and what the device serves beyond it, with types.
std::string vendor_model(const Node& root);

}  // namespace kovadm

// Values that a server could not take, for they are none of their parameter's type.
#pragma once

#include <string>

#include "model/data_model.hpp"
#include "output/output.hpp"

namespace kovadm {

// Tells of such a value, with type and reason, and adds it to the document's list "invalid". False when it is none.
bool tell_if_invalid(const Parameter& parameter, const std::string& value, Output& output);

}  // namespace kovadm

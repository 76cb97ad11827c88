// Values that become part of a shell's command lines as they are.
#pragma once

#include <string>

#include "model/data_model.hpp"
#include "output/output.hpp"

namespace kovadm {

// Warns when a shell would act on characters of the value that a parameter is set to.
void warn_of_shell(const Parameter& parameter, const std::string& value, Output& output);

}  // namespace kovadm

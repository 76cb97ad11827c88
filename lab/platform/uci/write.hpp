// Packages as configuration files, in the canonical form.
#pragma once

#include <string>
#include <string_view>

#include "uci.h"

namespace standin {

std::string format_package(const uci_package& package);

// A value as files have it: in single quotes, with '\'' for a quote inside.
std::string quoted(std::string_view value);

}  // namespace standin

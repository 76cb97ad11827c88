// Packages as configuration files, in the canonical form.
#pragma once

#include <string>
#include <string_view>

#include "uci.h"

namespace standin {

std::string format_package(const uci_package& package);

// A text as files have it: with '\'' for a single quote, in types and names too, though no reader takes them.
std::string escaped(std::string_view text);

// A value as files have it: escaped, in single quotes.
std::string quoted(std::string_view value);

}  // namespace standin

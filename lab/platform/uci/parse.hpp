// Configuration files as packages.
#pragma once

#include <string>

#include "model.hpp"

namespace standin {

// Reads a configuration file's text into an empty package. Throws Failure(UCI_ERR_PARSE) saying what is wrong where.
void parse_package(Package& package, const std::string& text);

}  // namespace standin

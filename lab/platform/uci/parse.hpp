// The text form of configuration and delta files.
#pragma once

#include <string>
#include <vector>

#include "model.hpp"

namespace standin {

// Reads a configuration file's text into an empty package. Throws Failure(UCI_ERR_PARSE) saying what is wrong where.
void parse_package(Package& package, const std::string& text);

// Writes a package in the canonical form.
std::string format_package(const uci_package& package);

// The changes of a delta file; lines that make no sense are left out.
std::vector<Change> parse_delta(const std::string& text);
std::string format_change(const std::string& package, const Change& change);

}  // namespace standin

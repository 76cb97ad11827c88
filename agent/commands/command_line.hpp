// The command line.
#pragma once

#include <string>
#include <variant>

#include "commands/command.hpp"

namespace kovadm {

// The exit status of a run that did not start.
inline constexpr int kUsage = 2;

// A command that was asked for.
struct Invocation {
  CommonOptions options;
  Run run;
};

// Tells what is wrong, on standard output too where the arguments ask for JSON.
void tell_misuse(int argc, char** argv, const std::string& error, const std::string& help = "");

// What is to be run; or, when help was asked for or something is wrong with the arguments, the exit status, all being
// told. Throws SetupError for options that do not go together.
std::variant<Invocation, int> read_command_line(int argc, char** argv);

}  // namespace kovadm

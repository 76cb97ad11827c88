// The command line.
#pragma once

#include <string>
#include <variant>
#include <vector>

#include "commands/commands.hpp"

namespace kovadm {

// The exit status of a run that did not start.
inline constexpr int kUsage = 2;

struct Arguments {
  std::string command;
  bool json = false;
  bool debug = false;
  SetOptions set;
  bool live = false;
  std::string plugin;
  std::string agent_state;
  std::string replay;     // a recording's file
  std::string recording;  // record: the file to write
  bool with_secrets = false;
  std::vector<std::string> recordings;  // diff: one or two
  std::string path;
  std::vector<std::string> prefixes;
  std::vector<std::string> paths;
  std::vector<std::string> profiles;
  std::vector<Setting> settings;
};

// Tells what is wrong, on standard output too where the arguments ask for JSON.
void tell_misuse(int argc, char** argv, const std::string& error, const std::string& help = "");

// The arguments; or, when help was asked for or something is wrong with them, the exit status, all being told.
std::variant<Arguments, int> parse_arguments(int argc, char** argv);

}  // namespace kovadm

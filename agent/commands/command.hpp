// A command of the tool is a row, and stands beside the function that does it.
#pragma once

#include <functional>
#include <vector>

#include "commands/context.hpp"

namespace CLI {
class App;
}

namespace kovadm {

// Does the command. Returns the exit status: 0, or 1 after a fault or a failure, unless the command says otherwise.
// Throws SetupError when it cannot start, or std::system_error.
using Run = std::function<int(Context&)>;

struct Command {
  const char* name;
  const char* help;
  bool replays;  // works with --replay
  // Adds what the command takes to the command line. Returns what does it, once that is read.
  Run (*define)(CLI::App& line);
};

// In the order of the help.
extern const std::vector<const Command*> kCommands;

// The rows. PATH is a parameter's path with its instance numbers, PREFIX the beginning of paths.
extern const Command kList;
extern const Command kGet;
extern const Command kSet;
extern const Command kWalk;
extern const Command kCheck;
extern const Command kExplain;
extern const Command kRecord;
extern const Command kDiff;
extern const Command kProfiles;
extern const Command kPage;
extern const Command kExport;
extern const Command kSession;

// What PREFIX stands for, in the commands' help.
inline constexpr char kPrefixHelp[] = "Beginnings of paths; everything when left out";

}  // namespace kovadm

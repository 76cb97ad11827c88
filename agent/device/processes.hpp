// Commands as child processes, and the signals that end them: Ctrl-C and SIGTERM end kovadm with its children, so that
// nothing takes what a broken-off command left unsaid for an answer.
#pragma once

#include <functional>

namespace kovadm {

// Runs a command in the shell to its end; meanwhile calls `each_second` with the seconds that have passed. Other than
// in system(), signals reach kovadm meanwhile. Returns the wait status, -1 when the command could not be started.
int run_in_shell(const char* command, const std::function<void(int seconds)>& each_second = {});

// Takes a wait status for one's own: whoever breaks off a child means its parent too. Returns it.
int end_with_child(int status);

// A wait status as the shell tells it; -1 stays.
int exit_status(int status);

}  // namespace kovadm

// What the plug-in asks the world for, observed and replaced: commands and messages are recorded, and passed on unless
// a test has told otherwise.
#pragma once

#include <sys/vfs.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace kova::test {

struct Seams {
  std::vector<std::string> commands;  // given to popen and system, in order
  std::vector<std::string> popen_modes;
  std::vector<std::string> syslog;  // messages as written to the system log
  std::vector<std::string> stderr_log;
  std::function<void(const std::string& message)> on_log;  // at a message: something happens to the router

  // popen: what a command prints, in place of running it; nullptr runs it.
  std::function<const std::string*(const std::string& command)> popen_answer;
  bool popen_fails = false;
  // system: the status to return in place of running the command; nullptr runs it.
  std::function<const int*(const std::string& command)> system_status;

  // statfs: what every file system says of itself.
  std::optional<struct statfs> file_system;

  // uci_alloc_context: out of memory.
  bool config_context_fails = false;

  // Makes popen of this very command print `output`. Other commands run as before.
  void answer(const std::string& command, const std::string& output);
};

// The process's one recorder; a fixture starts each test with a fresh one.
Seams& seams();

// Runs a command for the test itself: not recorded, never replaced.
int run(const std::string& command);

}  // namespace kova::test

#include "command.hpp"

#include <errno.h>
#include <signal.h>
#include <stdlib.h>
#include <string.h>
#include <sys/wait.h>

#include "log.hpp"
#include "text.hpp"

namespace kova {
namespace {

// For its lifetime, children have an exit status that can be waited for.
class ExitStatuses {
 public:
  ExitStatuses() {
    sigaction(SIGCHLD, nullptr, &before_);
    if (ignored()) signal(SIGCHLD, SIG_DFL);
  }
  ~ExitStatuses() {
    if (!ignored()) return;
    sigaction(SIGCHLD, &before_, nullptr);
    while (waitpid(-1, nullptr, WNOHANG) > 0) continue;  // the agent's own, of which it wants nothing left
  }
  ExitStatuses(const ExitStatuses&) = delete;
  ExitStatuses& operator=(const ExitStatuses&) = delete;

 private:
  bool ignored() const { return before_.sa_handler == SIG_IGN || (before_.sa_flags & SA_NOCLDWAIT) != 0; }

  struct sigaction before_ = {};
};

// Runs a command as system() does, and has its exit status even where the agent ignores how its children end.
int run_now(const char* command) {
  const StandardDescriptors standard;
  const ExitStatuses statuses;
  return system(command);
}

// Runs a command for its effect; a get runs it once in a look.
int run_shell(const char* command) {
  Source script({SourceName::SCRIPT, {command != nullptr ? command : ""}});
  if (const Finding* kept = script.kept()) return kept->error;
  look_anew();
  Finding found;
  found.error = run_now(command);
  if (script.is_wanted()) script.keep(found);
  return found.error;
}

}  // namespace

bool CommandLine::run() const { return *this && cwmp_system(c_str()) == 0; }

int CommandLine::run_for_status() const { return *this ? run_shell(c_str()) : -1; }

bool CommandLine::run_unjudged() const {
  if (!*this) return false;
  run_for_status();
  return true;
}

bool CommandLine::record() const { return *this && record_task_cmd(c_str()) == 0; }

void remove_newline(std::span<char> line) {
  const size_t length = strlen(line.data());
  if (length > 0 && line[length - 1] == '\n') line[length - 1] = '\0';
}

bool first_line(const char* command, std::span<char> line) {
  CommandOutput output(command);
  if (!output) return false;
  line[0] = '\0';
  if (output.read_line(line)) remove_newline(line);
  return true;
}

}  // namespace kova

using namespace kova;

int32_t util_exec(const char* command, char* output, int32_t length) {
  if (command == nullptr || output == nullptr || length <= 0) {
    LOG("NP.\n");
    return -1;
  }
  CommandOutput pipe(command);
  if (!pipe) {
    LOG("popen %s failed %s\n\n", command, strerror(errno));
    return -1;
  }
  const std::span line(output, static_cast<size_t>(length));
  if (!pipe.read_line(line)) {
    LOG("fgets %s failed %s\n\n", command, strerror(errno));
    return -1;
  }
  LOG("cmd: %s--%s\n", command, output);
  remove_newline(line);
  return static_cast<int32_t>(strlen(output));
}

int32_t cwmp_system(const char* command) {
  const int status = run_shell(command);
  if (status == -1) {
    LOG("[ERR]system ret -1\n");
    return -1;
  }
  return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? 0 : -2;
}

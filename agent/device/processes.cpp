#include "device/processes.hpp"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <iterator>
#include <string>

#include "seam/platform.hpp"

namespace kovadm {
namespace {

// Signals that wait to be taken, for its lifetime.
class Blocked {
 public:
  explicit Blocked(int signal) {
    sigemptyset(&blocked_);
    sigaddset(&blocked_, signal);
    sigprocmask(SIG_BLOCK, &blocked_, &before_);
  }
  ~Blocked() { sigprocmask(SIG_SETMASK, &before_, nullptr); }
  Blocked(const Blocked&) = delete;
  Blocked& operator=(const Blocked&) = delete;

  const sigset_t* before() const { return &before_; }

  // Takes one, or waits a second for it.
  void wait() const {
    const timespec second = {1, 0};
    sigtimedwait(&blocked_, nullptr, &second);
  }

 private:
  sigset_t blocked_ = {};
  sigset_t before_ = {};
};

// The process that runs the command; -1 for none.
pid_t start_shell(std::string command, const sigset_t* signals) {
  std::string shell = "sh";
  std::string option = "-c";
  char* const arguments[] = {shell.data(), option.data(), command.data(), nullptr};
  posix_spawnattr_t attributes = {};
  posix_spawnattr_init(&attributes);
  posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK);
  posix_spawnattr_setsigmask(&attributes, signals);
  pid_t child = -1;
  const int error = posix_spawn(&child, "/bin/sh", nullptr, &attributes, arguments, environ);
  posix_spawnattr_destroy(&attributes);
  return error == 0 ? child : -1;
}

}  // namespace

int end_with_child(int status) {
  if (status != -1 && WIFSIGNALED(status) && (WTERMSIG(status) == SIGINT || WTERMSIG(status) == SIGTERM)) {
    std::raise(WTERMSIG(status));
    std::_Exit(128 + WTERMSIG(status));  // our caller has us ignore it
  }
  return status;
}

int exit_status(int status) {
  if (status == -1) return -1;
  return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}

int run_in_shell(const char* command, const std::function<void(int seconds)>& each_second) {
  std::fflush(nullptr);
  const Blocked ended(SIGCHLD);
  const pid_t child = start_shell(command, ended.before());
  if (child < 0) return -1;
  const std::time_t start = std::time(nullptr);
  int status = -1;
  for (;;) {
    const pid_t waited = waitpid(child, &status, WNOHANG);
    if (waited == child) return end_with_child(status);
    if (waited < 0 && errno != EINTR) return -1;
    ended.wait();
    if (each_second) each_second(static_cast<int>(std::time(nullptr) - start));
  }
}

namespace {

// Answers the plug-in and the platform's libraries alike.
class Machine final : public seam::Platform {
 public:
  int pclose(FILE* pipe) override { return end_with_child(Platform::pclose(pipe)); }
  int system(const char* command) override { return command == nullptr ? 1 : run_in_shell(command); }

  // The event loop of the platform's bus library would have some for itself. kovadm's own calls of signal() do not
  // come through here.
  int sigaction(int signal, const struct sigaction* action, struct sigaction* before) override {
    static constexpr int kKept[] = {SIGCHLD, SIGINT, SIGPIPE, SIGTERM};
    const bool kept = std::find(std::begin(kKept), std::end(kKept), signal) != std::end(kKept);
    return Platform::sigaction(signal, kept ? nullptr : action, before);
  }
};

Machine the_machine;
const seam::InUse from_the_start(the_machine, seam::Calls::OF_PROCESS);

}  // namespace
}  // namespace kovadm

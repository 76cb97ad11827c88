#include "seam/debug_switch.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#include <string>

#include "seam/paths.hpp"
#include "seam/platform.hpp"

namespace seam {
namespace {

constexpr int kEndings[] = {SIGABRT, SIGBUS, SIGHUP, SIGINT, SIGPIPE, SIGQUIT, SIGSEGV, SIGTERM};

std::string file;  // a signal's handler needs it

bool create_file() {
  const int descriptor = open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644);
  if (descriptor < 0) return false;
  close(descriptor);
  return true;
}

// A run that is broken off must not leave the router logging.
void remove_file_and_end(int signal) {
  unlink(file.c_str());
  std::signal(signal, SIG_DFL);
  raise(signal);
}

// What the caller had ignored stays so.
void replace_endings(void (*handler)(int signal)) {
  for (const int signal : kEndings) {
    if (std::signal(signal, handler) == SIG_IGN) std::signal(signal, SIG_IGN);
  }
}

}  // namespace

DebugSwitch::DebugSwitch() {
  // No ending between the file and what removes it.
  sigset_t endings;
  sigset_t before;
  sigemptyset(&endings);
  for (const int signal : kEndings) sigaddset(&endings, signal);
  sigprocmask(SIG_BLOCK, &endings, &before);
  file = platform().place(kDebugFile);
  created_ = create_file();
  if (created_) replace_endings(remove_file_and_end);
  sigprocmask(SIG_SETMASK, &before, nullptr);
}

DebugSwitch::~DebugSwitch() {
  if (!created_) return;
  unlink(file.c_str());
  replace_endings(SIG_DFL);
}

}  // namespace seam

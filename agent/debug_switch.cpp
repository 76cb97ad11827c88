#include "debug_switch.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <csignal>

namespace kovadm {
namespace {

constexpr char kFile[] = "/tmp/cwmp_debug";
constexpr int kEndings[] = {SIGHUP, SIGINT, SIGPIPE, SIGTERM};

bool create_file() {
  const int descriptor = open(kFile, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644);
  if (descriptor < 0) return false;
  close(descriptor);
  return true;
}

// A run that is broken off must not leave the router logging.
void remove_file_and_end(int signal) {
  unlink(kFile);
  std::signal(signal, SIG_DFL);
  raise(signal);
}

}  // namespace

DebugSwitch::DebugSwitch() : created_(create_file()) {
  if (!created_) return;
  for (const int signal : kEndings) std::signal(signal, remove_file_and_end);
}

DebugSwitch::~DebugSwitch() {
  if (!created_) return;
  for (const int signal : kEndings) std::signal(signal, SIG_DFL);
  unlink(kFile);
}

}  // namespace kovadm

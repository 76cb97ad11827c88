#include "session/interrupt.hpp"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace kovadm::session {
namespace {

volatile std::sig_atomic_t signalled = 0;
int ends[2] = {-1, -1};  // of a pipe that a wait reads from

void note(int signal) {
  signalled = signal;
  Interrupt::wake();
}

}  // namespace

Interrupt::Interrupt() {
  if (pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0) throw std::system_error(errno, std::generic_category(), "a pipe");
  signalled = 0;
  for (const int signal : {SIGINT, SIGTERM}) std::signal(signal, note);
}

Interrupt::~Interrupt() {
  for (const int signal : {SIGINT, SIGTERM}) std::signal(signal, SIG_DFL);
  for (int& end : ends) {
    close(end);
    end = -1;
  }
}

void Interrupt::wait(double seconds) {
  pollfd woken = {ends[0], POLLIN, 0};
  poll(&woken, 1, static_cast<int>(seconds * 1000));
  char taken[64] = {};
  while (read(ends[0], taken, sizeof taken) > 0) continue;
}

void Interrupt::wake() {
  const int error = errno;
  [[maybe_unused]] const ssize_t written = write(ends[1], "", 1);
  errno = error;
}

int interrupted() { return signalled; }

Uninterrupted::Uninterrupted() {
  sigset_t waiting = {};
  sigemptyset(&waiting);
  for (const int signal : {SIGINT, SIGTERM}) sigaddset(&waiting, signal);
  sigprocmask(SIG_BLOCK, &waiting, &before_);
}

Uninterrupted::~Uninterrupted() { sigprocmask(SIG_SETMASK, &before_, nullptr); }

}  // namespace kovadm::session

// Ctrl-C and SIGTERM end a session where it stands between two messages.
#pragma once

#include <csignal>

namespace kovadm::session {

// From its making on these signals are only noted.
class Interrupt {
 public:
  Interrupt();
  ~Interrupt();
  Interrupt(const Interrupt&) = delete;
  Interrupt& operator=(const Interrupt&) = delete;

  // Waits for a signal, a wake(), or so many seconds.
  static void wait(double seconds);
  // Ends a wait; from any thread.
  static void wake();
};

// The signal that has come; 0: none.
int interrupted();

// For its lifetime they wait, also for the commands that are run: what is half done would stay so.
class Uninterrupted {
 public:
  Uninterrupted();
  ~Uninterrupted();
  Uninterrupted(const Uninterrupted&) = delete;
  Uninterrupted& operator=(const Uninterrupted&) = delete;

 private:
  sigset_t before_ = {};
};

}  // namespace kovadm::session

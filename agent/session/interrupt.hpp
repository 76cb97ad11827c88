// Ctrl-C and SIGTERM end a session where it stands between two messages.
#pragma once

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

// Whether one of the signals has come.
bool interrupted();

}  // namespace kovadm::session

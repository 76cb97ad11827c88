// kovadm: the command-line agent that loads the data-model plug-in.
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <iostream>
#include <system_error>

#include "commands/command_line.hpp"

namespace {

using namespace kovadm;

// What was written, when it was.
void finish_standard_output() {
  if (!std::cout.flush()) throw std::system_error(errno, std::generic_category(), "standard output");
}

// A file that is opened must not become a standard stream that was closed. What is to be told needs somewhere to go.
void open_standard_streams() {
  const bool told = fcntl(STDOUT_FILENO, F_GETFD) >= 0;
  int descriptor = open("/dev/null", O_RDWR);
  while (descriptor >= 0 && descriptor <= STDERR_FILENO) descriptor = open("/dev/null", O_RDWR);
  if (descriptor >= 0) close(descriptor);
  if (!told) throw std::system_error(EBADF, std::generic_category(), "standard output");
}

}  // namespace

int main(int argc, char** argv) try {
  std::signal(SIGCHLD, SIG_DFL);  // else nothing is known of a child's end
  open_standard_streams();
  const auto read = read_command_line(argc, argv);
  if (const auto* invocation = std::get_if<Invocation>(&read)) {
    Context context(invocation->options);
    return invocation->run(context);
  }
  finish_standard_output();
  return std::get<int>(read);
} catch (const std::exception& error) {
  tell_misuse(argc, argv, error.what());
  return kUsage;
}

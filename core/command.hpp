// Shell commands as handlers use them, beside the exported functions of pkg-tool.h.
#pragma once

#include <stdio.h>

#include <span>

#include "file.hpp"
#include "text.hpp"

namespace kova {

// Owns a pipe from a shell command's output; closed with the scope.
class CommandOutput {
 public:
  explicit CommandOutput(const char* command) : pipe_(popen(command, "re")) {}
  ~CommandOutput() {
    if (pipe_ != nullptr) pclose(pipe_);
  }
  CommandOutput(const CommandOutput&) = delete;
  CommandOutput& operator=(const CommandOutput&) = delete;

  explicit operator bool() const { return pipe_ != nullptr; }

  bool read_line(std::span<char> line) { return kova::read_line(pipe_, line); }

 private:
  FILE* pipe_;
};

// Runs a command as system() does, and has its exit status even where the agent ignores how its children end.
int run_shell(const char* command);

// Removes one trailing newline.
void remove_newline(std::span<char> line);

// The first line of a command's output without its newline, at most line.size() - 1 characters; empty when nothing is
// printed. False when the command cannot be started.
bool first_line(const char* command, std::span<char> line);

// The first line of a command's output as util_exec reads it, cut to what fits; empty when nothing is printed.
template <std::size_t Size>
Text<Size> printed_line(const char* command) {
  Text<Size> line;
  util_exec(command, line.data(), line.size());
  return line;
}

// Prints a command line and runs it. Whether its exit status was 0; false, not run, when it would be cut.
template <typename... Arguments>
bool run_command(const char* format, Arguments... arguments) {
  Text<1024> command;
  return command.print(format, arguments...) && cwmp_system(command.c_str()) == 0;
}

}  // namespace kova

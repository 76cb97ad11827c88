// Shell commands as handlers use them, beside the exported functions of pkg-tool.h.
#pragma once

#include <stdio.h>

#include <span>

#include "descriptors.hpp"
#include "file.hpp"
#include "look.hpp"
#include "text.hpp"

namespace kova {

// A command line. One that would be cut is empty, and an empty one fails wherever it is used: nothing is run.
class CommandLine {
 public:
  // `form` is as printf has it.
  template <typename... Arguments>
  explicit CommandLine(const char* form, Arguments... arguments) {
    if (!line_.print(form, arguments...)) line_ = "";
  }

  explicit operator bool() const { return !line_.empty(); }
  const char* c_str() const { return line_.c_str(); }

  // Runs it. Whether its exit status was 0.
  bool run() const;

  // Runs it as system() does: the status, or -1 when it could not be run.
  int run_for_status() const;

  // Runs it, whatever comes of it. False when there is nothing to run.
  bool run_unjudged() const;

  // Has the agent run it after the set request. Whether it was recorded.
  bool record() const;

 private:
  Text<4096> line_;
};

// Owns a pipe from a shell command's output, or what the look has of that; closed with the scope.
class CommandOutput {
 public:
  explicit CommandOutput(const char* command) : pipe_(SourceName::COMMAND, command, "re", popen, pclose) {}

  explicit operator bool() const { return static_cast<bool>(pipe_); }

  bool read_line(std::span<char> line) { return pipe_.read_line(line); }

 private:
  StandardDescriptors standard_;
  LookedStream pipe_;
};

// Removes one trailing newline.
void remove_newline(std::span<char> line);

// The first line of a command's output without its newline, at most line.size() - 1 characters; empty when nothing is
// printed. False when the command cannot be started.
bool first_line(const char* command, std::span<char> line);

// The same as util_exec reads it, which logs the line or why there is none; then it is empty.
template <std::size_t Size>
Text<Size> logged_first_line(const char* command) {
  Text<Size> line;
  util_exec(command, line.data(), Text<Size>::capacity());
  return line;
}

template <std::size_t Size>
Text<Size> logged_first_line(const CommandLine& command) {
  return command ? logged_first_line<Size>(command.c_str()) : Text<Size>();
}

// Runs a command for what it does. What it prints is only logged.
inline void run_logged(const char* command) { logged_first_line<128>(command); }

}  // namespace kova

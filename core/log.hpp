// The ways to log: LOG("FTSDSE.\n") where it happens, LogMessage where a parameter's line carries the text as data.
#pragma once

#include <cstddef>

#include "pkg-tool.h"

// KOVA_MODULE, the name under which a folder's files log, is defined for each folder by the build.
#define LOG(message, ...) normal_debug_print("%s, %d: " message, KOVA_MODULE, __LINE__ __VA_OPT__(, ) __VA_ARGS__)

// Where a log line comes from; for functions that log on behalf of their caller.
#define HERE \
  kova::Origin { KOVA_MODULE, __LINE__ }

namespace kova {

struct Origin {
  const char* module;
  int line;
};

// A message as data; the part that every format begins with is added in front.
class LogMessage {
 public:
  constexpr LogMessage() = default;

  template <std::size_t N>
  consteval LogMessage(const char (&message)[N]) {  // NOLINT(google-explicit-constructor): tables spell plain texts
    static_assert(kPrefixLength + N <= sizeof format_, "log message too long");
    for (std::size_t i = 0; i < kPrefixLength; ++i) format_[i] = kPrefix[i];
    for (std::size_t i = 0; i < N; ++i) format_[kPrefixLength + i] = message[i];
  }

  // Logs the message, `arguments` filling its own conversions; an empty message logs nothing.
  template <typename... Arguments>
  void print(Origin origin, Arguments... arguments) const {
    if (format_[0] != '\0') normal_debug_print(format_, origin.module, origin.line, arguments...);
  }

 private:
  static constexpr char kPrefix[] = "%s, %d: ";
  static constexpr std::size_t kPrefixLength = sizeof kPrefix - 1;
  char format_[64] = {};
};

}  // namespace kova

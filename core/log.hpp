// The ways to log: LOG("FTSDSE.\n") where it happens, LogMessage where a parameter's line carries the text as data.
#pragma once

#include <stdio.h>

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
  consteval LogMessage(const char (&message)[N])
      : text_(message) {  // NOLINT(google-explicit-constructor): a plain text
    static_assert(sizeof kPrefix + N <= kLongestFormat, "log message too long");
  }

  // Logs the message; an empty one logs nothing.
  void print(Origin origin) const {
    if (text_ != nullptr) normal_debug_print("%s, %d: %s", origin.module, origin.line, text_);
  }

  // The same with the arguments that the message's own conversions want.
  template <typename... Arguments>
  void print(Origin origin, Arguments... arguments) const {
    if (text_ == nullptr) return;
    char format[kLongestFormat];
    snprintf(format, sizeof format, "%s%s", kPrefix, text_);
    normal_debug_print(format, origin.module, origin.line, arguments...);
  }

 private:
  static constexpr char kPrefix[] = "%s, %d: ";
  static constexpr std::size_t kLongestFormat = 64;
  const char* text_ = nullptr;
};

}  // namespace kova

// Bounded texts: every buffer of the plug-in's own is one of these.
#pragma once

#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include <algorithm>
#include <cstddef>
#include <span>
#include <string_view>

#include "pkg-tool.h"

namespace kova {

// Copies `source` into `target`, cut to what fits with its terminator.
inline void copy_text(std::span<char> target, std::string_view source) {
  if (target.empty()) return;
  // Not source.copy(), whose failure is a function of the C++ run-time library.
  const std::size_t length = source.size() < target.size() ? source.size() : target.size() - 1;
  if (length > 0) memcpy(target.data(), source.data(), length);
  target[length] = '\0';
}

// substr() and starts_with(), but for their failure, which is a function of the C++ run-time library.
inline std::string_view up_to(char end, std::string_view text) {
  const std::size_t length = text.find(end);
  return length == std::string_view::npos ? text : std::string_view(text.data(), length);
}
inline bool begins_with(std::string_view beginning, std::string_view text) {
  return text.size() >= beginning.size() && std::string_view(text.data(), beginning.size()) == beginning;
}

// The number that a text begins with, 0 without one. One that needs more than 32 bits is the nearest that does not.
inline int32_t leading_number(const char* text) {
  return static_cast<int32_t>(std::clamp<long long>(strtoll(text, nullptr, 10), INT32_MIN, INT32_MAX));
}

// True when the number that `text` begins with lies in this range, both ends included.
inline bool number_between(const char* text, int32_t lowest, int32_t highest) {
  const int32_t number = leading_number(text);
  return number >= lowest && number <= highest;
}

// A NUL-terminated text of at most Size - 1 characters, empty at first.
template <std::size_t Size>
class Text {
 public:
  // With the terminator, as the exported helpers take it.
  static constexpr int32_t capacity() { return Size; }

  Text() = default;
  explicit Text(std::string_view text) { *this = text; }

  Text& operator=(std::string_view text) {
    copy_text(buffer_, text);
    return *this;
  }

  // Prints into the text; true when all of it fitted.
  bool print(const char* format, ...) KOVA_PRINTF(2, 3) {
    va_list arguments;
    va_start(arguments, format);
    const int length = vsnprintf(buffer_, Size, format, arguments);
    va_end(arguments);
    return length >= 0 && static_cast<std::size_t>(length) < Size;
  }

  const char* c_str() const { return buffer_; }
  std::string_view view() const { return buffer_; }
  bool empty() const { return buffer_[0] == '\0'; }
  char* data() { return buffer_; }
  std::span<char> span() { return buffer_; }

  bool operator==(std::string_view other) const { return view() == other; }

 private:
  char buffer_[Size] = {};
};

}  // namespace kova

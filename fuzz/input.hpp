// A fuzzer's input, taken apart.
#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

namespace kova::fuzz {

// Ends the run for something that must not be; the fuzzer keeps the input.
inline void require(bool condition) {
  if (!condition) abort();
}

class Input {
 public:
  Input(const uint8_t* data, size_t size) : data_(data), size_(size) {}

  // What is missing reads as zero.
  uint32_t number(size_t bytes) {
    uint32_t number = 0;
    for (; bytes > 0; --bytes) number = number << 8 | (size_ > 0 ? *take(1) : 0U);
    return number;
  }

  // A text up to the next byte 0xff, or the end.
  std::string text() {
    const auto* end = std::find(data_, data_ + size_, uint8_t{0xff});
    const auto length = static_cast<size_t>(end - data_);
    const auto* start = reinterpret_cast<const char*>(take(length));
    if (size_ > 0) take(1);
    return {start, length};
  }

  std::string rest() {
    const size_t length = size_;
    const auto* start = reinterpret_cast<const char*>(take(length));
    return {start, length};
  }

 private:
  const uint8_t* take(size_t count) {
    const uint8_t* start = data_;
    data_ += count;
    size_ -= count;
    return start;
  }

  const uint8_t* data_;
  size_t size_;
};

// Bytes that end where the page after them cannot be touched.
class Guarded {
 public:
  explicit Guarded(size_t most) : size_(most) {
    const auto page = static_cast<size_t>(getpagesize());
    const size_t room = (most + page - 1) / page * page;
    auto* start =
        static_cast<char*>(mmap(nullptr, room + page, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
    require(start != MAP_FAILED && mprotect(start + room, page, PROT_NONE) == 0);
    end_ = start + room;
  }

  char* all() { return end_ - size_; }

  // The text's bytes, placed at the end; as many as there is room for, aligned as messages are.
  char* place(const std::string& text) {
    const size_t length = std::min(text.size(), size_) & ~size_t{3};
    return static_cast<char*>(memcpy(end_ - length, text.data(), length));
  }

 private:
  size_t size_;
  char* end_ = nullptr;
};

}  // namespace kova::fuzz

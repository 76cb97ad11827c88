// Text files that other programs leave for the plug-in, and it for them.
#pragma once

#include <stdio.h>

#include <span>

namespace kova {

// Reads the next line, with its newline where it fits; false at the end and for one that cannot be read. At the end,
// `line` is as it was. Where a signal interrupts, reading goes on.
bool read_line(FILE* file, std::span<char> line);

// Owns an open file; closed with the scope.
class File {
 public:
  File(const char* path, const char* mode) : file_(fopen(path, mode)) {}
  ~File() {
    if (file_ != nullptr) fclose(file_);
  }
  File(const File&) = delete;
  File& operator=(const File&) = delete;

  explicit operator bool() const { return file_ != nullptr; }

  bool read_line(std::span<char> line) { return kova::read_line(file_, line); }

  // Writes a text and closes the file. True when all of it was taken.
  bool write_and_close(const char* text) {
    const bool written = fputs(text, file_) >= 0;
    return (fclose(release()) == 0) && written;
  }

 private:
  FILE* release() {
    FILE* file = file_;
    file_ = nullptr;
    return file;
  }

  FILE* file_;
};

}  // namespace kova

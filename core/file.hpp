// Text files that other programs leave for the plug-in, and it for them.
#pragma once

#include <stdio.h>

#include <span>

namespace kova {

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

  // The next line, with its newline where it fits; false at the end, with `line` untouched.
  bool read_line(std::span<char> line) { return fgets(line.data(), static_cast<int>(line.size()), file_) != nullptr; }

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

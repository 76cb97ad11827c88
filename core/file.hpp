// Text files that other programs leave for the plug-in, and it for them.
#pragma once

#include <stdio.h>

#include <span>

#include "descriptors.hpp"

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
  FILE* get() const { return file_; }

  bool read_line(std::span<char> line) { return kova::read_line(file_, line); }

  // Closes the file. False when something of what was written cannot be kept.
  bool close() {
    FILE* file = file_;
    file_ = nullptr;
    return fclose(file) == 0;
  }

 private:
  StandardDescriptors standard_;
  FILE* file_;
};

// What comes of leaving a text in a file.
enum class Left { DONE, NOT_OPENED, NOT_WRITTEN };

// Makes a text and its end the whole of a file. When that fails, the file is as it was.
Left replace_file(const char* path, const char* text, const char* end = "");

// Appends a line to a file, and before it the line end that the file may lack. When that fails, the file is as it was.
Left append_line(const char* path, const char* line);

}  // namespace kova

// Text files that other programs leave for the plug-in, and it for them.
#pragma once

#include <stdio.h>

#include <span>

#include "descriptors.hpp"
#include "look.hpp"

namespace kova {

// Owns an open file, or what the look has of one that is read; closed with the scope. Files are written for their
// effect, when nothing is kept.
class File {
 public:
  File(const char* path, const char* mode) : stream_(SourceName::TEXT_FILE, path, mode, fopen, fclose) {}

  explicit operator bool() const { return static_cast<bool>(stream_); }
  FILE* get() const { return stream_.get(); }

  bool read_line(std::span<char> line) { return stream_.read_line(line); }

  // Closes the file. False when something of what was written cannot be kept.
  bool close() { return stream_.close() == 0; }

 private:
  StandardDescriptors standard_;
  LookedStream stream_;
};

// What comes of leaving a text in a file.
enum class Left { DONE, NOT_OPENED, NOT_WRITTEN };

// Makes a text and its end the whole of a file. When that fails, the file is as it was.
Left replace_file(const char* path, const char* text, const char* end = "");

// Appends a line to a file, and before it the line end that the file may lack. When that fails, the file is as it was.
Left append_line(const char* path, const char* line);

}  // namespace kova

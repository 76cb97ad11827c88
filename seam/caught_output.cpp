#include "seam/caught_output.hpp"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <system_error>

namespace seam {

CaughtOutput::CaughtOutput(const std::vector<int>& descriptors) : file_(memfd_create("output", MFD_CLOEXEC)) {
  // Appending, so that the file can be emptied below a program that goes on writing.
  if (file_ < 0 || fcntl(file_, F_SETFL, O_APPEND) != 0)
    throw std::system_error(errno, std::generic_category(), "room for what commands print");
  std::fflush(nullptr);
  for (const int descriptor : descriptors) {
    kept_.emplace_back(descriptor, fcntl(descriptor, F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
    dup2(file_, descriptor);
  }
}

CaughtOutput::~CaughtOutput() {
  std::fflush(nullptr);
  for (const auto& [descriptor, led_to] : kept_) {
    dup2(led_to, descriptor);
    close(led_to);
  }
  close(file_);
}

// NOLINTNEXTLINE(readability-make-member-function-const): what is taken is gone from the file.
std::string CaughtOutput::take() {
  std::fflush(nullptr);
  std::string text;
  std::array<char, 4096> part = {};
  for (;;) {
    const ssize_t length = pread(file_, part.data(), part.size(), static_cast<off_t>(text.size()));
    if (length <= 0) break;
    text.append(part.data(), static_cast<std::size_t>(length));
  }
  if (!text.empty() && ftruncate(file_, 0) != 0) throw std::system_error(errno, std::generic_category(), "output");
  return text;
}

}  // namespace seam

#include "output/progress.hpp"

#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace kovadm {
namespace {

bool is_terminal_that_clears() {
  const char* kind = std::getenv("TERM");
  return isatty(STDERR_FILENO) == 1 && kind != nullptr && *kind != '\0' && kind != std::string_view("dumb");
}

int terminal_width() {
  winsize size = {};
  return ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : 80;
}

}  // namespace

Progress::Progress() : possible_(is_terminal_that_clears()) {}

void Progress::show(const std::string& text) {
  if (!possible_) return;
  std::fprintf(stderr, "\r\033[K%.*s", terminal_width() - 1, text.c_str());
  shown_ = true;
}

void Progress::clear() {
  if (shown_) std::fputs("\r\033[K", stderr);
  shown_ = false;
}

}  // namespace kovadm

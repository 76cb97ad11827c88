#include "seam/work_directory.hpp"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace seam {
namespace {

namespace fs = std::filesystem;

constexpr int kMostDescriptors = 1024;

[[noreturn]] void fail() { throw std::system_error(errno, std::generic_category(), "a temporary directory"); }

// In a child: waits for the run's end, which closes the pipe, and removes the directory.
[[noreturn]] void remove_at_end(int run, const std::string& path) {
  for (const int signal : {SIGHUP, SIGINT, SIGTERM, SIGQUIT, SIGPIPE}) std::signal(signal, SIG_IGN);
  // Nobody else's end is to be kept open from here.
  dup2(run, STDIN_FILENO);
  for (int other = STDIN_FILENO + 1; other < kMostDescriptors; ++other) close(other);
  char byte = 0;
  while (read(STDIN_FILENO, &byte, 1) < 0 && errno == EINTR) continue;
  std::error_code ignored;
  fs::remove_all(path, ignored);
  _exit(0);
}

}  // namespace

WorkDirectory::WorkDirectory() : path_(fs::temp_directory_path() / "kovadm-XXXXXX") {
  std::array<int, 2> ends = {-1, -1};
  if (mkdtemp(path_.data()) == nullptr || pipe2(ends.data(), O_CLOEXEC) != 0) fail();
  remover_ = fork();
  if (remover_ < 0) fail();
  alive_ = ends[1];
  if (remover_ == 0) {
    close(ends[1]);
    remove_at_end(ends[0], path_);
  }
  close(ends[0]);
}

WorkDirectory::~WorkDirectory() {
  close(alive_);
  waitpid(remover_, nullptr, 0);
}

}  // namespace seam

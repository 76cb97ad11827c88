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

[[noreturn]] void fail(const std::string& what) { throw std::system_error(errno, std::generic_category(), what); }

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

std::string make_temporary_directory() {
  const char* chosen = std::getenv("TMPDIR");
  const std::string around = chosen != nullptr && *chosen != '\0' ? chosen : "/tmp";
  std::string path = around + "/kovadm-XXXXXX";
  if (mkdtemp(path.data()) == nullptr) fail("a temporary directory in " + around);
  return path;
}

void expect_temporary_directories() { fs::remove(make_temporary_directory()); }

WorkDirectory::WorkDirectory() : path_(make_temporary_directory()) {
  std::array<int, 2> ends = {-1, -1};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) fail("a pipe");
  remover_ = fork();
  if (remover_ < 0) fail("a process");
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

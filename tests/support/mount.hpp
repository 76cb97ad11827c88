// A file system of a test's own.
#pragma once

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <string>
#include <utility>

namespace kova::test {

// Becomes root of namespaces of its own.
inline bool enter_namespaces() {
  bool entered = unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0;
  for (const auto& [map, text] : {std::pair{"setgroups", "deny"}, {"uid_map", "0 0 1"}, {"gid_map", "0 0 1"}})
    entered = entered && (std::ofstream(std::string("/proc/self/") + map) << text << std::flush);
  return entered;
}

// The same, unless it would fail halfway: tried by another process first.
inline bool may_mount() {
  const pid_t child = fork();
  if (child == 0) _exit(enter_namespaces() ? 0 : 1);
  int status = 1;
  waitpid(child, &status, 0);
  return status == 0 && enter_namespaces();
}

// What is no router's: the directory below /tmp with this build. None where the build is elsewhere.
inline std::string build_below_tmp() {
  const char* kept = std::getenv("KOVA_LAB_KEEP");
  return kept == nullptr ? "" : kept;
}

// Puts an empty file system in memory, of so many KiB, in a directory's place. False where the sandbox forbids it.
inline bool mount_memory(const char* directory, long size) {
  static const bool allowed = may_mount();
  const std::string options = "mode=755,size=" + std::to_string(size) + "k";
  const std::string build = build_below_tmp();
  const int seen = open(build.c_str(), O_PATH | O_CLOEXEC);
  bool mounted = allowed && mount("tmpfs", directory, "tmpfs", 0, options.c_str()) == 0;
  if (mounted && seen >= 0 && build.starts_with(std::string(directory) + "/")) {
    mkdir(build.c_str(), 0755);
    const std::string source = "/proc/self/fd/" + std::to_string(seen);
    mounted = mount(source.c_str(), build.c_str(), nullptr, MS_BIND | MS_REC, nullptr) == 0;
  }
  if (seen >= 0) close(seen);
  return mounted;
}

}  // namespace kova::test

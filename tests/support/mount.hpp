// A file system of a test's own.
#pragma once

#include <sched.h>
#include <sys/mount.h>

#include <fstream>
#include <string>
#include <utility>

namespace kova::test {

// Puts an empty file system in memory, of so many KiB, in a directory's place. False where the sandbox forbids it.
inline bool mount_memory(const char* directory, long size) {
  static const bool may_mount = unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0;
  if (!may_mount) return false;
  for (const auto& [map, text] : {std::pair{"setgroups", "deny"}, {"uid_map", "0 0 1"}, {"gid_map", "0 0 1"}})
    std::ofstream(std::string("/proc/self/") + map) << text;
  const std::string options = "mode=755,size=" + std::to_string(size) + "k";
  return mount("tmpfs", directory, "tmpfs", 0, options.c_str()) == 0;
}

}  // namespace kova::test

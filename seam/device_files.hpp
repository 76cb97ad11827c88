// The simulated router's files at one time.
#pragma once

#include <filesystem>
#include <map>
#include <set>
#include <string>

namespace kova::lab {

class DeviceFiles {
 public:
  using Texts = std::map<std::filesystem::path, std::string>;

  // Now: all that /sbin/lab-reset makes anew.
  DeviceFiles();

  const Texts& texts() const { return texts_; }

  // Puts every file and directory back as it was; quicker than a reset where little has changed. Throws
  // std::runtime_error or what std::filesystem throws.
  void restore() const;

  bool operator==(const DeviceFiles& other) const = default;

 private:
  void note(const std::filesystem::path& path);

  Texts texts_;
  std::map<std::filesystem::path, std::filesystem::perms> permissions_;  // of the files
  std::set<std::filesystem::path> directories_;
};

}  // namespace kova::lab

// The router's files at one time, and what has happened to them since.
#pragma once

#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace kova::test {

class DeviceState {
 public:
  // Now.
  DeviceState();

  // Puts every file and directory back as it was.
  void restore() const;

  // What has been done since to the configuration, the task records and all other files, as texts of tables.hpp.
  std::vector<std::string> effects() const;

  bool operator==(const DeviceState& other) const = default;

 private:
  void note(const std::filesystem::path& path);

  std::map<std::filesystem::path, std::string> files_;
  std::map<std::filesystem::path, std::filesystem::perms> permissions_;  // of the files
  std::set<std::filesystem::path> directories_;
};

}  // namespace kova::test

// The router's files at one time, and what has happened to them since.
#pragma once

#include <uci.h>

#include <filesystem>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace kova::test {

// The package files of a directory.
using Store = std::unique_ptr<uci_context, decltype(&uci_free_context)>;
Store open_store(const std::string& directory);

// A list reads as its elements, each after "|".
std::string value_of(const uci_option& option);

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

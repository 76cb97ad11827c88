// The router's files at one time, and what has happened to them since.
#pragma once

#include <uci.h>

#include <memory>
#include <string>
#include <vector>

#include "seam/device_files.hpp"

namespace kova::test {

// The package files of a directory.
using Store = std::unique_ptr<uci_context, decltype(&uci_free_context)>;
Store open_store(const std::string& directory);

// A list reads as its elements, each after "|".
std::string value_of(const uci_option& option);

class DeviceState {
 public:
  // Puts every file and directory back as it was when this was made.
  void restore() const { files_.restore(); }

  // What has been done since then to the configuration, the task records and all other files, as texts of tables.hpp.
  std::vector<std::string> effects() const;

  bool operator==(const DeviceState& other) const = default;

 private:
  lab::DeviceFiles files_;
};

}  // namespace kova::test

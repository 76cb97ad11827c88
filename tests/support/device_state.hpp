// What has happened to the router's files.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "seam/snapshot.hpp"

namespace kova::test {

// The package files of a directory.
using Store = std::unique_ptr<uci_context, decltype(&uci_free_context)>;
Store open_store(const std::string& directory);

// What has been done since then to the configuration, the task records and all other files, as texts of tables.hpp.
std::vector<std::string> effects_since(const seam::Snapshot& start);

}  // namespace kova::test

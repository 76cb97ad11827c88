#include "model/origin.hpp"

#include <algorithm>
#include <set>

#include "model/data_files.hpp"

namespace kovadm {
namespace {

std::set<std::string> read_extensions() {
  std::set<std::string> paths;
  for (const auto& cells : read_table(kExtensionTable)) paths.insert(cells.at(0));
  return paths;
}

}  // namespace

bool is_extension(const std::string& path) {
  static const std::set<std::string> unprefixed = read_extensions();
  return path.find(".X_KOVA_") != std::string::npos || unprefixed.contains(path);
}

bool is_beyond_published(const Node& object, const std::string& path) {
  return std::ranges::all_of(object.children, [&](const Node& child) {
    const std::string below = path + child.name;
    return child.row != nullptr ? is_extension(below) : is_beyond_published(child, below + ".");
  });
}

}  // namespace kovadm

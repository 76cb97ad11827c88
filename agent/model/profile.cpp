#include "model/profile.hpp"

#include <algorithm>
#include <map>

#include "model/data_files.hpp"

namespace kovadm {
namespace {

std::map<std::string, const Row*> rows_by_path() {
  std::map<std::string, const Row*> rows;
  for (const Row& row : catalogue()) {
    for (const std::string& path : row.paths) rows[path] = &row;
  }
  return rows;
}

std::vector<Profile> read_profiles() {
  const std::map<std::string, const Row*> rows = rows_by_path();
  std::vector<Profile> profiles;
  for (const auto& cells : read_table(kProfileTable)) {
    const auto &model = cells.at(0), &name = cells.at(1), &path = cells.at(2);
    if (profiles.empty() || profiles.back().model != model || profiles.back().name != name)
      profiles.push_back({model, name, {}});
    const auto row = rows.find(path);
    profiles.back().requirements.push_back({path, cells.at(3), row != rows.end() ? row->second : nullptr});
  }
  return profiles;
}

bool is_unwritable(const Requirement& requirement) {
  return requirement.access == "readWrite" && requirement.row->access == Access::READ_ONLY;
}

bool is_served(const Requirement& requirement) { return requirement.row != nullptr; }

}  // namespace

bool Requirement::access_differs() const {
  return row != nullptr && (access == "readWrite") != (row->access == Access::READ_WRITE);
}

std::size_t Profile::served() const {
  return static_cast<std::size_t>(std::count_if(requirements.begin(), requirements.end(), is_served));
}

bool Profile::whole() const {
  return std::all_of(requirements.begin(), requirements.end(), [](const Requirement& requirement) {
    return is_served(requirement) && !is_unwritable(requirement);
  });
}

const std::vector<Profile>& profiles() {
  static const std::vector<Profile> all = read_profiles();
  return all;
}

std::string access_reason(const std::string& path) {
  for (const auto& cells : read_table(kAccessDifferenceTable)) {
    if (cells.at(0) == path) return cells.at(1);
  }
  return "";
}

}  // namespace kovadm

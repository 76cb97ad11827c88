#include <algorithm>

#include "commands.hpp"

namespace kovadm {
namespace {

struct Entry {
  const Row* row;
  std::string path;
};

// The prefix as the catalogue would spell it.
std::string with_placeholders(const std::string& prefix) {
  std::string spelled;
  for (const std::string& component : split_path(prefix)) {
    if (!spelled.empty()) spelled += '.';
    spelled += instance_number(component) ? kInstance : component;
  }
  return prefix.ends_with('.') ? spelled + '.' : spelled;
}

// Adds the rows below the prefix. False when there are none.
bool add_entries(const std::string& prefix, std::vector<Entry>& entries) {
  const std::string wanted = with_placeholders(prefix);
  const std::size_t others = entries.size();
  for (const Row& row : catalogue()) {
    for (const std::string& path : row.paths) {
      if (path.starts_with(wanted)) entries.push_back({&row, path});
    }
  }
  return entries.size() > others;
}

std::string padded(std::string text, std::size_t width) {
  text.resize(std::max(width, text.size()), ' ');
  return text;
}

}  // namespace

int list(const std::vector<std::string>& prefixes, Output& output) {
  std::vector<Entry> entries;
  for (const std::string& prefix : prefixes) {
    if (!add_entries(prefix, entries)) output.fault(unknown_path(prefix));
  }
  if (prefixes.empty()) add_entries("", entries);
  std::size_t width = 0;
  for (const Entry& entry : entries) width = std::max(width, entry.path.size());
  output.document()["parameters"] = Json::array();
  for (const auto& [row, path] : entries) {
    const std::string access = to_text(row->access);
    const std::string type = to_text(row->type);
    output.line(padded(path, width) + "  " + padded(access, 10) + "  " + type);
    output.document()["parameters"].push_back(
        {{"path", path}, {"access", access}, {"type", type}, {"handler", row->handler}});
  }
  return output.finish();
}

}  // namespace kovadm

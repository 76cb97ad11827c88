#include <CLI/CLI.hpp>

#include "commands/command.hpp"
#include "output/table.hpp"

namespace kovadm {
namespace {

struct Entry {
  const Row* row;
  std::string path;
};

// Adds the rows below the prefix. False when there are none.
bool add_entries(const std::string& prefix, std::vector<Entry>& entries) {
  const std::string wanted = catalogue_path(prefix);
  const std::size_t others = entries.size();
  for (const Row& row : catalogue()) {
    for (const std::string& path : row.paths) {
      if (path.starts_with(wanted)) entries.push_back({&row, path});
    }
  }
  return entries.size() > others;
}

int list(const std::vector<std::string>& prefixes, Output& output) {
  std::vector<Entry> entries;
  for (const std::string& prefix : prefixes) {
    if (!add_entries(prefix, entries)) output.fault(unknown_path(prefix));
  }
  if (prefixes.empty()) add_entries("", entries);
  std::vector<std::vector<std::string>> table;
  output.document()["parameters"] = Json::array();
  for (const auto& [row, path] : entries) {
    const std::string access = to_text(row->access);
    const std::string type = to_text(row->type);
    table.push_back({path, access, type});
    output.document()["parameters"].push_back({{"path", path},
                                               {"access", access},
                                               {"type", type},
                                               {"handler", row->handler},
                                               {"defined", definition_of(row->handler)}});
  }
  for (const std::string& line : table_lines(table)) output.line(line);
  return output.finish();
}

Run define(CLI::App& line) {
  auto prefixes = std::make_shared<std::vector<std::string>>();
  line.add_option("PREFIX", *prefixes, kPrefixHelp);
  return [prefixes](Context& context) { return list(*prefixes, context.output()); };
}

}  // namespace

const Command kList = {"list", "The catalogue: path, access, type", false, define};

}  // namespace kovadm

#include "commands/shell_ways.hpp"

#include "model/data_files.hpp"

namespace kovadm {
namespace {

// What a shell acts on between such quotes. Where the line is recorded, its end too is the value's to give.
std::string special_between(const std::string& quotes, bool recorded) {
  if (quotes == "none") return "$()`;&|<>\"'\\*?[]#~ \t\n";
  return (quotes == "'" ? "'" : "$`\\\"") + std::string(recorded ? "\n" : "");
}

// The characters of the value that are among them, each once, in quotes.
std::string found_in(const std::string& value, const std::string& special) {
  std::string found;
  for (const char character : special) {
    if (value.find(character) != std::string::npos)
      found += (found.empty() ? "\"" : ", \"") + std::string(1, character) + '"';
  }
  return found;
}

}  // namespace

void warn_of_shell(const Parameter& parameter, const std::string& value, Output& output) {
  static const auto ways = read_table(kShellWayTable);
  const std::string path = catalogue_path(parameter.path);
  for (const auto& cells : ways) {
    if (cells.at(0) != path) continue;
    const std::string characters = found_in(value, special_between(cells.at(1), cells.at(2) == "recorded"));
    if (!characters.empty())
      output.warning(parameter.path + ": a shell acts on " + characters + " in VALUE: " + cells.at(3));
  }
}

}  // namespace kovadm

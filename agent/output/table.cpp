#include "output/table.hpp"

#include <algorithm>

namespace kovadm {
namespace {

constexpr char kBetween[] = "  ";

std::vector<std::size_t> widths_of(const std::vector<std::vector<std::string>>& rows) {
  std::vector<std::size_t> widths;
  for (const auto& row : rows) {
    widths.resize(std::max(widths.size(), row.size()));
    for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], row[i].size());
  }
  return widths;
}

}  // namespace

std::vector<std::string> table_lines(const std::vector<std::vector<std::string>>& rows) {
  const std::vector<std::size_t> widths = widths_of(rows);
  std::vector<std::string> lines;
  for (const auto& row : rows) {
    std::string line;
    for (std::size_t i = 0; i < row.size(); ++i)
      line += row[i] + std::string(widths[i] - row[i].size(), ' ') + kBetween;
    lines.push_back(line.substr(0, line.find_last_not_of(' ') + 1));
  }
  return lines;
}

}  // namespace kovadm

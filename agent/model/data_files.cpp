#include "model/data_files.hpp"

#include <sstream>

namespace kovadm {

std::vector<std::vector<std::string>> read_table(const char* text) {
  std::vector<std::vector<std::string>> table;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    if (line.empty() || line.starts_with('#')) continue;
    std::istringstream cells(line);
    table.emplace_back();
    for (std::string cell; std::getline(cells, cell, '\t');) table.back().push_back(cell);
  }
  return table;
}

}  // namespace kovadm

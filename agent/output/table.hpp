// Tables for a reader.
#pragma once

#include <string>
#include <vector>

namespace kovadm {

// A line for each row, its cells below those of the others.
std::vector<std::string> table_lines(const std::vector<std::vector<std::string>>& rows);

}  // namespace kovadm

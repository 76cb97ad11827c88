// The page's table of values, and what each was read from.
#pragma once

#include <cstddef>
#include <map>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "output/redaction.hpp"
#include "page/page.hpp"

namespace kovadm {

struct ValueRows {
  std::string html;                // row groups, one an object
  nlohmann::ordered_json details;  // one a row, in their order
  std::size_t count = 0;
  std::map<std::string, std::size_t> marks;  // how many have each: "fault", "invalid", "missing", "changed", "moved"
};

ValueRows value_rows(const std::vector<Side>& sides, Redaction& redaction);

}  // namespace kovadm

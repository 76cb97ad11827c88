// A router to look at: one HTML file that needs nothing else.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "output/redaction.hpp"
#include "recording/reading.hpp"

namespace kovadm {

// A router as it was read.
struct Side {
  std::string name;  // a file's, or "this router"
  std::string time;
  std::vector<WatchedReading> readings;
};

struct Page {
  std::string html;
  std::size_t values = 0;
  std::map<std::string, std::size_t> marks;  // how many values have each; see value_rows.hpp
};

// Of one router, or of two that are compared.
Page page_of(const std::vector<Side>& sides, Redaction& redaction);

}  // namespace kovadm

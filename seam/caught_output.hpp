// What is written to standard streams, by this program and those that it starts, kept from where they lead.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace seam {

// Catches what is written to the descriptors for its lifetime.
class CaughtOutput {
 public:
  explicit CaughtOutput(const std::vector<int>& descriptors);
  ~CaughtOutput();
  CaughtOutput(const CaughtOutput&) = delete;
  CaughtOutput& operator=(const CaughtOutput&) = delete;

  // What has been written since the last time.
  std::string take();

 private:
  std::vector<std::pair<int, int>> kept_;  // a descriptor, and where it led
  int file_;
};

}  // namespace seam

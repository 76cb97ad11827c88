// Agents that run without standard input, output and error.
#pragma once

namespace kova {

// Fills the descriptors 0 to 2 that the agent has closed with /dev/null, for its lifetime. What is opened meanwhile
// gets another number: a file that got number 2 would take the log.
class StandardDescriptors {
 public:
  StandardDescriptors();
  ~StandardDescriptors();
  StandardDescriptors(const StandardDescriptors&) = delete;
  StandardDescriptors& operator=(const StandardDescriptors&) = delete;

 private:
  static constexpr int kCount = 3;
  bool filled_[kCount] = {};
};

}  // namespace kova

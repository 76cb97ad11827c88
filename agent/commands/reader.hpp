// Reads parameters into the output.
#pragma once

#include <string>

#include "device/agent.hpp"
#include "output/output.hpp"
#include "output/progress.hpp"

namespace kovadm {

// Which values are told.
enum class Tell { ALL, INVALID };

// All in one look.
class Reader {
 public:
  Reader(Agent& agent, Output& output, Tell tell = Tell::ALL);

  // One parameter.
  void parameter(const std::string& path);

  // All whose paths begin with `prefix`.
  void below(const std::string& prefix);

  // How many values were none of their type, where these are told.
  int invalid() const { return invalid_; }

 private:
  bool read(const Parameter& parameter);
  void tell(const Parameter& parameter, const std::string& value);

  Agent& agent_;
  Look look_;
  Output& output_;
  Tell tell_;
  Progress progress_;
  int count_ = 0;
  int invalid_ = 0;
};

}  // namespace kovadm

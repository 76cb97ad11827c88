// Reads parameters into the output.
#pragma once

#include <string>

#include "device/agent.hpp"
#include "output/output.hpp"
#include "output/progress.hpp"

namespace kovadm {

class Reader {
 public:
  Reader(Agent& agent, Output& output) : agent_(agent), output_(output) { output.document()["values"] = Json::array(); }

  // One parameter.
  void parameter(const std::string& path);

  // All whose paths begin with `prefix`.
  void below(const std::string& prefix);

 private:
  bool read(const Parameter& parameter);

  Agent& agent_;
  Output& output_;
  Progress progress_;
  int count_ = 0;
};

}  // namespace kovadm

// The calls of one set request, which are all checked before the first is made.
#pragma once

#include <set>
#include <string>
#include <variant>

#include "device/agent.hpp"

namespace kovadm {

struct Call {
  Parameter parameter;
  std::string asked;
  std::string passed;  // to the handler
};

class RequestCheck {
 public:
  // With `force`, what is no value of the parameter's type is passed on, too.
  explicit RequestCheck(Agent& agent, bool force = false) : agent_(agent), force_(force) {}

  // The call that sets the parameter, or why it cannot be made.
  std::variant<Call, Fault> call(const std::string& path, const std::string& value);

 private:
  Agent& agent_;
  bool force_;
  std::set<std::string> paths_;
};

}  // namespace kovadm

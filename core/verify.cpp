#include "verify.hpp"

#include "command.hpp"
#include "store.hpp"

namespace kova {

bool VerifyCommand::run() const {
  if (line_.empty()) return false;
  cwmp_system(line_.c_str());
  Text<4> verdict;
  return read_state_option({"check", "result"}, "set_result", verdict.span()) && verdict == "1";
}

bool VerifyCommand::run_unjudged() const {
  if (line_.empty()) return false;
  [[maybe_unused]] const int status = run_shell(line_.c_str());
  return true;
}

bool VerifyCommand::record() const { return !line_.empty() && record_task_cmd(line_.c_str()) == 0; }

}  // namespace kova

#include "verify.hpp"

#include "command.hpp"
#include "store.hpp"

namespace kova {

int VerifyCommand::run() const {
  if (line_.empty()) return -1;
  cwmp_system(line_.c_str());
  Text<4> verdict;
  if (read_state_option({"check", "result"}, "set_result", verdict.span()) != 0) return -1;
  return verdict == "1" ? 0 : -1;
}

int VerifyCommand::run_unjudged() const {
  if (line_.empty()) return -1;
  [[maybe_unused]] const int status = run_shell(line_.c_str());
  return 0;
}

int VerifyCommand::record() const { return line_.empty() ? -1 : record_task_cmd(line_.c_str()); }

}  // namespace kova

#include "device/apply.hpp"

#include <unistd.h>

#include "device/apply_mask.hpp"
#include "device/processes.hpp"
#include "device/task_records.hpp"
#include "output/progress.hpp"
#include "pkg-tool.h"

namespace kovadm {
namespace {

// A recorded command may be meant for the background; what it does there counts too.
std::string to_the_end(const std::string& command) {
  const std::size_t last = command.find_last_not_of(" \t");
  return last != std::string::npos && command[last] == '&' ? command + " wait $!" : command;
}

void run(const std::string& command, const ApplyBit& bit, Output& output) {
  Progress progress;
  const int status = exit_status(run_in_shell(to_the_end(command).c_str(), [&](int seconds) {
    progress.show(std::to_string(seconds) + " s " + output.redaction().text(command));
  }));
  progress.clear();
  const std::string outcome = command + " (status " + std::to_string(status) + ")";
  output.line("ran: " + outcome);
  output.document()["ran"].push_back({{"bit", bit.name}, {"command", command}, {"status", status}});
  if (status != 0) output.failure(outcome);
}

void run_recorded(const ApplyBit& bit, Output& output) {
  for (const std::string& command : recorded_commands()) run(command, bit, output);
  empty_task_records();
}

void leave(const ApplyBit& bit, Output& output) {
  output.line("left: " + bit.name + ": the agent " + bit.work + "; this router has no " + bit.service());
  output.document()["left"].push_back({{"bit", bit.name}, {"work", bit.work}, {"service", bit.service()}});
}

}  // namespace

void apply(uint32_t mask, Output& output) {
  output.document()["ran"] = Json::array();
  output.document()["left"] = Json::array();
  for (const ApplyBit& bit : raised_bits(mask)) {
    if (bit.bit == APPLY_TASK_COMMANDS) {
      run_recorded(bit, output);
    } else if (access(bit.service().c_str(), X_OK) == 0) {
      run(bit.service(), bit, output);
    } else {
      leave(bit, output);
    }
  }
}

}  // namespace kovadm

#include "apply_mask.hpp"
#include "changes.hpp"
#include "commands.hpp"
#include "pkg-tool.h"
#include "task_records.hpp"

namespace kovadm {
namespace {

struct Call {
  Parameter parameter;
  std::string value;
};

std::string quoted(const std::optional<std::string>& value) {
  return value ? '"' + one_line(*value) + '"' : std::string("(none)");
}

Json json_or_null(const std::optional<std::string>& value) { return value ? Json(*value) : Json(); }

Json tell_changes(const std::vector<Change>& changes, Output& output) {
  Json list = Json::array();
  for (const Change& change : changes) {
    output.line(change.store + ": " + change.path + ": " + quoted(change.before) + " -> " + quoted(change.after));
    list.push_back({{"store", change.store},
                    {"path", change.path},
                    {"before", json_or_null(change.before)},
                    {"after", json_or_null(change.after)}});
  }
  return list;
}

// The calls of a request of which every path is known and writable; none, and the faults told, otherwise.
std::vector<Call> check(const std::vector<Setting>& settings, Output& output) {
  std::vector<Call> calls;
  for (const auto& [path, value] : settings) {
    const auto parameter = find_parameter(path);
    if (!parameter) {
      output.fault(unknown_path(path));
    } else if (parameter->row->access == Access::READ_ONLY) {
      output.fault({FaultCode::NON_WRITABLE_PARAMETER, path, "", ""});
    } else {
      calls.push_back({*parameter, value});
    }
  }
  if (calls.size() < settings.size()) calls.clear();
  return calls;
}

// Makes the calls; those that are refused leave the others as they are. True when none was.
bool make_calls(Agent& agent, const std::vector<Call>& calls, uint32_t& mask, Output& output) {
  bool accepted = true;
  for (const auto& [parameter, value] : calls) {
    const auto fault = agent.set(parameter, value, mask);
    if (fault) {
      output.fault(*fault);
      accepted = false;
    } else {
      output.value(parameter.path, value);
    }
  }
  return accepted;
}

void tell_request(uint32_t mask, const std::vector<std::string>& commands, const std::vector<Change>& changes,
                  Output& output) {
  output.document()["mask"] = mask;
  output.document()["bits"] = Json::array();
  for (const ApplyBit& bit : raised_bits(mask)) {
    output.line("apply: " + bit.name + " (" + hexadecimal(bit.bit) + ")");
    output.document()["bits"].push_back(bit.name);
  }
  for (const std::string& command : commands) output.line("recorded: " + command);
  output.document()["recorded"] = commands;
  output.document()["changes"] = tell_changes(changes, output);
}

Json run_commands(Output& output) {
  Json runs = Json::array();
  for (const std::string& command : recorded_commands()) {
    const int status = run_recorded(command);
    output.line("ran: " + command + " (status " + std::to_string(status) + ")");
    runs.push_back({{"command", command}, {"status", status}});
  }
  empty_task_records();
  return runs;
}

// The agent's part after a request: runs what was recorded, and tells what else it would have to do.
void apply_mask(uint32_t mask, Output& output) {
  output.document()["ran"] = Json::array();
  output.document()["left"] = Json::array();
  const Snapshot before;
  for (const ApplyBit& bit : raised_bits(mask)) {
    if (bit.bit == APPLY_TASK_COMMANDS) {
      output.document()["ran"] = run_commands(output);
    } else {
      output.line("left: " + bit.name + ": the agent " + bit.work);
      output.document()["left"].push_back({{"bit", bit.name}, {"work", bit.work}});
    }
  }
  output.document()["applied"] = tell_changes(Snapshot().changes_since(before), output);
}

}  // namespace

int set(Agent& agent, const std::vector<Setting>& settings, bool apply, Output& output) {
  const std::vector<Call> calls = check(settings, output);
  if (calls.empty()) return output.finish();

  const Snapshot before;
  const TaskRecords records;
  uint32_t mask = 0;
  output.document()["values"] = Json::array();
  const bool accepted = make_calls(agent, calls, mask, output);
  tell_request(mask, records.recorded_since(), Snapshot().changes_since(before), output);
  if (apply && accepted) apply_mask(mask, output);
  return output.finish();
}

}  // namespace kovadm

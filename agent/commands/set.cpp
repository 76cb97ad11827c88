#include <CLI/CLI.hpp>
#include <algorithm>

#include "commands/command.hpp"
#include "commands/effect.hpp"
#include "commands/setting.hpp"
#include "commands/shell_ways.hpp"
#include "device/apply.hpp"
#include "device/apply_mask.hpp"
#include "device/call.hpp"
#include "device/changes.hpp"
#include "device/task_records.hpp"
#include "seam/platform.hpp"
#include "seam/work_directory.hpp"

namespace kovadm {
namespace {

// The exit status of a request that was accepted, but for some value nothing changed.
constexpr int kNothingChanged = 3;

// The commands that a handler runs for what they do.
class RunCommands final : public seam::Platform {
 public:
  int system(const char* command) override {
    commands.emplace_back(command);
    return Platform::system(command);
  }

  std::vector<std::string> commands;
};

// A request under way.
struct Request {
  seam::Texts start = seam::kept_files();
  TaskRecords records;
  uint32_t mask = 0;
  RunCommands run;
  std::vector<Accepted> accepted;
};

bool stores_anything(const std::vector<Change>& all) {
  return std::any_of(all.begin(), all.end(), [](const Change& change) { return change.stores(); });
}

// The calls of a request that can be made; none, and the faults told, where one of them cannot.
std::vector<Call> check(Agent& agent, const std::vector<Setting>& settings, bool force, Output& output) {
  std::vector<Call> calls;
  RequestCheck checked(agent, force);
  for (const auto& [path, value] : settings) {
    const auto parameter = find_parameter(path);
    if (parameter && is_secret(*parameter->row)) output.redaction().note_word(value);
    auto call = checked.call(path, value);
    if (const auto* fault = std::get_if<Fault>(&call)) {
      output.fault(*fault);
    } else {
      warn_of_shell(*parameter, value, output);
      calls.push_back(std::get<Call>(std::move(call)));
    }
  }
  if (calls.size() < settings.size()) calls.clear();
  return calls;
}

// Makes the calls; those that are refused leave the others as they are.
void make_calls(Agent& agent, const std::vector<Call>& calls, Request& request, Output& output) {
  seam::Texts before = request.start;
  for (const auto& [parameter, asked, passed] : calls) {
    uint32_t raised = 0;
    const std::size_t commands = request.run.commands.size();
    if (passed != asked) output.line("passed: " + parameter.path + " = " + passed);
    std::optional<Fault> fault;
    {
      const seam::InUse in_use(request.run);
      fault = agent.set(parameter, passed, raised);
    }
    if (fault) {
      output.fault(*fault);
      continue;
    }
    request.mask |= raised;
    seam::Texts after = seam::kept_files();
    const bool stored = stores_anything(changes(before, after, request.start));
    request.accepted.push_back({parameter, asked, passed, raised, request.run.commands.size() > commands, stored});
    before = std::move(after);
  }
}

void tell_request(const Request& request, const seam::Texts& now, Output& output) {
  for (const std::string& command : request.run.commands) output.line("ran: " + command);
  output.document()["commands"] = request.run.commands;
  output.document()["mask"] = request.mask;
  output.document()["bits"] = Json::array();
  for (const ApplyBit& bit : raised_bits(request.mask)) {
    output.line("apply: " + bit.name + " (" + hexadecimal(bit.bit) + ")");
    output.document()["bits"].push_back(bit.name);
  }
  const std::vector<std::string> recorded = request.records.recorded_since();
  for (const std::string& command : recorded) output.line("recorded: " + command);
  output.document()["recorded"] = recorded;
  output.document()["changes"] = tell_changes(changes(request.start, now, request.start), output);
}

// The agent's part, and what that changed.
void apply_request(Request& request, const seam::Texts& before, Output& output) {
  apply(request.mask, output);
  const std::vector<Change> applied = changes(before, seam::kept_files(), request.start);
  output.document()["applied"] = tell_changes(applied, output);
  for (Accepted& setting : request.accepted) setting.stored |= setting.raised != 0 && stores_anything(applied);
}

struct Options {
  std::vector<std::string> settings;
  bool apply = false;  // do the agent's part once all values were accepted
  bool force = false;  // pass on what is no value of the parameter's type, too
};

// One set request: nothing is called unless all parameters exist, are writable, and are given values of their types;
// what the calls raise is collected. At the end reads the parameters back.
int set(Context& context, const Options& options) {
  if (options.apply && context.replays()) throw SetupError("--apply runs commands, and a replay runs none");
  const std::vector<Setting> settings = read_settings(options.settings);
  Agent& agent = context.agent_alone();
  Output& output = context.output();
  const std::vector<Call> calls = check(agent, settings, options.force, output);
  if (calls.empty()) return output.finish();
  seam::expect_temporary_directories();  // without which nobody could be told what has changed

  output.document()["values"] = Json::array();
  Request request;
  make_calls(agent, calls, request, output);
  const seam::Texts requested = seam::kept_files();
  tell_request(request, requested, output);
  const bool ran = options.apply && request.accepted.size() == calls.size();
  if (ran) apply_request(request, requested, output);

  bool nothing_changed = false;
  for (const Accepted& setting : request.accepted)
    nothing_changed |= tell_effect(agent, setting, ran, output) == Effect::NOTHING_CHANGED;
  return output.finish(nothing_changed ? kNothingChanged : 0);
}

Run define(CLI::App& line) {
  auto options = std::make_shared<Options>();
  line.add_option("PATH=VALUE", options->settings, kSettingHelp)->required();
  line.add_flag("--apply", options->apply, "Do the agent's part too: run the recorded commands and the services");
  line.add_flag("--force", options->force, "Pass on what was typed, a value of the parameter's type or not");
  return [options](Context& context) { return set(context, *options); };
}

}  // namespace

const Command kSet = {"set", "One set request, and what it raised, recorded and changed", true, define};

}  // namespace kovadm

#include <CLI/CLI.hpp>
#include <algorithm>

#include "commands/command.hpp"
#include "commands/setting.hpp"
#include "device/apply_mask.hpp"
#include "device/changes.hpp"
#include "device/instances.hpp"
#include "device/task_records.hpp"
#include "model/value_type.hpp"
#include "recording/recorded_platform.hpp"
#include "seam/snapshot.hpp"
#include "seam/trace.hpp"

namespace kovadm {
namespace {

// Lines under one heading, which stands in front of the first.
void tell(const std::string& heading, const std::vector<std::string>& lines, Output& output) {
  constexpr std::size_t kWidth = 11;
  std::string start = heading;
  for (const std::string& line : lines) {
    start.resize(kWidth, ' ');
    output.line(start + one_line(line.substr(0, line.find_last_not_of('\n') + 1)));
    start.clear();
  }
}

std::string numbers_text(const std::vector<int32_t>& numbers) {
  std::string text;
  for (const int32_t number : numbers) text += (text.empty() ? "" : ", ") + std::to_string(number);
  return "[" + text + "]";
}

void tell_row(const Parameter& parameter, Output& output) {
  const Row& row = *parameter.row;
  tell("handler", {row.handler}, output);
  tell("defined", {definition_of(row.handler)}, output);
  tell("paths", row.paths, output);
  tell("access", {to_text(row.access)}, output);
  tell("type", {to_text(row.type)}, output);
  tell("instances", {numbers_text(instance_array(parameter))}, output);
  Json& document = output.document();
  document["path"] = parameter.path;
  document["handler"] = row.handler;
  document["defined"] = definition_of(row.handler);
  document["paths"] = row.paths;
  document["access"] = to_text(row.access);
  document["type"] = to_text(row.type);
  document["instances"] = instance_array(parameter);
}

void tell_look_ups(const std::vector<seam::LookUp>& look_ups, Output& output) {
  std::vector<std::string> lines;
  Json list = Json::array();
  for (const auto& [path, value, broken] : look_ups) {
    std::optional<std::string> told = value;
    if (value && is_secret_name(path.substr(path.rfind('.') + 1))) told = output.redaction().secret(*value);
    lines.push_back(path + (told ? " = " + *told : broken ? " (cannot be parsed)" : " (not there)"));
    list.push_back({{"path", path}, {"value", told ? Json(*told) : Json()}});
    if (broken) list.back()["broken"] = true;
  }
  tell("options", lines, output);
  output.document()["options"] = list;
}

std::vector<std::string> file_lines(const std::vector<seam::FileUse>& files) {
  std::vector<std::string> lines;
  lines.reserve(files.size());
  for (const auto& [path, finding] : files) {
    lines.push_back(path);
    if (!finding.empty()) lines.back().append(" (").append(finding).append(")");
  }
  return lines;
}

void tell_trace(const seam::Trace& trace, Output& output) {
  tell_look_ups(trace.look_ups, output);
  const std::vector<std::string> files = file_lines(trace.files);
  const std::pair<const char*, const std::vector<std::string>&> parts[] = {{"walked", trace.walked_packages},
                                                                           {"commands", trace.commands},
                                                                           {"files", files},
                                                                           {"bus", trace.bus_calls},
                                                                           {"log", trace.log}};
  for (const auto& [heading, lines] : parts) {
    tell(heading, lines, output);
    output.document()[heading] = lines;
  }
  if (!trace.printed.empty()) tell("printed", {trace.printed}, output);
  output.document()["printed"] = trace.printed;
}

// What is asked for once, and then taken from there, when the get is one of a look.
void tell_look(const seam::Trace& trace, Output& output) {
  std::vector<std::string> taken;
  for (const auto& [source, times] : trace.asked) {
    if (times > 1) taken.push_back(source + " (asked " + std::to_string(times) + " times, in a look once)");
  }
  tell("look", taken, output);
  output.document()["look"] = taken;
}

// The commands of a set, which have not all been run.
void mark_not_run(seam::Trace& trace) {
  for (std::string& command : trace.commands) {
    if (std::ranges::find(trace.started, command) != trace.started.end()) command += " (not run)";
  }
}

void tell_outcome(uint32_t mask, const std::vector<std::string>& recorded, const std::vector<Change>& changes,
                  Output& output) {
  std::vector<std::string> bits;
  for (const ApplyBit& bit : raised_bits(mask)) bits.push_back(bit.name);
  std::vector<std::string> lines;
  for (const Change& change : changes) lines.push_back(to_text(change, output.redaction()));
  tell("apply", bits, output);
  tell("recorded", recorded, output);
  tell("changes", lines, output);
  output.document()["bits"] = bits;
  output.document()["recorded"] = recorded;
  output.document()["changes"] = lines;
}

// Gets the parameter once.
int explain(Agent& agent, const std::string& path, Output& output) {
  const auto parameter = find_parameter(path);
  if (!parameter) {
    output.fault(unknown_path(path));
    return output.finish();
  }
  tell_row(*parameter, output);
  std::variant<std::string, Fault> answer;
  const seam::Trace seen = seam::trace([&] { answer = agent.get(*parameter); });
  const auto* value = std::get_if<std::string>(&answer);
  if (value != nullptr && is_secret(*parameter->row)) output.redaction().note_word(*value);
  tell_trace(seen, output);
  tell_look(seen, output);
  if (value != nullptr) {
    tell("value", {*value}, output);
    output.document()["value"] = *value;
  }
  // What a handler answers for an instance that does not exist is of interest, but no value of the device's.
  if (const auto missing = missing_instance(agent, path)) {
    output.fault(*missing);
  } else if (value == nullptr) {
    output.fault(std::get<Fault>(answer));
  }
  return output.finish();
}

// Sets the parameter once, on the platform in use.
int explain(Agent& agent, const Setting& setting, Output& output) {
  const auto parameter = find_parameter(setting.path);
  if (!parameter) {
    output.fault(unknown_path(setting.path));
    return output.finish();
  }
  tell_row(*parameter, output);
  const seam::Texts before = seam::kept_files();
  const TaskRecords records;
  uint32_t mask = 0;
  std::optional<Fault> fault;
  const std::string value = as_handlers_know(setting.value, parameter->row->type);
  if (is_secret(*parameter->row)) output.redaction().note_word(value);
  seam::Trace seen = seam::trace([&] { fault = agent.set(*parameter, value, mask); });
  if (value != setting.value) {
    tell("passed", {value}, output);
    output.document()["passed"] = value;
  }
  mark_not_run(seen);
  tell_trace(seen, output);
  tell_outcome(mask, records.recorded_since(), changes(before, seam::kept_files(), before), output);
  if (fault) output.fault(*fault);
  return output.finish();
}

// The same to a copy of this machine's stores, so that nothing is left changed: no command is run but those whose
// output is read, and what they change of the stores is put back.
int explain_on_copy(Agent& agent, const Setting& setting, Output& output) {
  Recording copy;
  RecordedPlatform platform(copy, RecordedPlatform::Source::TRIAL);
  const seam::InUse in_use(platform);
  return explain(agent, setting, output);
}

int run(Context& context, const std::string& text) {
  if (text.find('=') == std::string::npos) return explain(context.agent(), text, context.output());
  const Setting setting = read_settings({text}).front();
  Agent& agent = context.agent_alone();
  // A replay's stores are copies.
  return context.replays() ? explain(agent, setting, context.output())
                           : explain_on_copy(agent, setting, context.output());
}

Run define(CLI::App& line) {
  auto text = std::make_shared<std::string>();
  line.add_option("PATH[=VALUE]", *text, "VALUE as with set; nothing is left changed")->required();
  return [text](Context& context) { return run(context, *text); };
}

}  // namespace

const Command kExplain = {"explain", "What one get of PATH, or one set, really does", true, define};

}  // namespace kovadm

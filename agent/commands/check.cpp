#include <CLI/CLI.hpp>
#include <algorithm>
#include <map>
#include <set>

#include "commands/command.hpp"
#include "device/causes.hpp"
#include "recording/reading.hpp"

namespace kovadm {
namespace {

// A parameter that a cause keeps from answering, or from being set.
struct Affected {
  std::string path;
  bool is_set = false;
  std::optional<std::string> answer;  // of a get; nothing: a fault
};

using Report = std::map<Cause, std::vector<Affected>>;

// What the gets below the prefixes lack.
void check_gets(const std::vector<WatchedReading>& readings, Output& output, Report& report) {
  for (const auto& reading : readings) {
    std::optional<std::string> told = reading.value;
    if (told && is_secret(*reading.parameter.row)) told = output.redaction().secret(*told);
    for (const Cause& cause : reading.causes) report[cause].push_back({reading.parameter.path, false, told});
  }
}

// What sets lack, which are not called.
void check_sets(const std::vector<std::string>& prefixes, Report& report) {
  Inventory inventory;
  for (const auto& [path, commands] : set_commands(prefixes)) {
    for (const Cause& cause : causes_of_commands(commands, inventory)) report[cause].push_back({path, true, {}});
  }
}

std::string answer_text(const Affected& affected) {
  if (affected.is_set) return ": set";
  return affected.answer ? " = " + one_line(*affected.answer) : ": fault";
}

Json to_json(const Affected& affected) {
  if (affected.is_set) return {{"path", affected.path}, {"operation", "set"}};
  return {{"path", affected.path}, {"operation", "get"}, {"value", affected.answer ? Json(*affected.answer) : Json()}};
}

std::size_t count_parameters(const std::vector<Affected>& affected) {
  std::set<std::string> paths;
  for (const Affected& each : affected) paths.insert(catalogue_path(each.path));
  return paths.size();
}

// Those that miss something first; then those with the most parameters.
std::vector<const Report::value_type*> in_order(const Report& report) {
  std::vector<const Report::value_type*> order;
  for (const auto& entry : report) order.push_back(&entry);
  std::ranges::stable_sort(order, std::ranges::greater(), [](const Report::value_type* entry) {
    return std::pair(is_missing(entry->first), count_parameters(entry->second));
  });
  return order;
}

std::string plural(std::size_t count, const std::string& what) {
  return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

void tell(const Cause& cause, const std::vector<Affected>& affected, const char* list, Output& output) {
  const std::size_t count = count_parameters(affected);
  output.line(one_line(to_text(cause)) + ": " + plural(count, "parameter"));
  Json parameters = Json::array();
  for (const Affected& each : affected) {
    output.line("  " + each.path + answer_text(each));
    parameters.push_back(to_json(each));
  }
  output.document()[list].push_back(
      {{"cause", kind_text(cause)}, {"name", cause.name}, {"count", count}, {"parameters", parameters}});
}

// Where something is missing, a script may fail for it.
void tell(const Report& report, Output& output) {
  const bool explains = std::ranges::any_of(report, [](const auto& entry) { return is_root(entry.first); });
  for (const Report::value_type* entry : in_order(report)) {
    const Cause& cause = entry->first;
    const bool follows = explains && cause.kind == Cause::Kind::FAILED;
    tell(cause, entry->second, is_missing(cause) && !follows ? "missing" : "odd", output);
  }
}

// How much was looked at: a table without rows has nothing to get.
void tell_extent(const std::vector<std::string>& prefixes, const std::vector<WatchedReading>& readings,
                 Output& output) {
  std::set<std::string> asked;
  for (const WatchedReading& reading : readings) asked.insert(catalogue_path(reading.parameter.path));
  const std::size_t all = paths_below(prefixes).size();
  output.line("checked: " + plural(readings.size(), "value") + " of " + std::to_string(asked.size()) + " of " +
              plural(all, "parameter"));
  output.document()["values"] = readings.size();
  output.document()["asked"] = asked.size();
  output.document()["parameters"] = all;
}

int check(Agent& agent, const std::vector<std::string>& prefixes, Output& output) {
  const std::vector<WatchedReading> readings = watch_all(agent, prefixes, output);
  Report report;
  check_gets(readings, output, report);
  check_sets(prefixes, report);
  output.document() = {{"missing", Json::array()}, {"odd", Json::array()}};
  tell(report, output);
  tell_extent(prefixes, readings, output);
  return output.finish(output.document()["missing"].empty() ? 0 : 1);
}

Run define(CLI::App& line) {
  auto prefixes = std::make_shared<std::vector<std::string>>();
  line.add_option("PREFIX", *prefixes, kPrefixHelp);
  return [prefixes](Context& context) {
    Agent& agent = context.agent_alone();
    return check(agent, context.prefixes(*prefixes), context.output());
  };
}

}  // namespace

const Command kCheck = {"check", "What the device lacks of what gets and sets need", true, define};

}  // namespace kovadm

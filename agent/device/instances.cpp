#include "device/instances.hpp"

#include <algorithm>
#include <charconv>
#include <limits>

namespace kovadm {
namespace {

// Tables without a counter are felt for; this far, and an instance this far away exists nowhere.
constexpr int32_t kMostFelt = 64;
constexpr int32_t kFarAway = 1000000;

// The counters that are not named after their table.
std::string irregular_counter(const std::string& table) {
  const std::size_t name = table.rfind('.') + 1;
  const std::string parent = table.substr(0, name);
  if (table.substr(name) == "WLANConfiguration") return parent + "LANWLANConfigurationNumberOfEntries";
  if (table.substr(name) == "WANConnectionDevice") return parent + "WANConnectionNumberOfEntries";
  return "";
}

// As far as instance numbers go.
std::optional<int32_t> count_in(const std::string& text) {
  constexpr uint64_t kMost = std::numeric_limits<int32_t>::max();
  uint64_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error == std::errc::result_out_of_range) return kMost;
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return static_cast<int32_t>(std::min(number, kMost));
}

std::optional<int32_t> read_counter(Agent& agent, const std::string& table) {
  auto counter = find_parameter(table + "NumberOfEntries");
  if (!counter) counter = find_parameter(irregular_counter(table));
  if (!counter) return std::nullopt;
  const auto value = agent.get(*counter);
  const auto* text = std::get_if<std::string>(&value);
  // A counter that comes from a file may have its line's end.
  return text != nullptr ? count_in(text->substr(0, text->find('\n'))) : std::nullopt;
}

bool answers(Agent& agent, const Parameter& parameter) {
  return std::holds_alternative<std::string>(agent.get(parameter));
}

// The parameters below an instance that are in no further table.
void collect_parameters(const Node& node, const Place& place, std::vector<Parameter>& parameters) {
  if (node.row != nullptr) parameters.push_back({node.row, place.path, place.instances});
  for (const Node& child : node.children) {
    if (child.name != kInstance) collect_parameters(child, place.below(child.name), parameters);
  }
}

bool exists(Agent& agent, std::vector<Parameter>& telling, std::size_t position, int32_t number) {
  for (Parameter& parameter : telling) {
    parameter.instances[position] = number;
    if (answers(agent, parameter)) return true;
  }
  return false;
}

// An instance exists when one of its parameters answers. Parameters that answer far away do not look at the number;
// where all do, the object is the only one.
int32_t feel(Agent& agent, const Node& instance, const Place& table) {
  std::vector<Parameter> telling;
  collect_parameters(instance, table.below(std::to_string(kFarAway)), telling);
  std::erase_if(telling, [&](const Parameter& parameter) {
    return agent.plugin().handler(parameter.row->handler) == nullptr || answers(agent, parameter);
  });
  if (telling.empty()) return 1;
  int32_t count = 0;
  while (count < kMostFelt && exists(agent, telling, table.instances.size(), count + 1)) ++count;
  return count;
}

// Nothing when nothing tells: without a counter, a table whose parameters all fail may be empty or broken.
std::optional<int32_t> known_count(Agent& agent, const Node& instance, const Place& table) {
  if (const auto counted = read_counter(agent, table.path)) return counted;
  const int32_t felt = feel(agent, instance, table);
  return felt > 0 ? std::optional(felt) : std::nullopt;
}

}  // namespace

Place Place::below(const std::string& component) const {
  Place place = {path.empty() ? component : path + "." + component, instances};
  if (const auto number = instance_number(component)) place.instances.push_back(*number);
  return place;
}

int32_t count_instances(Agent& agent, const Node& instance, const Place& table) {
  return known_count(agent, instance, table).value_or(0);
}

std::optional<Fault> missing_instance(Agent& agent, const std::string& path) {
  const Node* node = &data_model();
  Place place;
  for (const std::string& component : split_path(path)) {
    node = child_of(*node, component);
    if (node == nullptr) return std::nullopt;
    if (const auto number = instance_number(component)) {
      const auto count = known_count(agent, *node, place);
      if (count && (*number < 1 || *number > *count))
        return Fault{FaultCode::INVALID_PARAMETER_NAME, path,
                     "no such instance: " + place.path + " has " + std::to_string(*count), ""};
    }
    place = place.below(component);
  }
  return std::nullopt;
}

}  // namespace kovadm

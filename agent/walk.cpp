#include "walk.hpp"

namespace kovadm {
namespace {

// An object of the device that a node of the catalogue's tree stands for.
struct Place {
  std::string path;
  std::vector<int32_t> instances;

  Place below(const std::string& component) const {
    Place place = {path.empty() ? component : path + "." + component, instances};
    if (const auto number = instance_number(component)) place.instances.push_back(*number);
    return place;
  }
};

class Walk {
 public:
  Walk(Agent& agent, const std::function<void(const Parameter&)>& visit) : agent_(agent), visit_(visit) {}

  // Visits the parameters below the children whose names begin so. False when there are no such children.
  bool children(const Node& node, const Place& place, std::string_view beginning) {
    bool found = false;
    for (const Node& child : node.children) {
      if (!child.name.starts_with(beginning)) continue;
      found = true;
      if (child.name == kInstance) {
        instances(child, place);
      } else {
        everything(child, place.below(child.name));
      }
    }
    return found;
  }

 private:
  void everything(const Node& node, const Place& place) {
    if (node.row != nullptr) visit_({node.row, place.path, place.instances});
    children(node, place, "");
  }

  void instances(const Node& instance, const Place& table) {
    const int32_t count = count_instances(instance, table);
    for (int32_t number = 1; number <= count; ++number) everything(instance, table.below(std::to_string(number)));
  }

  // Tables without a counter are felt for; this far, and an instance this far away exists nowhere.
  static constexpr int32_t kMostFelt = 64;
  static constexpr int32_t kFarAway = 1000000;

  int32_t count_instances(const Node& instance, const Place& table) {
    const std::optional<int32_t> counted = read_counter(table.path);
    return counted ? *counted : feel(instance, table);
  }

  std::optional<int32_t> read_counter(const std::string& table) {
    auto counter = find_parameter(table + "NumberOfEntries");
    if (!counter) counter = find_parameter(irregular_counter(table));
    if (!counter) return std::nullopt;
    const auto value = agent_.get(*counter);
    const auto* text = std::get_if<std::string>(&value);
    if (text == nullptr) return std::nullopt;
    return instance_number(text->substr(0, text->find('\n')));  // some are a line of a file, whole
  }

  // The counters that are not named after their table.
  static std::string irregular_counter(const std::string& table) {
    const std::size_t name = table.rfind('.') + 1;
    const std::string parent = table.substr(0, name);
    if (table.substr(name) == "WLANConfiguration") return parent + "LANWLANConfigurationNumberOfEntries";
    if (table.substr(name) == "WANConnectionDevice") return parent + "WANConnectionNumberOfEntries";
    return "";
  }

  // An instance exists when one of its parameters answers. Parameters that answer far away do not look at the number;
  // where all do, the object is the only one.
  int32_t feel(const Node& instance, const Place& table) {
    std::vector<Parameter> telling;
    collect_parameters(instance, table.below(std::to_string(kFarAway)), telling);
    std::erase_if(telling, [this](const Parameter& parameter) { return answers(parameter); });
    if (telling.empty()) return 1;
    int32_t count = 0;
    while (count < kMostFelt && exists(telling, table.instances.size(), count + 1)) ++count;
    return count;
  }

  bool exists(std::vector<Parameter>& telling, std::size_t position, int32_t number) {
    for (Parameter& parameter : telling) {
      parameter.instances[position] = number;
      if (answers(parameter)) return true;
    }
    return false;
  }

  bool answers(const Parameter& parameter) { return std::holds_alternative<std::string>(agent_.get(parameter)); }

  // The parameters below an instance that are in no further table.
  static void collect_parameters(const Node& node, const Place& place, std::vector<Parameter>& parameters) {
    if (node.row != nullptr) parameters.push_back({node.row, place.path, place.instances});
    for (const Node& child : node.children) {
      if (child.name != kInstance) collect_parameters(child, place.below(child.name), parameters);
    }
  }

  Agent& agent_;
  const std::function<void(const Parameter&)>& visit_;
};

}  // namespace

bool walk(Agent& agent, std::string_view prefix, const std::function<void(const Parameter&)>& visit) {
  std::vector<std::string> components = split_path(prefix);
  std::string beginning;
  if (!components.empty() && !prefix.ends_with('.') && !instance_number(components.back())) {
    beginning = components.back();
    components.pop_back();
  }
  const Node* node = &data_model();
  Place place;
  for (const std::string& component : components) {
    node = component == kInstance ? nullptr : child_of(*node, component);
    if (node == nullptr) return false;
    place = place.below(component);
  }
  return Walk(agent, visit).children(*node, place, beginning);
}

}  // namespace kovadm

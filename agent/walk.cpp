#include "walk.hpp"

#include "instances.hpp"

namespace kovadm {
namespace {

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
    const int32_t count = count_instances(agent_, instance, table);
    for (int32_t number = 1; number <= count; ++number) everything(instance, table.below(std::to_string(number)));
  }

  Agent& agent_;
  const std::function<void(const Parameter&)>& visit_;
};

}  // namespace

std::optional<Fault> walk(Agent& agent, const std::string& prefix, const std::function<void(const Parameter&)>& visit) {
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
    if (node == nullptr) return unknown_path(prefix);
    place = place.below(component);
  }
  if (auto missing = missing_instance(agent, prefix)) return missing;
  if (!Walk(agent, visit).children(*node, place, beginning)) return unknown_path(prefix);
  return std::nullopt;
}

}  // namespace kovadm

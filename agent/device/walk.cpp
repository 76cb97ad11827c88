#include "device/walk.hpp"

#include "device/instances.hpp"

namespace kovadm {
namespace {

// After so many rows of which no parameter answers there are no more.
constexpr int kMostFailing = 4;

class Walk {
 public:
  Walk(Agent& agent, const Visit& visit) : agent_(agent), visit_(visit) {}

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
    if (node.row != nullptr) {
      ++visited_;
      if (visit_({node.row, place.path, place.instances})) ++answered_;
    }
    children(node, place, "");
  }

  void instances(const Node& instance, const Place& table) {
    const int32_t count = count_instances(agent_, instance, table);
    if (tables_++ == 0) rows_ = 0;
    int failing = 0;
    for (int32_t number = 1; number <= count; ++number) {
      if (rows_++ >= kMostRows || failing == kMostFailing) {
        const std::string why = failing == kMostFailing
                                    ? "no row answers from " + std::to_string(number - failing) + " on"
                                    : "a table has " + std::to_string(kMostRows) + " rows at most";
        agent_.warn(table.path + " says it has " + std::to_string(count) + ": " + why);
        break;
      }
      failing = answers(instance, table.below(std::to_string(number))) ? 0 : failing + 1;
    }
    --tables_;
  }

  // Visits a row. Whether one of its parameters answers; a row without any that was asked may have answered.
  bool answers(const Node& instance, const Place& row) {
    const int visited = visited_;
    const int answered = answered_;
    everything(instance, row);
    return visited_ == visited || answered_ > answered;
  }

  Agent& agent_;
  const Visit& visit_;
  int visited_ = 0;
  int answered_ = 0;
  int tables_ = 0;  // that the walk is in
  int rows_ = 0;    // of the outermost of them
};

}  // namespace

std::optional<Fault> walk(Agent& agent, const std::string& prefix, const Visit& visit) {
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

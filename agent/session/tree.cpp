#include "session/tree.hpp"

#include <algorithm>

#include "device/instances.hpp"
#include "device/walk.hpp"

namespace kovadm::session {
namespace {

// Collects the names below an object.
class Names {
 public:
  Names(Agent& agent, bool deep) : agent_(agent), deep_(deep) {}

  void below(const Node& object, const Place& place) {
    for (const Node& node : object.children) {
      if (node.name == kInstance) {
        rows(node, place);
      } else {
        add(node, place.below(node.name));
      }
    }
  }

  void add(const Node& node, const Place& place) {
    if (names.size() > kMostNames) return;
    const bool is_object = node.row == nullptr;
    names.push_back({place.path + (is_object ? "." : ""), !is_object && node.row->access == Access::READ_WRITE});
    if (is_object && deep_) below(node, place);
  }

  std::vector<Name> names;

 private:
  void rows(const Node& row, const Place& table) {
    const int32_t count = count_instances(agent_, row, table);
    const int32_t most = std::min(count, kMostRows);
    if (count > most)
      agent_.warn(table.path + " says it has " + std::to_string(count) + ": a table has " + std::to_string(kMostRows) +
                  " rows at most");
    for (int32_t number = 1; number <= most; ++number) add(row, table.below(std::to_string(number)));
  }

  Agent& agent_;
  bool deep_;
};

}  // namespace

std::string Tree::value(const std::string& below) const {
  const auto parameter = find_parameter(path(below));
  if (!parameter) return "";
  const auto answer = agent_.get(*parameter);
  const auto* value = std::get_if<std::string>(&answer);
  return value != nullptr ? *value : "";
}

std::optional<Fault> Tree::unknown(const std::string& path) const {
  const bool here = path.starts_with(root_ + ".");
  if (!here) return Fault{FaultCode::INVALID_PARAMETER_NAME, path, "the session shows the tree " + root_, ""};
  const bool names_object = path.ends_with('.');
  const bool has_placeholder = path.find(kInstance) != std::string::npos;
  const bool exists = names_object ? !path.ends_with("..") && is_object(path.substr(0, path.size() - 1))
                                   : find_parameter(path).has_value();
  if (has_placeholder || !exists) return unknown_path(path);
  return missing_instance(agent_, path);
}

std::variant<std::vector<Name>, Fault> Tree::names(const std::string& path, bool next_level) const {
  if (path.empty() && next_level) return std::vector<Name>{{root_ + ".", false}};
  const std::string start = path.empty() ? root_ + "." : path;
  if (auto fault = unknown(start)) return *fault;
  if (!start.ends_with('.')) {
    if (next_level) return Fault{FaultCode::INVALID_ARGUMENTS, path, "a parameter has no next level", ""};
    return std::vector<Name>{{path, find_parameter(path)->row->access == Access::READ_WRITE}};
  }
  const Node* node = &data_model();
  Place place;
  for (const std::string& component : split_path(start)) {
    node = child_of(*node, component);
    place = place.below(component);
  }
  Names found(agent_, !next_level);
  if (next_level) {
    found.below(*node, place);
  } else {
    found.add(*node, place);
  }
  if (found.names.size() > kMostNames)
    return Fault{FaultCode::RESOURCES_EXCEEDED, path, "more than " + std::to_string(kMostNames) + " names", ""};
  return std::move(found.names);
}

}  // namespace kovadm::session

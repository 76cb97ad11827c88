#include "model/data_model.hpp"

#include <charconv>

namespace kovadm {
namespace {

Node& add_child(Node& parent, const std::string& name) {
  for (Node& child : parent.children) {
    if (child.name == name) return child;
  }
  return parent.children.emplace_back(Node{name, nullptr, {}});
}

Node build_tree() {
  Node root;
  for (const Row& row : catalogue()) {
    for (const std::string& path : row.paths) {
      Node* node = &root;
      for (const std::string& component : split_path(path)) node = &add_child(*node, component);
      node->row = &row;
    }
  }
  return root;
}

}  // namespace

const Node& data_model() {
  static const Node root = build_tree();
  return root;
}

std::vector<std::string> split_path(std::string_view path) {
  std::vector<std::string> components;
  while (!path.empty()) {
    const std::size_t dot = path.find('.');
    components.emplace_back(path.substr(0, dot));
    path.remove_prefix(dot == std::string_view::npos ? path.size() : dot + 1);
  }
  return components;
}

std::optional<int32_t> instance_number(std::string_view component) {
  if (component.empty() || component[0] == '-' || (component[0] == '0' && component != "0")) return std::nullopt;
  int32_t number = 0;
  const auto [end, error] = std::from_chars(component.begin(), component.end(), number);
  if (error != std::errc() || end != component.end()) return std::nullopt;
  return number;
}

std::string catalogue_path(std::string_view path) {
  std::string spelled;
  for (const std::string& component : split_path(path)) {
    if (!spelled.empty()) spelled += '.';
    spelled += instance_number(component) ? kInstance : component;
  }
  return path.ends_with('.') ? spelled + '.' : spelled;
}

const Node* child_of(const Node& node, std::string_view component) {
  const std::string_view name = instance_number(component) ? kInstance : component;
  for (const Node& child : node.children) {
    if (child.name == name) return &child;
  }
  return nullptr;
}

std::optional<Parameter> find_parameter(std::string_view path) {
  if (path.ends_with('.')) return std::nullopt;
  const Node* node = &data_model();
  std::vector<int32_t> instances;
  for (const std::string& component : split_path(path)) {
    node = component == kInstance ? nullptr : child_of(*node, component);
    if (node == nullptr) return std::nullopt;
    if (const auto number = instance_number(component)) instances.push_back(*number);
  }
  if (node->row == nullptr) return std::nullopt;
  return Parameter{node->row, std::string(path), instances};
}

bool is_object(std::string_view path) {
  const Node* node = &data_model();
  for (const std::string& component : split_path(path)) {
    node = child_of(*node, component);
    if (node == nullptr) return false;
  }
  return node->row == nullptr;
}

}  // namespace kovadm

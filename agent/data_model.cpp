#include "data_model.hpp"

#include <algorithm>
#include <charconv>
#include <numeric>

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

// Every parameter's path, and every object's with its dot.
void collect_paths(const Node& node, const std::string& path, std::vector<std::string>& paths) {
  for (const Node& child : node.children) {
    const std::string below = path + child.name + (child.row == nullptr ? "." : "");
    paths.push_back(below);
    collect_paths(child, below, paths);
  }
}

std::size_t edit_distance(std::string_view a, std::string_view b) {
  std::vector<std::size_t> row(b.size() + 1);
  std::iota(row.begin(), row.end(), 0);
  for (std::size_t i = 0; i < a.size(); ++i) {
    std::size_t diagonal = row[0];
    row[0] = i + 1;
    for (std::size_t j = 0; j < b.size(); ++j) {
      const std::size_t replaced = diagonal + (a[i] == b[j] ? 0 : 1);
      diagonal = row[j + 1];
      row[j + 1] = std::min({replaced, row[j] + 1, diagonal + 1});
    }
  }
  return row.back();
}

std::string join(const std::vector<std::string>& components, bool object) {
  std::string path;
  for (const std::string& component : components) path += (path.empty() ? "" : ".") + component;
  return path + (object ? "." : "");
}

// Takes the instance numbers out of the components, leaving "{i}".
std::vector<std::string> take_numbers(std::vector<std::string>& components) {
  std::vector<std::string> numbers;
  for (std::string& component : components) {
    if (!instance_number(component)) continue;
    numbers.push_back(component);
    component = kInstance;
  }
  return numbers;
}

std::string put_numbers(const std::string& pattern, const std::vector<std::string>& numbers) {
  std::vector<std::string> components = split_path(pattern);
  auto number = numbers.begin();
  for (std::string& component : components) {
    if (component == kInstance && number != numbers.end()) component = *number++;
  }
  return join(components, pattern.ends_with('.'));
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
  if (component.empty() || component[0] == '-') return std::nullopt;
  int32_t number = 0;
  const auto [end, error] = std::from_chars(component.begin(), component.end(), number);
  if (error != std::errc() || end != component.end()) return std::nullopt;
  return number;
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

std::string nearest_path(std::string_view path) {
  std::vector<std::string> components = split_path(path);
  const std::vector<std::string> numbers = take_numbers(components);
  const std::string wanted = join(components, path.ends_with('.'));

  std::vector<std::string> known;
  collect_paths(data_model(), "", known);
  std::string nearest;
  // What differs in half of its letters is no misspelling.
  std::size_t least = wanted.size() / 2;
  for (const std::string& candidate : known) {
    // For a parameter's path, an object is meant only when nothing but its dot is missing.
    if (candidate.ends_with('.') && !wanted.ends_with('.') && candidate != wanted + '.') continue;
    const std::size_t distance = edit_distance(wanted, candidate);
    if (distance >= least) continue;
    least = distance;
    nearest = candidate;
  }
  return put_numbers(nearest, numbers);
}

}  // namespace kovadm

#include "model/nearest.hpp"

#include <algorithm>
#include <cctype>
#include <numeric>
#include <vector>

#include "model/data_model.hpp"

namespace kovadm {
namespace {

using Components = std::vector<std::string>;

// Every parameter's path, and every object's with its dot.
void collect_paths(const Node& node, const std::string& path, std::vector<std::string>& paths) {
  for (const Node& child : node.children) {
    const std::string below = path + child.name + (child.row == nullptr ? "." : "");
    paths.push_back(below);
    collect_paths(child, below, paths);
  }
}

std::string join(const Components& components, bool object) {
  std::string path;
  for (const std::string& component : components) path += (path.empty() ? "" : ".") + component;
  return path + (object ? "." : "");
}

// Takes the instance numbers out of the components, leaving "{i}".
Components take_numbers(Components& components) {
  Components numbers;
  for (std::string& component : components) {
    if (!instance_number(component)) continue;
    numbers.push_back(component);
    component = kInstance;
  }
  return numbers;
}

// Numbers belong to the first tables of a path; where the path's first names were left out, to the last ones.
std::string put_numbers(const std::string& pattern, const Components& wanted, const Components& numbers) {
  Components components = split_path(pattern);
  const auto tables = std::count(components.begin(), components.end(), kInstance);
  const bool to_last = !components.empty() && components.front() != wanted.front();
  auto without = to_last ? tables - static_cast<std::ptrdiff_t>(numbers.size()) : 0;
  auto number = numbers.begin();
  for (std::string& component : components) {
    if (component == kInstance && without-- <= 0 && number != numbers.end()) component = *number++;
  }
  return join(components, pattern.ends_with('.'));
}

std::string lower_case(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(), [](unsigned char letter) { return std::tolower(letter); });
  return text;
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

std::size_t name_distance(const std::string& wanted, const std::string& name) {
  if (wanted == name) return 0;
  return lower_case(name).starts_with(lower_case(wanted)) ? 1 : edit_distance(wanted, name);
}

// Name by name, of as many names as are wanted: the last ones. With fewer names nothing is alike.
std::size_t names_distance(const Components& wanted, const Components& known) {
  if (known.size() < wanted.size()) return std::string::npos;
  std::size_t distance = known.size() > wanted.size() ? 1 : 0;
  auto name = known.end() - static_cast<std::ptrdiff_t>(wanted.size());
  for (const std::string& component : wanted) distance += name_distance(component, *name++);
  return distance;
}

}  // namespace

std::string nearest_path(std::string_view path) {
  Components components = split_path(path);
  const Components numbers = take_numbers(components);
  const std::string wanted = join(components, path.ends_with('.'));

  std::vector<std::string> known;
  collect_paths(data_model(), "", known);
  std::string nearest;
  // What differs in half of its letters is no misspelling.
  std::size_t least = wanted.size() / 2;
  for (const std::string& candidate : known) {
    // For a parameter's path, an object is meant only when nothing but its dot is missing.
    if (candidate.ends_with('.') && !wanted.ends_with('.') && candidate != wanted + '.') continue;
    // So much longer, it differs in half of its letters whatever they are.
    if (wanted.size() > 2 * candidate.size()) continue;
    const std::size_t distance =
        std::min(edit_distance(wanted, candidate), names_distance(components, split_path(candidate)));
    if (distance >= least) continue;
    least = distance;
    nearest = candidate;
  }
  return put_numbers(nearest, components, numbers);
}

}  // namespace kovadm

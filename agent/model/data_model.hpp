// The catalogue as the tree of objects that its paths spell, and the ways to find a parameter in it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/catalogue.hpp"

namespace kovadm {

// The component that stands for an instance number.
inline constexpr std::string_view kInstance = "{i}";

// An object or a parameter.
struct Node {
  std::string name;            // component of the path; kInstance below a table
  const Row* row = nullptr;    // nullptr for an object
  std::vector<Node> children;  // in catalogue order
};

// One parameter of the device: a row at given instance numbers.
struct Parameter {
  const Row* row;
  std::string path;
  std::vector<int32_t> instances;  // outermost first
};

// The nameless parent of the root objects.
const Node& data_model();

// The components of a path; a dot at its end adds none.
std::vector<std::string> split_path(std::string_view path);

// The number that a component is; nothing when it is no instance number.
std::optional<int32_t> instance_number(std::string_view component);

// A path, or a path's beginning, as the catalogue spells it: with placeholders for instance numbers.
std::string catalogue_path(std::string_view path);

// The child of that name; for a number, the instances of a table. nullptr for none.
const Node* child_of(const Node& node, std::string_view component);

std::optional<Parameter> find_parameter(std::string_view path);

// Whether the path is that of an object, with instance numbers or placeholders where tables have them.
bool is_object(std::string_view path);

}  // namespace kovadm

// Values as messages have them.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "model/data_model.hpp"
#include "session/envelope.hpp"

namespace kovadm::session {

// Whether what is said to be of a given type of XML Schema may be a value of a parameter's type. Servers call much a
// string.
bool may_be(const std::string& given, Type type);

// Adds the list of parameters with their values, each with its type as far as it is of its type.
void add_values(pugi::xml_node parent, const std::vector<std::pair<Parameter, std::string>>& values);

}  // namespace kovadm::session

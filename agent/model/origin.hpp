// What is served beyond the published data models.
#pragma once

#include <string>

#include "model/data_model.hpp"

namespace kovadm {

// Whether no published model has the parameter with this path, as the catalogue spells it.
bool is_extension(const std::string& path);

// Whether no published model has the object with this path, which ends in a dot: all below it are extensions.
bool is_beyond_published(const Node& object, const std::string& path);

}  // namespace kovadm

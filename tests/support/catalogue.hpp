// Every handler that the family headers declare.
#pragma once

#include <string>

#include "families.h"

namespace kova::test {

enum class Access { READ_ONLY, READ_WRITE };

struct Row {
  std::string name;
  parameter_handler handler;
  Access access;
};

#undef KOVA_PARAMETER
#define KOVA_PARAMETER(handler, access, ...) {#handler, handler, Access::access},
inline const Row kCatalogue[] = {
#include "families.h"
};

}  // namespace kova::test

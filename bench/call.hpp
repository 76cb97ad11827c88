// Handlers called as an agent calls them.
#pragma once

#include "seam/handler.hpp"

namespace kova::bench {

// A get, of the first row where the parameter is in a table.
inline int32_t get_first_row(parameter_handler handler, char* output) {
  static agent_state agent = seam::running_agent();
  int32_t instances[] = {1, 1, 1, 1, 0, 0};
  return seam::get(handler, instances, output, &agent);
}

}  // namespace kova::bench

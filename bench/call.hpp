// Handlers called as an agent calls them.
#pragma once

#include <cstdarg>

#include "pkg-tool.h"

namespace kova::bench {

inline int32_t call(parameter_handler handler, int32_t operation, ...) {
  va_list arguments;
  va_start(arguments, operation);
  const int32_t result = handler(operation, arguments);
  va_end(arguments);
  return result;
}

// A get, of the first row where the parameter is in a table.
inline int32_t get_first_row(parameter_handler handler, char* output) {
  static agent_state agent = {};
  agent.connection_request_path = "/kova";
  agent.connection_request_host = "192.0.2.10";
  agent.wan_interface = "eth0";
  int32_t instances[] = {1, 1, 1, 1, 0, 0};
  return call(handler, 0, instances, output, &agent);
}

}  // namespace kova::bench

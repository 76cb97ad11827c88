// Calls handlers as an agent does.
#pragma once

#include <cstdarg>

#include "pkg-tool.h"

namespace seam {

// With a list made of the arguments that follow.
inline int32_t call(parameter_handler handler, int32_t operation, ...) {
  va_list arguments;
  va_start(arguments, operation);
  const int32_t result = handler(operation, arguments);
  va_end(arguments);
  return result;
}

// `instances` may be rewritten by the handler; `output` has room for any value.
inline int32_t get(parameter_handler handler, int32_t* instances, char* output, agent_state* agent) {
  return call(handler, 0, instances, output, agent);
}
inline int32_t set(parameter_handler handler, int32_t* instances, const char* value, uint32_t* mask,
                   int32_t operation = 1) {
  return call(handler, operation, instances, value, mask);
}

// The agent's record as a running agent fills it.
inline agent_state running_agent() {
  agent_state agent = {};
  agent.connection_request_port = 7547;
  agent.connection_request_path = "/kova";
  agent.connection_request_host = "192.0.2.10";
  agent.wan_interface = "eth0";
  return agent;
}

}  // namespace seam

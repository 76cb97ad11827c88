#include "support/handler.hpp"

#include <cstring>

namespace kova::test {

agent_state running_agent() {
  agent_state agent = {};
  agent.connection_request_port = 7547;
  agent.connection_request_path = "/kova";
  agent.connection_request_host = "192.0.2.10";
  agent.wan_interface = "eth0";
  return agent;
}

int32_t call(parameter_handler function, int32_t operation, ...) {
  va_list arguments;
  va_start(arguments, operation);
  const int32_t result = function(operation, arguments);
  va_end(arguments);
  return result;
}

Answer get(parameter_handler handler, agent_state& agent, const Instances& instances) {
  std::string output(65536, '\0');
  kUntouched.copy(output.data(), kUntouched.size());
  Instances numbers = instances;  // which some handlers rewrite
  const int32_t result = call(handler, 0, numbers.data(), output.data(), &agent);
  output.resize(std::strlen(output.data()));
  return {result, output};
}

Answer get(parameter_handler handler, const Instances& instances) {
  agent_state agent = running_agent();
  return get(handler, agent, instances);
}

Outcome set(parameter_handler handler, const std::string& value, const Instances& instances) {
  uint32_t mask = 0;
  Instances numbers = instances;
  const int32_t result = call(handler, 1, numbers.data(), value.c_str(), &mask);
  return {result, mask};
}

}  // namespace kova::test

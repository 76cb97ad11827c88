#include "support/handler.hpp"

#include <cstring>

namespace kova::test {

Answer get(parameter_handler handler, agent_state& agent, const Instances& instances) {
  std::string output(65536, '\0');
  kUntouched.copy(output.data(), kUntouched.size());
  const std::string before = output;
  Instances numbers = instances;  // which some handlers rewrite
  const int32_t result = seam::get(handler, numbers.data(), output.data(), &agent);
  const std::size_t end = std::strlen(output.data()) + 1;
  if (output.compare(end, std::string::npos, before, end) != 0) return {result, "<written into more than the reply>"};
  output.resize(end - 1);
  return {result, output};
}

Answer get(parameter_handler handler, const Instances& instances) {
  agent_state agent = running_agent();
  return get(handler, agent, instances);
}

Outcome set(parameter_handler handler, const std::string& value, const Instances& instances) {
  uint32_t mask = 0;
  Instances numbers = instances;
  const int32_t result = seam::set(handler, numbers.data(), value.c_str(), &mask);
  return {result, mask};
}

}  // namespace kova::test

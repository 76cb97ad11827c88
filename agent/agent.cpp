#include "agent.hpp"

#include <cstdarg>

namespace kovadm {
namespace {

// Handlers are not told the buffer's size; no value comes near this one.
constexpr std::size_t kOutputSize = 64UL * 1024;
constexpr std::size_t kPadding = 4;

constexpr int32_t kGet = 0;
constexpr int32_t kSet = 1;

// Starts the argument list that a handler takes.
int32_t call(parameter_handler handler, int32_t operation, ...) {
  va_list arguments;
  va_start(arguments, operation);
  const int32_t result = handler(operation, arguments);
  va_end(arguments);
  return result;
}

Fault missing_handler(const Plugin& plugin, const Parameter& parameter) {
  return {FaultCode::INTERNAL_ERROR, parameter.path, plugin.file() + " has no handler " + parameter.row->handler, ""};
}

Fault failed_get(const Parameter& parameter) {
  if (parameter.instances.empty()) return {FaultCode::INTERNAL_ERROR, parameter.path, "the handler failed", ""};
  return {FaultCode::INVALID_PARAMETER_NAME, parameter.path, "no such instance", ""};
}

}  // namespace

std::vector<int32_t> instance_array(const Parameter& parameter) {
  std::vector<int32_t> numbers = parameter.instances;
  numbers.resize(numbers.size() + kPadding);
  return numbers;
}

std::variant<std::string, Fault> Agent::get(const Parameter& parameter) {
  parameter_handler handler = plugin_.handler(parameter.row->handler);
  if (handler == nullptr) return missing_handler(plugin_, parameter);
  const std::vector<int32_t> instances = instance_array(parameter);
  std::vector<char> output(kOutputSize);
  if (call(handler, kGet, instances.data(), output.data(), record_.get()) != 0) return failed_get(parameter);
  return std::string(output.data());
}

std::optional<Fault> Agent::set(const Parameter& parameter, const std::string& value, uint32_t& mask) {
  parameter_handler handler = plugin_.handler(parameter.row->handler);
  if (handler == nullptr) return missing_handler(plugin_, parameter);
  const std::vector<int32_t> instances = instance_array(parameter);
  if (call(handler, kSet, instances.data(), value.c_str(), &mask) == 0) return std::nullopt;
  return Fault{FaultCode::INVALID_PARAMETER_VALUE, parameter.path, "refused \"" + value + '"', ""};
}

}  // namespace kovadm

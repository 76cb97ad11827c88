#include "device/call.hpp"

#include "device/instances.hpp"
#include "model/value_type.hpp"

namespace kovadm {

std::variant<Call, Fault> RequestCheck::call(const std::string& path, const std::string& value) {
  const auto parameter = find_parameter(path);
  if (!parameter) return unknown_path(path);
  const Row& row = *parameter->row;
  if (!paths_.insert(path).second) return Fault{FaultCode::INVALID_ARGUMENTS, path, "given twice", ""};
  if (row.access == Access::READ_ONLY) return Fault{FaultCode::NON_WRITABLE_PARAMETER, path, "", ""};
  if (const auto missing = missing_instance(agent_, path)) return *missing;
  if (!force_ && !is_of_type(value, row.type)) {
    const std::string detail = "no " + to_text(row.type) + ": \"" + value + '"';
    return Fault{FaultCode::INVALID_PARAMETER_VALUE, path, detail, ""};
  }
  return Call{*parameter, value, force_ ? value : as_handlers_know(value, row.type)};
}

}  // namespace kovadm

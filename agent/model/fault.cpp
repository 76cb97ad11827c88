#include "model/fault.hpp"

#include "model/data_model.hpp"
#include "model/nearest.hpp"

namespace kovadm {

std::string to_text(FaultCode code) {
  switch (code) {
    case FaultCode::METHOD_NOT_SUPPORTED:
      return "Method not supported";
    case FaultCode::REQUEST_DENIED:
      return "Request denied";
    case FaultCode::INTERNAL_ERROR:
      return "Internal error";
    case FaultCode::INVALID_ARGUMENTS:
      return "Invalid arguments";
    case FaultCode::RESOURCES_EXCEEDED:
      return "Resources exceeded";
    case FaultCode::INVALID_PARAMETER_NAME:
      return "Invalid parameter name";
    case FaultCode::INVALID_PARAMETER_TYPE:
      return "Invalid parameter type";
    case FaultCode::INVALID_PARAMETER_VALUE:
      return "Invalid parameter value";
    case FaultCode::NON_WRITABLE_PARAMETER:
      return "Attempt to set a non-writable parameter";
    case FaultCode::NOTIFICATION_REJECTED:
      return "Notification request rejected";
  }
  return "";
}

Fault unknown_path(const std::string& path) {
  if (path.find(kInstance) != std::string::npos) {
    return {FaultCode::INVALID_PARAMETER_NAME, path, "{i} stands for an instance number", ""};
  }
  for (const std::string& component : split_path(path)) {
    if (!component.empty() && component.find_first_not_of("0123456789") == std::string::npos &&
        !instance_number(component))
      return {FaultCode::INVALID_PARAMETER_NAME, path, '"' + component + "\" is no instance number", ""};
  }
  if (is_object(path)) return {FaultCode::INVALID_PARAMETER_NAME, path, "an object, not a parameter", ""};
  return {FaultCode::INVALID_PARAMETER_NAME, path, "", nearest_path(path)};
}

}  // namespace kovadm

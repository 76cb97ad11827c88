// The faults of the CPE WAN Management Protocol that an agent answers with.
#pragma once

#include <string>

namespace kovadm {

enum class FaultCode {
  METHOD_NOT_SUPPORTED = 9000,
  REQUEST_DENIED = 9001,
  INTERNAL_ERROR = 9002,
  INVALID_ARGUMENTS = 9003,
  RESOURCES_EXCEEDED = 9004,
  INVALID_PARAMETER_NAME = 9005,
  INVALID_PARAMETER_TYPE = 9006,
  INVALID_PARAMETER_VALUE = 9007,
  NON_WRITABLE_PARAMETER = 9008,
  NOTIFICATION_REJECTED = 9009
};

struct Fault {
  FaultCode code;
  std::string path;
  std::string detail;   // what was wrong in particular; may be empty
  std::string nearest;  // for a misspelled path, what may have been meant
};

// The protocol's words for a code.
std::string to_text(FaultCode code);

// The fault of a path that the catalogue does not have.
Fault unknown_path(const std::string& path);

}  // namespace kovadm

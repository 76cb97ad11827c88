#include "commands/invalid.hpp"

#include "model/value_type.hpp"

namespace kovadm {

bool tell_if_invalid(const Parameter& parameter, const std::string& value, Output& output) {
  const std::string reason = type_error(value, parameter.row->type);
  if (reason.empty()) return false;
  const std::string type = to_text(parameter.row->type);
  output.line(parameter.path + " = \"" + one_line(value) + "\": no " + type + ": " + reason);
  output.document()["invalid"].push_back(
      {{"path", parameter.path}, {"value", value}, {"type", type}, {"reason", reason}});
  return true;
}

}  // namespace kovadm

#include "commands/reader.hpp"

#include "commands/invalid.hpp"
#include "device/instances.hpp"
#include "device/walk.hpp"

namespace kovadm {

Reader::Reader(Agent& agent, Output& output, Tell tell) : agent_(agent), look_(agent), output_(output), tell_(tell) {
  output.document()[tell == Tell::ALL ? "values" : "invalid"] = Json::array();
}

void Reader::parameter(const std::string& path) {
  const auto found = find_parameter(path);
  if (!found) {
    output_.fault(unknown_path(path));
  } else if (const auto missing = missing_instance(agent_, path)) {
    output_.fault(*missing);
  } else {
    read(*found);
  }
}

void Reader::below(const std::string& prefix) {
  const auto fault = walk(agent_, prefix, [this](const Parameter& parameter) {
    // Some take a while.
    progress_.show(std::to_string(++count_) + " " + parameter.path);
    return read(parameter);
  });
  if (fault) output_.fault(*fault);
}

// Whether it has a value.
bool Reader::read(const Parameter& parameter) {
  const auto answer = agent_.get(parameter);
  progress_.clear();
  const auto* value = std::get_if<std::string>(&answer);
  if (value != nullptr) {
    tell(parameter, *value);
  } else {
    output_.fault(std::get<Fault>(answer));
  }
  return value != nullptr;
}

void Reader::tell(const Parameter& parameter, const std::string& value) {
  if (tell_ == Tell::ALL) {
    output_.value(parameter.path, is_secret(*parameter.row) ? output_.redaction().secret(value) : value);
  } else if (tell_if_invalid(parameter, value, output_)) {
    ++invalid_;
  }
}

}  // namespace kovadm

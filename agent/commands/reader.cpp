#include "commands/reader.hpp"

#include "device/instances.hpp"
#include "device/walk.hpp"

namespace kovadm {

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
    output_.value(parameter.path, *value);
  } else {
    output_.fault(std::get<Fault>(answer));
  }
  return value != nullptr;
}

}  // namespace kovadm

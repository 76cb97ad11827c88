#include "recording/reading.hpp"

#include "device/walk.hpp"
#include "output/progress.hpp"

namespace kovadm {
namespace {

std::optional<std::string> read(Agent& agent, const Parameter& parameter) {
  auto answer = agent.get(parameter);
  auto* value = std::get_if<std::string>(&answer);
  return value != nullptr ? std::optional(*value) : std::nullopt;
}

std::optional<std::string> read_secret(Agent& agent, const Parameter& parameter, Secrets& secrets) {
  std::optional<std::string> value;
  agent.begin_look();  // anew: what it reads has to be seen
  const seam::Trace observed = seam::trace([&] { value = read(agent, parameter); });
  secrets.note(observed, value.value_or(""));
  return value;
}

}  // namespace

std::vector<Reading> read_all(Agent& agent, const std::vector<std::string>& prefixes, Output& output,
                              Secrets* secrets) {
  Progress progress;
  const Look look(agent);
  std::vector<Reading> readings;
  const auto visit = [&](const Parameter& parameter) {
    progress.show(std::to_string(readings.size() + 1) + " " + parameter.path);
    const bool watched = secrets != nullptr && is_secret(*parameter.row);
    readings.push_back({parameter, watched ? read_secret(agent, parameter, *secrets) : read(agent, parameter)});
    return readings.back().value.has_value();
  };
  for (const std::string& prefix : prefixes.empty() ? std::vector<std::string>{""} : prefixes) {
    if (const auto fault = walk(agent, prefix, visit)) output.fault(*fault);
  }
  return readings;
}

}  // namespace kovadm

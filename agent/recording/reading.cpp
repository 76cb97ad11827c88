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

// Has `take` read each parameter below the prefixes, which tells whether it answered.
void visit_all(Agent& agent, const std::vector<std::string>& prefixes, Output& output, const Visit& take) {
  Progress progress;
  std::size_t count = 0;
  const auto visit = [&](const Parameter& parameter) {
    progress.show(std::to_string(++count) + " " + parameter.path);
    return take(parameter);
  };
  for (const std::string& prefix : prefixes.empty() ? std::vector<std::string>{""} : prefixes) {
    if (const auto fault = walk(agent, prefix, visit)) output.fault(*fault);
  }
}

}  // namespace

std::vector<Reading> read_all(Agent& agent, const std::vector<std::string>& prefixes, Output& output,
                              Secrets* secrets) {
  const Look look(agent);
  std::vector<Reading> readings;
  visit_all(agent, prefixes, output, [&](const Parameter& parameter) {
    const bool watched = secrets != nullptr && is_secret(*parameter.row);
    readings.push_back({parameter, watched ? read_secret(agent, parameter, *secrets) : read(agent, parameter)});
    return readings.back().value.has_value();
  });
  return readings;
}

// Without one look at all: what each reads has to be seen.
std::vector<WatchedReading> watch_all(Agent& agent, const std::vector<std::string>& prefixes, Output& output) {
  std::vector<WatchedReading> readings;
  Inventory inventory;
  visit_all(agent, prefixes, output, [&](const Parameter& parameter) {
    std::optional<std::string> value;
    seam::Trace trace = seam::trace([&] { value = read(agent, parameter); });
    std::set<Cause> causes = causes_of(parameter, value, trace, inventory);
    readings.push_back({{parameter, value}, std::move(trace), std::move(causes)});
    return value.has_value();
  });
  return readings;
}

}  // namespace kovadm

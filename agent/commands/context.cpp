#include "commands/context.hpp"

#include <filesystem>

#include "recording/replay.hpp"

namespace kovadm {
namespace {

void expect_router() {
  if (!std::filesystem::is_directory("/etc/config"))
    throw SetupError("this is no router, it has no /etc/config; the simulated one: lab/launch -- kovadm ...");
}

}  // namespace

Agent& Context::agent() {
  if (agent_) return *agent_;
  if (replays()) {
    recording_ = read_recording(options_.replay);
  } else {
    expect_router();
  }
  const bool as_recorded = replays() && options_.agent_state.empty();
  agent_.emplace(options_.plugin,
                 as_recorded ? nlohmann::json(recording_->agent) : read_agent_fields(options_.agent_state),
                 output_.to_warn(), !replays() && !options_.no_look);
  if (replays()) {
    platform_.emplace(*recording_, RecordedPlatform::Source::RECORDING,
                      [this](const std::string& what) { output_.not_recorded(what); });
    in_use_.emplace(*platform_);
  }
  if (options_.debug) debug_.emplace();
  return *agent_;
}

Agent& Context::agent_alone() {
  if (!replays()) {
    expect_router();
    if (!lock_) lock_.emplace(options_.wait);
  }
  return agent();
}

}  // namespace kovadm

// What commands work with, made when they ask for it.
#pragma once

#include <optional>
#include <string>

#include "device/agent.hpp"
#include "device/lock.hpp"
#include "output/output.hpp"
#include "recording/recorded_platform.hpp"
#include "seam/debug_switch.hpp"

namespace kovadm {

// Options that all commands have.
struct CommonOptions {
  bool json = false;
  bool debug = false;
  bool no_look = false;
  bool show_secrets = false;
  std::string plugin;
  std::string agent_state;
  std::string replay;  // a recording's file
  int wait = 60;       // seconds, for another one's calls
};

class Context {
 public:
  explicit Context(const CommonOptions& options) : options_(options), output_(options.json, options.show_secrets) {}

  const CommonOptions& options() const { return options_; }
  bool replays() const { return !options_.replay.empty(); }
  Output& output() { return output_; }

  // The agent of this router, or of the one in the recording, whose platform is in use from then on. Throws SetupError.
  Agent& agent();

  // The same, and nobody else's calls meet its own: a replay's never do. Throws SetupError after the time to wait.
  Agent& agent_alone();

  // What is replayed, once the agent was asked for; else nullptr.
  const Recording* recording() const { return recording_ ? &*recording_ : nullptr; }

  // The beginnings of paths that a command is about: those that were given, or else the replayed recording's.
  std::vector<std::string> prefixes(const std::vector<std::string>& given) const {
    return given.empty() && recording_ ? recording_->prefixes : given;
  }

 private:
  CommonOptions options_;
  Output output_;
  std::optional<DeviceLock> lock_;
  std::optional<Recording> recording_;
  std::optional<Agent> agent_;
  std::optional<RecordedPlatform> platform_;
  std::optional<seam::InUse> in_use_;
  std::optional<seam::DebugSwitch> debug_;
};

}  // namespace kovadm

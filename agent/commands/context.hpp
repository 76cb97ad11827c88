// What commands work with, made when they ask for it.
#pragma once

#include <optional>
#include <string>

#include "device/agent.hpp"
#include "output/output.hpp"
#include "recording/recorded_platform.hpp"
#include "seam/debug_switch.hpp"

namespace kovadm {

// Options that all commands have.
struct CommonOptions {
  bool json = false;
  bool debug = false;
  std::string plugin;
  std::string agent_state;
  std::string replay;  // a recording's file
};

class Context {
 public:
  explicit Context(const CommonOptions& options) : options_(options), output_(options.json) {}

  const CommonOptions& options() const { return options_; }
  bool replays() const { return !options_.replay.empty(); }
  Output& output() { return output_; }

  // The agent of this router, or of the one in the recording, whose platform is in use from then on. Throws SetupError.
  Agent& agent();

 private:
  CommonOptions options_;
  Output output_;
  std::optional<Recording> recording_;
  std::optional<Agent> agent_;
  std::optional<RecordedPlatform> platform_;
  std::optional<seam::InUse> in_use_;
  std::optional<seam::DebugSwitch> debug_;
};

}  // namespace kovadm

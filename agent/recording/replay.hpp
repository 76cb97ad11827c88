// Recordings as devices.
#pragma once

#include <memory>
#include <set>
#include <string>

#include "agent.hpp"
#include "output.hpp"
#include "recording/recorded_platform.hpp"

namespace kovadm {

// Reads a recording's file. Throws SetupError.
Recording read_recording(const std::string& file);

// Records what is below the recording's prefixes on this machine, with or without secrets as it says; adds to
// `replaced` what was replaced. Returns the number of parameters.
std::size_t make_recording(Agent& agent, Recording& recording, std::set<std::string>& replaced, Output& output);

// Has the secrets replaced in a recording that keeps them.
void remove_secrets(Agent& agent, Recording& recording, Output& output);

}  // namespace kovadm

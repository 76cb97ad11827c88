// Recordings as devices.
#pragma once

#include <memory>
#include <set>
#include <string>

#include "device/agent.hpp"
#include "output/output.hpp"
#include "recording/recorded_platform.hpp"

namespace kovadm {

// "2026-01-31T12:00:00Z", as recordings have it.
std::string now();

// Reads a recording's file. Throws SetupError.
Recording read_recording(const std::string& file);

// What there is to tell of a recording that was made.
struct Made {
  std::size_t parameters = 0;
  std::set<std::string> left_out;  // links, by path
  std::set<std::string> replaced;  // secrets
};

// Records what is below the recording's prefixes on this machine, with or without secrets as it says.
Made make_recording(Agent& agent, Recording& recording, Output& output);

// Has the secrets replaced in a recording that keeps them.
void remove_secrets(Agent& agent, Recording& recording, Output& output);

}  // namespace kovadm

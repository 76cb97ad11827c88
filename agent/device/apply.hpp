// The agent's part after a set request.
#pragma once

#include <cstdint>

#include "output/output.hpp"

namespace kovadm {

// For every raised bit runs what the agent runs, and waits for its end: the recorded commands, the router's services.
// Tells what was run, and what is left because the router has no service for it.
void apply(uint32_t mask, Output& output);

}  // namespace kovadm

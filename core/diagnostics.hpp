// Tests that the server asks for: each has a state file below /tmp/diag. The plug-in writes the request there and tells
// the agent; the program that then runs the test leaves the final state in it.
#pragma once

#include "parameter.hpp"

namespace kova {

bool reply_diagnostics_state(Call& call, const char* file);
bool request_diagnostics(Call& call, const char* file, uint32_t bit);

// ---- Getters and setters ----

// The state file's first line as it stands; "None" when it is missing or empty.
constexpr auto diagnostics_state(const char* file) {
  return [=](Call& call) { return reply_diagnostics_state(call, file); };
}

// Writes "Requested", the only value taken, to the state file and marks `bit`.
constexpr auto diagnostics_request(const char* file, uint32_t bit) {
  return [=](Call& call) { return request_diagnostics(call, file, bit); };
}

}  // namespace kova

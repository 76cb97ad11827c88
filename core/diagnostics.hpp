// Tests that the server asks for. Each has a state file below /tmp/diag: the plug-in writes the request to it and marks
// the test's bit, and the program that runs the test replaces it with the final state.
#pragma once

#include <cstdint>

#include "parameter.hpp"

namespace kova {

bool reply_diagnostics_state(Call& call, const char* file);
bool request_diagnostics(Call& call, const char* file, uint32_t bit);

// ---- Getters and setters ----

// The state file's first line as it stands, at most 99 characters; "None" when the file is missing or empty.
constexpr auto diagnostics_state(const char* file) {
  return [=](Call& call) { return reply_diagnostics_state(call, file); };
}

// Writes "Requested" to the state file and marks `bit`. Every other value is refused.
constexpr auto diagnostics_request(const char* file, uint32_t bit) {
  return [=](Call& call) { return request_diagnostics(call, file, bit); };
}

}  // namespace kova

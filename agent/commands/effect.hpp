// What became of a value that was set.
#pragma once

#include <optional>
#include <string>

#include "device/agent.hpp"
#include "output/output.hpp"

namespace kovadm {

enum class Effect {
  AS_ASKED,
  HIDDEN,           // a secret, which reads as empty by design
  DEFERRED,         // its handler left it to a recorded command
  DIFFERENT,        // something was stored, and the parameter reads differently
  UNREADABLE,       // the parameter cannot be read
  NOTHING_CHANGED,  // accepted, nothing was stored, and the parameter reads differently
};

// A setting that was accepted.
struct Accepted {
  Parameter parameter;
  std::string asked;
  std::string passed;  // to the handler
  uint32_t raised;     // bits
  bool commanded;      // its handler ran a command for what that does
  bool stored;         // anything: by its handler, or by what was run for its bits
};

// Reads the parameter, tells what it reads now, and makes that the next of the document's values. `ran`: what is to
// be run for the bits has been.
Effect tell_effect(Agent& agent, const Accepted& setting, bool ran, Output& output);

}  // namespace kovadm

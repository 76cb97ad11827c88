// In the place of sessions, where kovadm was built without the libraries that they take.
#include "commands/command.hpp"

namespace kovadm {
namespace {

Run define(CLI::App&) {
  return [](Context&) -> int { throw SetupError("this kovadm was built without sessions: " KOVADM_LACKS); };
}

}  // namespace

const Command kSession = {"session", "Not in this kovadm", false, define};

}  // namespace kovadm

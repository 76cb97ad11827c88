// A device that stays: it calls its server when it is time to, and when it is asked.
#pragma once

#include "session/device.hpp"

namespace kovadm::session {

// Until Ctrl-C. Returns the exit status.
int stay(Device& device, Context& context, const Options& options);

// How long to wait before a session is tried for the n-th time again: seconds, at least and at most.
std::pair<double, double> retry_wait(int retries);

}  // namespace kovadm::session

// The published models' profiles as bars, for the page.
#pragma once

#include <string>
#include <vector>

#include "recording/reading.hpp"

namespace kovadm {

// A parameter with a fault in one of its instances counts as one that does not answer.
std::string profile_bars(const std::vector<WatchedReading>& readings);

}  // namespace kovadm

// The wireless networks by number, and the channels that their radios support.
#pragma once

#include <cstdint>

#include "store.hpp"

namespace kova {

// The number of a WLANConfiguration, 1 or 2, from the first two instance numbers of a path: (1, i), or (i, 0) as the
// other tree has it. 0 when they name none.
int32_t wlan_number(const int32_t* instances);

// Whether the radio of a network supports the channel.
bool supports_channel(Section network, const char* channel);

}  // namespace kova

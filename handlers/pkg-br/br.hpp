// What the parameters of this family share.
#pragma once

#include <cstddef>

#include "parameter.hpp"
#include "text.hpp"

namespace kova {

// The VLANs of the internet, IPTV and telephony services.
inline constexpr Section iptv{"network", "iptv"};

// Whether a text begins with a VLAN ID or a priority. What follows the number does not count.
inline bool is_vlan_id(const char* text) { return number_between(text, 2, 4094); }
inline bool is_priority(const char* text) { return number_between(text, 0, 7); }

// Whether the instance number at `position` can be a row's. 0 cannot, which is logged.
bool located(const Call& call, std::size_t position);

// Writes an option of the service VLANs. Whether it was written; a failure is logged.
bool store_iptv(Call& call, const char* option, const char* value);

}  // namespace kova

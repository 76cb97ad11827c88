// The router's service VLANs, and the words that the parameters of this family share.
#pragma once

#include "parameter.hpp"
#include "text.hpp"

namespace kova {

// Everything about VLANs and IPTV.
inline constexpr Section iptv{"network", "iptv"};

inline constexpr LogMessage kNotStored = " uci set error\n\n";

// What a VLAN's ID and its priority can be; what follows the number is not looked at.
inline bool is_vlan_id(const char* text) { return number_between(text, 2, 4094); }
inline bool is_priority(const char* text) { return number_between(text, 0, 7); }

// False, and logged, when the instance number at `position` is 0, which no row has.
bool located(const Call& call, std::size_t position);

// Writes an option of the service VLANs; a failure is logged.
bool store_iptv(Call& call, const char* option, const char* value);

}  // namespace kova

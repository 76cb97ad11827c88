// Board identity, beside the exported functions of pkg-tool.h.
#pragma once

#include <cstdint>

namespace kova {

// Copies at most `limit` characters of a MAC address other than the separators "-" and ":", without adding a
// terminator. Returns their number.
int32_t copy_mac_digits(const char* mac, char* output, int32_t limit);

}  // namespace kova

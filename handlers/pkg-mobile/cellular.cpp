// Cellular: the object itself, roaming.
#include "mobile.hpp"
#include "pkg-mobile.h"

using namespace kova;

// clang-format off
PARAMETER(Cellular_RoamingEnabled,             if_present(by_option("roaming", "0", "0", "1"), "0"),         switch_option("roaming", "0", "1", "CREDSE.\n"))
PARAMETER(Cellular_RoamingStatus,              if_present(by_option("roaming", "0", "Home", "Roaming"), ""), read_only)
PARAMETER(Cellular_InterfaceNumberOfEntries,   constant("1"),                                                read_only)
PARAMETER(Cellular_AccessPointNumberOfEntries, constant("1"),                                                read_only)
// clang-format on

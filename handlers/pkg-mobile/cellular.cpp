// Cellular: the object itself, and roaming.
#include "mobile.hpp"
#include "pkg-mobile.h"

namespace {

using namespace kova;

constexpr Switch roaming{.option = "roaming", .on = "1", .off = "0"};

}  // namespace

// clang-format off
PARAMETER(Cellular_RoamingEnabled,             if_present(on_or_off(roaming, "1", "0"), "0"),         switch_and_apply(roaming, "CREDSE.\n"))
PARAMETER(Cellular_RoamingStatus,              if_present(on_or_off(roaming, "Roaming", "Home"), ""), read_only)
PARAMETER(Cellular_InterfaceNumberOfEntries,   constant("1"),                                         read_only)
PARAMETER(Cellular_AccessPointNumberOfEntries, constant("1"),                                         read_only)
// clang-format on

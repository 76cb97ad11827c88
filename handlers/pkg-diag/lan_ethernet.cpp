// LANEthernetInterfaceConfig: the LAN's address and counters as the network daemon has them.
#include "link.hpp"
#include "parameter.hpp"
#include "pkg-diag.h"

namespace {

using namespace kova;

constexpr char kLan[] = "lan";

}  // namespace

// clang-format off
PARAMETER(LANDevice_LANEthernetInterfaceConfig_MACAddress,            link_mac<100>(kLan),                   read_only)
PARAMETER(LANDevice_LANEthernetInterfaceConfig_Stats_BytesSent,       link_counter(kLan, DEVICE_TX_BYTES),   read_only)
PARAMETER(LANDevice_LANEthernetInterfaceConfig_Stats_BytesReceived,   link_counter(kLan, DEVICE_RX_BYTES),   read_only)
PARAMETER(LANDevice_LANEthernetInterfaceConfig_Stats_PacketsSent,     link_counter(kLan, DEVICE_TX_PACKETS), read_only)
PARAMETER(LANDevice_LANEthernetInterfaceConfig_Stats_PacketsReceived, link_counter(kLan, DEVICE_RX_PACKETS), read_only)
PARAMETER(LANDevice_LANEthernetInterfaceConfig_Stats_ErrorsSent,      link_counter(kLan, DEVICE_TX_ERRORS),  read_only)
PARAMETER(LANDevice_LANEthernetInterfaceConfig_Stats_ErrorsReceived,  link_counter(kLan, DEVICE_RX_ERRORS),  read_only)
// clang-format on

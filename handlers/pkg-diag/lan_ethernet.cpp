// LANEthernetInterfaceConfig: the LAN's address and counters as the network daemon has them.
#include "link.hpp"
#include "parameter.hpp"
#include "pkg-diag.h"

namespace {

using namespace kova;

constexpr char kLan[] = "lan";

bool mac_address(Call& call) {
  const Text<32> device = interface_status<32>(kLan, INTERFACE_DEVICE);
  return reply_or(call, device_status<100>(device.c_str(), DEVICE_MAC).c_str(), "0:0:0:0:0:0");
}

bool reply_counter(Call& call, bus_status_query counter) {
  const Text<32> device = interface_status<32>(kLan, INTERFACE_L3_DEVICE);
  return reply_or(call, device_status(device.c_str(), counter).c_str(), "0");
}

constexpr auto lan_counter(bus_status_query counter) {
  return [=](Call& call) { return reply_counter(call, counter); };
}

}  // namespace

// clang-format off
PARAMETER(LANDevice_LANEthernetInterfaceConfig_MACAddress,            mac_address,                    read_only)
PARAMETER(LANDevice_LANEthernetInterfaceConfig_Stats_BytesSent,       lan_counter(DEVICE_TX_BYTES),   read_only)
PARAMETER(LANDevice_LANEthernetInterfaceConfig_Stats_BytesReceived,   lan_counter(DEVICE_RX_BYTES),   read_only)
PARAMETER(LANDevice_LANEthernetInterfaceConfig_Stats_PacketsSent,     lan_counter(DEVICE_TX_PACKETS), read_only)
PARAMETER(LANDevice_LANEthernetInterfaceConfig_Stats_PacketsReceived, lan_counter(DEVICE_RX_PACKETS), read_only)
PARAMETER(LANDevice_LANEthernetInterfaceConfig_Stats_ErrorsSent,      lan_counter(DEVICE_TX_ERRORS),  read_only)
PARAMETER(LANDevice_LANEthernetInterfaceConfig_Stats_ErrorsReceived,  lan_counter(DEVICE_RX_ERRORS),  read_only)
// clang-format on

// Ethernet.Link: the Ethernet layer below each IP interface; what both have is forwarded to the IP interface.
#include <stdio.h>
#include <string.h>

#include <algorithm>

#include "command.hpp"
#include "interfaces.hpp"
#include "link.hpp"
#include "pkg-wan.h"

namespace {

using namespace kova;

// Their references stay below the 4 KiB that an agent is told to have room for, whatever count the command gives.
constexpr int32_t kMostBridges = 150;

// The router's bridges, of which there is always one.
bool bridges(Call& call) {
  const int32_t counted = leading_number(logged_first_line<128>("ifconfig | grep 'br-' | wc -l").c_str());
  const int32_t count = std::min(counted, kMostBridges);
  char* end = stpcpy(call.output(), "Device.Bridging.Bridge.1");
  for (int32_t number = 2; number <= count; ++number) end += sprintf(end, ",Device.Bridging.Bridge.%d", number);
  return true;
}

bool mac_address(Call& call, const NetworkInterface& interface) { return link_mac(interface.name)(call); }

}  // namespace

// clang-format off
PARAMETER(Ethernet_Link_LowerLayers, by_interface(constant("Device.Ethernet.Interface.1"), bridges, constant("Device.Ethernet.Interface.3"), ignored), read_only)
PARAMETER(Ethernet_Link_MACAddress,  of_interface(mac_address),                                                                                        read_only)

ALIAS(Ethernet_LinkNumberOfEntries, IP_InterfaceNumberOfEntries)
ALIAS(Ethernet_Link_Enable,         IP_Interface_Enable)
ALIAS(Ethernet_Link_Status,         IP_Interface_Status)

ALIAS(Ethernet_Link_Stats_BytesSent,       IP_Interface_Stats_BytesSent)
ALIAS(Ethernet_Link_Stats_BytesReceived,   IP_Interface_Stats_BytesReceived)
ALIAS(Ethernet_Link_Stats_PacketsSent,     IP_Interface_Stats_PacketsSent)
ALIAS(Ethernet_Link_Stats_PacketsReceived, IP_Interface_Stats_PacketsReceived)
ALIAS(Ethernet_Link_Stats_ErrorsSent,      IP_Interface_Stats_ErrorsSent)
ALIAS(Ethernet_Link_Stats_ErrorsReceived,  IP_Interface_Stats_ErrorsReceived)
// clang-format on

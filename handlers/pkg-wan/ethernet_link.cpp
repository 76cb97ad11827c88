// Ethernet.Link: the Ethernet layer below each IP interface; what it shares with the interface is forwarded.
#include <stdio.h>
#include <string.h>

#include "command.hpp"
#include "interfaces.hpp"
#include "pkg-wan.h"
#include "wan.hpp"

namespace {

using namespace kova;

// All bridges of the router, of which there is always one.
bool bridges(Call& call) {
  const int count = leading_number(logged_first_line<128>("ifconfig | grep 'br-' | wc -l").c_str());
  call.reply("Device.Bridging.Bridge.1");
  char* end = call.output() + strlen(call.output());
  for (int number = 2; number <= count; ++number) end += sprintf(end, ",Device.Bridging.Bridge.%d", number);
  return true;
}

bool mac_address(Call& call) {
  const NetworkInterface* interface = interface_of(call);
  if (interface == nullptr) return false;
  return reply_device_mac(call, interface_status<32>(interface->name, INTERFACE_DEVICE).c_str());
}

}  // namespace

// clang-format off
PARAMETER(Ethernet_Link_LowerLayers, by_interface(constant("Device.Ethernet.Interface.1"), bridges, constant("Device.Ethernet.Interface.3"), ignored), read_only)
PARAMETER(Ethernet_Link_MACAddress,  mac_address,                                                                                                      read_only)

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

#include "interfaces.hpp"

#include "pkg-diag/pkg-diag.h"
#include "pkg-mobile/pkg-mobile.h"
#include "pkg-wan.h"

namespace kova {
namespace {

constexpr NetworkInterface kInterfaces[] = {
    {.name = "wan",
     .reference = "Device.IP.Interface.1.",
     .title = "Wan",
     .lower_layers = "Device.Ethernet.Link.1",
     .addresses = "3",
     .counters =
         {WANDevice_WANCommonInterfaceConfig_TotalBytesSent, WANDevice_WANCommonInterfaceConfig_TotalBytesReceived,
          WANDevice_WANCommonInterfaceConfig_TotalPacketsSent, WANDevice_WANCommonInterfaceConfig_TotalPacketsReceived,
          WANDevice_WANCommonInterfaceConfig_TotalErrorsSent, WANDevice_WANCommonInterfaceConfig_TotalErrorsReceived}},
    {.name = "lan",
     .reference = "Device.IP.Interface.2.",
     .title = "Lan",
     .lower_layers = "Device.Ethernet.Link.2",
     .addresses = "1",
     .counters = {LANDevice_LANEthernetInterfaceConfig_Stats_BytesSent,
                  LANDevice_LANEthernetInterfaceConfig_Stats_BytesReceived,
                  LANDevice_LANEthernetInterfaceConfig_Stats_PacketsSent,
                  LANDevice_LANEthernetInterfaceConfig_Stats_PacketsReceived,
                  LANDevice_LANEthernetInterfaceConfig_Stats_ErrorsSent,
                  LANDevice_LANEthernetInterfaceConfig_Stats_ErrorsReceived}},
    {.name = "4g",
     .reference = "Device.IP.Interface.3.",
     .title = "Cellular",
     .lower_layers = "Device.Ethernet.Link.3",
     .addresses = "1",
     .counters = {Cellular_Interface_Stats_BytesSent, Cellular_Interface_Stats_BytesReceived,
                  Cellular_Interface_Stats_PacketsSent, Cellular_Interface_Stats_PacketsReceived,
                  Cellular_Interface_Stats_ErrorsSent, Cellular_Interface_Stats_ErrorsReceived}},
};

}  // namespace

std::span<const NetworkInterface> network_interfaces() { return kInterfaces; }

const NetworkInterface* interface_of(const Call& call) {
  const int32_t number = call.instance(0);
  return number >= WAN && number <= MOBILE ? &kInterfaces[number - 1] : nullptr;
}

}  // namespace kova

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
     .counters = {.bytes_sent = WANDevice_WANCommonInterfaceConfig_TotalBytesSent,
                  .bytes_received = WANDevice_WANCommonInterfaceConfig_TotalBytesReceived,
                  .packets_sent = WANDevice_WANCommonInterfaceConfig_TotalPacketsSent,
                  .packets_received = WANDevice_WANCommonInterfaceConfig_TotalPacketsReceived,
                  .errors_sent = WANDevice_WANCommonInterfaceConfig_TotalErrorsSent,
                  .errors_received = WANDevice_WANCommonInterfaceConfig_TotalErrorsReceived}},
    {.name = "lan",
     .reference = "Device.IP.Interface.2.",
     .title = "Lan",
     .lower_layers = "Device.Ethernet.Link.2",
     .addresses = "1",
     .counters = {.bytes_sent = LANDevice_LANEthernetInterfaceConfig_Stats_BytesSent,
                  .bytes_received = LANDevice_LANEthernetInterfaceConfig_Stats_BytesReceived,
                  .packets_sent = LANDevice_LANEthernetInterfaceConfig_Stats_PacketsSent,
                  .packets_received = LANDevice_LANEthernetInterfaceConfig_Stats_PacketsReceived,
                  .errors_sent = LANDevice_LANEthernetInterfaceConfig_Stats_ErrorsSent,
                  .errors_received = LANDevice_LANEthernetInterfaceConfig_Stats_ErrorsReceived}},
    {.name = "4g",
     .reference = "Device.IP.Interface.3.",
     .title = "Cellular",
     .lower_layers = "Device.Ethernet.Link.3",
     .addresses = "1",
     .counters = {.bytes_sent = Cellular_Interface_Stats_BytesSent,
                  .bytes_received = Cellular_Interface_Stats_BytesReceived,
                  .packets_sent = Cellular_Interface_Stats_PacketsSent,
                  .packets_received = Cellular_Interface_Stats_PacketsReceived,
                  .errors_sent = Cellular_Interface_Stats_ErrorsSent,
                  .errors_received = Cellular_Interface_Stats_ErrorsReceived}},
};

}  // namespace

std::span<const NetworkInterface> network_interfaces() { return kInterfaces; }

const NetworkInterface* interface_of(const Call& call) {
  const int32_t number = call.instance(0);
  return number >= WAN && number <= MOBILE ? &kInterfaces[number - 1] : nullptr;
}

bool forward_counter(Call& call, parameter_handler Counters::*counter) {
  const NetworkInterface* interface = interface_of(call);
  return interface != nullptr && call.forward(interface->counters.*counter);
}

}  // namespace kova

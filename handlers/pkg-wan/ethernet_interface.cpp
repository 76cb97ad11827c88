// Ethernet.Interface: the kernel device that each network interface is configured on.
#include "command.hpp"
#include "interfaces.hpp"
#include "link.hpp"
#include "pkg-wan.h"

namespace {

using namespace kova;

using Command = Text<512>;
using Device = Text<Command::capacity()>;  // a name that is cut still makes a command too long to be run

// Empty when none is configured.
Device device_of(const NetworkInterface& interface) {
  Device device;
  read_option({"network", interface.name}, "ifname", device.span());
  return device;
}

// What a command prints when asked about the device; empty without one.
using Output = Text<128>;
Output ask(const char* form, const NetworkInterface& interface) {
  const Device device = device_of(interface);
  Command command;
  if (device.empty() || !command.print(form, device.c_str())) return {};
  return printed_line<Output::capacity()>(command.c_str());
}

int status(Call& call) {
  const NetworkInterface* interface = interface_of(call);
  if (interface == nullptr) return FAILURE;
  return call.reply(is_up(ask(kUpCommand, *interface).c_str()) ? "Up" : "Down");
}

int name(Call& call) {
  const NetworkInterface* interface = interface_of(call);
  if (interface == nullptr) return FAILURE;
  return reply_option(call, {"network", interface->name}, "ifname", "Unknown");
}

int mac_address(Call& call) {
  const NetworkInterface* interface = interface_of(call);
  if (interface == nullptr) return FAILURE;
  return reply_or(call, ask("ifconfig %s | grep HWaddr | awk '{print $5}'", *interface).c_str(), "0:0:0:0:0:0");
}

// The handler of a counter. Without an answer it replies "0", and fails all the same.
int32_t eth_iface_stats(int32_t operation, va_list arguments, bus_status_query code) {
  Call call(operation, place_of(arguments), HERE);
  const NetworkInterface* interface = interface_of(call);
  if (!call.is_get() || interface == nullptr) return FAILURE;
  const Text<128> count = device_status(device_of(*interface).c_str(), code);
  reply_or(call, count.c_str(), "0");
  return count.empty() ? FAILURE : SUCCESS;
}

}  // namespace

// clang-format off
PARAMETER(Ethernet_InterfaceNumberOfEntries, constant("3"), read_only)
PARAMETER(Ethernet_Interface_Enable,         constant("1"), read_only)
PARAMETER(Ethernet_Interface_Status,         status,        read_only)
PARAMETER(Ethernet_Interface_Name,           name,          read_only)
PARAMETER(Ethernet_Interface_MACAddress,     mac_address,   read_only)

ALIAS(Ethernet_Interface_Stats_BytesSent,       eth_iface_stats, DEVICE_TX_BYTES)
ALIAS(Ethernet_Interface_Stats_PacketsSent,     eth_iface_stats, DEVICE_TX_PACKETS)
ALIAS(Ethernet_Interface_Stats_ErrorsSent,      eth_iface_stats, DEVICE_TX_ERRORS)
ALIAS(Ethernet_Interface_Stats_BytesReceived,   eth_iface_stats, DEVICE_RX_BYTES)
ALIAS(Ethernet_Interface_Stats_PacketsReceived, eth_iface_stats, DEVICE_RX_PACKETS)
ALIAS(Ethernet_Interface_Stats_ErrorsReceived,  eth_iface_stats, DEVICE_RX_ERRORS)
// clang-format on

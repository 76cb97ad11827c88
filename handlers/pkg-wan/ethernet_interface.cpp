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
  return logged_first_line<Output::capacity()>(command.c_str());
}

bool status(Call& call) {
  const NetworkInterface* interface = interface_of(call);
  if (interface == nullptr) return false;
  return call.reply(is_up(ask(kUpCommand, *interface).c_str()) ? "Up" : "Down");
}

bool name(Call& call) {
  const NetworkInterface* interface = interface_of(call);
  if (interface == nullptr) return false;
  return reply_option(call, {"network", interface->name}, "ifname", "Unknown");
}

bool mac_address(Call& call) {
  const NetworkInterface* interface = interface_of(call);
  if (interface == nullptr) return false;
  return reply_or(call, ask("ifconfig %s | grep HWaddr | awk '{print $5}'", *interface).c_str(), "0:0:0:0:0:0");
}

// Without an answer it replies "0", and fails all the same.
bool reply_counter(Call& call, bus_status_query query) {
  const NetworkInterface* interface = interface_of(call);
  if (interface == nullptr) return false;
  const Text<128> count = device_status(device_of(*interface).c_str(), query);
  reply_or(call, count.c_str(), "0");
  return !count.empty();
}

constexpr auto device_counter(bus_status_query query) {
  return [=](Call& call) { return reply_counter(call, query); };
}

}  // namespace

// clang-format off
PARAMETER(Ethernet_InterfaceNumberOfEntries, constant("3"), read_only)
PARAMETER(Ethernet_Interface_Enable,         constant("1"), read_only)
PARAMETER(Ethernet_Interface_Status,         status,        read_only)
PARAMETER(Ethernet_Interface_Name,           name,          read_only)
PARAMETER(Ethernet_Interface_MACAddress,     mac_address,   read_only)

PARAMETER(Ethernet_Interface_Stats_BytesSent,       device_counter(DEVICE_TX_BYTES),   read_only)
PARAMETER(Ethernet_Interface_Stats_PacketsSent,     device_counter(DEVICE_TX_PACKETS), read_only)
PARAMETER(Ethernet_Interface_Stats_ErrorsSent,      device_counter(DEVICE_TX_ERRORS),  read_only)
PARAMETER(Ethernet_Interface_Stats_BytesReceived,   device_counter(DEVICE_RX_BYTES),   read_only)
PARAMETER(Ethernet_Interface_Stats_PacketsReceived, device_counter(DEVICE_RX_PACKETS), read_only)
PARAMETER(Ethernet_Interface_Stats_ErrorsReceived,  device_counter(DEVICE_RX_ERRORS),  read_only)
// clang-format on

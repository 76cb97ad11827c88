// Ethernet.Interface: the kernel devices that the network interfaces are configured on.
#include "command.hpp"
#include "interfaces.hpp"
#include "link.hpp"
#include "pkg-wan.h"

namespace {

using namespace kova;

// The kernel device that the interface is configured on.
struct Device : Option {
  explicit Device(const NetworkInterface& interface) : Option({"network", interface.name}, "ifname") {}
};

// What a command prints when asked about the device; empty without one.
Text<128> ask(const char* form, const NetworkInterface& interface) {
  const Device device(interface);
  if (!device) return {};
  return logged_first_line<128>(CommandLine(form, device.text()));
}

bool status(Call& call, const NetworkInterface& interface) {
  return call.reply(is_up(ask(kUpCommand, interface).c_str()) ? "Up" : "Down");
}

bool name(Call& call, const NetworkInterface& interface) {
  const Device device(interface);
  return call.reply(device ? device.text() : "Unknown");
}

bool mac_address(Call& call, const NetworkInterface& interface) {
  return reply_or(call, ask("ifconfig %s | grep HWaddr | awk '{print $5}'", interface).c_str(), "0:0:0:0:0:0");
}

// Without an answer it replies "0", and fails all the same.
bool reply_counter(Call& call, const NetworkInterface& interface, bus_status_query query) {
  const Text<128> count = device_status(Device(interface).text(), query);
  reply_or(call, count.c_str(), "0");
  return !count.empty();
}

constexpr auto device_counter(bus_status_query query) {
  return of_interface(
      [=](Call& call, const NetworkInterface& interface) { return reply_counter(call, interface, query); });
}

}  // namespace

// clang-format off
PARAMETER(Ethernet_InterfaceNumberOfEntries, constant("3"),             read_only)
PARAMETER(Ethernet_Interface_Enable,         constant("1"),             read_only)
PARAMETER(Ethernet_Interface_Status,         of_interface(status),      read_only)
PARAMETER(Ethernet_Interface_Name,           of_interface(name),        read_only)
PARAMETER(Ethernet_Interface_MACAddress,     of_interface(mac_address), read_only)

PARAMETER(Ethernet_Interface_Stats_BytesSent,       device_counter(DEVICE_TX_BYTES),   read_only)
PARAMETER(Ethernet_Interface_Stats_PacketsSent,     device_counter(DEVICE_TX_PACKETS), read_only)
PARAMETER(Ethernet_Interface_Stats_ErrorsSent,      device_counter(DEVICE_TX_ERRORS),  read_only)
PARAMETER(Ethernet_Interface_Stats_BytesReceived,   device_counter(DEVICE_RX_BYTES),   read_only)
PARAMETER(Ethernet_Interface_Stats_PacketsReceived, device_counter(DEVICE_RX_PACKETS), read_only)
PARAMETER(Ethernet_Interface_Stats_ErrorsReceived,  device_counter(DEVICE_RX_ERRORS),  read_only)
// clang-format on

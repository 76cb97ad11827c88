// Bridging: the router's bridges and their ports, as the live system has them.
#include <string.h>

#include "br.hpp"
#include "command.hpp"
#include "link.hpp"
#include "pkg-br.h"

namespace {

using namespace kova;

bool number_of_bridges(Call& call) {
  const Text<100> number = logged_first_line<100>("ifconfig | grep 'br-' | wc -l");
  return number.empty() ? false : call.reply(number.c_str());
}

// ---- One bridge ----

constexpr std::size_t kBridge = 0;

using Device = Text<16>;
using Members = Text<1024>;  // names of devices, joined with ","

// The bridge that the call is about; empty when there are fewer.
Device bridge_of(const Call& call) {
  Text<64> command;
  command.print("ifconfig | grep 'br-' | sed -n '%dp' | awk '{print$1}'", call.instance(kBridge));
  return logged_first_line<Device::capacity()>(command.c_str());
}

Members members_of(const Device& bridge) {
  return device_status<Members::capacity()>(bridge.c_str(), DEVICE_BRIDGE_MEMBERS);
}

bool number_of_ports(Call& call) {
  if (!located(call, kBridge)) return false;
  Members members = members_of(bridge_of(call));
  int count = 0;
  char* rest = nullptr;
  for (const char* name = strtok_r(members.data(), ",", &rest); name != nullptr; name = strtok_r(nullptr, ",", &rest))
    ++count;
  return call.reply_number(count);
}

// ---- One of its ports ----

constexpr std::size_t kPort = 1;

// The port that the call is about; nullptr when there are fewer. The list is split.
const char* port_of(const Call& call, Members& members) {
  int32_t number = 0;
  char* rest = nullptr;
  for (const char* name = strtok_r(members.data(), ",", &rest); name != nullptr; name = strtok_r(nullptr, ",", &rest)) {
    if (++number == call.instance(kPort)) return name;
  }
  return nullptr;
}

// Lets `answer` reply for the port. Without the bridge the reply is another one, or none for nullptr; without the port
// the output stays as it is.
template <typename Answer>
bool reply_for_port(Call& call, const char* without_bridge, const Answer& answer) {
  if (!located(call, kBridge) || !located(call, kPort)) return false;
  const Device bridge = bridge_of(call);
  if (bridge.empty()) return without_bridge == nullptr || call.reply(without_bridge);
  Members members = members_of(bridge);
  const char* port = port_of(call, members);
  return port == nullptr || answer(call, port);
}

bool reply_name(Call& call, const char* port) { return call.reply(port); }

bool reply_status(Call& call, const char* port) {
  Text<Members::capacity() + 64> command;
  command.print(kUpCommand, port);
  return call.reply(is_up(logged_first_line<100>(command.c_str()).c_str()) ? "Up" : "Down");
}

// The number of the Wi-Fi network that has this interface; -1 when none has.
int wifi_ifname_to_ssidNum(const char* ifname) {
  int number = 0;
  for (const char* network : {"wlan00", "wlan10", "wlan02", "wlan12"}) {
    ++number;
    Text<128> own;
    if (read_option({"wireless", network}, "ifname", own.span()) && own == ifname) return number;
  }
  return -1;
}

// All Ethernet ports are the LAN's one interface.
bool reply_lower_layers(Call& call, const char* port) {
  if (strstr(port, "eth") != nullptr) return call.reply("Ethernet.Interface.2");
  const int network = wifi_ifname_to_ssidNum(port);
  if (network == -1) return true;
  Text<32> reference;
  reference.print("WiFi.SSID.%d", network);
  return call.reply(reference.c_str());
}

bool reply_counter(Call& call, const char* port, bus_status_query counter) {
  const Text<64> count = device_status<64>(port, counter);
  return count.empty() || call.reply(count.c_str());
}

constexpr auto of_port(bool (*answer)(Call&, const char*), const char* without_bridge) {
  return [=](Call& call) { return reply_for_port(call, without_bridge, answer); };
}

constexpr auto bridge_port_stats(bus_status_query counter) {
  return [=](Call& call) {
    return reply_for_port(call, "", [=](Call& of, const char* port) { return reply_counter(of, port, counter); });
  };
}

}  // namespace

// clang-format off
PARAMETER(Bridging_MaxBridgeEntries,      number_of_bridges, read_only)
PARAMETER(Bridging_BridgeNumberOfEntries, number_of_bridges, read_only)
PARAMETER(Bridging_MaxVLANEntries,        constant("3"),     read_only)

PARAMETER(Bridging_Bridge_Enable,              constant("1"),       read_only)
PARAMETER(Bridging_Bridge_Status,              constant("Enabled"), read_only)
PARAMETER(Bridging_Bridge_PortNumberOfEntries, number_of_ports,     read_only)

PARAMETER(Bridging_Bridge_Port_Enable,                constant("1"),                        read_only)
PARAMETER(Bridging_Bridge_Port_Name,                  of_port(reply_name, ""),              read_only)
PARAMETER(Bridging_Bridge_Port_Status,                of_port(reply_status, "Down"),        read_only)
PARAMETER(Bridging_Bridge_Port_LowerLayers,           of_port(reply_lower_layers, nullptr), read_only)
PARAMETER(Bridging_Bridge_Port_Stats_BytesSent,       bridge_port_stats(DEVICE_TX_BYTES),   read_only)
PARAMETER(Bridging_Bridge_Port_Stats_BytesReceived,   bridge_port_stats(DEVICE_RX_BYTES),   read_only)
PARAMETER(Bridging_Bridge_Port_Stats_PacketsSent,     bridge_port_stats(DEVICE_TX_PACKETS), read_only)
PARAMETER(Bridging_Bridge_Port_Stats_PacketsReceived, bridge_port_stats(DEVICE_RX_PACKETS), read_only)
PARAMETER(Bridging_Bridge_Port_Stats_ErrorsSent,      bridge_port_stats(DEVICE_TX_ERRORS),  read_only)
PARAMETER(Bridging_Bridge_Port_Stats_ErrorsReceived,  bridge_port_stats(DEVICE_RX_ERRORS),  read_only)
// clang-format on

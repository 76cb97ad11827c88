// Bridging: the router's bridges and their ports, as the live system has them.
#include <string.h>

#include <algorithm>
#include <string_view>

#include "br.hpp"
#include "bus.hpp"
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

using Bridge = Text<16>;

// The name of the bridge that the call is about; empty when there are fewer.
Bridge bridge_of(const Call& call) {
  const CommandLine command("ifconfig | grep 'br-' | sed -n '%dp' | awk '{print$1}'", call.instance(kBridge));
  return logged_first_line<Bridge::capacity()>(command);
}

// Hands the name and number of each port to `take`, in the order of the bus. A member's name is split at commas. False
// when the bus has no answer.
template <typename Take>
bool for_each_port(const Bridge& bridge, Take take) {
  int32_t number = 0;
  return for_each_bridge_member(bridge.c_str(), [&](std::string_view member) {
    while (!member.empty()) {
      const std::string_view name = up_to(',', member);
      member.remove_prefix(std::min(name.size() + 1, member.size()));
      if (!name.empty()) take(name, ++number);
    }
  });
}

bool number_of_ports(Call& call) {
  if (!located(call, kBridge)) return false;
  const Bridge bridge = bridge_of(call);
  int32_t count = 0;
  const bool counted =
      !bridge.empty() && for_each_port(bridge, [&](std::string_view, int32_t number) { count = number; });
  return call.reply_number(counted ? count : 0);
}

// ---- One of its ports ----

constexpr std::size_t kPort = 1;

// A port's name. The kernel's have at most 15 characters; whatever the bus says, a reply stays below 4 KiB.
using Port = Text<4096>;

// The port that the call is about; empty when there are fewer.
Port port_of(const Call& call, const Bridge& bridge) {
  Port port;
  const bool answered = for_each_port(bridge, [&](std::string_view name, int32_t number) {
    if (number == call.instance(kPort)) port = name;
  });
  if (!answered) port = "";
  return port;
}

// Lets `answer` reply for the port. Without the bridge the reply is `without_bridge`, or none when that is nullptr.
// Without the port the output stays as it is.
template <typename Answer>
bool reply_for_port(Call& call, const char* without_bridge, const Answer& answer) {
  if (!located(call, kBridge) || !located(call, kPort)) return false;
  const Bridge bridge = bridge_of(call);
  if (bridge.empty()) return without_bridge == nullptr || call.reply(without_bridge);
  const Port port = port_of(call, bridge);
  return port.empty() || answer(call, port.c_str());
}

bool reply_name(Call& call, const char* port) { return call.reply(port); }

bool reply_status(Call& call, const char* port) {
  const Text<100> line = logged_first_line<100>(CommandLine(kUpCommand, port));
  return call.reply(is_up(line.c_str()) ? "Up" : "Down");
}

// The number of the Wi-Fi network whose interface has this name; -1 when there is none.
int wifi_ifname_to_ssidNum(const char* ifname) {
  int number = 0;
  for (const char* network : {"wlan00", "wlan10", "wlan02", "wlan12"}) {
    ++number;
    if (Option({"wireless", network}, "ifname") == ifname) return number;
  }
  return -1;
}

// Every Ethernet port refers to the LAN's one interface.
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

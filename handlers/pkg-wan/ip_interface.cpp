// IP and IP.Interface: the router's network interfaces. Only the WAN's name and lower layers depend on what is
// configured.
#include "command.hpp"
#include "interfaces.hpp"
#include "pkg-wan.h"
#include "wan.hpp"

namespace {

using namespace kova;

// ---- Names ----

// Nothing is replied for a number that no interface has.
bool reply_field(Call& call, const char* NetworkInterface::*field) {
  const NetworkInterface* interface = interface_of(call);
  return interface == nullptr || call.reply(interface->*field);
}

constexpr auto interface_field(const char* NetworkInterface::*field) {
  return [=](Call& call) { return reply_field(call, field); };
}

// The interface's field; for a WAN that runs PPPoE what `pppoe_word` does.
constexpr auto unless_pppoe(const char* NetworkInterface::*field, auto pppoe_word) {
  return [=](Call& call) {
    const NetworkInterface* interface = interface_of(call);
    if (interface == nullptr || call.instance(0) != WAN) return reply_field(call, field);
    return if_protocol(in_any_case("pppoe"), pppoe_word, interface->*field)(call);
  };
}

// ---- State ----

bool status(Call& call) {
  const NetworkInterface* interface = interface_of(call);
  if (interface == nullptr) return call.reply("Unknown");
  return reply_up(call, interface->name, kUpOrDown);
}

// ---- IGMP proxy: the option "0" switches it off; without the option it is on ----

bool igmp_proxy(Call& call) {
  using Output = Text<128>;
  Output enable;
  if (util_exec("uci get igmpproxy.@igmpproxy[0].enable", enable.data(), Output::capacity()) < 0)
    return call.reply("1");
  return call.reply(enable == "0" ? "0" : "");
}

// The change is not committed here; what the agent runs to apply it reads it uncommitted.
bool set_igmp_proxy(Call& call) {
  const char* command = nullptr;
  if (call.value_is("0")) command = "uci set igmpproxy.@igmpproxy[0].enable='0'";
  if (call.value_is("1")) command = "uci set igmpproxy.@igmpproxy[0].enable=''";
  if (command == nullptr) return false;
  run_logged(command);
  return call.mark(APPLY_IGMP_PROXY);
}

}  // namespace

// clang-format off
PARAMETER(IP_IPv4Capable,              constant("1"),       read_only)
PARAMETER(IP_IPv4Enable,               constant("1"),       read_only)
PARAMETER(IP_IPv4Status,               constant("Enabled"), read_only)
PARAMETER(IP_InterfaceNumberOfEntries, constant("3"),       read_only)

PARAMETER(IP_Interface_Enable,                     constant("1"),                                                                     read_only)
PARAMETER(IP_Interface_IPv4Enable,                 constant("1"),                                                                     read_only)
PARAMETER(IP_Interface_Status,                     status,                                                                            read_only)
PARAMETER(IP_Interface_Name,                       unless_pppoe(&NetworkInterface::title, option(wan, "proto")),                      read_only)
PARAMETER(IP_Interface_LowerLayers,                unless_pppoe(&NetworkInterface::lower_layers, constant("Device.PPP.Interface.1")), read_only)
PARAMETER(IP_Interface_IPv4AddressNumberOfEntries, interface_field(&NetworkInterface::addresses),                                     read_only)
PARAMETER(IP_Interface_Type,                       by_interface(constant("Normal"), constant("Normal"), constant("Normal"), ignored), read_only)
PARAMETER(IP_Interface_X_KOVA_IGMPProxy,           by_interface(igmp_proxy, constant(""), igmp_proxy),                                by_interface(set_igmp_proxy, refused(), set_igmp_proxy))

PARAMETER(IP_Interface_Stats_BytesSent,       counter(COUNTER_BYTES_SENT),       read_only)
PARAMETER(IP_Interface_Stats_BytesReceived,   counter(COUNTER_BYTES_RECEIVED),   read_only)
PARAMETER(IP_Interface_Stats_PacketsSent,     counter(COUNTER_PACKETS_SENT),     read_only)
PARAMETER(IP_Interface_Stats_PacketsReceived, counter(COUNTER_PACKETS_RECEIVED), read_only)
PARAMETER(IP_Interface_Stats_ErrorsSent,      counter(COUNTER_ERRORS_SENT),      read_only)
PARAMETER(IP_Interface_Stats_ErrorsReceived,  counter(COUNTER_ERRORS_RECEIVED),  read_only)
// clang-format on

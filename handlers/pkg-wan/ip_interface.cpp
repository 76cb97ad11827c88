// IP and IP.Interface: the router's network interfaces. Of them only the WAN changes its name and what it runs over.
#include "command.hpp"
#include "interfaces.hpp"
#include "pkg-wan.h"
#include "wan.hpp"

namespace {

using namespace kova;

// ---- Names ----

bool reply_field(Call& call, const char* NetworkInterface::*field) {
  const NetworkInterface* interface = interface_of(call);
  return interface == nullptr || call.reply(interface->*field);
}

constexpr auto interface_field(const char* NetworkInterface::*field) {
  return [=](Call& call) { return reply_field(call, field); };
}

// The interface's field; what `instead` does for a WAN that runs PPPoE.
constexpr auto unless_pppoe(const char* NetworkInterface::*field, auto instead) {
  return [=](Call& call) {
    if (call.instance(0) != WAN) return reply_field(call, field);
    return if_protocol(in_any_case("pppoe"), instead, interface_of(call)->*field)(call);
  };
}

// ---- State ----

bool status(Call& call) {
  const NetworkInterface* interface = interface_of(call);
  if (interface == nullptr) return call.reply("Unknown");
  return reply_up(call, interface->name, {"Up", "Down", "Unknown", "Unknown"});
}

// ---- IGMP proxy: switched off by "0", on without the option ----

using IgmpOutput = Text<128>;

bool igmp_proxy(Call& call) {
  IgmpOutput enable;
  if (util_exec("uci get igmpproxy.@igmpproxy[0].enable", enable.data(), enable.capacity()) < 0) return call.reply("1");
  return call.reply(enable == "0" ? "0" : "");
}

// Without a commit: whoever applies the change takes it over.
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

PARAMETER(IP_Interface_Stats_BytesSent,       counter(&Counters::bytes_sent),       read_only)
PARAMETER(IP_Interface_Stats_BytesReceived,   counter(&Counters::bytes_received),   read_only)
PARAMETER(IP_Interface_Stats_PacketsSent,     counter(&Counters::packets_sent),     read_only)
PARAMETER(IP_Interface_Stats_PacketsReceived, counter(&Counters::packets_received), read_only)
PARAMETER(IP_Interface_Stats_ErrorsSent,      counter(&Counters::errors_sent),      read_only)
PARAMETER(IP_Interface_Stats_ErrorsReceived,  counter(&Counters::errors_received),  read_only)
// clang-format on

// WANPPPConnection: the WAN as a PPP connection, whatever the instance numbers. While another protocol is configured,
// most of its state reads as empty.
#include "command.hpp"
#include "parameter.hpp"
#include "pkg-wan.h"
#include "wan.hpp"

namespace {

using namespace kova;

// ---- Protocols ----

// What the data model calls the protocol that the network daemon says is running.
struct RunningProtocol {
  const char* protocol;
  const char* connection_type;
  const char* transport_type;
};
constexpr RunningProtocol kRunningProtocols[] = {
    {"pppoe", "PPPoE_Relay", "PPPoE"},
    {"l2tp", "L2TP_Relay", "L2TP"},
    {"pptp", "PPTP_Relay", "PPTP"},
};

bool reply_running(Call& call, const char* RunningProtocol::*field) {
  const Text<10> protocol = interface_status<10>(kWan, INTERFACE_PROTO);
  for (const RunningProtocol& running : kRunningProtocols) {
    if (protocol == running.protocol) return call.reply(running.*field);
  }
  return call.reply(" ");
}

constexpr auto running_protocol(const char* RunningProtocol::*field) {
  return [=](Call& call) { return reply_running(call, field); };
}

bool name(Call& call) {
  const Protocol protocol;
  if (protocol == "pppoe") return call.reply("wan_pppoe");
  return call.reply(protocol == "l2tp" ? "wan_l2tp" : " ");
}

constexpr auto if_ppp(auto word) { return if_protocol(exactly("pppoe", "l2tp"), word, ""); }

// ---- Enable: stands for PPPoE; an L2TP WAN reads as disabled ----

bool pppoe_enabled(Call& call) {
  const Protocol protocol;
  if (!protocol) return call.refuse("uci get failed\n\n");
  return call.reply(protocol == "pppoe" ? "1" : "0");
}

bool set_pppoe_enabled(Call& call) {
  const char* word = nullptr;
  if (in_any_case("1", "true")(call.value())) word = "on";
  if (in_any_case("0", "false")(call.value())) word = "off";
  if (word == nullptr) return call.refuse("Invalid param\n");
  return record_verify(call, {kVerifyQuoted, "pppoe_enable", word}, "SPEE. \n");
}

// ---- Settings ----

// A value that is stored already is not recorded, so that the link is not taken down for it.
bool record_if_new(Call& call, const char* option, const char* key, LogMessage failure) {
  if (Option(wan, option) == call.value()) return true;
  return record_verify(call, {kVerifyQuotedAndSpace, key, call.value()}, failure);
}

constexpr auto verify_if_new(const char* option, const char* key, LogMessage failure) {
  return [=](Call& call) { return record_if_new(call, option, key, failure); };
}

// The key is PPPoE's, whatever the protocol.
bool set_max_mru(Call& call) {
  if (!number_between(call.value(), 576, 1492)) return false;
  return record_verify(call, {kVerifyQuoted, "pppoe_mtu", call.value()});
}

// The option that holds the protocol's MRU; nullptr for one that is not PPP.
const char* mru_option(const Protocol& protocol) {
  if (protocol == "pppoe") return "pppoe_mtu";
  return protocol == "l2tp" ? "l2tp_mtu" : nullptr;
}

bool current_mru(Call& call) {
  const Protocol protocol;
  if (protocol) {
    const char* option = mru_option(protocol);
    if (option == nullptr) return call.reply("");
    if (reply_option(call, wan, option)) return true;
  }
  return reply_option(call, wan, "mtu", " ");
}

// ---- Default gateway ----

bool default_gateway(Call& call) {
  Text<128> gateway;
  if (!first_line("/usr/bin/tr069/cwmp-ppp", gateway.span())) return call.refuse("popen error.\n");
  return reply_or(call, gateway.c_str(), "0.0.0.0");
}

}  // namespace

// clang-format off
PARAMETER(WANDevice_WANConnectionDevice_WANPPPConnection_Enable,                    pppoe_enabled,                    set_pppoe_enabled)
PARAMETER(WANDevice_WANConnectionDevice_WANPPPConnection_Username,                  option(wan, "username", " "),     verify_if_new("username", "pppoe_username", "SPUNE. \n"))
PARAMETER(WANDevice_WANConnectionDevice_WANPPPConnection_Password,                  option(wan, "password", " "),     verify_if_new("password", "pppoe_password", "SPPWE. \n"))
PARAMETER(WANDevice_WANConnectionDevice_WANPPPConnection_MaxMRUSize,                option(wan, "pppoe_mtu", "1480"), set_max_mru)
PARAMETER(WANDevice_WANConnectionDevice_WANPPPConnection_CurrentMRUSize,            current_mru,                      read_only)
PARAMETER(WANDevice_WANConnectionDevice_WANPPPConnection_PPPoEServiceName,          option(wan, "service"),           verify_later(kVerifyQuoted, "pppoe_servicename"))
PARAMETER(WANDevice_WANConnectionDevice_WANPPPConnection_PPPoEACName,               option(wan, "ac"),                verify_later(kVerifyQuoted, "pppoe_access"))
PARAMETER(WANDevice_WANConnectionDevice_WANPPPConnection_PPPAuthenticationProtocol, constant("AUTO_AUTH"),            read_only)

PARAMETER(WANDevice_WANConnectionDevice_WANPPPConnection_Name,                          name,                                                                              read_only)
PARAMETER(WANDevice_WANConnectionDevice_WANPPPConnection_ConnectionType,                running_protocol(&RunningProtocol::connection_type),                               read_only)
PARAMETER(WANDevice_WANConnectionDevice_WANPPPConnection_TransportType,                 running_protocol(&RunningProtocol::transport_type),                                read_only)
PARAMETER(WANDevice_WANConnectionDevice_WANPPPConnection_ConnectionStatus,              if_protocol(in_any_case("pppoe", "l2tp"), live_connection_status, "Disconnected"), read_only)
PARAMETER(WANDevice_WANConnectionDevice_WANPPPConnection_Uptime,                        if_ppp(link_status(kWan, INTERFACE_UPTIME, "")),                                   read_only)
PARAMETER(WANDevice_WANConnectionDevice_WANPPPConnection_ExternalIPAddress,             if_ppp(link_status(kWan, INTERFACE_ADDRESS, "0.0.0.0")),                           read_only)
PARAMETER(WANDevice_WANConnectionDevice_WANPPPConnection_RemoteIPAddress,               if_ppp(link_status(kWan, INTERFACE_NEXTHOP, "0.0.0.0")),                           read_only)
PARAMETER(WANDevice_WANConnectionDevice_WANPPPConnection_DefaultGateway,                default_gateway,                                                                   read_only)
PARAMETER(WANDevice_WANConnectionDevice_WANPPPConnection_MACAddress,                    if_ppp(link_mac(kWan)),                                                            read_only)
PARAMETER(WANDevice_WANConnectionDevice_WANPPPConnection_Stats_EthernetBytesSent,       if_ppp(link_counter(kWan, COUNTER_BYTES_SENT)),                                    read_only)
PARAMETER(WANDevice_WANConnectionDevice_WANPPPConnection_Stats_EthernetBytesReceived,   if_ppp(link_counter(kWan, COUNTER_BYTES_RECEIVED)),                                read_only)
PARAMETER(WANDevice_WANConnectionDevice_WANPPPConnection_Stats_EthernetPacketsSent,     if_ppp(link_counter(kWan, COUNTER_PACKETS_SENT)),                                  read_only)
PARAMETER(WANDevice_WANConnectionDevice_WANPPPConnection_Stats_EthernetPacketsReceived, if_ppp(link_counter(kWan, COUNTER_PACKETS_RECEIVED)),                              read_only)
PARAMETER(WANDevice_WANConnectionDevice_WANPPPConnection_Stats_EthernetErrorsSent,      if_ppp(link_counter(kWan, COUNTER_ERRORS_SENT)),                                   read_only)
PARAMETER(WANDevice_WANConnectionDevice_WANPPPConnection_Stats_EthernetErrorsReceived,  if_ppp(link_counter(kWan, COUNTER_ERRORS_RECEIVED)),                               read_only)
// clang-format on

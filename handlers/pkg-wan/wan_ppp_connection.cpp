// WANPPPConnection: the WAN as a PPP connection, whatever the instance numbers. While another protocol is configured
// most of its state has nothing to say.
#include <string.h>

#include "command.hpp"
#include "parameter.hpp"
#include "pkg-wan.h"
#include "wan.hpp"

namespace {

using namespace kova;

// ---- Protocols ----

// What the data model calls them. Only the network daemon's word is asked for "pptp": it has no name.
struct Called {
  const char* protocol;
  const char* name;
  const char* connection_type;
  const char* transport_type;
};
constexpr Called kCalled[] = {
    {"pppoe", "wan_pppoe", "PPPoE_Relay", "PPPoE"},
    {"l2tp", "wan_l2tp", "L2TP_Relay", "L2TP"},
    {"pptp", " ", "PPTP_Relay", "PPTP"},
};

bool reply_called(Call& call, const Protocol& protocol, const char* Called::*word) {
  for (const Called& called : kCalled) {
    if (protocol == called.protocol) return call.reply(called.*word);
  }
  return call.reply(" ");
}

constexpr auto running_protocol(const char* Called::*word) {
  return [=](Call& call) {
    return reply_called(call, interface_status<Protocol::capacity()>(kWan, INTERFACE_PROTO), word);
  };
}

bool name(Call& call) {
  Protocol protocol;
  read_protocol(protocol);
  return reply_called(call, protocol, &Called::name);
}

bool is_ppp(const Protocol& protocol) { return protocol == "pppoe" || protocol == "l2tp"; }

bool is_ppp_in_any_case(const Protocol& protocol) {
  return strcasecmp(protocol.c_str(), "pppoe") == 0 || strcasecmp(protocol.c_str(), "l2tp") == 0;
}

constexpr auto if_ppp(auto word) { return if_protocol(is_ppp, word, ""); }

// ---- Switch: of PPPoE alone, L2TP counts as off ----

bool pppoe_enabled(Call& call) {
  Protocol protocol;
  if (!read_protocol(protocol)) {
    LOG("uci get failed\n\n");
    return false;
  }
  return call.reply(protocol == "pppoe" ? "1" : "0");
}

bool set_pppoe_enabled(Call& call) {
  const char* word = nullptr;
  if (call.value_is("1") || strcasecmp(call.value(), "true") == 0) word = "on";
  if (call.value_is("0") || strcasecmp(call.value(), "false") == 0) word = "off";
  if (word == nullptr) {
    LOG("Invalid param\n");
    return false;
  }
  return record_verify(call, {kVerifyQuoted, "pppoe_enable", word}, "SPEE. \n");
}

// ---- Settings ----

// A value that is stored already changes nothing, so that the link is not taken down for it.
bool record_if_new(Call& call, const char* option, const char* key, LogMessage failure) {
  Text<1024> stored;
  if (read_option(wan, option, stored.span()) && call.value_is(stored.view())) return true;
  return record_verify(call, {kVerifyQuotedAndSpace, key, call.value()}, failure);
}

constexpr auto verify_if_new(const char* option, const char* key, LogMessage failure) {
  return [=](Call& call) { return record_if_new(call, option, key, failure); };
}

// The key is that of PPPoE for L2TP too.
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
  Protocol protocol;
  if (read_protocol(protocol)) {
    const char* option = mru_option(protocol);
    if (option == nullptr) return call.reply("");
    if (reply_option(call, wan, option)) return true;
  }
  return reply_option(call, wan, "mtu", " ");
}

// ---- Addresses ----

bool mac_address(Call& call) { return reply_device_mac(call, interface_status<32>(kWan, INTERFACE_DEVICE).c_str()); }

bool default_gateway(Call& call) {
  Text<128> gateway;
  if (!first_line("/usr/bin/tr069/cwmp-ppp", gateway.span())) {
    LOG("popen error.\n");
    return false;
  }
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

PARAMETER(WANDevice_WANConnectionDevice_WANPPPConnection_Name,                          name,                                                                    read_only)
PARAMETER(WANDevice_WANConnectionDevice_WANPPPConnection_ConnectionType,                running_protocol(&Called::connection_type),                              read_only)
PARAMETER(WANDevice_WANConnectionDevice_WANPPPConnection_TransportType,                 running_protocol(&Called::transport_type),                               read_only)
PARAMETER(WANDevice_WANConnectionDevice_WANPPPConnection_ConnectionStatus,              if_protocol(is_ppp_in_any_case, live_connection_status, "Disconnected"), read_only)
PARAMETER(WANDevice_WANConnectionDevice_WANPPPConnection_Uptime,                        if_ppp(link_status(kWan, INTERFACE_UPTIME, "")),                         read_only)
PARAMETER(WANDevice_WANConnectionDevice_WANPPPConnection_ExternalIPAddress,             if_ppp(link_status(kWan, INTERFACE_ADDRESS, "0.0.0.0")),                 read_only)
PARAMETER(WANDevice_WANConnectionDevice_WANPPPConnection_RemoteIPAddress,               if_ppp(link_status(kWan, INTERFACE_NEXTHOP, "0.0.0.0")),                 read_only)
PARAMETER(WANDevice_WANConnectionDevice_WANPPPConnection_DefaultGateway,                default_gateway,                                                         read_only)
PARAMETER(WANDevice_WANConnectionDevice_WANPPPConnection_MACAddress,                    if_ppp(mac_address),                                                     read_only)
PARAMETER(WANDevice_WANConnectionDevice_WANPPPConnection_Stats_EthernetBytesSent,       if_ppp(link_counter(kWan, COUNTER_BYTES_SENT)),                          read_only)
PARAMETER(WANDevice_WANConnectionDevice_WANPPPConnection_Stats_EthernetBytesReceived,   if_ppp(link_counter(kWan, COUNTER_BYTES_RECEIVED)),                      read_only)
PARAMETER(WANDevice_WANConnectionDevice_WANPPPConnection_Stats_EthernetPacketsSent,     if_ppp(link_counter(kWan, COUNTER_PACKETS_SENT)),                        read_only)
PARAMETER(WANDevice_WANConnectionDevice_WANPPPConnection_Stats_EthernetPacketsReceived, if_ppp(link_counter(kWan, COUNTER_PACKETS_RECEIVED)),                    read_only)
PARAMETER(WANDevice_WANConnectionDevice_WANPPPConnection_Stats_EthernetErrorsSent,      if_ppp(link_counter(kWan, COUNTER_ERRORS_SENT)),                         read_only)
PARAMETER(WANDevice_WANConnectionDevice_WANPPPConnection_Stats_EthernetErrorsReceived,  if_ppp(link_counter(kWan, COUNTER_ERRORS_RECEIVED)),                     read_only)
// clang-format on

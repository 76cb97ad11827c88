// WANIPConnection: the WAN as an IP connection, of two kinds that share the one link.
#include <string.h>

#include "parameter.hpp"
#include "pkg-wan.h"
#include "wan.hpp"

namespace {

using namespace kova;

// ---- Kinds: instance 1 has a static address, instance 2 one from DHCP ----

struct Kind {
  const char* name;
  const char* addressing;  // but for the case also the protocol
  const char* wan_type;    // what the verify script calls it
  const char* mtu_key;
};
constexpr Kind kStatic{"wan_ip_s", "Static", "static_ip", "static_mtu"};
constexpr Kind kDhcp{"wan_ip_d", "DHCP", "dynamic_ip", "dynamic_mtu"};

// The kind that the call's row is; nullptr when there is no such connection.
const Kind* kind_of(const Call& call) {
  constexpr std::size_t kConnection = 2;
  if (call.instance(kConnection) == 1) return &kStatic;
  if (call.instance(kConnection) == 2) return &kDhcp;
  return nullptr;
}

bool name(Call& call) {
  const Kind* kind = kind_of(call);
  return kind != nullptr && call.reply(kind->name);
}

bool addressing_type(Call& call) {
  const Kind* kind = kind_of(call);
  return call.reply(kind != nullptr ? kind->addressing : "None");
}

bool set_addressing_type(Call& call) {
  for (const Kind& kind : {kStatic, kDhcp}) {
    if (strcasecmp(call.value(), kind.addressing) == 0)
      return record_verify(call, {kVerifyQuoted, "wan_type", kind.wan_type}, "SWATE.\n");
  }
  LOG("Invalid dhcp para\n");
  return false;
}

// A connection that is not of the kind that runs is down, whatever the link does.
bool connection_status(Call& call) {
  Protocol protocol;
  if (!read_protocol(protocol)) return false;
  const Kind* kind = kind_of(call);
  if (kind != nullptr && strcasecmp(protocol.c_str(), kind->addressing) != 0) return call.reply("Disconnected");
  return live_connection_status(call);
}

// ---- Addresses ----

bool record_address(Call& call, const char* form, const char* key, LogMessage malformed, LogMessage failure) {
  if (checkValidIP(call.value()) != 1) return call.refuse(malformed);
  return record_verify(call, {form, key, call.value()}, failure);
}

// A mask is checked as an address is: for its form only.
constexpr auto address_later(const char* form, const char* key, LogMessage malformed, LogMessage failure) {
  return [=](Call& call) { return record_address(call, form, key, malformed, failure); };
}

bool mac_address(Call& call) {
  const char* interface = call.agent().wan_interface;
  if (interface == nullptr) interface = "";
  LOG("current wan intf:%s\n\n", interface);
  return reply_device_mac(call, interface);
}

// ---- DNS servers ----

constexpr char kNoServers[] = "0.0.0.0,0.0.0.0";

// Always two.
bool static_servers(Call& call) {
  if (!reply_option(call, wan, "static_dns1")) return call.reply(kNoServers);
  char* second = stpcpy(call.output() + strlen(call.output()), ",");
  if (uci_raw_extract_value(wan.package, wan.name, "static_dns2", second) != 0) strcpy(second, "0.0.0.0");
  return true;
}

bool reply_joined(Call& call, uci_option* list) {
  char* end = call.output();
  *end = '\0';
  const char* separator = "";
  uci_element* element = nullptr;
  uci_foreach_element(&list->v.list, element) {
    end = stpcpy(stpcpy(end, separator), element->name);
    separator = ",";
  }
  return true;
}

// Those that the DNS daemon asks. Without a list of them the reply is left as it is.
bool dhcp_servers(Call& call) {
  const WalkedPackage dhcp("dhcp", HERE, "[ERR]uci failed to load config:dhcp\n");
  if (!dhcp) return false;
  uci_section* daemon = dhcp.sections("dnsmasq").nth(1);
  if (daemon == nullptr) {
    LOG("[ERR]uci failed to get option dnsmasq\n");
    return call.reply(kNoServers);
  }
  uci_option* servers = dhcp.option(daemon, "server");
  if (servers == nullptr) {
    LOG("[ERR]uci failed to get server option\n");
    return true;
  }
  return servers->type != UCI_TYPE_LIST || reply_joined(call, servers);
}

bool dns_servers(Call& call) {
  const Kind* kind = kind_of(call);
  if (kind == nullptr) return false;
  return kind == &kStatic ? static_servers(call) : dhcp_servers(call);
}

bool set_dns_servers(Call& call) {
  if (kind_of(call) != &kStatic) return false;
  return record_verify(call, {kVerifyQuoted, "wan_dns_static", call.value()}, "SWDSE. \n");
}

// ---- MTU: one option for both kinds, but a key of its own for each ----

bool max_mtu(Call& call) { return kind_of(call) != nullptr && reply_option(call, wan, "mtu", "1500"); }

bool set_max_mtu(Call& call) {
  if (!number_between(call.value(), 1, 1540)) return false;
  const Kind* kind = kind_of(call);
  if (kind == nullptr) {
    LOG("mal format MTU.\n");
    return false;
  }
  return record_verify(call, {kVerifyQuoted, kind->mtu_key, call.value()});
}

}  // namespace

// clang-format off
PARAMETER(WANDevice_WANConnectionDevice_WANIPConnection_Name,              name,                                            read_only)
PARAMETER(WANDevice_WANConnectionDevice_WANIPConnection_ConnectionStatus,  connection_status,                               read_only)
PARAMETER(WANDevice_WANConnectionDevice_WANIPConnection_Uptime,            link_status(kWan, INTERFACE_UPTIME, ""),         read_only)
PARAMETER(WANDevice_WANConnectionDevice_WANIPConnection_MACAddress,        mac_address,                                     read_only)
PARAMETER(WANDevice_WANConnectionDevice_WANIPConnection_AddressingType,    addressing_type,                                 set_addressing_type)
PARAMETER(WANDevice_WANConnectionDevice_WANIPConnection_ExternalIPAddress, link_status(kWan, INTERFACE_ADDRESS, "0.0.0.0"), address_later(kVerifyBare, "wan_ip", "mal format ip.\n", "SWIE.\n"))
PARAMETER(WANDevice_WANConnectionDevice_WANIPConnection_SubnetMask,        option(wan, "netmask", "0.0.0.0"),               address_later(kVerifyQuoted, "wan_mask", "mal format mask \n", "SWME.\n"))
PARAMETER(WANDevice_WANConnectionDevice_WANIPConnection_DefaultGateway,    option(wan, "gateway", "0.0.0.0"),               address_later(kVerifyQuoted, "wan_gate", "mal format ip\n", "SWGWE.\n"))
PARAMETER(WANDevice_WANConnectionDevice_WANIPConnection_DNSServers,        dns_servers,                                     set_dns_servers)
PARAMETER(WANDevice_WANConnectionDevice_WANIPConnection_MaxMTUSize,        max_mtu,                                         set_max_mtu)
// clang-format on

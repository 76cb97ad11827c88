// WANIPConnection: the WAN as two IP connections, a static one and one by DHCP. They share the one link.
#include <string.h>

#include "parameter.hpp"
#include "pkg-wan.h"
#include "rows.hpp"
#include "wan.hpp"

namespace {

using namespace kova;

// ---- Kinds: instance 1 has a static address, instance 2 one from DHCP ----

struct Kind {
  const char* name;
  const char* addressing;  // also the protocol, in any case
  const char* wan_type;    // what the verify script calls it
  const char* mtu_key;
};
constexpr Kind kStatic{"wan_ip_s", "Static", "static_ip", "static_mtu"};
constexpr Kind kDhcp{"wan_ip_d", "DHCP", "dynamic_ip", "dynamic_mtu"};

constexpr std::size_t kConnection = 2;  // the place of its instance number

// The kind of the call's connection; nullptr when there is no such connection.
const Kind* kind_of(const Call& call) {
  if (call.instance(kConnection) == 1) return &kStatic;
  if (call.instance(kConnection) == 2) return &kDhcp;
  return nullptr;
}

// What `work` does for the kind of the call's connection. Fails when there is no such connection.
constexpr auto of_kind(bool (*work)(Call& call, const Kind& kind)) {
  return [=](Call& call) {
    const Kind* kind = kind_of(call);
    return kind != nullptr ? work(call, *kind) : no_row(call, call.instance(kConnection));
  };
}

bool name(Call& call, const Kind& kind) { return call.reply(kind.name); }

bool addressing_type(Call& call) {
  const Kind* kind = kind_of(call);
  return call.reply(kind != nullptr ? kind->addressing : "None");
}

bool set_addressing_type(Call& call) {
  for (const Kind& kind : {kStatic, kDhcp}) {
    if (in_any_case(kind.addressing)(call.value()))
      return record_verify(call, {kVerifyQuoted, "wan_type", kind.wan_type}, "SWATE.\n");
  }
  return call.refuse("Invalid dhcp para\n");
}

// A connection of the kind that is not configured is down, whatever the link does.
bool connection_status(Call& call) {
  const Protocol protocol;
  if (!protocol) return false;
  const Kind* kind = kind_of(call);
  if (kind != nullptr && !in_any_case(kind->addressing)(protocol.text())) return call.reply("Disconnected");
  return live_connection_status(call);
}

// ---- Addresses ----

bool record_address(Call& call, const char* form, const char* key, LogMessage malformed, LogMessage failure) {
  if (checkValidIP(call.value()) != 1) return call.refuse(malformed);
  return record_verify(call, {form, key, call.value()}, failure);
}

// Has the agent run the verify script with the value, which must be an IPv4 address. A mask is checked alike.
constexpr auto checked_address(const char* form, const char* key, LogMessage malformed, LogMessage failure) {
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
  const Option first(wan, "static_dns1");
  if (!first) return call.reply(kNoServers);
  const Option second(wan, "static_dns2");
  return call.reply_joined({first.text(), ",", second ? second.text() : "0.0.0.0"});
}

bool reply_list(Call& call, uci_option* list) {
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

// Those that the DNS daemon asks. Without a list of them nothing is replied.
bool dhcp_servers(Call& call) {
  const WalkedPackage dhcp("dhcp", call.origin(), "[ERR]uci failed to load config:dhcp\n");
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
  return servers->type != UCI_TYPE_LIST || reply_list(call, servers);
}

bool dns_servers(Call& call, const Kind& kind) { return &kind == &kStatic ? static_servers(call) : dhcp_servers(call); }

// The list is not checked.
bool set_dns_servers(Call& call) {
  if (kind_of(call) != &kStatic) return false;
  return record_verify(call, {kVerifyQuoted, "wan_dns_static", call.value()}, "SWDSE. \n");
}

// ---- MTU: both kinds have the same option, but each has its own key ----

bool max_mtu(Call& call, const Kind& /*kind*/) { return reply_option(call, wan, "mtu", "1500"); }

bool set_max_mtu(Call& call) {
  if (!number_between(call.value(), 1, 1540)) return false;
  const Kind* kind = kind_of(call);
  if (kind == nullptr) return call.refuse("mal format MTU.\n");
  return record_verify(call, {kVerifyQuoted, kind->mtu_key, call.value()});
}

}  // namespace

// clang-format off
PARAMETER(WANDevice_WANConnectionDevice_WANIPConnection_Name,              of_kind(name),                                   read_only)
PARAMETER(WANDevice_WANConnectionDevice_WANIPConnection_ConnectionStatus,  connection_status,                               read_only)
PARAMETER(WANDevice_WANConnectionDevice_WANIPConnection_Uptime,            link_status(kWan, INTERFACE_UPTIME, ""),         read_only)
PARAMETER(WANDevice_WANConnectionDevice_WANIPConnection_MACAddress,        mac_address,                                     read_only)
PARAMETER(WANDevice_WANConnectionDevice_WANIPConnection_AddressingType,    addressing_type,                                 set_addressing_type)
PARAMETER(WANDevice_WANConnectionDevice_WANIPConnection_ExternalIPAddress, link_status(kWan, INTERFACE_ADDRESS, "0.0.0.0"), checked_address(kVerifyBare, "wan_ip", "mal format ip.\n", "SWIE.\n"))
PARAMETER(WANDevice_WANConnectionDevice_WANIPConnection_SubnetMask,        option(wan, "netmask", "0.0.0.0"),               checked_address(kVerifyQuoted, "wan_mask", "mal format mask \n", "SWME.\n"))
PARAMETER(WANDevice_WANConnectionDevice_WANIPConnection_DefaultGateway,    option(wan, "gateway", "0.0.0.0"),               checked_address(kVerifyQuoted, "wan_gate", "mal format ip\n", "SWGWE.\n"))
PARAMETER(WANDevice_WANConnectionDevice_WANIPConnection_DNSServers,        of_kind(dns_servers),                            set_dns_servers)
PARAMETER(WANDevice_WANConnectionDevice_WANIPConnection_MaxMTUSize,        of_kind(max_mtu),                                set_max_mtu)
// clang-format on

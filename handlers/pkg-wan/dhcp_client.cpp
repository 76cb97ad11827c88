// DHCPv4.Client: the WAN while it gets its address by DHCP; there is one client, whatever the instance number.
#include "parameter.hpp"
#include "pkg-wan.h"
#include "wan.hpp"

namespace {

using namespace kova;

constexpr auto if_dhcp(auto word, const char* otherwise = "") { return if_protocol(exactly("dhcp"), word, otherwise); }

bool enabled(Call& call) {
  const Protocol protocol;
  if (!protocol) return call.refuse("uci get error.\n");
  return call.reply(protocol == "dhcp" ? "1" : "0");
}

bool set_enabled(Call& call) {
  const char* type = nullptr;
  if (call.value_is("0")) type = "static_ip";
  if (call.value_is("1")) type = "dynamic_ip";
  if (type == nullptr) return false;
  return record_verify(call, {kVerifyQuoted, "wan_type", type}, "WSDE.\n");
}

}  // namespace

// clang-format off
PARAMETER(DHCPv4_ClientNumberOfEntries, constant("1"),                                            read_only)
PARAMETER(DHCPv4_Client_Enable,         enabled,                                                  set_enabled)
PARAMETER(DHCPv4_Client_Interface,      constant("Device.IP.Interface.1."),                       read_only)
PARAMETER(DHCPv4_Client_Status,         if_dhcp(constant("Enabled"), "Disabled"),                 read_only)
PARAMETER(DHCPv4_Client_DHCPStatus,     if_dhcp(up_flag(kWan, {"Bound", "Requesting", "", ""})),  read_only)
PARAMETER(DHCPv4_Client_IPAddress,      if_dhcp(link_status(kWan, INTERFACE_ADDRESS, "0.0.0.0")), read_only)
PARAMETER(DHCPv4_Client_SubnetMask,     if_dhcp(link_status(kWan, INTERFACE_MASK, "")),           read_only)
PARAMETER(DHCPv4_Client_IPRouters,      if_dhcp(link_status(kWan, INTERFACE_NEXTHOP, "")),        read_only)
PARAMETER(DHCPv4_Client_DNSServers,     if_dhcp(live_dns_servers),                                read_only)
// clang-format on

// The LAN's own address: LANHostConfigManagement.IPInterface, of which there is one.
#include "command.hpp"
#include "parameter.hpp"
#include "pkg-lan.h"
#include "text.hpp"

namespace {

using namespace kova;

constexpr Section lan{"network", "lan"};

bool set_later(Call& call, const char* key) {
  return is_address(call) && record_verify(call, {kVerifyQuotedInBackground, key, call.value()});
}

// A mask is checked as an address is: for its form only.
constexpr auto address_later(const char* key) {
  return [=](Call& call) { return set_later(call, key); };
}

bool addressing_type(Call& call) {
  if (reply_option(call, lan, "proto")) return true;
  call.reply("");
  return false;
}

bool mac_address(Call& call) {
  if (call.instance(0) != 1 || call.instance(1) != 1) return false;
  Text<128> mac;
  if (!first_line("ifconfig br-lan | grep HWaddr | awk '{print $5}'", mac.span())) return call.refuse("FTGMAD.\n");
  return reply_or(call, mac.c_str(), "0:0:0:0:0:0");
}

}  // namespace

// clang-format off
PARAMETER(LANDevice_LANHostConfigManagement_IPInterfaceNumberOfEntries,            constant("1"),                        read_only)
PARAMETER(LANDevice_LANHostConfigManagement_IPInterface_IPInterfaceIPAddress,      required(lan, "ipaddr", "FTGLI.\n"),  address_later("lan_ip"))
PARAMETER(LANDevice_LANHostConfigManagement_IPInterface_IPInterfaceSubnetMask,     required(lan, "netmask", "FTGLM.\n"), address_later("lan_mask"))
PARAMETER(LANDevice_LANHostConfigManagement_Subnetmask,                            required(lan, "netmask", "FTGLM.\n"), read_only)
PARAMETER(LANDevice_LANHostConfigManagement_IPInterface_IPInterfaceAddressingType, addressing_type,                      read_only)
PARAMETER(LANDevice_LANHostConfigManagement_IPInterface_MACAddress,                mac_address,                          read_only)
// clang-format on

// The router's address is what its DHCP clients get as their router, so setting one sets the other.
ALIAS(LANDevice_LANHostConfigManagement_IPRouters, LANDevice_LANHostConfigManagement_IPInterface_IPInterfaceIPAddress)
ALIAS(DHCPv4_Server_Pool_IPRouters, LANDevice_LANHostConfigManagement_IPRouters)
ALIAS(DHCPv4_Server_Pool_SubnetMask, LANDevice_LANHostConfigManagement_Subnetmask)

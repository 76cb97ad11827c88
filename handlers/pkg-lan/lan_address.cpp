// The LAN's own address: LANHostConfigManagement.IPInterface, of which there is one.
#include "command.hpp"
#include "parameter.hpp"
#include "pkg-lan.h"
#include "text.hpp"

namespace {

using namespace kova;

constexpr Section lan{"network", "lan"};

// An option without which the LAN has no address to speak of: the get fails.
constexpr auto required(const char* option, LogMessage failure) {
  return [=](Call& call) IN_CODE {
    if (uci_raw_extract_value(lan.package, lan.name, option, call.output()) == 0) return SUCCESS;
    return refuse(call, failure.copy());
  };
}

int set_later(Call& call, const char* key) {
  return is_address(call) ? record_verify(call, {kVerifyQuotedInBackground, key, call.value()}, {}) : FAILURE;
}

// A mask is checked as an address is: for its form only.
constexpr auto address_later(const char* key) {
  return [=](Call& call) IN_CODE { return set_later(call, key); };
}

int addressing_type(Call& call) {
  if (uci_raw_extract_value(lan.package, lan.name, "proto", call.output()) == 0) return SUCCESS;
  call.reply("");
  return FAILURE;
}

int mac_address(Call& call) {
  if (call.instance(0) != 1 || call.instance(1) != 1) return FAILURE;
  Text<128> mac;
  if (first_line("ifconfig br-lan | grep HWaddr | awk '{print $5}'", mac.span()) != SUCCESS) {
    LOG("FTGMAD.\n");
    return FAILURE;
  }
  return reply_or(call, mac.c_str(), "0:0:0:0:0:0");
}

}  // namespace

// clang-format off
PARAMETER(LANDevice_LANHostConfigManagement_IPInterfaceNumberOfEntries,              constant("1"),                      read_only)
PARAMETER(LANDevice_LANHostConfigManagement_IPInterface_IPInterfaceIPAddress,        required("ipaddr", "FTGLI.\n"),     address_later("lan_ip"))
PARAMETER(LANDevice_LANHostConfigManagement_IPInterface_IPInterfaceSubnetMask,       required("netmask", "FTGLM.\n"),    address_later("lan_mask"))
PARAMETER(LANDevice_LANHostConfigManagement_Subnetmask,                              required("netmask", "FTGLM.\n"),    read_only)
PARAMETER(LANDevice_LANHostConfigManagement_IPInterface_IPInterfaceAddressingType,   addressing_type,                    read_only)
PARAMETER(LANDevice_LANHostConfigManagement_IPInterface_MACAddress,                  mac_address,                        read_only)
// clang-format on

// The router's address is what its DHCP clients get as their router, so setting one sets the other.
ALIAS(LANDevice_LANHostConfigManagement_IPRouters, LANDevice_LANHostConfigManagement_IPInterface_IPInterfaceIPAddress)
ALIAS(DHCPv4_Server_Pool_IPRouters, LANDevice_LANHostConfigManagement_IPRouters)
ALIAS(DHCPv4_Server_Pool_SubnetMask, LANDevice_LANHostConfigManagement_Subnetmask)

// IP.Interface.IPv4Address: the WAN's three entries, one for each way to get an address; the LAN and the mobile
// interface have one entry, which their own objects serve.
#include <string.h>

#include <iterator>

#include "interfaces.hpp"
#include "pkg-lan/pkg-lan.h"
#include "pkg-mobile/pkg-mobile.h"
#include "pkg-wan.h"
#include "wan.hpp"

namespace {

using namespace kova;

// ---- The WAN's entries, of which the one whose protocol is configured is active ----

struct Entry {
  const char* protocol;
  const char* addressing;
  // What the verify script is told to switch it on and off.
  const char* key;
  const char* on;
  const char* off;
  parameter_handler address;
  parameter_handler mask;  // nullptr: has none to show
};

// clang-format off
constexpr Entry kEntries[] = {
    {"static", "Static", "wan_type",     "static_ip",  "dynamic_ip", WANDevice_WANConnectionDevice_WANIPConnection_ExternalIPAddress,  WANDevice_WANConnectionDevice_WANIPConnection_SubnetMask},
    {"dhcp",   "DHCP",   "wan_type",     "dynamic_ip", "static_ip",  DHCPv4_Client_IPAddress,                                          DHCPv4_Client_SubnetMask},
    {"pppoe",  "IPCP",   "pppoe_enable", "on",         "off",        WANDevice_WANConnectionDevice_WANPPPConnection_ExternalIPAddress, nullptr},
};
// clang-format on
constexpr int32_t kStatic = 1;

// The entry that the call is for; nullptr when the WAN has no such entry.
const Entry* entry_of(const Call& call) {
  const int32_t number = call.instance(1);
  return number >= 1 && number <= static_cast<int32_t>(std::size(kEntries)) ? &kEntries[number - 1] : nullptr;
}

// What `word` does for the active entry, `otherwise` for any other. Fails when the protocol cannot be read.
constexpr auto if_active(auto word, auto otherwise) {
  return [=](Call& call) {
    Protocol protocol;
    if (!read_protocol(protocol)) return false;
    const Entry* entry = entry_of(call);
    return entry != nullptr && protocol == entry->protocol ? word(call) : otherwise(call);
  };
}

constexpr auto forward_to_entry(parameter_handler Entry::*target) {
  return [=](Call& call) {
    const parameter_handler handler = entry_of(call)->*target;
    return handler != nullptr ? call.forward(handler) : call.reply("");
  };
}

// Only an address that is not assigned by somebody else can be set.
constexpr auto if_static(auto word) {
  return [=](Call& call) { return call.instance(1) == kStatic && if_active(word, refused())(call); };
}

bool set_enable(Call& call) {
  const Entry* entry = entry_of(call);
  if (entry == nullptr) return false;
  return record_verify(call, {kVerifyQuoted, entry->key, call.value_is("1") ? entry->on : entry->off}, "SIIIAE.\n");
}

bool addressing_type(Call& call) {
  const Entry* entry = entry_of(call);
  return entry != nullptr && call.reply(entry->addressing);
}

// ---- The mobile interface's entry ----

bool mobile_status(Call& call) {
  const bool enabled = call.forward(Cellular_Interface_Enable) && strcmp(call.output(), "1") == 0;
  return call.reply(enabled ? "Enabled" : "Disabled");
}

}  // namespace

// clang-format off
PARAMETER(IP_Interface_IPv4Address_Enable,
          by_interface(if_active(constant("1"), constant("0")), constant("1"), forward_to(Cellular_Interface_Enable)),
          by_interface(set_enable,                              refused(),     forward_to(Cellular_Interface_Enable)))
PARAMETER(IP_Interface_IPv4Address_Status,
          by_interface(if_active(constant("Enabled"), constant("Disabled")), constant("Enabled"), mobile_status),
          read_only)
PARAMETER(IP_Interface_IPv4Address_IPAddress,
          by_interface(if_active(forward_to_entry(&Entry::address), constant("")),
                       forward_to(LANDevice_LANHostConfigManagement_IPInterface_IPInterfaceIPAddress),
                       forward_to(Cellular_Interface_IPAddress)),
          by_interface(if_static(forward_to(WANDevice_WANConnectionDevice_WANIPConnection_ExternalIPAddress)),
                       forward_to(LANDevice_LANHostConfigManagement_IPInterface_IPInterfaceIPAddress),
                       refused()))
PARAMETER(IP_Interface_IPv4Address_SubnetMask,
          by_interface(if_active(forward_to_entry(&Entry::mask), constant("")),
                       forward_to(LANDevice_LANHostConfigManagement_IPInterface_IPInterfaceSubnetMask),
                       forward_to(Cellular_Interface_SubnetMask)),
          by_interface(if_static(forward_to(WANDevice_WANConnectionDevice_WANIPConnection_SubnetMask)),
                       forward_to(LANDevice_LANHostConfigManagement_IPInterface_IPInterfaceSubnetMask),
                       refused()))
PARAMETER(IP_Interface_IPv4Address_AddressingType,
          by_interface(addressing_type,
                       forward_to(LANDevice_LANHostConfigManagement_IPInterface_IPInterfaceAddressingType),
                       forward_to(Cellular_Interface_AddressingType)),
          read_only)
// clang-format on

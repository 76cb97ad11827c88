// IP.Interface.IPv4Address: the WAN has three entries, one for each way to get an address. The LAN and the mobile
// interface have one each, which their own objects serve.
#include <iterator>

#include "interfaces.hpp"
#include "pkg-lan/pkg-lan.h"
#include "pkg-mobile/pkg-mobile.h"
#include "pkg-wan.h"
#include "wan.hpp"

namespace {

using namespace kova;

// ---- The WAN's entries: the one whose protocol is configured is active ----

struct Entry {
  const char* protocol;
  const char* addressing;
  // The verify script's key, and the values that switch the entry on and off.
  const char* key;
  const char* on;
  const char* off;
  parameter_handler address;
  parameter_handler mask;  // nullptr: it reads as empty
};

// clang-format off
constexpr Entry kEntries[] = {
    {"static", "Static", "wan_type",     "static_ip",  "dynamic_ip", WANDevice_WANConnectionDevice_WANIPConnection_ExternalIPAddress,  WANDevice_WANConnectionDevice_WANIPConnection_SubnetMask},
    {"dhcp",   "DHCP",   "wan_type",     "dynamic_ip", "static_ip",  DHCPv4_Client_IPAddress,                                          DHCPv4_Client_SubnetMask},
    {"pppoe",  "IPCP",   "pppoe_enable", "on",         "off",        WANDevice_WANConnectionDevice_WANPPPConnection_ExternalIPAddress, nullptr},
};
// clang-format on
constexpr int32_t kStatic = 1;

// The entry that the call is for; nullptr when there is none.
const Entry* entry_of(const Call& call) {
  const int32_t number = call.instance(1);
  return number >= 1 && number <= static_cast<int32_t>(std::size(kEntries)) ? &kEntries[number - 1] : nullptr;
}

constexpr auto no_entry = [](Call& call) { return no_row(call, call.instance(1)); };

// What `work` does for the call's entry while it is active, else what `otherwise` does. Fails when the protocol cannot
// be read.
constexpr auto if_active(auto work, auto otherwise) {
  return [=](Call& call) {
    const Protocol protocol;
    if (!protocol) return false;
    const Entry* entry = entry_of(call);
    return entry != nullptr && protocol == entry->protocol ? work(call, *entry) : otherwise(call);
  };
}

constexpr auto active(const char* yes, const char* no) {
  return if_active([=](Call& call, const Entry& /*entry*/) { return call.reply(yes); }, constant(no));
}

// Forwards to the active entry's handler. Other entries, and an active one without a handler, read as empty.
constexpr auto forward_if_active(parameter_handler Entry::*handler) {
  return if_active(
      [=](Call& call, const Entry& entry) {
        return entry.*handler != nullptr ? call.forward(entry.*handler) : call.reply("");
      },
      constant(""));
}

// Forwards a set to the handler of the static entry, while it is active: the addresses of the others are assigned.
constexpr auto forward_if_static(parameter_handler Entry::*handler) {
  return if_active(
      [=](Call& call, const Entry& entry) { return call.instance(1) == kStatic && call.forward(entry.*handler); },
      no_entry);
}

bool set_enable(Call& call) {
  const Entry* entry = entry_of(call);
  if (entry == nullptr) return no_entry(call);
  return record_verify(call, {kVerifyQuoted, entry->key, call.value_is("1") ? entry->on : entry->off}, "SIIIAE.\n");
}

bool addressing_type(Call& call) {
  const Entry* entry = entry_of(call);
  return entry != nullptr ? call.reply(entry->addressing) : no_entry(call);
}

// ---- The mobile interface's entry ----

// Has a handler get into another buffer than the agent's. The arguments are those of every get.
void get(parameter_handler handler, ...) {
  va_list arguments;
  va_start(arguments, handler);
  handler(0, arguments);
  va_end(arguments);
}

bool mobile_status(Call& call) {
  Text<8> enabled;  // "0" or "1"
  get(Cellular_Interface_Enable, call.instances(), enabled.data(), nullptr);
  return call.reply(enabled == "1" ? "Enabled" : "Disabled");
}

}  // namespace

// clang-format off
PARAMETER(IP_Interface_IPv4Address_Enable,
          by_interface(active("1", "0"), constant("1"), forward_to(Cellular_Interface_Enable)),
          by_interface(set_enable,       refused(),     forward_to(Cellular_Interface_Enable)))
PARAMETER(IP_Interface_IPv4Address_Status,
          by_interface(active("Enabled", "Disabled"), constant("Enabled"), mobile_status),
          read_only)
PARAMETER(IP_Interface_IPv4Address_IPAddress,
          by_interface(forward_if_active(&Entry::address),
                       forward_to(LANDevice_LANHostConfigManagement_IPInterface_IPInterfaceIPAddress),
                       forward_to(Cellular_Interface_IPAddress)),
          by_interface(forward_if_static(&Entry::address),
                       forward_to(LANDevice_LANHostConfigManagement_IPInterface_IPInterfaceIPAddress),
                       refused()))
PARAMETER(IP_Interface_IPv4Address_SubnetMask,
          by_interface(forward_if_active(&Entry::mask),
                       forward_to(LANDevice_LANHostConfigManagement_IPInterface_IPInterfaceSubnetMask),
                       forward_to(Cellular_Interface_SubnetMask)),
          by_interface(forward_if_static(&Entry::mask),
                       forward_to(LANDevice_LANHostConfigManagement_IPInterface_IPInterfaceSubnetMask),
                       refused()))
PARAMETER(IP_Interface_IPv4Address_AddressingType,
          by_interface(addressing_type,
                       forward_to(LANDevice_LANHostConfigManagement_IPInterface_IPInterfaceAddressingType),
                       forward_to(Cellular_Interface_AddressingType)),
          read_only)
// clang-format on

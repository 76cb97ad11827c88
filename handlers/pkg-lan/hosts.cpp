// Hosts: the LAN's hosts in both trees, one row of the generated table each.
#include <string.h>

#include "parameter.hpp"
#include "pkg-lan.h"
#include "text.hpp"

namespace {

using namespace kova;

// How a tree numbers its rows: the position of the Host instance in the path, and what is said of a row that cannot be
// located. Every placeholder up to that position has to be a number.
struct Row {
  std::size_t position;
  LogMessage unlocated = "LE\n";
};
constexpr Row LAN_ROW{1};
constexpr Row HOSTS_ROW{0};
constexpr Row HOSTS_NAME_ROW{0, "locate error\n"};

bool located(const Call& call, const Row& row) {
  for (std::size_t i = 0; i <= row.position; ++i) {
    if (call.instance(i) == 0) return false;
  }
  return true;
}

// An option of the call's row.
StateOption host_option(const Call& call, const Row& row, const char* option) {
  Text<12> section;
  section.print("%d", call.instance(row.position));
  return {{"hosts", section.c_str()}, option};
}

bool reply_host(Call& call, const Row& row, const char* option, const char* fallback, LogMessage missing) {
  generate_host_info();
  if (!located(call, row)) return call.refuse(row.unlocated);
  const StateOption field = host_option(call, row, option);
  if (field) return call.reply(field.text());
  missing.print(call.origin());
  return call.reply(fallback);
}

constexpr auto host_field(Row row, const char* option, const char* fallback, LogMessage missing = {}) {
  return [=](Call& call) { return reply_host(call, row, option, fallback, missing); };
}

bool host_count(Call& call) {
  generate_host_info();
  const StateOption count({"hosts", "info"}, "count");
  return call.reply(count ? count.text() : "0");
}

// ---- The interface that a host was seen on, as each tree refers to it ----

struct Reference {
  const char* device_interface;  // nullptr: any other
  const char* lan_device;
  const char* device;
};
constexpr Reference kReferences[] = {
    {"wlan00", "InternetGatewayDevice.LANDevice.1.WLANConfiguration.1", "WiFi.Radio.1."},
    {"wlan10", "InternetGatewayDevice.LANDevice.1.WLANConfiguration.2", "WiFi.Radio.2."},
    {"wlan02", "InternetGatewayDevice.LANDevice.1.WLANConfiguration.3", "WiFi.Radio.1."},
    {"wlan12", "InternetGatewayDevice.LANDevice.1.WLANConfiguration.4", "WiFi.Radio.2."},
    {nullptr, "InternetGatewayDevice.LANDevice.1.LANEthernetInterfaceConfig.1", "Device.Ethernet.Interface.2."},
};

const Reference& reference_for(const char* device_interface) {
  const Reference* reference = kReferences;
  while (reference->device_interface != nullptr && strcmp(device_interface, reference->device_interface) != 0)
    ++reference;
  return *reference;
}

// Replies what `refer` makes of the row's interface; empty for a row that does not exist.
bool reply_reference(Call& call, const Row& row, const char* (*refer)(const char* interface)) {
  generate_host_info();
  if (!located(call, row)) return call.refuse(row.unlocated);
  const StateOption interface = host_option(call, row, "lay2if");
  return call.reply(interface ? refer(interface.text()) : "");
}

bool lan_device_reference(Call& call) {
  return reply_reference(call, LAN_ROW, [](const char* interface) { return reference_for(interface).lan_device; });
}

bool layer1_reference(Call& call) {
  return reply_reference(call, HOSTS_ROW, [](const char* interface) { return reference_for(interface).device; });
}

bool layer3_reference(Call& call) {
  return reply_reference(call, HOSTS_ROW, [](const char*) { return "Device.IP.Interface.2."; });
}

constexpr auto lease_is_read_only = refused("FTSHLTR.\n");

}  // namespace

// clang-format off
PARAMETER(LANDevice_Hosts_HostNumberOfEntries,     host_count,                                       read_only)
PARAMETER(LANDevice_Hosts_Host_IPAddress,          host_field(LAN_ROW, "ip", "", "uci get error\n"), read_only)
PARAMETER(LANDevice_Hosts_Host_MACAddress,         host_field(LAN_ROW, "mac", "0:0:0:0:0:0"),        read_only)
PARAMETER(LANDevice_Hosts_Host_HostName,           host_field(LAN_ROW, "hostname", "unkown"),        read_only)
PARAMETER(LANDevice_Hosts_Host_AddressSource,      host_field(LAN_ROW, "addresssource", ""),         read_only)
PARAMETER(LANDevice_Hosts_Host_LeaseTimeRemaining, host_field(LAN_ROW, "lease_remain", "0"),         lease_is_read_only)
PARAMETER(LANDevice_Hosts_Host_InterfaceType,      host_field(LAN_ROW, "iftype", " "),               read_only)
PARAMETER(LANDevice_Hosts_Host_Active,             host_field(LAN_ROW, "active", "unkown"),          read_only)
PARAMETER(LANDevice_Hosts_Host_Layer2Interface,    lan_device_reference,                             read_only)

ALIAS(Hosts_HostNumberOfEntries,         LANDevice_Hosts_HostNumberOfEntries)
PARAMETER(Hosts_Host_IPAddress,          host_field(HOSTS_ROW, "ip", "", "uci get error\n"), read_only)
PARAMETER(Hosts_Host_PhysAddress,        host_field(HOSTS_ROW, "mac", "0:0:0:0:0:0"),        read_only)
PARAMETER(Hosts_Host_HostName,           host_field(HOSTS_NAME_ROW, "hostname", "unkown"),   read_only)
PARAMETER(Hosts_Host_AddressSource,      host_field(HOSTS_ROW, "addresssource", ""),         read_only)
PARAMETER(Hosts_Host_LeaseTimeRemaining, host_field(HOSTS_ROW, "lease_remain", "0"),         lease_is_read_only)
PARAMETER(Hosts_Host_InterfaceType,      host_field(HOSTS_ROW, "iftype", " "),               read_only)
PARAMETER(Hosts_Host_Active,             host_field(HOSTS_ROW, "active", "unkown"),          read_only)
PARAMETER(Hosts_Host_Layer1Interface,    layer1_reference,                                   read_only)
PARAMETER(Hosts_Host_Layer3Interface,    layer3_reference,                                   read_only)
// clang-format on

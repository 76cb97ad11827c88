// The LAN's DHCP server: LANHostConfigManagement in one tree, DHCPv4.Server with its one pool in the other.
#include <string.h>

#include "command.hpp"
#include "parameter.hpp"
#include "pkg-lan.h"
#include "text.hpp"

namespace {

using namespace kova;

constexpr Section dhcp{"dhcp", "lan"};

using Address = Text<33>;

// ---- On or off ----

constexpr auto on_or_off(const char* on, const char* off) {
  return [=](Call& call) { return call.reply(Option(dhcp, "ignore") == "1" ? off : on); };
}

// ---- Pool ----

bool first_address(Call& call) {
  Address first;
  Address last;
  if (dhcp_calc_ipaddr_pool(first.data(), last.data()) != 0) return call.refuse("FTGDSIAD.\n");
  return call.reply(first.c_str());
}

bool last_address(Call& call) {
  Address first;
  Address last;
  if (dhcp_calc_ipaddr_pool(first.data(), last.data()) != 0) return call.refuse("FTGDEIAD.\n");
  return call.reply(last.c_str());
}

// Completes the range from the configured pool and has it applied; `key` names the end that the server sets.
bool set_range(Call& call, Address first, Address last, const char* key, LogMessage failure) {
  if (dhcp_calc_pool_range(first.data(), last.data()) != 0) return call.refuse(failure);
  return run_verify(call, {R"(%s %s "%s" "%s")", key, first.c_str(), last.c_str()}, failure);
}

bool set_first_address(Call& call) {
  if (!is_address(call)) return false;
  return set_range(call, Address(call.value()), Address(), "dhcps_startip", "FTSSIAD.\n");
}

bool set_last_address(Call& call) {
  if (!is_address(call)) return false;
  return set_range(call, Address(), Address(call.value()), "dhcps_endip", "FTSEIAD.\n");
}

// ---- Lease time: minutes or, with an "h", hours in the store; seconds in the data model ----

bool lease_time(Call& call) {
  const Option stored(dhcp, "leasetime");
  if (!stored) return call.refuse("FTGDLTE.\n\n");
  const int unit = strchr(stored.text(), 'h') != nullptr ? 3600 : 60;  // wherever it stands
  return call.reply_number(static_cast<long long>(leading_number(stored.text())) * unit);
}

// As the script wants it: forever is the longest time that fits, and less than a minute is one.
int lease_minutes(int seconds) {
  constexpr int kForever = 35791394;
  if (seconds == -1) return kForever;
  if (seconds >= 0 && seconds <= 59) return 1;
  return seconds / 60;
}

bool set_lease_time(Call& call) {
  return run_verify(call, {R"(%s %s "%d")", "dhcps_leasetime", lease_minutes(leading_number(call.value()))},
                    "FTSDLT.\n");
}

// ---- DNS servers ----

using Server = Text<32>;

// The DNS option that the DHCP daemon hands out, from its generated configuration.
Server offered_server(const char* command) { return logged_first_line<Server::capacity()>(command); }

// Two servers with a space between them. The second of two equal ones reads as unset, and two unset ones stand for the
// router itself.
bool dns_servers(Call& call) {
  const Server first = offered_server("cat /var/etc/dnsmasq.conf* | grep dhcp-option=lan,6 | awk -F ',' '{print $3}'");
  const Server second = offered_server("cat /var/etc/dnsmasq.conf* | grep dhcp-option=lan,6 | awk -F ',' '{print $4}'");
  if (!(first == second.view())) return call.reply_joined({first.c_str(), " ", second.c_str()});
  if (!(first == "0.0.0.0")) return call.reply_joined({first.c_str(), " 0.0.0.0"});
  const Option router({"network", "lan"}, "ipaddr");
  return router ? call.reply_joined({router.text(), " 0.0.0.0"}) : call.refuse("FTGLI.\n");
}

}  // namespace

// clang-format off
PARAMETER(LANDevice_LANHostConfigManagement_DHCPServerEnable, on_or_off("1", "0"), verify_now("dhcps_enable", "FTSDSE.\n"))
PARAMETER(LANDevice_LANHostConfigManagement_MinAddress,       first_address,       set_first_address)
PARAMETER(LANDevice_LANHostConfigManagement_MaxAddress,       last_address,        set_last_address)
PARAMETER(LANDevice_LANHostConfigManagement_DHCPLeaseTime,    lease_time,          set_lease_time)
PARAMETER(LANDevice_LANHostConfigManagement_DNSServers,       dns_servers,         verify_now("dhcps_dns", "FTSDSS.\n"))

PARAMETER(DHCPv4_Server_PoolNumberOfEntries, constant("1"),                      read_only)
PARAMETER(DHCPv4_Server_Pool_Status,         on_or_off("Enabled", "Disabled"),   read_only)
PARAMETER(DHCPv4_Server_Pool_Interface,      constant("Device.IP.Interface.2."), read_only)
// clang-format on

ALIAS(LANDevice_LANHostConfigManagement_IPInterface_DHCPServerEnable,
      LANDevice_LANHostConfigManagement_DHCPServerEnable)
ALIAS(LANDevice_LANHostConfigManagement_IPInterface_MinAddress, LANDevice_LANHostConfigManagement_MinAddress)
ALIAS(LANDevice_LANHostConfigManagement_IPInterface_MaxAddress, LANDevice_LANHostConfigManagement_MaxAddress)
ALIAS(LANDevice_LANHostConfigManagement_IPInterface_DHCPLeaseTime, LANDevice_LANHostConfigManagement_DHCPLeaseTime)

ALIAS(DHCPv4_Server_Enable, LANDevice_LANHostConfigManagement_DHCPServerEnable)
ALIAS(DHCPv4_Server_Pool_Enable, LANDevice_LANHostConfigManagement_DHCPServerEnable)
ALIAS(DHCPv4_Server_Pool_MinAddress, LANDevice_LANHostConfigManagement_MinAddress)
ALIAS(DHCPv4_Server_Pool_MaxAddress, LANDevice_LANHostConfigManagement_MaxAddress)
ALIAS(DHCPv4_Server_Pool_DNSServers, LANDevice_LANHostConfigManagement_DNSServers)
ALIAS(DHCPv4_Server_Pool_LeaseTime, LANDevice_LANHostConfigManagement_DHCPLeaseTime)

// WANDevice: the link, its Ethernet port and its IP connections.
#include "pkg-wan/pkg-wan.h"
#include "support/wan.hpp"

#define COMMON(parameter) WANDevice_WANCommonInterfaceConfig_##parameter
#define ETHERNET(parameter) WANDevice_WANEthernetInterfaceConfig_##parameter
#define IP(parameter) WANDevice_WANConnectionDevice_WANIPConnection_##parameter
#define STATIC_IP(parameter) At(IP(parameter), {2, 2, 1})
#define DHCP_IP(parameter) At(IP(parameter), {1, 1, 2})
#define NO_IP(parameter) At(IP(parameter), {1, 1, 3})

namespace kova::test {
namespace {

class WanIp : public WanTest {};

TEST_F(WanIp, FixedTextsPortAndCounters) {
  expect_gets({{COMMON(WANAccessType), as_is, "Ethernet"},
               {ETHERNET(MaxBitRate), as_is, "Auto"},
               {ETHERNET(DuplexMode), as_is, "Auto"},
               {ETHERNET(Status), wan_link(R"({"up": true})"), "Up"},
               {ETHERNET(Status), wan_link(R"({"up": false})"), "NoLink"},
               {ETHERNET(Status), as_is, "Error"},
               {COMMON(TotalBytesSent), wan_link(R"({"l3_device": ""})"), "0"},
               {COMMON(TotalBytesSent), wan_link(R"({"l3_device": "gone"})"), "0"}});
  expect_counters("wan", {COMMON(TotalBytesSent), COMMON(TotalBytesReceived), COMMON(TotalPacketsSent),
                          COMMON(TotalPacketsReceived), COMMON(TotalErrorsSent), COMMON(TotalErrorsReceived)});
  expect_counters("wan", {ETHERNET(Stats_BytesSent), ETHERNET(Stats_BytesReceived), ETHERNET(Stats_PacketsSent),
                          ETHERNET(Stats_PacketsReceived)});
}

TEST_F(WanIp, MacIsThatOfTheAgentsInterface) {
  const Source eth0 = status("network.device", R"([{"when": {"name": "eth0"}, "reply": {"macaddr": "02:a4:f1"}}])");
  expect_gets({{IP(MACAddress), eth0, "02:a4:f1", "current wan intf:eth0\n\n"}});
  eth0.put();
  agent_state agent = running_agent();
  agent.wan_interface = nullptr;
  EXPECT_EQ(get(IP(MACAddress), agent), answered("0:0:0:0:0:0"));
  EXPECT_TRUE(seams().syslog.back().starts_with("pkg-wan.c, "));
}

TEST_F(WanIp, ConnectionsAreTheKindsOfAddressingOfOneLink) {
  const Source link = wan_link(R"({"uptime": 86400, "ipv4-address": [{"address": "203.0.113.9", "mask": 24}]})");
  expect_gets({{STATIC_IP(Name), as_is, "wan_ip_s"},
               {DHCP_IP(Name), as_is, "wan_ip_d"},
               {NO_IP(Name), as_is, kGetFailed},
               {STATIC_IP(AddressingType), as_is, "Static"},
               {DHCP_IP(AddressingType), as_is, "DHCP"},
               {NO_IP(AddressingType), as_is, "None"},
               {At(IP(Name), {1, 1, 0}), as_is, kGetFailed, "LE\n"},
               {At(IP(MaxMTUSize), {1, 1, 0}), as_is, kGetFailed, "LE\n"},
               {At(IP(DNSServers), {1, 1, 0}), as_is, kGetFailed, "LE\n"},
               {NO_IP(MaxMTUSize), wan_option("mtu", "1492"), kGetFailed},
               {NO_IP(DNSServers), as_is, kGetFailed},
               {STATIC_IP(Uptime), link, "86400"},
               {STATIC_IP(Uptime), as_is, ""},
               {STATIC_IP(ExternalIPAddress), link, "203.0.113.9"},
               {STATIC_IP(ExternalIPAddress), as_is, "0.0.0.0"}});
  expect_options({{STATIC_IP(DefaultGateway), "network.wan.gateway", "0.0.0.0"},
                  {STATIC_IP(SubnetMask), "network.wan.netmask", "0.0.0.0"},
                  {STATIC_IP(MaxMTUSize), "network.wan.mtu", "1500"},
                  {DHCP_IP(MaxMTUSize), "network.wan.mtu", "1500"}});
}

TEST_F(WanIp, OnlyTheKindThatRunsIsConnected) {
  const Source up = wan_link(R"({"up": true})");
  for (const auto& [at, protocol] : {std::pair{STATIC_IP(ConnectionStatus), "Static"},
                                     {DHCP_IP(ConnectionStatus), "dhcp"},
                                     {NO_IP(ConnectionStatus), "pppoe"}}) {
    const Source configured = wan_option("proto", protocol);
    expect_gets({{at, configured && up, "Connected"},
                 {at, configured && wan_link(R"({"up": false})"), "Disconnected"},
                 {at, configured, "Unconfigured"}});
  }
  expect_gets({{STATIC_IP(ConnectionStatus), wan_option("proto", "dhcp") && up, "Disconnected"},
               {DHCP_IP(ConnectionStatus), up, kGetFailed}});
}

TEST_F(WanIp, StaticDnsServersAreTwoAndDhcpOnesThoseOfTheFirstDaemon) {
  const Source first = wan_option("static_dns1", "192.0.2.1");
  const Source second = wan_option("static_dns2", "192.0.2.2");
  expect_gets({{STATIC_IP(DNSServers), second, "0.0.0.0,0.0.0.0"},
               {STATIC_IP(DNSServers), first && second, "192.0.2.1,192.0.2.2"},
               {STATIC_IP(DNSServers), first, "192.0.2.1,0.0.0.0"}});

  const auto dhcp = [](const std::string& daemons) {
    return package("dhcp", "config dhcp 'lan'\n\tlist server '192.0.2.9'\n" + daemons);
  };
  const std::string three =
      "config dnsmasq\n\tlist server '192.0.2.1'\n\tlist server '/lan/2'\n\tlist server 'three'\n";
  const std::string one = "config dnsmasq\n\toption server 'one'\n";
  const Source no_context{[] { seams().config_context_fails = true; }};
  expect_gets(
      {{DHCP_IP(DNSServers), dhcp(three + one), "192.0.2.1,/lan/2,three"},
       {DHCP_IP(DNSServers), dhcp(one + three), kUntouched},
       {DHCP_IP(DNSServers), dhcp("config dnsmasq\n" + three), kUntouched, "[ERR]uci failed to get server option\n"},
       {DHCP_IP(DNSServers), dhcp(""), "0.0.0.0,0.0.0.0", "[ERR]uci failed to get option dnsmasq\n"},
       {DHCP_IP(DNSServers), no_context, kGetFailed, "[ERR]failed to alloc uci ctx.\n"},
       {DHCP_IP(DNSServers), no_file("/etc/config/dhcp"), kGetFailed, "[ERR]uci failed to load config:dhcp\n"}});
}

TEST_F(WanIp, ChangesAreRecordedForLater) {
  expect_recorded(DHCP_IP(ExternalIPAddress), "10.0.0.2", "wan_ip 10.0.0.2", "SWIE.\n");
  expect_recorded(STATIC_IP(DefaultGateway), "10.0.0.1", "wan_gate \"10.0.0.1\"", "SWGWE.\n");
  expect_recorded(STATIC_IP(SubnetMask), "255.0.255.0", "wan_mask \"255.0.255.0\"", "SWME.\n");
  expect_recorded(DHCP_IP(AddressingType), "static", "wan_type \"static_ip\"", "SWATE.\n");
  expect_recorded(STATIC_IP(AddressingType), "dhcp", "wan_type \"dynamic_ip\"", "SWATE.\n");
  expect_recorded(STATIC_IP(DNSServers), "10.0.0.3,any text", "wan_dns_static \"10.0.0.3,any text\"", "SWDSE. \n");
  expect_recorded(STATIC_IP(MaxMTUSize), "1", "static_mtu \"1\"");
  expect_recorded(STATIC_IP(MaxMTUSize), "+1540", "static_mtu \"+1540\"");
  expect_recorded(DHCP_IP(MaxMTUSize), "1500 bytes", "dynamic_mtu \"1500 bytes\"");
}

TEST_F(WanIp, RefusedValuesAreNotRecorded) {
  expect_sets({{STATIC_IP(ExternalIPAddress), "10.0.0", kRefused, {logs("mal format ip.\n")}},
               {STATIC_IP(DefaultGateway), "10.0.0.256", kRefused, {logs("mal format ip\n")}},
               {STATIC_IP(SubnetMask), "/24", kRefused, {logs("mal format mask \n")}},
               {STATIC_IP(AddressingType), "static_ip", kRefused, {logs("Invalid dhcp para\n")}},
               {DHCP_IP(DNSServers), "10.0.0.3", kRefused},
               {NO_IP(DNSServers), "10.0.0.3", kRefused},
               {STATIC_IP(MaxMTUSize), "0", kRefused},
               {DHCP_IP(MaxMTUSize), "1541", kRefused},
               {DHCP_IP(MaxMTUSize), "4294968796", kRefused},
               {NO_IP(MaxMTUSize), "1541", kRefused},
               {NO_IP(MaxMTUSize), "1500", kRefused, {logs("mal format MTU.\n")}}});
}

}  // namespace
}  // namespace kova::test

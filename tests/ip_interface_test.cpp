// The network interfaces above Ethernet: IP, its addresses, PPP, the DHCP client, the default connection.
#include "pkg-wan/pkg-wan.h"
#include "support/wan.hpp"

#define ADDRESS(parameter) IP_Interface_IPv4Address_##parameter

namespace kova::test {
namespace {

class IpInterface : public TableTest {};

Source protocol(const std::string& name) { return wan_option("proto", name); }
Source link(const std::string& name, const std::string& answer) { return protocol(name) && wan_link(answer); }
Source no_link(const std::string& name) { return protocol(name) && no_status("network.interface.wan"); }

// More than any buffer of a handler's own holds.
const std::string kLongProtocol = "pppoe" + std::string(5000, 'e');
const std::string kManyServers = std::string(300, '5') + "," + std::string(300, '6');
const std::string kManyServersAnswer =
    R"({"dns-server": [")" + std::string(300, '5') + R"(", ")" + std::string(300, '6') + R"("]})";

// ---- The objects themselves ----

TEST_F(IpInterface, FixedTexts) {
  expect_gets({{IP_IPv4Status, as_is, "Enabled"},
               {IP_InterfaceNumberOfEntries, as_is, "3"},
               {PPP_SupportedNCPs, as_is, "IPCP"},
               {PPP_Interface_Name, as_is, "wan_pppoe"},
               {PPP_Interface_LowerLayers, as_is, "Device.Ethernet.Link.1"},
               {DHCPv4_Client_Interface, as_is, "Device.IP.Interface.1."}});
  for (const parameter_handler one : {IP_IPv4Capable, IP_IPv4Enable, IP_Interface_Enable, IP_Interface_IPv4Enable,
                                      PPP_InterfaceNumberOfEntries, DHCPv4_ClientNumberOfEntries})
    expect_gets({{one, as_is, "1"}});
}

TEST_F(IpInterface, DefaultConnectionIsOfTheProtocolsKind) {
  const parameter_handler service = Layer3Forwarding_DefaultConnectionService;
  const std::string device = "InternetGatewayDevice.WANDevice.1.WANConnectionDevice.1.";
  for (const char* ppp : {"PPPoE", "L2TP", "PPTP"})
    expect_gets({{service, protocol(ppp), device + "WANPPPConnection.1."}});
  expect_gets({{service, protocol("dhcp"), device + "WANIPConnection.1."},
               {service, protocol(kLongProtocol), device + "WANIPConnection.1."},
               {service, protocol(""), kGetFailed}});
}

// ---- PPP.Interface ----

TEST_F(IpInterface, PppKnowsPppoeAlone) {
  expect_gets({{PPP_Interface_Status, link("PPPoE", R"({"up": true})"), "Up"},
               {PPP_Interface_Status, link("pppoe", R"({"up": false})"), "Down"},
               {PPP_Interface_Status, no_link("pppoe"), "Unknown"},
               {PPP_Interface_Status, protocol("l2tp"), "Disconnected"},
               {PPP_Interface_Status, protocol(""), kGetFailed},
               {PPP_Interface_IPCP_DNSServers, link("pppoe", kManyServersAnswer), kManyServers},
               {PPP_Interface_IPCP_DNSServers, link("pppoe", R"({"dns-server": []})"), ""},
               {PPP_Interface_IPCP_DNSServers, no_link("pppoe"), ""},
               {PPP_Interface_IPCP_DNSServers, link("PPPoE", kManyServersAnswer), "0.0.0.0"},
               {PPP_Interface_IPCP_DNSServers, protocol(""), kGetFailed},
               {PPP_Interface_IPCP_LocalIPAddress, protocol("pppoe"), "203.0.113.42"},
               {PPP_Interface_IPCP_RemoteIPAddress, protocol("pppoe"), "203.0.113.1"}});
}

// ---- DHCPv4.Client ----

TEST_F(IpInterface, DhcpClientIsTheWanWhileItRunsDhcp) {
  for (const auto& [handler, live, unanswered, otherwise, log] :
       {std::tuple{&DHCPv4_Client_Enable, "1", "1", "0", "uci get error.\n"},
        {DHCPv4_Client_Status, "Enabled", "Enabled", "Disabled", ""},
        {DHCPv4_Client_DHCPStatus, "Bound", "", "", ""},
        {DHCPv4_Client_IPAddress, "192.0.2.77", "0.0.0.0", "", ""},
        {DHCPv4_Client_SubnetMask, "255.255.255.0", "", "", ""},
        {DHCPv4_Client_IPRouters, "192.0.2.1", "", "", ""},
        {DHCPv4_Client_DNSServers, "192.0.2.53,198.51.100.53", "", "", ""}}) {
    expect_gets({{handler, protocol("dhcp"), live},
                 {handler, no_link("dhcp"), unanswered},
                 {handler, protocol("DHCP"), otherwise},
                 {handler, protocol(""), kGetFailed, log}});
  }
  expect_gets({{DHCPv4_Client_DHCPStatus, link("dhcp", R"({"up": false})"), "Requesting"},
               {DHCPv4_Client_DNSServers, link("dhcp", kManyServersAnswer), kManyServers},
               {DHCPv4_Client_DNSServers, link("dhcp", R"({"dns-server": [")" + std::string(5000, '5') + "\"]}"),
                std::string(4095, '5')}});
  expect_recorded(DHCPv4_Client_Enable, "0", "wan_type \"static_ip\"", "WSDE.\n");
  expect_recorded(DHCPv4_Client_Enable, "1", "wan_type \"dynamic_ip\"", "WSDE.\n");
  expect_sets({{DHCPv4_Client_Enable, "true", kRefused}});
}

// ---- IP.Interface ----

TEST_F(IpInterface, NamesAndLayersFollowTheNumber) {
  for (const auto& [handler, wan, lan, mobile, pppoe, unread] :
       {std::tuple{&IP_Interface_Name, "Wan", "Lan", "Cellular", "PPPoE", kGetFailed},
        {IP_Interface_LowerLayers, "Device.Ethernet.Link.1", "Device.Ethernet.Link.2", "Device.Ethernet.Link.3",
         "Device.PPP.Interface.1", kGetFailed},
        {IP_Interface_IPv4AddressNumberOfEntries, "3", "1", "1", "3", answered("3")},
        {IP_Interface_Type, "Normal", "Normal", "Normal", "Normal", answered("Normal")}}) {
    expect_gets({{At{handler, {1}}, protocol("l2tp"), wan},
                 {At{handler, {1}}, protocol("PPPoE"), pppoe},
                 {At{handler, {1}}, protocol(""), unread},
                 {At{handler, {2}}, protocol("pppoe"), lan},
                 {At{handler, {3}}, protocol(""), mobile},
                 {At{handler, {0}}, as_is, kUntouched},
                 {At{handler, {4}}, protocol("pppoe"), kUntouched}});
  }
}

TEST_F(IpInterface, StatusIsTheUpFlagOfItsOwnLink) {
  for (const auto& [number, name] : {std::pair{1, "wan"}, {2, "lan"}, {3, "4g"}}) {
    const At at{IP_Interface_Status, {number}};
    const std::string object = std::string("network.interface.") + name;
    expect_gets({{at, status(object, R"({"up": true})"), "Up"},
                 {at, status(object, R"({"up": false})"), "Down"},
                 {at, no_status(object), "Unknown"}});
  }
  for (const int32_t nowhere : {0, 4}) expect_gets({{At{IP_Interface_Status, {nowhere}}, as_is, "Unknown"}});
}

TEST_F(IpInterface, TrafficIsCountedByTheInterfacesOwnObject) {
  expect_counters("wan", COUNTERS(PPP_Interface_Stats_), protocol("pppoe"));
  expect_counters("wan", COUNTERS(IP_Interface_Stats_));
  expect_counters("wan", COUNTERS(Ethernet_Link_Stats_));
  const Source lan = status("network.device", R"({"statistics:int64": {"tx_bytes": 1, "rx_bytes": 2, "tx_packets": 3,
                                                  "rx_packets": 4, "tx_errors": 5, "rx_errors": 6}})");
  const Source mobile = prints("cat /proc/net/dev|grep -w usb0", " usb0: 2 4 6 0 0 0 0 0 1 3 5 0 0 0 0 0\n");
  int number = 0;
  for (const parameter_handler handler : COUNTERS(IP_Interface_Stats_)) {
    const std::string counted = std::to_string(++number);
    expect_gets({{At{handler, {2}}, lan, counted}, {At{handler, {3}}, mobile, counted}});
    expect_gets({{At{handler, {0}}, as_is, kGetFailed, "LE\n"}, {At{handler, {4}}, as_is, kGetFailed}});
  }
}

// ---- IGMP proxy ----

TEST_F(IpInterface, IgmpProxyIsSwitchedByCommands) {
  const std::string enable = "igmpproxy.@igmpproxy[0].enable";
  const std::string off = "uci set " + enable + "='0'";
  const std::string on = "uci set " + enable + "=''";
  for (const int32_t number : {1, 3}) {
    const At at{IP_Interface_X_KOVA_IGMPProxy, {number}};
    for (const auto& [output, text] : {std::pair{"", "1"}, {"0\n", "0"}, {"1\n", ""}, {"\n", ""}})
      expect_gets({{at, prints("uci get " + enable, output), text}});
    expect_sets({{at, "0", accepted(APPLY_IGMP_PROXY), {runs(off)}, prints(off, "")},
                 {at, "1", accepted(APPLY_IGMP_PROXY), {runs(on)}, prints(on, "uci: Parse error\n")},
                 {at, "on", kRefused}});
  }
  for (const auto& [number, answer, log] :
       {std::tuple{0, kGetFailed, "LE\n"}, {2, answered(""), ""}, {4, kGetFailed, ""}}) {
    const Effects effects = number == 0 ? Effects{logs(log)} : Effects{};
    expect_gets({{At{IP_Interface_X_KOVA_IGMPProxy, {number}}, as_is, answer, log}});
    expect_sets({{At{IP_Interface_X_KOVA_IGMPProxy, {number}}, "1", kRefused, effects}});
  }
}

TEST_F(IpInterface, IgmpProxyIsReadBackBeforeItIsCommitted) {
  const auto before = contents("/etc/config/igmpproxy");
  for (const char* value : {"0", "1"}) {
    EXPECT_EQ(set(IP_Interface_X_KOVA_IGMPProxy, value, {1}), accepted(APPLY_IGMP_PROXY));
    EXPECT_EQ(get(IP_Interface_X_KOVA_IGMPProxy, {3}), answered(value));
  }
  EXPECT_EQ(contents("/etc/config/igmpproxy"), before);
  EXPECT_EQ(run("/usr/bin/tr069/apply/igmp-proxy >/dev/null && grep -q upstream /var/etc/igmpproxy.conf"), 0);
  EXPECT_EQ(config("igmpproxy.@igmpproxy[0].enable"), std::nullopt);
}

// ---- IP.Interface.IPv4Address ----

TEST_F(IpInterface, OneEntryOfTheWanIsActive) {
  for (const auto& [name, active, address, mask] : {std::tuple{"static", 1, "192.0.2.10", "255.0.0.0"},
                                                    {"dhcp", 2, "192.0.2.77", "255.255.255.0"},
                                                    {"pppoe", 3, "203.0.113.42", ""},
                                                    {"PPPoE", -1, "", ""}}) {
    const Source wan = protocol(name) && wan_option("netmask", "255.0.0.0");
    for (int32_t entry = 0; entry <= 4; ++entry) {
      const bool is_active = entry == active;
      expect_gets({{At{ADDRESS(Enable), {1, entry}}, wan, is_active ? "1" : "0"},
                   {At{ADDRESS(Status), {1, entry}}, wan, is_active ? "Enabled" : "Disabled"},
                   {At{ADDRESS(IPAddress), {1, entry}}, wan, is_active ? address : ""},
                   {At{ADDRESS(SubnetMask), {1, entry}}, wan, is_active ? mask : ""}});
    }
  }
  for (const parameter_handler handler : {ADDRESS(Enable), ADDRESS(Status), ADDRESS(IPAddress), ADDRESS(SubnetMask)})
    expect_gets({{handler, protocol(""), kGetFailed}});
  // A static address is that of the link all the same, a static mask the configured one.
  expect_gets({{At{ADDRESS(IPAddress), {1, 1}}, no_link("static"), "0.0.0.0"},
               {At{ADDRESS(SubnetMask), {1, 1}}, no_link("static"), "255.255.255.0"}});
  for (const auto& [entry, type, log] : {std::tuple{0, kGetFailed, "LE\n"},
                                         {1, answered("Static"), ""},
                                         {2, answered("DHCP"), ""},
                                         {3, answered("IPCP"), ""},
                                         {4, kGetFailed, ""}})
    expect_gets({{At{ADDRESS(AddressingType), {1, entry}}, protocol(""), type, log}});
}

TEST_F(IpInterface, OtherInterfacesHaveTheAddressOfTheirObject) {
  const Source lan = option("network.lan.netmask", "255.255.0.0");
  const Source off = option("network.4g.disabled", "1");
  for (const auto& [handler, of_lan, of_mobile, of_mobile_off] :
       {std::tuple{&ADDRESS(Enable), "1", "1", "0"},
        {ADDRESS(Status), "Enabled", "Enabled", "Disabled"},
        {ADDRESS(IPAddress), "192.168.1.1", "198.51.100.20", "0.0.0.0"},
        {ADDRESS(SubnetMask), "255.255.0.0", "255.255.255.0", "0.0.0.0"},
        {ADDRESS(AddressingType), "static", "DHCP", "DHCP"}}) {
    expect_gets({{At{handler, {2, 1}}, lan, of_lan},
                 {At{handler, {3, 1}}, as_is, of_mobile},
                 {At{handler, {3, 1}}, off, of_mobile_off}});
    expect_gets({{At{handler, {0, 1}}, as_is, kGetFailed, "LE\n"}, {At{handler, {4, 1}}, as_is, kGetFailed}});
  }
}

TEST_F(IpInterface, EntriesAreSwitchedWhateverIsConfigured) {
  protocol("").put();
  for (const auto& [entry, value, arguments] : {std::tuple{1, "1", "wan_type \"static_ip\""},
                                                {1, "0", "wan_type \"dynamic_ip\""},
                                                {2, "1", "wan_type \"dynamic_ip\""},
                                                {2, "true", "wan_type \"static_ip\""},
                                                {3, "1", "pppoe_enable \"on\""},
                                                {3, "", "pppoe_enable \"off\""}})
    expect_recorded(At{ADDRESS(Enable), {1, entry}}, value, arguments, "SIIIAE.\n");
  for (const auto& [interface, entry] : {std::pair{1, 4}, {2, 1}, {4, 1}})
    expect_sets({{At{ADDRESS(Enable), {interface, entry}}, "1", kRefused}});
  for (const auto& [interface, entry] : {std::pair{1, 0}, {0, 1}})
    expect_sets({{At{ADDRESS(Enable), {interface, entry}}, "1", kRefused, {logs("LE\n")}}});
  const Effects disabled = {stores("network.4g.disabled", "1")};
  expect_sets({{At{ADDRESS(Enable), {3, 1}}, "0", accepted(APPLY_CELLULAR | APPLY_MANAGEMENT), disabled}});
}

TEST_F(IpInterface, AddressesThatNobodyAssignsCanBeSet) {
  const std::string address = "192.0.2.9";
  for (const auto& [handler, wan, failure, lan] :
       {std::tuple{&ADDRESS(IPAddress), "wan_ip 192.0.2.9", "SWIE.\n", "lan_ip \"192.0.2.9\" &"},
        {ADDRESS(SubnetMask), "wan_mask \"192.0.2.9\"", "SWME.\n", "lan_mask \"192.0.2.9\" &"}}) {
    expect_recorded(At{handler, {2, 1}}, address, lan);
    for (const auto& [name, entry] : {std::pair{"dhcp", 1}, {"dhcp", 2}, {"pppoe", 3}, {"static", 2}, {"", 1}})
      expect_sets({{At{handler, {1, entry}}, address, kRefused, {}, protocol(name)}});
    protocol("static").put();
    expect_recorded(At{handler, {1, 1}}, address, wan, failure);
    for (const int32_t interface : {3, 4}) expect_sets({{At{handler, {interface, 1}}, address, kRefused}});
    for (const auto& [interface, entry] : {std::pair{0, 1}, {1, 0}})
      expect_sets({{At{handler, {interface, entry}}, address, kRefused, {logs("LE\n")}}});
  }
}

TEST_F(IpInterface, AnEntryIsActiveOnceTheRecordWasRun) {
  EXPECT_EQ(set(ADDRESS(Enable), "1", {1, 1}), accepted(APPLY_TASK_COMMANDS));
  EXPECT_EQ(get(ADDRESS(Enable), {1, 1}), answered("0"));
  EXPECT_EQ(run("sh /tmp/tr069/cmd_record"), 0);
  EXPECT_EQ(get(ADDRESS(Enable), {1, 1}), answered("1"));
}

}  // namespace
}  // namespace kova::test

// The network interfaces above Ethernet: IP, its addresses, PPP, the DHCP client, the default connection.
#include "pkg-mobile/pkg-mobile.h"
#include "pkg-wan/pkg-wan.h"
#include "support/tables.hpp"

#define ADDRESS(parameter) IP_Interface_IPv4Address_##parameter

namespace kova::test {
namespace {

class IpInterface : public TableTest {};

const Answer kNothing{0, kUntouched};

// What is configured for the WAN; an empty value leaves no such option.
Source wan(const std::string& name, const std::string& value) { return option("network.wan." + name, value); }
Source protocol(const std::string& name) { return wan("proto", name); }

// The same for a WAN that is up, and whatever else the daemon says.
Source link(const std::string& name, const std::string& answer) {
  return protocol(name) && status("network.interface.wan", answer);
}
Source no_link(const std::string& name) { return protocol(name) && no_status("network.interface.wan"); }

const std::string kLongProtocol = "pppoe" + std::string(5000, 'e');
// More than any buffer of a handler's own holds.
const std::string kManyServers =
    "2001:db8:1111:2222:3333:4444:5555:6666,2001:db8:1111:2222:3333:4444:5555:7777,2001:db8:1111:2222:3333:4444:5555:"
    "8888,2001:db8:1111:2222:3333:4444:5555:9999";
const std::string kManyServersAnswer =
    R"({"dns-server": ["2001:db8:1111:2222:3333:4444:5555:6666", "2001:db8:1111:2222:3333:4444:5555:7777",
                       "2001:db8:1111:2222:3333:4444:5555:8888", "2001:db8:1111:2222:3333:4444:5555:9999"]})";

std::string verify(const std::string& arguments) { return "lua /usr/bin/tr069/verify_pms " + arguments; }

// ---- The objects themselves ----

TEST_F(IpInterface, Constants) {
  expect_gets({{IP_IPv4Capable, as_is, "1"},
               {IP_IPv4Enable, as_is, "1"},
               {IP_IPv4Status, as_is, "Enabled"},
               {IP_InterfaceNumberOfEntries, as_is, "3"},
               {At{IP_Interface_Enable, {2}}, as_is, "1"},
               {At{IP_Interface_IPv4Enable, {3}}, as_is, "1"},
               {PPP_SupportedNCPs, as_is, "IPCP"},
               {PPP_InterfaceNumberOfEntries, as_is, "1"},
               {PPP_Interface_Name, as_is, "wan_pppoe"},
               {PPP_Interface_LowerLayers, as_is, "Device.Ethernet.Link.1"},
               {DHCPv4_ClientNumberOfEntries, as_is, "1"},
               {DHCPv4_Client_Interface, as_is, "Device.IP.Interface.1."}});
}

TEST_F(IpInterface, DefaultConnectionIsOfTheProtocolsKind) {
  const std::string device = "InternetGatewayDevice.WANDevice.1.WANConnectionDevice.1.";
  std::vector<Get> rows = {{Layer3Forwarding_DefaultConnectionService, protocol(""), kGetFailed}};
  for (const char* ppp : {"pppoe", "L2TP", "pptp"})
    rows.push_back({Layer3Forwarding_DefaultConnectionService, protocol(ppp), device + "WANPPPConnection.1."});
  for (const std::string& other : {std::string("dhcp"), std::string("static"), kLongProtocol})
    rows.push_back({Layer3Forwarding_DefaultConnectionService, protocol(other), device + "WANIPConnection.1."});
  expect_gets(rows);
}

// ---- PPP.Interface ----

TEST_F(IpInterface, PppIsTheWansPppConnection) {
  const Source pppoe = protocol("pppoe");
  expect_gets({{PPP_Interface_Enable, pppoe, "1"},
               {PPP_Interface_ConnectionStatus, protocol("l2tp"), "Connected"},
               {PPP_Interface_Username, pppoe, "subscriber@isp.example"},
               {PPP_Interface_Password, pppoe, "ppp-secret"},
               {PPP_Interface_MaxMRUSize, wan("pppoe_mtu", "1444"), "1444"},
               {PPP_Interface_CurrentMRUSize, wan("pppoe_mtu", "1444") && protocol("l2tp"), "1444"},
               {PPP_Interface_CurrentMRUSize, wan("pppoe_mtu", "") && pppoe, "1480"},
               {PPP_Interface_PPPoE_ACName, pppoe, "ac-1"},
               {PPP_Interface_PPPoE_ServiceName, pppoe, "internet"},
               {PPP_Interface_IPCP_LocalIPAddress, pppoe, "203.0.113.42"},
               {PPP_Interface_IPCP_RemoteIPAddress, pppoe, "203.0.113.1"}});
  const auto recorded = [](const std::string& arguments) { return Effects{records(verify(arguments))}; };
  const Outcome later = accepted(APPLY_TASK_COMMANDS);
  expect_sets({{PPP_Interface_Enable, "0", later, recorded("pppoe_enable \"off\"")},
               {PPP_Interface_Username, "me", later, recorded("pppoe_username \"me\" ")},
               {PPP_Interface_Password, "pw", later, recorded("pppoe_password \"pw\" ")},
               {PPP_Interface_MaxMRUSize, "1400", later, recorded("pppoe_mtu \"1400\"")},
               {PPP_Interface_CurrentMRUSize, "1400", later, recorded("pppoe_mtu \"1400\"")},
               {PPP_Interface_PPPoE_ACName, "ac", later, recorded("pppoe_access \"ac\"")},
               {PPP_Interface_PPPoE_ServiceName, "sn", later, recorded("pppoe_servicename \"sn\"")}});
}

TEST_F(IpInterface, PppKnowsPppoeAlone) {
  std::vector<Get> rows;
  for (const char* pppoe : {"pppoe", "PPPoE"}) {
    rows.push_back({PPP_Interface_Status, link(pppoe, R"({"up": true})"), "Up"});
    rows.push_back({PPP_Interface_Status, link(pppoe, R"({"up": false})"), "Down"});
    rows.push_back({PPP_Interface_Status, link(pppoe, R"({"pending": true})"), "Unknown"});
    rows.push_back({PPP_Interface_Status, no_link(pppoe), "Unknown"});
  }
  for (const std::string& other : {std::string("l2tp"), std::string("dhcp"), kLongProtocol}) {
    rows.push_back({PPP_Interface_Status, protocol(other), "Disconnected"});
    rows.push_back({PPP_Interface_IPCP_DNSServers, protocol(other), "0.0.0.0"});
  }
  rows.push_back({PPP_Interface_Status, protocol(""), kGetFailed});
  rows.push_back({PPP_Interface_IPCP_DNSServers, protocol(""), kGetFailed});
  rows.push_back({PPP_Interface_IPCP_DNSServers, protocol("pppoe"), "192.0.2.53,198.51.100.53"});
  rows.push_back({PPP_Interface_IPCP_DNSServers, link("PPPoE", kManyServersAnswer), "0.0.0.0"});
  rows.push_back({PPP_Interface_IPCP_DNSServers, link("pppoe", kManyServersAnswer), kManyServers});
  rows.push_back({PPP_Interface_IPCP_DNSServers, link("pppoe", R"({"dns-server": []})"), ""});
  rows.push_back({PPP_Interface_IPCP_DNSServers, no_link("pppoe"), ""});
  expect_gets(rows);
}

// ---- DHCPv4.Client ----

TEST_F(IpInterface, DhcpClientIsTheWanWhileItRunsDhcp) {
  const struct {
    parameter_handler handler;
    const char* live;
    const char* unanswered;
    const char* other;  // with another protocol
    std::string log;    // without one
  } rows[] = {{DHCPv4_Client_Enable, "1", "1", "0", "uci get error.\n"},
              {DHCPv4_Client_Status, "Enabled", "Enabled", "Disabled", ""},
              {DHCPv4_Client_DHCPStatus, "Bound", "", "", ""},
              {DHCPv4_Client_IPAddress, "192.0.2.77", "0.0.0.0", "", ""},
              {DHCPv4_Client_SubnetMask, "255.255.255.0", "", "", ""},
              {DHCPv4_Client_IPRouters, "192.0.2.1", "", "", ""},
              {DHCPv4_Client_DNSServers, "192.0.2.53,198.51.100.53", "", "", ""}};
  for (const auto& [handler, live, unanswered, other, log] : rows) {
    expect_gets({{handler, protocol("dhcp"), live},
                 {handler, no_link("dhcp"), unanswered},
                 {handler, link("dhcp", R"({"ipv4-address": [], "route": [], "dns-server": []})"), unanswered},
                 {handler, protocol("DHCP"), other},
                 {handler, protocol("static"), other},
                 {handler, protocol(kLongProtocol), other},
                 {handler, protocol(""), kGetFailed, log}});
  }
  expect_gets({{DHCPv4_Client_DHCPStatus, link("dhcp", R"({"up": false})"), "Requesting"},
               {DHCPv4_Client_DNSServers, link("dhcp", kManyServersAnswer), kManyServers}});
  expect_sets({{DHCPv4_Client_Enable, "0", accepted(APPLY_TASK_COMMANDS), {records(verify("wan_type \"static_ip\""))}},
               {DHCPv4_Client_Enable, "1", accepted(APPLY_TASK_COMMANDS), {records(verify("wan_type \"dynamic_ip\""))}},
               {DHCPv4_Client_Enable, "true", kRefused},
               {DHCPv4_Client_Enable, "", kRefused},
               {DHCPv4_Client_Enable, "1", kRefused, {logs("WSDE.\n")}, no_file("/tmp/tr069")}});
}

// ---- IP.Interface ----

TEST_F(IpInterface, NamesAndLayersFollowTheNumber) {
  const struct {
    parameter_handler handler;
    const char* wan;
    const char* lan;
    const char* mobile;
    Reply pppoe;
    Reply unread;  // the WAN's without a protocol
  } rows[] = {
      {IP_Interface_Name, "Wan", "Lan", "Cellular", "PPPoE", kGetFailed},
      {IP_Interface_LowerLayers, "Device.Ethernet.Link.1", "Device.Ethernet.Link.2", "Device.Ethernet.Link.3",
       "Device.PPP.Interface.1", kGetFailed},
      {IP_Interface_IPv4AddressNumberOfEntries, "3", "1", "1", "3", "3"},
      {IP_Interface_Type, "Normal", "Normal", "Normal", "Normal", "Normal"},
  };
  for (const auto& [handler, wan, lan, mobile, pppoe, unread] : rows) {
    expect_gets({{At{handler, {1}}, as_is, wan},
                 {At{handler, {1}}, protocol("l2tp"), wan},
                 {At{handler, {1}}, protocol(kLongProtocol), wan},
                 {At{handler, {1}}, protocol("PPPoE"), pppoe},
                 {At{handler, {1}}, protocol(""), unread},
                 {At{handler, {2}}, protocol("pppoe"), lan},
                 {At{handler, {3}}, protocol(""), mobile},
                 {At{handler, {0}}, as_is, kNothing},
                 {At{handler, {4}}, protocol("pppoe"), kNothing}});
  }
}

TEST_F(IpInterface, StatusIsTheUpFlagOfItsOwnLink) {
  std::vector<Get> rows = {{At{IP_Interface_Status, {0}}, as_is, "Unknown"},
                           {At{IP_Interface_Status, {4}}, as_is, "Unknown"}};
  for (const auto& [number, name] : {std::pair{1, "wan"}, {2, "lan"}, {3, "4g"}}) {
    const std::string object = std::string("network.interface.") + name;
    rows.push_back({At{IP_Interface_Status, {number}}, status(object, R"({"up": true})"), "Up"});
    rows.push_back({At{IP_Interface_Status, {number}}, status(object, R"({"up": false})"), "Down"});
    rows.push_back({At{IP_Interface_Status, {number}}, status(object, R"({"pending": true})"), "Unknown"});
    rows.push_back({At{IP_Interface_Status, {number}}, no_status(object), "Unknown"});
  }
  expect_gets(rows);
}

// The counters of three interfaces, each of them another number.
TEST_F(IpInterface, TrafficIsCountedByTheInterfacesOwnObject) {
  const struct {
    parameter_handler ip, ethernet, ppp;
    const char* tens;
  } counters[] = {
      {IP_Interface_Stats_BytesSent, Ethernet_Link_Stats_BytesSent, PPP_Interface_Stats_BytesSent, "1"},
      {IP_Interface_Stats_BytesReceived, Ethernet_Link_Stats_BytesReceived, PPP_Interface_Stats_BytesReceived, "2"},
      {IP_Interface_Stats_PacketsSent, Ethernet_Link_Stats_PacketsSent, PPP_Interface_Stats_PacketsSent, "3"},
      {IP_Interface_Stats_PacketsReceived, Ethernet_Link_Stats_PacketsReceived, PPP_Interface_Stats_PacketsReceived,
       "4"},
      {IP_Interface_Stats_ErrorsSent, Ethernet_Link_Stats_ErrorsSent, PPP_Interface_Stats_ErrorsSent, "5"},
      {IP_Interface_Stats_ErrorsReceived, Ethernet_Link_Stats_ErrorsReceived, PPP_Interface_Stats_ErrorsReceived, "6"}};
  const auto kernel = [](const std::string& device, const std::string& units) {
    return prints("cat /proc/net/dev|grep -w " + device, " " + device + ": 2" + units + " 4" + units + " 6" + units +
                                                             " 0 0 0 0 0 1" + units + " 3" + units + " 5" + units +
                                                             " 0 0 0 0 0\n");
  };
  const Source lan = status("network.device", R"({"statistics:int64": {"tx_bytes": 12, "rx_bytes": 22, "tx_packets": 32,
                                                  "rx_packets": 42, "tx_errors": 52, "rx_errors": 62}})");
  for (const auto& [ip, ethernet, ppp, tens] : counters) {
    for (const parameter_handler handler : {ip, ethernet}) {
      expect_gets({{At{handler, {1}}, kernel("eth0", "1"), std::string(tens) + "1"},
                   {At{handler, {2}}, lan, std::string(tens) + "2"},
                   {At{handler, {3}}, kernel("usb0", "3"), std::string(tens) + "3"},
                   {At{handler, {0}}, as_is, kGetFailed},
                   {At{handler, {4}}, as_is, kGetFailed}});
    }
    expect_gets({{ppp, protocol("pppoe") && kernel("pppoe-wan", "4"), std::string(tens) + "4"}});
  }
}

// ---- IGMP proxy ----

const std::string kGetProxy = "uci get igmpproxy.@igmpproxy[0].enable";
const std::string kProxyOff = "uci set igmpproxy.@igmpproxy[0].enable='0'";
const std::string kProxyOn = "uci set igmpproxy.@igmpproxy[0].enable=''";

TEST_F(IpInterface, IgmpProxyIsSwitchedByCommands) {
  const parameter_handler proxy = IP_Interface_X_KOVA_IGMPProxy;
  std::vector<Get> gets = {
      {At{proxy, {2}}, as_is, ""}, {At{proxy, {0}}, as_is, kGetFailed}, {At{proxy, {4}}, as_is, kGetFailed}};
  std::vector<Set> sets = {{At{proxy, {2}}, "1", kRefused}, {At{proxy, {4}}, "1", kRefused}};
  for (const int32_t number : {1, 3}) {
    for (const auto& [output, text] : {std::pair{"", "1"}, {"0\n", "0"}, {"1\n", ""}, {"\n", ""}, {"00\n", ""}})
      gets.push_back({At{proxy, {number}}, prints(kGetProxy, output), text});
    const At at{proxy, {number}};
    sets.push_back({at, "0", accepted(APPLY_IGMP_PROXY), {runs(kProxyOff)}, prints(kProxyOff, "")});
    sets.push_back({at, "1", accepted(APPLY_IGMP_PROXY), {runs(kProxyOn)}, prints(kProxyOn, "uci: Parse error\n")});
    for (const char* refused : {"", "2", "on"}) sets.push_back({at, refused, kRefused});
  }
  expect_gets(gets);
  expect_sets(sets);
}

TEST_F(IpInterface, IgmpProxyIsReadBackBeforeItIsCommitted) {
  const std::string before = *contents("/etc/config/igmpproxy");
  for (const auto& [value, number] : {std::pair{"0", 1}, {"1", 3}, {"0", 3}, {"1", 1}}) {
    EXPECT_EQ(set(IP_Interface_X_KOVA_IGMPProxy, value, {number}), accepted(APPLY_IGMP_PROXY));
    EXPECT_EQ(get(IP_Interface_X_KOVA_IGMPProxy, {1}), answered(value));
  }
  EXPECT_EQ(contents("/etc/config/igmpproxy"), before);
  EXPECT_EQ(run("/usr/bin/tr069/apply/igmp-proxy >/dev/null && grep -q upstream /var/etc/igmpproxy.conf"), 0);
  EXPECT_EQ(config("igmpproxy.@igmpproxy[0].enable"), std::nullopt);
  EXPECT_NE(contents("/etc/config/igmpproxy"), before);
}

// ---- IP.Interface.IPv4Address ----

TEST_F(IpInterface, OneEntryOfTheWanIsActive) {
  const struct {
    const char* protocol;
    int32_t active;
    const char* address;
    const char* mask;
  } wans[] = {{"static", 1, "192.0.2.10", "255.255.255.0"},
              {"dhcp", 2, "192.0.2.77", "255.255.255.0"},
              {"pppoe", 3, "203.0.113.42", ""},
              {"l2tp", 0, "", ""},
              {"PPPoE", 0, "", ""}};
  std::vector<Get> rows;
  for (const auto& [name, active, address, mask] : wans) {
    for (int32_t entry = 1; entry <= 3; ++entry) {
      const bool is_active = entry == active;
      rows.push_back({At{ADDRESS(Enable), {1, entry}}, protocol(name), is_active ? "1" : "0"});
      rows.push_back({At{ADDRESS(Status), {1, entry}}, protocol(name), is_active ? "Enabled" : "Disabled"});
      rows.push_back({At{ADDRESS(IPAddress), {1, entry}}, protocol(name), is_active ? address : ""});
      rows.push_back({At{ADDRESS(SubnetMask), {1, entry}}, protocol(name), is_active ? mask : ""});
    }
  }
  for (const parameter_handler handler : {ADDRESS(Enable), ADDRESS(Status), ADDRESS(IPAddress), ADDRESS(SubnetMask)})
    rows.push_back({handler, protocol(""), kGetFailed});
  for (const int32_t entry : {0, 4}) {
    rows.push_back({At{ADDRESS(Enable), {1, entry}}, as_is, "0"});
    rows.push_back({At{ADDRESS(IPAddress), {1, entry}}, as_is, ""});
  }
  // A static mask is the configured one, any other address and mask the link's.
  rows.push_back({At{ADDRESS(SubnetMask), {1, 1}}, protocol("static") && wan("netmask", "255.0.0.0"), "255.0.0.0"});
  rows.push_back({At{ADDRESS(SubnetMask), {1, 2}}, protocol("dhcp") && wan("netmask", "255.0.0.0"), "255.255.255.0"});
  rows.push_back({At{ADDRESS(IPAddress), {1, 1}}, no_link("static"), "0.0.0.0"});
  rows.push_back({At{ADDRESS(IPAddress), {1, 1}}, protocol("static" + std::string(5000, ' ')), ""});
  expect_gets(rows);
  expect_gets({{At{ADDRESS(AddressingType), {1, 1}}, protocol(""), "Static"},
               {At{ADDRESS(AddressingType), {1, 2}}, as_is, "DHCP"},
               {At{ADDRESS(AddressingType), {1, 3}}, as_is, "IPCP"},
               {At{ADDRESS(AddressingType), {1, 0}}, as_is, kGetFailed},
               {At{ADDRESS(AddressingType), {1, 4}}, as_is, kGetFailed}});
}

TEST_F(IpInterface, OtherInterfacesHaveTheAddressOfTheirObject) {
  const Source off = option("network.4g.disabled", "1");
  expect_gets({{At{ADDRESS(Enable), {2, 1}}, as_is, "1"},
               {At{ADDRESS(Status), {2, 1}}, as_is, "Enabled"},
               {At{ADDRESS(IPAddress), {2, 1}}, as_is, "192.168.1.1"},
               {At{ADDRESS(IPAddress), {2, 1}}, option("network.lan.ipaddr", ""), kGetFailed, "FTGLI.\n"},
               {At{ADDRESS(SubnetMask), {2, 1}}, option("network.lan.netmask", "255.255.0.0"), "255.255.0.0"},
               {At{ADDRESS(AddressingType), {2, 1}}, as_is, "static"},
               {At{ADDRESS(Enable), {3, 1}}, as_is, "1"},
               {At{ADDRESS(Enable), {3, 1}}, off, "0"},
               {At{ADDRESS(Status), {3, 1}}, as_is, "Enabled"},
               {At{ADDRESS(Status), {3, 1}}, off, "Disabled"},
               {At{ADDRESS(IPAddress), {3, 1}}, as_is, "198.51.100.20"},
               {At{ADDRESS(SubnetMask), {3, 1}}, as_is, "255.255.255.0"},
               {At{ADDRESS(AddressingType), {3, 1}}, as_is, "DHCP"}});
  for (const parameter_handler handler :
       {ADDRESS(Enable), ADDRESS(Status), ADDRESS(IPAddress), ADDRESS(SubnetMask), ADDRESS(AddressingType)})
    expect_gets({{At{handler, {0, 1}}, as_is, kGetFailed}, {At{handler, {4, 1}}, as_is, kGetFailed}});
}

TEST_F(IpInterface, AddressesAreSetByTheTargetsRules) {
  const Outcome later = accepted(APPLY_TASK_COMMANDS);
  const auto enable = [&](int32_t entry, const char* value, const char* arguments) {
    return Set{At{ADDRESS(Enable), {1, entry}}, value, later, {records(verify(arguments))}};
  };
  expect_sets({enable(1, "1", "wan_type \"static_ip\""),
               enable(1, "0", "wan_type \"dynamic_ip\""),
               enable(2, "1", "wan_type \"dynamic_ip\""),
               enable(2, "true", "wan_type \"static_ip\""),
               enable(3, "1", "pppoe_enable \"on\""),
               enable(3, "", "pppoe_enable \"off\""),
               {At{ADDRESS(Enable), {1, 2}}, "1", kRefused, {logs("SIIIAE.\n")}, no_file("/tmp/tr069")},
               {At{ADDRESS(Enable), {1, 1}}, "1", later, {records(verify("wan_type \"static_ip\""))}, protocol("")},
               {At{ADDRESS(Enable), {1, 0}}, "1", kRefused},
               {At{ADDRESS(Enable), {1, 4}}, "1", kRefused},
               {At{ADDRESS(Enable), {2, 1}}, "1", kRefused},
               {At{ADDRESS(Enable), {3, 1}},
                "0",
                accepted(APPLY_CELLULAR | APPLY_MANAGEMENT),
                {stores("network.4g.disabled", "1")}},
               {At{ADDRESS(Enable), {4, 1}}, "1", kRefused}});
  const Source fixed = protocol("static");
  expect_sets(
      {{At{ADDRESS(IPAddress), {1, 1}}, "192.0.2.9", later, {records(verify("wan_ip 192.0.2.9"))}, fixed},
       {At{ADDRESS(IPAddress), {1, 1}}, "192.0.2.999", kRefused, {logs("mal format ip.\n")}, fixed},
       {At{ADDRESS(SubnetMask), {1, 1}}, "255.0.0.0", later, {records(verify("wan_mask \"255.0.0.0\""))}, fixed},
       {At{ADDRESS(IPAddress), {2, 1}}, "192.168.1.9", later, {records(verify("lan_ip \"192.168.1.9\"") + " &")}},
       {At{ADDRESS(SubnetMask), {2, 1}}, "255.0.0.0", later, {records(verify("lan_mask \"255.0.0.0\"") + " &")}}});
  for (const parameter_handler handler : {ADDRESS(IPAddress), ADDRESS(SubnetMask)}) {
    std::vector<Set> rows = {{At{handler, {1, 2}}, "192.0.2.9", kRefused, {}, protocol("dhcp")},
                             {At{handler, {1, 1}}, "192.0.2.9", kRefused, {}, protocol("dhcp")},
                             {At{handler, {1, 1}}, "192.0.2.9", kRefused, {}, protocol("")},
                             {At{handler, {1, 3}}, "192.0.2.9", kRefused, {}, protocol("pppoe")},
                             {At{handler, {1, 2}}, "192.0.2.9", kRefused, {}, fixed}};
    for (const int32_t number : {0, 3, 4}) rows.push_back({At{handler, {number, 1}}, "192.0.2.9", kRefused, {}, fixed});
    expect_sets(rows);
  }
}

TEST_F(IpInterface, AChangedEntryIsInForceOnceTheRecordWasRun) {
  EXPECT_EQ(set(ADDRESS(Enable), "1", {1, 1}), accepted(APPLY_TASK_COMMANDS));
  EXPECT_EQ(get(ADDRESS(Enable), {1, 1}), answered("0"));
  EXPECT_EQ(run("sh /tmp/tr069/cmd_record && rm /tmp/tr069/cmd_record"), 0);
  EXPECT_EQ(get(ADDRESS(Enable), {1, 1}), answered("1"));
  EXPECT_EQ(set(ADDRESS(IPAddress), "192.0.2.50", {1, 1}), accepted(APPLY_TASK_COMMANDS));
  EXPECT_EQ(run("sh /tmp/tr069/cmd_record"), 0);
  EXPECT_EQ(get(ADDRESS(IPAddress), {1, 1}), answered("192.0.2.50"));
}

}  // namespace
}  // namespace kova::test

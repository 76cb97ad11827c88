// WANDevice: the link, its Ethernet port and its IP connections.
#include "pkg-wan/pkg-wan.h"
#include "support/wan.hpp"

#define COMMON(parameter) WANDevice_WANCommonInterfaceConfig_##parameter
#define ETHERNET(parameter) WANDevice_WANEthernetInterfaceConfig_##parameter
#define IP(parameter) WANDevice_WANConnectionDevice_WANIPConnection_##parameter

namespace kova::test {
namespace {

const Instances kStatic{1, 1, 1};
const Instances kDhcp{1, 1, 2};
const Instances kNowhere[] = {{1, 1, 0}, {1, 1, 3}, {1, 1, -1}};

class WanIp : public WanTest {};

TEST_F(WanIp, FixedTexts) {
  const struct {
    parameter_handler handler;
    const char* text;
  } constants[] = {{WANDevice_WANConnectionNumberOfEntries, "1"},
                   {COMMON(WANAccessType), "Ethernet"},
                   {COMMON(EnabledForInternet), "1"},
                   {ETHERNET(Enable), "1"},
                   {ETHERNET(MaxBitRate), "Auto"},
                   {ETHERNET(DuplexMode), "Auto"}};
  for (const auto& [handler, text] : constants) {
    EXPECT_EQ(get(handler), answered(text));
    EXPECT_EQ(set(handler, text), kRefused);
  }
}

TEST_F(WanIp, CountersAreThoseOfTheLayer3Device) {
  const struct {
    parameter_handler handler;
    const char* count;
  } counters[] = {{COMMON(TotalBytesSent), "21"},      {COMMON(TotalBytesReceived), "11"},
                  {COMMON(TotalPacketsSent), "22"},    {COMMON(TotalPacketsReceived), "12"},
                  {COMMON(TotalErrorsSent), "23"},     {COMMON(TotalErrorsReceived), "13"},
                  {ETHERNET(Stats_BytesSent), "21"},   {ETHERNET(Stats_BytesReceived), "11"},
                  {ETHERNET(Stats_PacketsSent), "22"}, {ETHERNET(Stats_PacketsReceived), "12"}};
  seams().answer("cat /proc/net/dev|grep -w eth0.2", " eth0.2: 11 12 13 0 0 0 0 0 21 22 23 0 0 0 0 0\n");
  for (const auto& [handler, count] : counters) {
    link_is(R"({"device": "eth0", "l3_device": "eth0.2"})");
    EXPECT_EQ(get(handler), answered(count));
    EXPECT_EQ(set(handler, "0"), kRefused);
    for (const char* without_device : {R"({"up": false})", R"({"l3_device": ""})", R"({"l3_device": "gone"})"}) {
      link_is(without_device);
      EXPECT_EQ(get(handler), answered("0")) << without_device;
    }
    no_link();
    EXPECT_EQ(get(handler), answered("0"));
  }
}

TEST_F(WanIp, ThePortIsUpWithTheLink) {
  EXPECT_EQ(get(ETHERNET(Status)), answered("Error"));
  for (const auto& [status, text] :
       {std::pair{R"({"up": true})", "Up"}, {R"({"up": false})", "NoLink"}, {R"({"pending": true})", "Error"}}) {
    link_is(status);
    EXPECT_EQ(get(ETHERNET(Status)), answered(text));
  }
}

TEST_F(WanIp, MacIsThatOfTheAgentsInterface) {
  agent_state agent = running_agent();
  for (const parameter_handler handler : {IP(MACAddress), ETHERNET(MACAddress)}) {
    agent.wan_interface = "eth0";
    run("rm -rf /etc/lab/bus/network.device");
    EXPECT_EQ(get(handler, agent), answered("0:0:0:0:0:0"));
    devices_are(R"([{"when": {"name": "eth0"}, "reply": {"macaddr": "02:a4:f1:00:00:02"}}, {"reply": {}}])");
    seams().syslog.clear();
    EXPECT_EQ(get(handler, agent), answered("02:a4:f1:00:00:02"));
    EXPECT_EQ(messages(), std::vector<std::string>{"current wan intf:eth0\n\n"});
    EXPECT_TRUE(seams().syslog[0].starts_with("pkg-wan.c, "));
    for (const char* unknown : {"eth9", "", static_cast<const char*>(nullptr)}) {
      agent.wan_interface = unknown;
      EXPECT_EQ(get(handler, agent), answered("0:0:0:0:0:0"));
    }
  }
}

TEST_F(WanIp, InstancesAreKindsOfAddressing) {
  for (const auto& [instances, name, type] :
       {std::tuple{kStatic, "wan_ip_s", "Static"}, {kDhcp, "wan_ip_d", "DHCP"}, {{7, 9, 2}, "wan_ip_d", "DHCP"}}) {
    EXPECT_EQ(get(IP(Name), instances), answered(name));
    EXPECT_EQ(get(IP(AddressingType), instances), answered(type));
  }
  for (const Instances& nowhere : kNowhere) {
    EXPECT_EQ(get(IP(Name), nowhere), kGetFailed);
    EXPECT_EQ(get(IP(MaxMTUSize), nowhere), kGetFailed);
    EXPECT_EQ(get(IP(DNSServers), nowhere), kGetFailed);
    EXPECT_EQ(get(IP(AddressingType), nowhere), answered("None"));
  }
}

TEST_F(WanIp, OnlyTheKindThatRunsIsConnected) {
  EXPECT_EQ(get(IP(ConnectionStatus), kStatic), kGetFailed);
  const struct {
    const char* protocol;
    Instances instances;
    bool runs;
  } cases[] = {{"static", kStatic, true}, {"Static", kStatic, true}, {"static", kDhcp, false},
               {"dhcp", kDhcp, true},     {"DHCP", kDhcp, true},     {"dhcp", kStatic, false},
               {"pppoe", kDhcp, false},   {"pppoe", kStatic, false}, {"pppoe", {1, 1, 3}, true}};
  for (const auto& [protocol, instances, runs] : cases) {
    SCOPED_TRACE(std::string(protocol) + " " + std::to_string(instances[2]));
    option_is("proto", protocol);
    no_link();
    EXPECT_EQ(get(IP(ConnectionStatus), instances), answered(runs ? "Unconfigured" : "Disconnected"));
    EXPECT_EQ(logged("ubus_lookup_id error\n"), runs);
    link_is(R"({"up": true})");
    EXPECT_EQ(get(IP(ConnectionStatus), instances), answered(runs ? "Connected" : "Disconnected"));
    link_is(R"({"up": false})");
    EXPECT_EQ(get(IP(ConnectionStatus), instances), answered("Disconnected"));
    link_is(R"({"pending": true})");
    EXPECT_EQ(get(IP(ConnectionStatus), instances), answered(runs ? "Unconfigured" : "Disconnected"));
    seams().syslog.clear();
  }
}

TEST_F(WanIp, StateAndSettings) {
  EXPECT_EQ(get(IP(Uptime), kStatic), answered(""));
  for (const parameter_handler handler : {IP(ExternalIPAddress), IP(DefaultGateway), IP(SubnetMask)})
    EXPECT_EQ(get(handler, kStatic), answered("0.0.0.0"));
  EXPECT_EQ(get(IP(MaxMTUSize), kStatic), answered("1500"));

  link_is(R"({"uptime": 86400, "ipv4-address": [{"address": "203.0.113.9", "mask": 24}]})");
  option_is("gateway", "203.0.113.1");
  option_is("netmask", "255.255.255.0");
  option_is("mtu", "1492");
  for (const Instances& instances : {kStatic, kDhcp}) {
    EXPECT_EQ(get(IP(Uptime), instances), answered("86400"));
    EXPECT_EQ(get(IP(ExternalIPAddress), instances), answered("203.0.113.9"));
    EXPECT_EQ(get(IP(DefaultGateway), instances), answered("203.0.113.1"));
    EXPECT_EQ(get(IP(SubnetMask), instances), answered("255.255.255.0"));
    EXPECT_EQ(get(IP(MaxMTUSize), instances), answered("1492"));
  }
  link_is(R"({"ipv4-address": []})");
  EXPECT_EQ(get(IP(ExternalIPAddress), kStatic), answered("0.0.0.0"));
}

TEST_F(WanIp, StaticDnsServersAreAlwaysTwo) {
  option_is("static_dns2", "192.0.2.2");
  EXPECT_EQ(get(IP(DNSServers), kStatic), answered("0.0.0.0,0.0.0.0"));
  option_is("static_dns1", "192.0.2.1");
  EXPECT_EQ(get(IP(DNSServers), kStatic), answered("192.0.2.1,192.0.2.2"));
  option_is("static_dns2", "");
  EXPECT_EQ(get(IP(DNSServers), kStatic), answered("192.0.2.1,0.0.0.0"));
}

TEST_F(WanIp, DhcpDnsServersAreThoseOfTheFirstDaemon) {
  const auto get_with = [](const std::string& dhcp) {
    write_file("/etc/config/dhcp", "config dhcp 'lan'\n\tlist server '192.0.2.9'\n" + dhcp);
    return get(IP(DNSServers), kDhcp);
  };
  const std::string servers = "\tlist server '192.0.2.1'\n\tlist server '/lan/192.0.2.2'\n\tlist server '192.0.2.3'\n";
  EXPECT_EQ(get_with("config dnsmasq\n" + servers + "config dnsmasq\n\tlist server '192.0.2.8'\n"),
            answered("192.0.2.1,/lan/192.0.2.2,192.0.2.3"));
  EXPECT_EQ(get_with("config dnsmasq\n\toption server '192.0.2.1'\n"), answered(kUntouched));
  EXPECT_TRUE(messages().empty());
  EXPECT_EQ(get_with("config dnsmasq\nconfig dnsmasq\n" + servers), answered(kUntouched));
  EXPECT_EQ(messages().back(), "[ERR]uci failed to get server option\n");
  EXPECT_EQ(get_with(""), answered("0.0.0.0,0.0.0.0"));
  EXPECT_EQ(messages().back(), "[ERR]uci failed to get option dnsmasq\n");
  seams().config_context_fails = true;
  EXPECT_EQ(get(IP(DNSServers), kDhcp), kGetFailed);
  EXPECT_EQ(messages().back(), "[ERR]failed to alloc uci ctx.\n");
  seams().config_context_fails = false;
  run("rm /etc/config/dhcp");
  EXPECT_EQ(get(IP(DNSServers), kDhcp), kGetFailed);
  EXPECT_EQ(messages().back(), "[ERR]uci failed to load config:dhcp\n");
}

TEST_F(WanIp, ChangesAreRecordedForLater) {
  const Change changes[] = {
      {IP(ExternalIPAddress), kDhcp, "10.0.0.2", "wan_ip 10.0.0.2", "SWIE.\n"},
      {IP(DefaultGateway), kStatic, "10.0.0.1", "wan_gate \"10.0.0.1\"", "SWGWE.\n"},
      {IP(SubnetMask), kStatic, "255.0.255.0", "wan_mask \"255.0.255.0\"", "SWME.\n"},
      {IP(AddressingType), kDhcp, "static", "wan_type \"static_ip\"", "SWATE.\n"},
      {IP(AddressingType), kStatic, "dhcp", "wan_type \"dynamic_ip\"", "SWATE.\n"},
      {IP(DNSServers), kStatic, "10.0.0.3,any text", "wan_dns_static \"10.0.0.3,any text\"", "SWDSE. \n"},
      {IP(MaxMTUSize), kStatic, "1", "static_mtu \"1\"", nullptr},
      {IP(MaxMTUSize), kStatic, "+1540", "static_mtu \"+1540\"", nullptr},
      {IP(MaxMTUSize), kDhcp, "1500 bytes", "dynamic_mtu \"1500 bytes\"", nullptr},
  };
  expect_recorded(changes);
}

TEST_F(WanIp, RefusedValuesAreNotRecorded) {
  const Refusal refusals[] = {
      {IP(ExternalIPAddress), kStatic, "10.0.0", "mal format ip.\n"},
      {IP(DefaultGateway), kStatic, "10.0.0.256", "mal format ip\n"},
      {IP(SubnetMask), kStatic, "/24", "mal format mask \n"},
      {IP(AddressingType), kStatic, "static_ip", "Invalid dhcp para\n"},
      {IP(DNSServers), kDhcp, "10.0.0.3", nullptr},
      {IP(DNSServers), {1, 1, 3}, "10.0.0.3", nullptr},
      {IP(MaxMTUSize), kStatic, "0", nullptr},
      {IP(MaxMTUSize), kDhcp, "1541", nullptr},
      {IP(MaxMTUSize), kDhcp, "-1500", nullptr},
      {IP(MaxMTUSize), kDhcp, "4294968796", nullptr},
      {IP(MaxMTUSize), kDhcp, "MTU 1500", nullptr},
      {IP(MaxMTUSize), {1, 1, 3}, "1541", nullptr},
      {IP(MaxMTUSize), {1, 1, 3}, "1500", "mal format MTU.\n"},
  };
  expect_refused(refusals);
}

}  // namespace
}  // namespace kova::test

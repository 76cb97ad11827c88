// Ethernet links and interfaces, and the static routes.
#include "pkg-wan/pkg-wan.h"
#include "support/tables.hpp"

namespace kova::test {
namespace {

class Ethernet : public TableTest {};

const Answer kNothing{0, kUntouched};
const Answer kZeroButFailed{-1, "0"};

// ---- Ethernet.Link ----

const std::string kCountBridges = "ifconfig | grep 'br-' | wc -l";

std::string bridges(int count) {
  std::string list = "Device.Bridging.Bridge.1";
  for (int number = 2; number <= count; ++number) list += ",Device.Bridging.Bridge." + std::to_string(number);
  return list;
}

TEST_F(Ethernet, Links) {
  const auto lower = [](int32_t number) { return At{Ethernet_Link_LowerLayers, {number}}; };
  const auto mac = [](int32_t number) { return At{Ethernet_Link_MACAddress, {number}}; };
  const std::string none = "0:0:0:0:0:0";
  expect_gets({{Ethernet_LinkNumberOfEntries, as_is, "3"},
               {At{Ethernet_Link_Enable, {2}}, as_is, "1"},
               {At{Ethernet_Link_Status, {1}}, option("network.wan.proto", "none"), "Down"},
               {At{Ethernet_Link_Status, {2}}, as_is, "Up"},
               {At{Ethernet_Link_Status, {4}}, as_is, "Unknown"},
               {lower(1), as_is, "Device.Ethernet.Interface.1"},
               {lower(2), prints(kCountBridges, "1\n"), bridges(1)},
               {lower(2), prints(kCountBridges, "4\n"), bridges(4)},
               {lower(2), prints(kCountBridges, "40\n"), bridges(40)},
               {lower(2), prints(kCountBridges, "0\n"), bridges(1)},
               {lower(2), prints(kCountBridges, "\n"), bridges(1)},
               {lower(2), prints(kCountBridges, ""), bridges(1)},
               {lower(3), as_is, "Device.Ethernet.Interface.3"},
               {lower(4), as_is, kNothing},
               {lower(0), as_is, kNothing},
               {mac(1), option("network.wan.proto", "pppoe"), "02:a4:f1:00:00:02"},  // not that of the PPP link
               {mac(1), option("network.wan.proto", "none"), none},
               {mac(2), as_is, "02:a4:f1:00:00:01"},
               {mac(2), status("network.interface.lan", R"({"device": ""})"), none},
               {mac(2), no_status("network.device"), none},
               {mac(3), as_is, "02:a4:f1:00:00:30"},
               {mac(3), status("network.device", R"({"up": true})"), none},
               {mac(4), as_is, kGetFailed},
               {mac(0), as_is, kGetFailed}});
}

// ---- Ethernet.Interface ----

std::string ask_up(const std::string& device) {
  return "ifconfig " + device + " | sed '1d' | grep UP | awk '{print $1}'";
}
std::string ask_mac(const std::string& device) { return "ifconfig " + device + " | grep HWaddr | awk '{print $5}'"; }

TEST_F(Ethernet, InterfacesAreTheConfiguredDevices) {
  const std::string too_long(5000, 'e');
  expect_gets({{Ethernet_InterfaceNumberOfEntries, as_is, "3"},
               {At{Ethernet_Interface_Enable, {3}}, as_is, "1"},
               {At{Ethernet_Interface_Name, {1}}, as_is, "eth0"},
               {At{Ethernet_Interface_Name, {2}}, as_is, "eth1"},
               {At{Ethernet_Interface_Name, {3}}, as_is, "usb0"},
               {At{Ethernet_Interface_Name, {3}}, option("network.4g.ifname", ""), "Unknown"},
               {At{Ethernet_Interface_Name, {1}}, option("network.wan.ifname", too_long), too_long},
               {At{Ethernet_Interface_Status, {1}}, prints(ask_up("eth0"), "UP\n"), "Up"},
               {At{Ethernet_Interface_Status, {2}}, prints(ask_up("eth1"), "Up\nUP\n"), "Up"},
               {At{Ethernet_Interface_Status, {3}}, prints(ask_up("usb0"), "BROADCAST\n"), "Down"},
               {At{Ethernet_Interface_Status, {3}}, prints(ask_up("usb0"), "\n"), "Down"},
               {At{Ethernet_Interface_Status, {3}}, prints(ask_up("usb0"), ""), "Down"},
               {At{Ethernet_Interface_MACAddress, {1}}, prints(ask_mac("eth0"), "02:A4\n"), "02:A4"},
               {At{Ethernet_Interface_MACAddress, {2}}, prints(ask_mac("eth1"), "\n"), "0:0:0:0:0:0"},
               {At{Ethernet_Interface_MACAddress, {3}}, prints(ask_mac("usb0"), ""), "0:0:0:0:0:0"}});
  for (const parameter_handler handler :
       {Ethernet_Interface_Name, Ethernet_Interface_Status, Ethernet_Interface_MACAddress})
    expect_gets({{At{handler, {0}}, as_is, kGetFailed}, {At{handler, {4}}, as_is, kGetFailed}});

  // Nothing to ask about, or a name of which a command would have but a part: no command is run.
  for (const std::string& device : {std::string(), too_long, std::string(480, 'e')}) {
    configure("network.wan.ifname", device);
    EXPECT_EQ(get(Ethernet_Interface_Status, {1}), answered("Down"));
    EXPECT_EQ(get(Ethernet_Interface_MACAddress, {1}), answered("0:0:0:0:0:0"));
  }
  EXPECT_EQ(commands(), std::vector<std::string>{});
}

TEST_F(Ethernet, CountersAreThoseOfTheConfiguredDevice) {
  const struct {
    parameter_handler handler;
    const char* wan;
    const char* lan;
    const char* mobile;
  } counters[] = {{Ethernet_Interface_Stats_BytesSent, "348211377", "700114503", "2211377"},
                  {Ethernet_Interface_Stats_BytesReceived, "5218804513", "31204411", "12004513"},
                  {Ethernet_Interface_Stats_PacketsSent, "391533", "541207", "9533"},
                  {Ethernet_Interface_Stats_PacketsReceived, "4102118", "61422", "12118"},
                  {Ethernet_Interface_Stats_ErrorsSent, "1", "0", "0"},
                  {Ethernet_Interface_Stats_ErrorsReceived, "3", "2", "0"}};
  for (const auto& [handler, wan, lan, mobile] : counters) {
    expect_gets({{At{handler, {1}}, as_is, wan},
                 {At{handler, {2}}, as_is, lan},
                 {At{handler, {3}}, as_is, mobile},
                 {At{handler, {3}}, option("network.4g.ifname", ""), kZeroButFailed},
                 {At{handler, {1}}, option("network.wan.ifname", std::string(5000, 'e')), kZeroButFailed},
                 {At{handler, {1}}, status("network.device", R"({"up": true})"), kZeroButFailed},
                 {At{handler, {1}}, no_status("network.device"), kZeroButFailed},
                 {At{handler, {0}}, as_is, kGetFailed},
                 {At{handler, {4}}, as_is, kGetFailed}});
  }
}

// ---- Routing ----

#define ROUTE(parameter) Routing_Router_IPv4Forwarding_##parameter

class Routing : public TableTest {
 protected:
  void SetUp() override {
    DeviceTest::SetUp();
    write_file("/etc/config/network",
               "config interface 'wan'\n\toption target '1'\n"
               "config route 'first'\n\toption interface 'lan'\n\toption target '10.1.0.0'\n"
               "\toption netmask '255.255.0.0'\n\toption gateway '192.168.1.2'\n"
               "config interface 'lan'\n\toption target '2'\n"
               "config route\n\toption interface '4G'\n\toption target '10.2.0.0'\n"
               "config route6\n\toption target '::'\n"
               "config route 'third'\n\toption interface 'guest'\n\tlist target '10.3.0.0'\n");
  }
};

const parameter_handler kFields[] = {ROUTE(Interface), ROUTE(DestIPAddress), ROUTE(DestSubnetMask),
                                     ROUTE(GatewayIPAddress)};

const std::string kWan = "Device.IP.Interface.1.";
const std::string kLan = "Device.IP.Interface.2.";
const std::string kMobile = "Device.IP.Interface.3.";

TEST_F(Routing, RoutesAreTheSectionsOfTheirType) {
  expect_gets({{Routing_RouterNumberOfEntries, as_is, "1"},
               {Routing_Router_IPv4ForwardingNumberOfEntries, as_is, "3"},
               {Routing_Router_IPv4ForwardingNumberOfEntries, package("network", ""), "0"},
               {At{ROUTE(StaticRoute), {1, 9}}, as_is, "1"},
               {At{ROUTE(Interface), {1, 1}}, as_is, kLan},
               {At{ROUTE(Interface), {2, 2}}, as_is, kMobile},
               {At{ROUTE(Interface), {1, 3}}, as_is, kWan},
               {At{ROUTE(Interface), {1, 1}}, option("network.first.interface", "WAN"), kWan},
               {At{ROUTE(Interface), {1, 1}}, option("network.first.interface", ""), ""},
               {At{ROUTE(DestIPAddress), {1, 1}}, as_is, "10.1.0.0"},
               {At{ROUTE(DestIPAddress), {1, 2}}, as_is, "10.2.0.0"},
               {At{ROUTE(DestIPAddress), {1, 3}}, as_is, ""},
               {At{ROUTE(DestSubnetMask), {1, 1}}, as_is, "255.255.0.0"},
               {At{ROUTE(DestSubnetMask), {1, 2}}, as_is, ""},
               {At{ROUTE(GatewayIPAddress), {1, 1}}, as_is, "192.168.1.2"},
               {At{ROUTE(GatewayIPAddress), {1, 2}}, as_is, ""}});
  for (const parameter_handler handler : kFields)
    expect_gets({{At{handler, {1, 0}}, as_is, kGetFailed}, {At{handler, {1, 4}}, as_is, kGetFailed}});
}

TEST_F(Routing, ChangesAreWrittenAtOnceByACommand) {
  const auto written = [](const At& at, const std::string& value, const std::string& option,
                          const std::string& stored) {
    return Set{at,
               value,
               accepted(APPLY_ROUTES),
               {changes("network.first." + option, stored),
                runs("uci set network.first." + option + "=" + stored + " && uci commit")}};
  };
  expect_sets({written(At{ROUTE(Interface), {1, 1}}, kWan, "interface", "wan"),
               written(At{ROUTE(Interface), {1, 1}}, "DEVICE.ip.interface.3.", "interface", "4g"),
               written(At{ROUTE(DestIPAddress), {7, 1}}, "10.9.0.0", "target", "10.9.0.0"),
               written(At{ROUTE(DestSubnetMask), {1, 1}}, "255.0.0.0", "netmask", "255.0.0.0"),
               written(At{ROUTE(GatewayIPAddress), {1, 1}}, "192.168.1.9", "gateway", "192.168.1.9"),
               {At{ROUTE(Interface), {1, 1}},
                kLan,
                accepted(APPLY_ROUTES),
                {runs("uci set network.first.interface=lan && uci commit")},
                exits(256)},
               {At{ROUTE(Interface), {1, 1}}, "Device.IP.Interface.1", kRefused},
               {At{ROUTE(Interface), {1, 1}}, "Device.IP.Interface.4.", kRefused},
               {At{ROUTE(Interface), {1, 1}}, "wan", kRefused},
               {At{ROUTE(Interface), {1, 4}}, "", kRefused}});
  for (const parameter_handler handler : {ROUTE(DestIPAddress), ROUTE(DestSubnetMask), ROUTE(GatewayIPAddress)}) {
    expect_sets({{At{handler, {1, 1}}, "10.0.0", kRefused, {logs("mal format ip\n")}},
                 {At{handler, {1, 9}}, "10.0.0.1;", kRefused, {logs("mal format ip\n")}}});
  }
  // A section without a name is changed under the one that the store makes for it.
  EXPECT_EQ(set(ROUTE(GatewayIPAddress), "192.168.1.9", {1, 2}), accepted(APPLY_ROUTES));
  EXPECT_EQ(config("network.@route[1].gateway"), "192.168.1.9");
}

TEST_F(Routing, WithoutARowThereIsNothingToWriteButTheRoutesAreMarked) {
  const std::string values[] = {kLan, "10.0.0.1", "255.0.0.0", "10.0.0.1"};
  const std::string long_name(1100, 'n');
  for (size_t i = 0; i < std::size(kFields); ++i) {
    expect_sets({{At{kFields[i], {1, 4}}, values[i], accepted(APPLY_ROUTES)},
                 {At{kFields[i], {1, 0}}, values[i], accepted(APPLY_ROUTES)},
                 // a command that would be cut
                 {At{kFields[i], {1, 1}}, values[i], kRefused, {}, package("network", "config route " + long_name)}});
  }
}

TEST_F(Routing, ThePackageIsLoadedFirst) {
  const std::string no_package = "[ERR]uci failed to load config:network\n";
  const std::string no_context = "[ERR]failed to alloc uci ctx.\n";
  const Source unreadable = no_file("/etc/config/network");
  const Source no_memory{[] { seams().config_context_fails = true; }};
  expect_gets({{Routing_Router_IPv4ForwardingNumberOfEntries, unreadable, kGetFailed, no_package},
               {Routing_Router_IPv4ForwardingNumberOfEntries, no_memory, kGetFailed, no_context}});
  for (const parameter_handler handler : kFields) {
    expect_gets({{handler, unreadable, kGetFailed, no_package}, {handler, no_memory, kGetFailed, no_context}});
    expect_sets({{handler, "no such value", kRefused, {logs(no_package)}, unreadable},
                 {handler, "no such value", kRefused, {logs(no_context)}, no_memory}});
  }
}

// A call of the worker behind the aliases, with the place of the route's number among the instance numbers.
int32_t get_target(int32_t position, ...) {
  va_list arguments;
  va_start(arguments, position);
  const int32_t result = Router_IPv4Forwarding_DestIPAddress(0, arguments, position);
  va_end(arguments);
  return result;
}

TEST_F(Routing, WorkersTakeThePlaceOfTheRoutesNumber) {
  const int32_t instances[] = {2, 1};
  char target[64] = {};
  EXPECT_EQ(get_target(0, instances, target), 0);
  EXPECT_STREQ(target, "10.2.0.0");
  EXPECT_EQ(get_target(1, instances, target), 0);
  EXPECT_STREQ(target, "10.1.0.0");
}

TEST_F(Routing, TheKernelTakesThemOverWhenTheyAreApplied) {
  run("/sbin/lab-reset");
  const std::string apply = "/usr/bin/tr069/apply/routes >/tmp/routes 2>&1";
  if (!has_network()) {
    EXPECT_EQ(run(apply + " && grep -q 'no interfaces' /tmp/routes"), 0);
    return;
  }
  const std::string first = " && /usr/sbin/ip route show 10.20.0.0/16 | grep -q ";
  EXPECT_EQ(run(apply + first + "'192.168.1.254 dev br-lan'"), 0);
  EXPECT_EQ(set(ROUTE(Interface), kWan, {1, 1}), accepted(APPLY_ROUTES));
  EXPECT_EQ(set(ROUTE(GatewayIPAddress), "192.0.2.7", {1, 1}), accepted(APPLY_ROUTES));
  EXPECT_EQ(run(apply + first + "'192.0.2.7 dev eth0'"), 0);
  configure("network.branch.interface", "guest");
  EXPECT_NE(run(apply), 0);
  EXPECT_EQ(run("grep -q '^routes: 1: no link of the interface \"guest\"' /tmp/routes"), 0);
}

}  // namespace
}  // namespace kova::test

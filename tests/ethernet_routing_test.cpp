// Ethernet links and interfaces, and the static routes.
#include "pkg-wan/pkg-wan.h"
#include "support/tables.hpp"

#define STATS(counter) Ethernet_Interface_Stats_##counter
#define ROUTE(parameter) Routing_Router_IPv4Forwarding_##parameter

namespace kova::test {
namespace {

class Ethernet : public TableTest {};

const std::string kTooLong(5000, 'e');
const std::string kLong(4000, 'e');

// ---- Ethernet.Link ----

TEST_F(Ethernet, LinksAreBelowTheInterfaces) {
  const auto lower = [](int32_t number) { return At{Ethernet_Link_LowerLayers, {number}}; };
  const auto mac = [](int32_t number) { return At{Ethernet_Link_MACAddress, {number}}; };
  const std::string count = "ifconfig | grep 'br-' | wc -l";
  const std::string bridge = "Device.Bridging.Bridge.";
  std::string forty = bridge + "1";
  for (int number = 2; number <= 40; ++number) forty += "," + bridge + std::to_string(number);
  expect_gets({{lower(1), as_is, "Device.Ethernet.Interface.1"},
               {lower(2), prints(count, "40\n"), forty},
               {lower(2), prints(count, "1\n"), bridge + "1"},
               {lower(2), prints(count, ""), bridge + "1"},
               {lower(3), as_is, "Device.Ethernet.Interface.3"},
               {lower(4), as_is, kUntouched},
               {lower(0), as_is, kUntouched},
               {mac(1), option("network.wan.proto", "pppoe"), "02:a4:f1:00:00:02"},  // not that of the PPP link
               {mac(2), as_is, "02:a4:f1:00:00:01"},
               {mac(2), status("network.interface.lan", R"({"device": ""})"), "0:0:0:0:0:0"},
               {mac(2), no_status("network.device"), "0:0:0:0:0:0"},
               {mac(3), as_is, "02:a4:f1:00:00:30"},
               {mac(4), as_is, kGetFailed},
               {mac(0), as_is, kGetFailed, "LE\n"}});
  prints(count, "2147483647\n").put();
  EXPECT_LT(get(Ethernet_Link_LowerLayers, {2}).text.size(), 4096U);
}

// ---- Ethernet.Interface ----

TEST_F(Ethernet, InterfacesAreTheConfiguredDevices) {
  const auto up = [](const std::string& device, const std::string& output) {
    return prints("ifconfig " + device + " | sed '1d' | grep UP | awk '{print $1}'", output);
  };
  const auto mac = [](const std::string& device, const std::string& output) {
    return prints("ifconfig " + device + " | grep HWaddr | awk '{print $5}'", output);
  };
  expect_gets({{At{Ethernet_Interface_Name, {1}}, option("network.wan.ifname", kTooLong), kTooLong},
               {At{Ethernet_Interface_Name, {2}}, as_is, "eth1"},
               {At{Ethernet_Interface_Name, {3}}, option("network.4g.ifname", ""), "Unknown"},
               {At{Ethernet_Interface_Status, {1}}, up("eth0", "UP\n"), "Up"},
               {At{Ethernet_Interface_Status, {2}}, up("eth1", "Up\nUP\n"), "Up"},
               {At{Ethernet_Interface_Status, {3}}, up("usb0", "UPPER\n"), "Down"},
               {At{Ethernet_Interface_Status, {3}}, up("usb0", ""), "Down"},
               {At{Ethernet_Interface_Status, {1}}, option("network.wan.ifname", kLong) && up(kLong, "UP\n"), "Up"},
               {At{Ethernet_Interface_MACAddress, {1}}, mac("eth0", "02:A4\n"), "02:A4"},
               {At{Ethernet_Interface_MACAddress, {3}}, mac("usb0", "\n"), "0:0:0:0:0:0"}});
  for (const parameter_handler handler :
       {Ethernet_Interface_Name, Ethernet_Interface_Status, Ethernet_Interface_MACAddress})
    expect_gets({{At{handler, {0}}, as_is, kGetFailed, "LE\n"}, {At{handler, {4}}, as_is, kGetFailed}});

  // Nothing to ask about, or a name of which a command would have but a part: no command is run.
  for (const std::string& device : {std::string(), kTooLong}) {
    configure("network.wan.ifname", device);
    EXPECT_EQ(get(Ethernet_Interface_Status, {1}), answered("Down"));
    EXPECT_EQ(get(Ethernet_Interface_MACAddress, {1}), answered("0:0:0:0:0:0"));
  }
  EXPECT_EQ(commands(), std::vector<std::string>{});
}

TEST_F(Ethernet, CountersAreThoseOfTheConfiguredDevice) {
  const Answer zero_but_failed{-1, "0"};
  const Source eth1 = status("network.device", R"([{"when": {"name": "eth1"}, "reply": {"statistics:int64": {
      "tx_bytes": 1, "rx_bytes": 2, "tx_packets": 3, "rx_packets": 4, "tx_errors": 5, "rx_errors": 6}}}])");
  int number = 0;
  for (const parameter_handler handler : {STATS(BytesSent), STATS(BytesReceived), STATS(PacketsSent),
                                          STATS(PacketsReceived), STATS(ErrorsSent), STATS(ErrorsReceived)}) {
    expect_gets({{At{handler, {2}}, eth1, std::to_string(++number)},
                 {At{handler, {1}}, eth1, zero_but_failed},
                 {At{handler, {3}}, option("network.4g.ifname", ""), zero_but_failed},
                 {At{handler, {1}}, option("network.wan.ifname", kTooLong), zero_but_failed},
                 {At{handler, {0}}, as_is, kGetFailed, "LE\n"},
                 {At{handler, {4}}, as_is, kGetFailed}});
  }
}

// ---- Routing ----

class Routing : public TableTest {
 protected:
  void SetUp() override {
    DeviceTest::SetUp();
    write_file("/etc/config/network",
               "config interface 'wan'\n\toption target '1'\n"
               "config route 'first'\n\toption interface 'lan'\n\toption target '10.1.0.0'\n"
               "\toption netmask '255.255.0.0'\n\toption gateway '192.168.1.2'\n"
               "config route\n\toption interface '4G'\n\toption target '10.2.0.0'\n"
               "config route6\n\toption target '::'\n"
               "config route 'third'\n\toption interface 'guest'\n\tlist target '10.3.0.0'\n");
  }
};

const parameter_handler kFields[] = {ROUTE(Interface), ROUTE(DestIPAddress), ROUTE(DestSubnetMask),
                                     ROUTE(GatewayIPAddress)};

// A worker that is told that the route's number comes first.
int32_t target_of_first_number(int32_t operation, va_list arguments) {
  return Router_IPv4Forwarding_DestIPAddress(operation, arguments, 0);
}

TEST_F(Routing, RoutesAreTheSectionsOfTheirType) {
  expect_gets({{Routing_Router_IPv4ForwardingNumberOfEntries, as_is, "3"},
               {Routing_Router_IPv4ForwardingNumberOfEntries, package("network", ""), "0"},
               {At{ROUTE(StaticRoute), {1, 9}}, as_is, "1"},
               {At{ROUTE(Interface), {1, 1}}, as_is, "Device.IP.Interface.2."},
               {At{ROUTE(Interface), {2, 2}}, as_is, "Device.IP.Interface.3."},
               {At{ROUTE(Interface), {1, 3}}, as_is, "Device.IP.Interface.1."},
               {At{ROUTE(Interface), {1, 1}}, option("network.first.interface", ""), ""},
               {At{ROUTE(DestIPAddress), {1, 1}}, as_is, "10.1.0.0"},
               {At{ROUTE(DestIPAddress), {1, 3}}, as_is, ""},
               {At{ROUTE(DestSubnetMask), {1, 1}}, as_is, "255.255.0.0"},
               {At{ROUTE(GatewayIPAddress), {1, 1}}, as_is, "192.168.1.2"},
               {At{ROUTE(GatewayIPAddress), {1, 2}}, as_is, ""},
               {At{target_of_first_number, {2, 1}}, as_is, "10.2.0.0"}});
  for (const parameter_handler handler : kFields)
    expect_gets({{At{handler, {1, 0}}, as_is, kGetFailed, "LE\n"}, {At{handler, {1, 4}}, as_is, kGetFailed}});
}

TEST_F(Routing, ChangesAreWrittenAtOnceByACommand) {
  for (const auto& [handler, value, option, written] :
       {std::tuple{&ROUTE(Interface), "Device.IP.Interface.1.", "interface", "wan"},
        {ROUTE(Interface), "DEVICE.ip.interface.3.", "interface", "4g"},
        {ROUTE(DestIPAddress), "10.9.0.0", "target", "10.9.0.0"},
        {ROUTE(DestSubnetMask), "255.0.0.0", "netmask", "255.0.0.0"},
        {ROUTE(GatewayIPAddress), "192.168.1.9", "gateway", "192.168.1.9"}}) {
    const std::string path = std::string("network.first.") + option;
    const std::string command = runs("uci set " + path + "=" + written + " && uci commit");
    const Source long_name = package("network", "config route " + std::string(5000, 'n'));
    expect_sets(
        {{At{handler, {7, 1}}, value, accepted(APPLY_ROUTES), {changes(path, written), command}},
         {At{handler, {1, 1}}, value, accepted(APPLY_ROUTES), {command}, exits(256)},
         {At{handler, {1, 1}}, value, kRefused, {}, no_room},
         {At{handler, {1, 1}}, value, accepted(APPLY_ROUTES), {command}, test::option(path, written) && no_room},
         {At{handler, {1, 4}}, value, accepted(APPLY_ROUTES)},  // no row: nothing to write, yet they are marked
         {At{handler, {1, 0}}, value, accepted(APPLY_ROUTES)},
         {At{handler, {1, 1}}, value, kRefused, {}, long_name}});  // the command would be cut
  }
  for (const char* value : {"Device.IP.Interface.1", "Device.IP.Interface.4.", "wan"})
    expect_sets({{At{ROUTE(Interface), {1, 4}}, value, kRefused}});
  for (const parameter_handler handler : {ROUTE(DestIPAddress), ROUTE(DestSubnetMask), ROUTE(GatewayIPAddress)})
    expect_sets({{At{handler, {1, 4}}, "10.0.0", kRefused, {logs("mal format ip\n")}}});
  // A section without a name is changed under the one that the store makes for it.
  EXPECT_EQ(set(ROUTE(GatewayIPAddress), "192.168.1.9", {1, 2}), accepted(APPLY_ROUTES));
  EXPECT_EQ(config("network.@route[1].gateway"), "192.168.1.9");
}

TEST_F(Routing, ThePackageIsLoadedFirst) {
  for (const auto& [before, log] :
       {std::pair{no_file("/etc/config/network"), "[ERR]uci failed to load config:network\n"},
        {Source{[] { seams().config_context_fails = true; }}, "[ERR]failed to alloc uci ctx.\n"}}) {
    expect_gets({{Routing_Router_IPv4ForwardingNumberOfEntries, before, kGetFailed, log}});
    for (const parameter_handler handler : kFields) {
      expect_gets({{handler, before, kGetFailed, log}});
      expect_sets({{handler, "no such value", kRefused, {logs(log)}, before}});
    }
  }
}

TEST_F(Routing, TheKernelTakesThemOverWhenTheyAreApplied) {
  if (!has_network()) GTEST_SKIP() << "the router has no interfaces here";
  run("/sbin/lab-reset");
  const std::string apply = "/usr/bin/tr069/apply/routes >/tmp/routes 2>&1";
  const std::string first = " && /usr/sbin/ip route show 10.20.0.0/16 | grep -q ";
  EXPECT_EQ(run(apply + first + "'192.168.1.254 dev br-lan'"), 0);
  EXPECT_EQ(set(ROUTE(Interface), "Device.IP.Interface.1.", {1, 1}), accepted(APPLY_ROUTES));
  EXPECT_EQ(set(ROUTE(GatewayIPAddress), "192.0.2.7", {1, 1}), accepted(APPLY_ROUTES));
  EXPECT_EQ(run(apply + first + "'192.0.2.7 dev eth0'"), 0);
  configure("network.branch.interface", "guest");
  EXPECT_NE(run(apply), 0);
  EXPECT_EQ(run("grep -q '^routes: 1: no link of the interface \"guest\"' /tmp/routes"), 0);
}

}  // namespace
}  // namespace kova::test

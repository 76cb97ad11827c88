// Service VLANs, IPTV on the LAN ports, bandwidth limits, bridges, and UPnP.
#include "pkg-br/pkg-br.h"
#include "support/tables.hpp"

#define VLAN(parameter) Layer2Bridging_Bridge_VLAN_##parameter
#define IPTV(parameter) X_KOVA_IPTV_##parameter
#define QOS(parameter) X_KOVA_QoS_##parameter
#define BRIDGE(parameter) Bridging_Bridge_##parameter
#define PORT(parameter) Bridging_Bridge_Port_##parameter

namespace kova::test {
namespace {

const std::string kNoMessage = " uci set error\n\n";
const std::string kNotStored = logs(kNoMessage);

Source iptv(const std::string& name, const std::string& value) { return option("network.iptv." + name, value); }
std::string stores_iptv(const std::string& name, const std::string& value) {
  return stores("network.iptv." + name, value);
}
Source no_write(const std::string& setting) { return write_fails("network.iptv." + setting); }

class Vlans : public TableTest {
 protected:
  void SetUp() override {
    DeviceTest::SetUp();
    write_file("/etc/config/network", "config iptv 'iptv'\n");
  }
};

TEST_F(Vlans, NumbersAreReadWholeAndStoredWithinTheirRange) {
  for (const auto& [handler, name, lowest, highest] : {std::tuple{&IPTV(INETVID), "inet_vlan", 2, 4094},
                                                       {IPTV(IPTVVID), "iptv_vlan", 2, 4094},
                                                       {IPTV(VOIPVID), "voip_vlan", 2, 4094},
                                                       {IPTV(INETPrio), "inet_prio", 0, 7},
                                                       {IPTV(IPTVPrio), "iptv_prio", 0, 7},
                                                       {IPTV(VOIPPrio), "voip_prio", 0, 7}}) {
    const std::string path = std::string("network.iptv.") + name;
    expect_options({{handler, path, kGetFailed}});
    for (const std::string& number : {std::to_string(lowest), std::to_string(highest), std::string("5 and text")})
      expect_stored(handler, number, path, number, 0, kNoMessage);
    for (const std::string& number : {std::to_string(lowest - 1), std::to_string(highest + 1), std::string("-5"),
                                      std::string("4294967298"), std::string("-4294967293")})
      expect_sets({{handler, number, kRefused}});
  }
  expect_options({{VLAN(VLANID), "network.iptv.inet_vlan", kGetFailed},
                  {VLAN(X_KOVA_VLANPrio), "network.iptv.internet_vprio", kGetFailed}});
  const std::string whole(3000, '7');
  expect_gets({{IPTV(INETVID), iptv("inet_vlan", whole), whole}});
}

TEST_F(Vlans, ModeAndTagsAreWords) {
  expect_options({{IPTV(Mode), "network.iptv.mode", kGetFailed}});
  for (const char* mode : {"Bridge", "cusTOM"})
    expect_stored(IPTV(Mode), mode, "network.iptv.mode", mode, 0, kNoMessage);
  for (const auto& [value, stored] : {std::pair{"1", "1"}, {"0", ""}})
    expect_stored(IPTV(INETTAG), value, "network.iptv.inet_tag", stored, 0, kNoMessage);
  expect_sets({{IPTV(Mode), "bridged", kRefused, {logs("Unknown mode\n")}},
               {IPTV(INETTAG), "2", kRefused, {logs(" Unknown tag mode.\n")}}});
  for (const auto& [stored, text] : {std::pair{"1", "1"}, {"0", "0"}, {"11", "0"}}) {
    expect_gets({{IPTV(INETTAG), iptv("inet_tag", stored), text},
                 {VLAN(VLANEnable), iptv("inet_tag", stored), text},
                 {IPTV(Enable), iptv("enabled", stored), text}});
  }
  expect_gets({{IPTV(INETTAG), as_is, "0"},
               {IPTV(Enable), as_is, "0"},
               {VLAN(VLANEnable), as_is, kGetFailed, " uci get error\n\n"}});
}

TEST_F(Vlans, TheModeIsWrittenBeforeTheTagIsJudged) {
  const std::string mode = stores_iptv("mode", "custom");
  expect_sets({{VLAN(VLANEnable), "1", accepted(0x800), {stores_iptv("internet_tag", "on"), mode}},
               {VLAN(VLANEnable), "0", accepted(0x800), {stores_iptv("internet_tag", "off"), mode}},
               {VLAN(VLANEnable), "on", kRefused, {mode}},
               {VLAN(VLANEnable), "1", kRefused, {kNotStored}, no_write("mode=custom")},
               {VLAN(VLANEnable), "1", kRefused, {mode, kNotStored}, no_write("internet_tag")}});
}

TEST_F(Vlans, TheIdGoesToIptvWhichMakesWayAsTelephonyDoes) {
  const std::string mode = stores_iptv("mode", "custom");
  const std::string iptv31 = stores_iptv("iptv_vlan", "31");
  const std::string iptv51 = stores_iptv("iptv_vlan", "51");
  const std::string phone20 = stores_iptv("voip_vlan", "20");
  const std::string phone21 = stores_iptv("voip_vlan", "21");
  const std::string not_stored = logs("uci set error.\n");
  const std::string long_id = "2 " + std::string(100, 'x');
  const Source telephony = iptv("voip_vlan", "50");
  expect_sets({{VLAN(VLANID), "2", accepted(0x800), {iptv31, mode, phone20}},
               {VLAN(VLANID), "4094", accepted(0x800), {iptv31, mode, phone20}, iptv("voip_vlan", "0")},
               {VLAN(VLANID), "50", accepted(0x800), {iptv31, mode, phone21}, telephony},
               {VLAN(VLANID), "51", accepted(0x800), {iptv31, mode}, telephony},
               {VLAN(VLANID), long_id, accepted(0x800), {iptv31, mode}, telephony},
               {VLAN(VLANID), long_id, accepted(0x800), {iptv31, mode}, iptv("voip_vlan", long_id + "y")},
               {VLAN(VLANID), "51", accepted(0x800), {iptv31, mode}, no_write("voip_vlan")},
               {VLAN(VLANID), "51", accepted(0x800), {iptv51, mode}, telephony && no_write("iptv_vlan=31")},
               {VLAN(VLANID), "51", kRefused, {not_stored}, no_write("mode=custom")},
               {VLAN(VLANID), "51", kRefused, {mode, not_stored}, no_write("iptv_vlan=51")}});
  for (const char* wrong : {"1", "4095", "-5"}) expect_sets({{VLAN(VLANID), wrong, kRefused, {mode}}});
}

TEST_F(Vlans, APrioritySeedsTheIdsThatAreMissing) {
  const parameter_handler priority = VLAN(X_KOVA_VLANPrio);
  const std::string mode = stores_iptv("mode", "Custom");
  const std::string vid = stores_iptv("internet_vid", "40");
  const std::string phone = stores_iptv("ipphone_vid", "20");
  const std::string tv = stores_iptv("iptv_vid", "30");
  const Source ids = iptv("internet_vid", "0") && iptv("ipphone_vid", "6") && iptv("iptv_vid", "30");
  expect_sets({{priority, "0", accepted(0x800), {vid, stores_iptv("internet_vprio", "0"), phone, tv, mode}},
               {priority, "7", accepted(0x800), {vid, stores_iptv("internet_vprio", "7"), mode}, ids},
               {priority, "8", kRefused, {mode}},
               {priority, "-1", kRefused, {mode}},
               {priority, "3", kRefused, {kNotStored}, no_write("mode=Custom")},
               {priority, "3", kRefused, {vid, phone, tv, mode, kNotStored}, no_write("internet_vprio")}});
}

// ---- IPTV through the verify script ----

const std::string kVerify = "lua /usr/bin/tr069/verify_pms ";

// The script gives a LAN port this service.
std::string gives(int port, const std::string& type) {
  return runs(kVerify + "iptv_type_LAN_set lan" + std::to_string(port) + " \"" + type + '"');
}

TEST_F(Vlans, TheVerifyScriptSwitchesAndItsVerdictIsNotAsked) {
  for (const int status : {0, 0x100, -1}) {
    for (const std::string value : {"1", "0"}) {
      const Effects run = {runs(kVerify + "iptv_vlan_enable \"" + value + '"')};
      expect_sets({{IPTV(Enable), value, accepted(0x10), run, exits(status)}});
    }
    expect_sets({{At{IPTV(VLANTYPE_LAN), {2}}, "INTERNET", accepted(), {gives(2, "inet")}, exits(status)}});
  }
  expect_sets({{IPTV(Enable), "2", kRefused, {logs("Invalid param\n")}}});
}

TEST_F(Vlans, ALanPortHasTheServiceThatTheScriptFound) {
  const auto lan = [](int32_t port) { return At{IPTV(VLANTYPE_LAN), {port}}; };
  const Source reads{[] {}, {kVerify + "iptv_type_LAN_read "}};
  const auto field = [&](const std::string& number, const std::string& line) {
    return reads && exits(0) && prints("cat /tmp/laninfo |  awk '{print $" + number + "}'", line);
  };
  expect_gets({{lan(1), field("2", "Inet\n"), "Internet"},
               {lan(4), option("cwmp.info.lanport_num", "") && field("8", "voip\n"), "voip"},
               {lan(4), exits(0) && file("/tmp/laninfo", "1 inet 2 inet 3 inet 4 voip\n"), "UNKOWN", "GILTF 5.\n"},
               {lan(INT32_MAX), as_is, "UNKOWN", "GILTF 2147483648.\n"},
               {lan(2), field("4", std::string(120, 'i')), std::string(99, 'i')},
               {lan(3), field("6", ""), "UNKOWN", "GILTF 4.\n"},
               {lan(3), iptv("lan3", "voip"), "voip"},  // by the script itself, asked first
               {lan(0), as_is, kGetFailed, "LE\n"}});
  expect_sets({{lan(3), "Iptv", accepted(), {gives(3, "iptv")}, exits(0)},
               {lan(3), "VOIP", accepted(), {gives(3, "voip")}, exits(0) && iptv("mode", "custom")},
               {lan(3), "voip", accepted(), {gives(3, "iptv")}, exits(0) && iptv("mode", "Bridge")},
               {lan(3), "voip", kRefused},
               {lan(3), "inet", kRefused, {logs("FTSIVT.\n")}},
               {lan(0), "iptv", kRefused, {logs("LE\n")}}});
  const std::string zeros = std::string(40, '0') + "5";
  for (const auto& [number, reply] : {std::pair{"", answered("4")},
                                      {"1", answered("1")},
                                      {zeros.c_str(), answered(zeros)},
                                      {"5 ports", answered("5 ports")},
                                      {"0", kGetFailed},
                                      {"-2", kGetFailed}})
    expect_gets({{IPTV(VLANTYPENumberOfEntries), option("cwmp.info.lanport_num", number), reply}});
}

// ---- QoS and UPnP ----

class Services : public TableTest {};

TEST_F(Services, LimitsAreReadFromTheStoreAndSetByTheProgram) {
  for (const auto& [stored, text] : {std::pair{"0", "0"}, {"yes", "1"}, {"", "0"}})
    expect_gets({{QOS(Enable), option("qos.wan.enabled", stored), text}});
  expect_options({{QOS(Upband), "qos.wan.upload", "0"}, {QOS(Downband), "qos.wan.download", "0"}});
  const std::string whole = "8; a 'b' " + std::string(3000, '9');
  for (const auto& [handler, value, arguments, message] :
       {std::tuple{&QOS(Enable), std::string("1"), std::string("1 0 0"), "FTSQE.\n"},
        {QOS(Enable), "0", "0 0 0", "FTSQE.\n"},
        {QOS(Upband), whole, "1 " + whole + " 0", "FTSQUB.\n"},
        {QOS(Downband), whole, "1 0 " + whole, "FTSQDB.\n"}}) {
    const std::string command = runs("/usr/bin/tr069/cwmp-qos " + arguments);
    expect_sets({{handler, value, accepted(0x1000), {command}, exits(0x7f00)},
                 {handler, value, kRefused, {command, logs(message)}, exits(-1)}});
  }
  expect_sets({{QOS(Enable), "2", kRefused}, {QOS(Upband), std::string(5000, '1'), kRefused, {logs("FTSQUB.\n")}}});
}

TEST_F(Services, UpnpIsSwitchedByTheAgent) {
  const std::string path = "upnpd.config.enabled";
  expect_options({{UPnP_Device_Enable, path, kGetFailed}});
  for (const auto& [value, command] : {std::pair{"1", "restart"}, {"0", "stop"}}) {
    const std::string line = std::string("/etc/init.d/miniupnpd ") + command;
    const Source unset = option(path, "");
    expect_sets({{UPnP_Device_Enable, value, accepted(0x1), {stores(path, value), records(line)}, unset},
                 {UPnP_Device_Enable, value, kRefused, {}, unset && write_fails(path)}});
  }
  const Effects not_recorded = {stores(path, "0"), logs("FTSUPED.\n")};
  expect_sets({{UPnP_Device_Enable, "0", kRefused, not_recorded, option(path, "") && no_file("/tmp/tr069")},
               {UPnP_Device_Enable, "on", kRefused}});
}

// ---- Bridges ----

Source second_bridge(const std::string& line) {
  return prints("ifconfig | grep 'br-' | sed -n '2p' | awk '{print$1}'", line);
}

// The second bridge with these members.
Source members(const std::string& names) {
  return second_bridge("br-test\n") &&
         status("network.device", R"([{"when": {"name": "br-test"}, "reply": {"bridge-members": [)" + names + R"(]}},
           {"when": {"name": "ra1"}, "reply": {"statistics:int64": {"tx_bytes": 5000000000, "tx_packets": 22,
             "tx_errors": 23, "rx_bytes": 11, "rx_packets": 12, "rx_errors": 0}}}])");
}

// "port-10001", "port-10002" and so on.
Source many_members(int count) {
  std::string names;
  for (int port = 10001; port <= 10000 + count; ++port) names += ", \"port-" + std::to_string(port) + '"';
  return members(names.substr(2));
}

const Source kThree = members(R"("eth0.1", "ra1", "wl9")");
const Source kNoAnswer = second_bridge("br-test\n") && status("network.device", R"({"status": 4})");
const Source kNoBridge = second_bridge("");

class Bridges : public TableTest {};

TEST_F(Bridges, AreCountedAndSoAreTheirPorts) {
  const auto lines = [](const std::string& count) { return prints("ifconfig | grep 'br-' | wc -l", count); };
  for (const parameter_handler handler : {Bridging_MaxBridgeEntries, Bridging_BridgeNumberOfEntries})
    expect_gets({{handler, lines(" 2 \n"), " 2 "}, {handler, lines(""), kGetFailed}});
  const Source longest = second_bridge("br-456789012345678\n") &&  // as much of it as an interface's name can be
                         status("network.device", R"({"when": {"name": "br-456789012345"},
                                                      "reply": {"bridge-members": ["a", "b"]}})");
  const At ports{BRIDGE(PortNumberOfEntries), {2}};
  expect_gets({{Bridging_MaxVLANEntries, as_is, "3"},
               {BRIDGE(Enable), as_is, "1"},
               {BRIDGE(Status), as_is, "Enabled"},
               {PORT(Enable), as_is, "1"},
               {ports, kThree, "3"},
               {ports, many_members(120), "120"},
               {ports, members(R"("a,b", "", ",c")"), "3"},
               {ports, members(""), "0"},
               {ports, kNoAnswer, "0"},
               {ports, kNoBridge, "0"},
               {ports, longest, "2"},
               {At{BRIDGE(PortNumberOfEntries), {0}}, as_is, kGetFailed, "LE\n"}});
}

TEST_F(Bridges, PortsAreTheMembersInTheirOrder) {
  const auto up = [](const std::string& port, const std::string& line) {
    return kThree && prints("ifconfig " + port + " | sed '1d' | grep UP | awk '{print $1}'", line);
  };
  expect_gets({{At{PORT(Name), {2, 1}}, kThree, "eth0.1"},
               {At{PORT(Name), {2, 3}}, kThree, "wl9"},
               {At{PORT(Name), {2, 1}}, members(R"("eth0.1")"), "eth0.1"},
               {At{PORT(Name), {2, 2}}, members(R"("a,b", "", ",c")"), "b"},
               {At{PORT(Name), {2, 120}}, many_members(120), "port-10120"},
               {At{PORT(Name), {2, 1}}, members('"' + std::string(5000, 'p') + '"'), std::string(4095, 'p')},
               {At{PORT(Status), {2, 1}}, up("eth0.1", "up\n"), "Up"},
               {At{PORT(Status), {2, 2}}, up("ra1", "UPPER\n"), "Down"},
               {At{PORT(Status), {2, 3}}, up("wl9", ""), "Down"},
               {At{PORT(Stats_BytesSent), {2, 3}}, kThree, kUntouched}});
  size_t next = 0;
  for (const parameter_handler counter : COUNTERS(Bridging_Bridge_Port_Stats_)) {
    const char* const counted[] = {"5000000000", "11", "22", "12", "23", "0"};
    expect_gets({{At{counter, {2, 2}}, kThree, counted[next++]}});
  }
}

TEST_F(Bridges, WifiPortsAreNumberedInAnOrderOfTheirOwn) {
  const At first{PORT(LowerLayers), {2, 1}};
  const At third{PORT(LowerLayers), {2, 3}};
  const auto named = [](const std::string& network, const std::string& name) {
    return kThree && option("wireless." + network + ".ifname", name);
  };
  expect_gets({{first, named("wlan00", "eth0.1"), "Ethernet.Interface.2"},
               {first, members(R"("geth")"), "Ethernet.Interface.2"},
               {third, named("wlan00", "wl99"), kUntouched}});
  int number = 0;
  for (const char* network : {"wlan00", "wlan10", "wlan02", "wlan12"}) {
    const std::string reference = "WiFi.SSID." + std::to_string(++number);
    expect_gets({{third, named(network, "wl9"), reference},
                 {third, named("wlan12", "wl9") && named(network, "wl9"), reference}});
  }
}

TEST_F(Bridges, WhatIsNotThereIsLeftOrHasItsOwnText) {
  for (const auto& [handler, without_bridge] : {std::pair{&PORT(Name), ""},
                                                {PORT(Status), "Down"},
                                                {PORT(LowerLayers), kUntouched.c_str()},
                                                {PORT(Stats_PacketsSent), ""}}) {
    expect_gets({{At{handler, {2, 1}}, kNoBridge, without_bridge},
                 {At{handler, {2, 1}}, kNoAnswer, kUntouched},
                 {At{handler, {2, 4}}, kThree, kUntouched},
                 {At{handler, {2, -1}}, kThree, kUntouched},
                 {At{handler, {0, 1}}, as_is, kGetFailed, "LE\n"},
                 {At{handler, {2, 0}}, as_is, kGetFailed, "LE\n"}});
  }
}

}  // namespace
}  // namespace kova::test

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

const std::string kNotStored = logs(" uci set error\n\n");
const Answer kLeftAsItWas = answered(kUntouched);

Source iptv(const std::string& name, const std::string& value) { return option("network.iptv." + name, value); }
std::string stores_iptv(const std::string& name, const std::string& value) {
  return stores("network.iptv." + name, value);
}

// The store refuses the first write of this, "option=value" or its beginning, to the service VLANs.
Source write_fails(const std::string& setting) {
  return {[=] {
    seams().on_log = [=](const std::string& message) {
      if (message.find("uci set network.iptv." + setting) != std::string::npos) seams().config_context_fails = true;
      if (message.ends_with("FTSUC.\n\n")) seams().config_context_fails = false;
    };
  }};
}

class Vlans : public TableTest {
 protected:
  void SetUp() override {
    DeviceTest::SetUp();
    write_file("/etc/config/network", "config iptv 'iptv'\n");
  }
};

TEST_F(Vlans, TextsAreReadWholeAndNumbersAreStoredWithinTheirRange) {
  const struct {
    parameter_handler handler;
    const char* option;
    int highest = 0;  // of the numbers that are stored in the option that is read; 0 where that is not so
  } texts[] = {
      {VLAN(VLANID), "inet_vlan"},        {VLAN(X_KOVA_VLANPrio), "internet_vprio"}, {IPTV(Mode), "mode"},
      {IPTV(INETVID), "inet_vlan", 4094}, {IPTV(INETPrio), "inet_prio", 7},          {IPTV(IPTVVID), "iptv_vlan", 4094},
      {IPTV(IPTVPrio), "iptv_prio", 7},   {IPTV(VOIPVID), "voip_vlan", 4094},        {IPTV(VOIPPrio), "voip_prio", 7}};
  const std::string whole(3000, '7');
  for (const auto& [handler, option, highest] : texts) {
    expect_gets({{handler, as_is, kGetFailed}, {handler, iptv(option, whole), whole}});
    if (highest == 0) continue;
    const int lowest = highest == 7 ? 0 : 2;
    for (const std::string& number : {std::to_string(lowest), std::to_string(highest), std::string("5 and text")})
      expect_sets({{handler, number, accepted(), {stores_iptv(option, number)}}});
    for (const std::string& number : {std::to_string(lowest - 1), std::to_string(highest + 1), std::string("-5"),
                                      std::string("4294967298"), std::string("-4294967293")})
      expect_sets({{handler, number, kRefused}});
    expect_sets({{handler, "5", kRefused, {kNotStored}, no_file("/etc/config/network")}});
  }
}

TEST_F(Vlans, ModeAndTagsAreWords) {
  expect_sets({{IPTV(Mode), "Bridge", accepted(), {stores_iptv("mode", "Bridge")}},
               {IPTV(Mode), "cusTOM", accepted(), {stores_iptv("mode", "cusTOM")}},
               {IPTV(Mode), "bridged", kRefused, {logs("Unknown mode\n")}},
               {IPTV(Mode), "custom", kRefused, {kNotStored}, no_file("/etc/config/network")},
               {IPTV(INETTAG), "1", accepted(), {stores_iptv("inet_tag", "1")}},
               {IPTV(INETTAG), "0", accepted(), {stores_iptv("inet_tag", "")}, iptv("inet_tag", "1")},
               {IPTV(INETTAG), "0", accepted()},
               {IPTV(INETTAG), "2", kRefused, {logs(" Unknown tag mode.\n")}},
               {IPTV(INETTAG), "1", kRefused, {kNotStored}, no_file("/etc/config/network")},
               {IPTV(INETTAG), "0", kRefused, {kNotStored}, no_file("/etc/config/network")}});
  for (const auto& [stored, text] : {std::pair{"1", "1"}, {"0", "0"}, {"11", "0"}, {"on", "0"}}) {
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
               {VLAN(VLANEnable), "1", kRefused, {kNotStored}, write_fails("mode=custom")},
               {VLAN(VLANEnable), "1", kRefused, {mode, kNotStored}, write_fails("internet_tag")}});
}

TEST_F(Vlans, TheIdGoesToIptvWhichMakesWayAsTelephonyDoes) {
  const std::string mode = stores_iptv("mode", "custom");
  const std::string iptv31 = stores_iptv("iptv_vlan", "31");
  const std::string not_stored = logs("uci set error.\n");
  const std::string long_id = "2 " + std::string(100, 'x');
  const Source telephony = iptv("voip_vlan", "50");
  expect_sets(
      {{VLAN(VLANID), "2", accepted(0x800), {iptv31, mode, stores_iptv("voip_vlan", "20")}},
       {VLAN(VLANID), "20", accepted(0x800), {iptv31, mode, stores_iptv("voip_vlan", "20")}},
       {VLAN(VLANID), "4094", accepted(0x800), {iptv31, mode, stores_iptv("voip_vlan", "20")}, iptv("voip_vlan", "0")},
       {VLAN(VLANID), "50", accepted(0x800), {iptv31, mode, stores_iptv("voip_vlan", "21")}, telephony},
       {VLAN(VLANID), "51", accepted(0x800), {iptv31, mode}, telephony},
       {VLAN(VLANID), long_id, accepted(0x800), {iptv31, mode}, telephony},
       {VLAN(VLANID), "51", accepted(0x800), {iptv31, mode}, write_fails("voip_vlan")},
       {VLAN(VLANID),
        "51",
        accepted(0x800),
        {stores_iptv("iptv_vlan", "51"), mode},
        telephony && write_fails("iptv_vlan=31")},
       {VLAN(VLANID), "1", kRefused, {mode}},
       {VLAN(VLANID), "4095", kRefused, {mode}},
       {VLAN(VLANID), "-5", kRefused, {mode}},
       {VLAN(VLANID), "51", kRefused, {not_stored}, write_fails("mode=custom")},
       {VLAN(VLANID), "51", kRefused, {mode, not_stored}, write_fails("iptv_vlan=51")}});
}

TEST_F(Vlans, APrioritySeedsTheIdsThatAreMissing) {
  const std::string mode = stores_iptv("mode", "Custom");
  const std::string vid = stores_iptv("internet_vid", "40");
  const std::string phone = stores_iptv("ipphone_vid", "20");
  const std::string tv = stores_iptv("iptv_vid", "30");
  const Source ids = iptv("internet_vid", "0") && iptv("ipphone_vid", "6") && iptv("iptv_vid", "30");
  expect_sets(
      {{VLAN(X_KOVA_VLANPrio), "0", accepted(0x800), {vid, stores_iptv("internet_vprio", "0"), phone, tv, mode}},
       {VLAN(X_KOVA_VLANPrio), "7", accepted(0x800), {vid, stores_iptv("internet_vprio", "7"), mode}, ids},
       {VLAN(X_KOVA_VLANPrio), "8", kRefused, {mode}},
       {VLAN(X_KOVA_VLANPrio), "-1", kRefused, {mode}},
       {VLAN(X_KOVA_VLANPrio), "3", kRefused, {kNotStored}, write_fails("mode=Custom")},
       {VLAN(X_KOVA_VLANPrio), "3", kRefused, {vid, phone, tv, mode, kNotStored}, write_fails("internet_vprio")}});
}

// ---- IPTV through the verify script ----

const std::string kVerify = "lua /usr/bin/tr069/verify_pms ";
const Source kReads{[] {}, {kVerify + "iptv_type_LAN_read "}};

TEST_F(Vlans, TheVerifyScriptSwitchesAndItsVerdictIsNotAsked) {
  for (const int status : {0, 0x100, -1})
    expect_sets({{IPTV(Enable), "1", accepted(0x10), {runs(kVerify + R"(iptv_vlan_enable "1")")}, exits(status)},
                 {IPTV(Enable), "0", accepted(0x10), {runs(kVerify + R"(iptv_vlan_enable "0")")}, exits(status)},
                 {At{IPTV(VLANTYPE_LAN), {2}},
                  "INTERNET",
                  accepted(),
                  {runs(kVerify + R"(iptv_type_LAN_set lan2 "inet")")},
                  exits(status)}});
  expect_sets({{IPTV(Enable), "2", kRefused, {logs("Invalid param\n")}}});
}

TEST_F(Vlans, ALanPortHasTheServiceThatTheScriptFound) {
  const auto field = [](const std::string& number, const std::string& line) {
    return kReads && exits(0) && prints("cat /tmp/laninfo |  awk '{print $" + number + "}'", line);
  };
  expect_gets({{At{IPTV(VLANTYPE_LAN), {1}}, field("2", "Inet\n"), "Internet"},
               {At{IPTV(VLANTYPE_LAN), {4}}, field("8", "voip\n"), "voip"},
               {At{IPTV(VLANTYPE_LAN), {2}}, field("4", std::string(120, 'i')), std::string(99, 'i')},
               {At{IPTV(VLANTYPE_LAN), {3}}, field("6", "\n"), "UNKOWN", "GILTF 4.\n"},
               {At{IPTV(VLANTYPE_LAN), {3}}, field("6", ""), "UNKOWN", "GILTF 4.\n"},
               {At{IPTV(VLANTYPE_LAN), {3}}, iptv("lan3", "voip"), "voip"},  // by the script itself, asked first
               {At{IPTV(VLANTYPE_LAN), {0}}, as_is, kGetFailed, "LE\n"}});

  const auto port = [](const std::string& type) { return runs(kVerify + "iptv_type_LAN_set lan3 \"" + type + '"'); };
  const At lan3{IPTV(VLANTYPE_LAN), {3}};
  expect_sets({{lan3, "Iptv", accepted(), {port("iptv")}, exits(0)},
               {lan3, "VOIP", accepted(), {port("voip")}, exits(0) && iptv("mode", "custom")},
               {lan3, "voip", accepted(), {port("iptv")}, exits(0) && iptv("mode", "Bridge")},
               {lan3, "voip", kRefused},
               {lan3, "inet", kRefused, {logs("FTSIVT.\n")}},
               {At{IPTV(VLANTYPE_LAN), {0}}, "iptv", kRefused, {logs("LE\n")}}});

  const auto ports = [](const std::string& number) { return option("cwmp.info.lanport_num", number); };
  expect_gets({{IPTV(VLANTYPENumberOfEntries), ports(""), "4"},
               {IPTV(VLANTYPENumberOfEntries), ports("1"), "1"},
               {IPTV(VLANTYPENumberOfEntries), ports("5 ports"), "5 ports"},
               {IPTV(VLANTYPENumberOfEntries), ports("0"), kGetFailed},
               {IPTV(VLANTYPENumberOfEntries), ports("-2"), kGetFailed}});
}

// ---- QoS and UPnP ----

class Services : public TableTest {};

TEST_F(Services, LimitsAreReadFromTheStoreAndSetByTheProgram) {
  expect_gets({{QOS(Enable), option("qos.wan.enabled", "0"), "0"},
               {QOS(Enable), option("qos.wan.enabled", "yes"), "1"},
               {QOS(Enable), option("qos.wan.enabled", ""), "0"},
               {QOS(Upband), option("qos.wan.upload", ""), "0"},
               {QOS(Upband), option("qos.wan.upload", "100 up"), "100 up"},
               {QOS(Downband), option("qos.wan.download", ""), "0"},
               {QOS(Downband), option("qos.wan.download", "100 down"), "100 down"}});
  const std::string whole = "8; a 'b' " + std::string(3000, '9');
  const struct {
    parameter_handler handler;
    std::string value;
    std::string arguments;
    std::string message;
  } settings[] = {{QOS(Enable), "1", "1 0 0", "FTSQE.\n"},
                  {QOS(Enable), "0", "0 0 0", "FTSQE.\n"},
                  {QOS(Upband), whole, "1 " + whole + " 0", "FTSQUB.\n"},
                  {QOS(Downband), whole, "1 0 " + whole, "FTSQDB.\n"}};
  for (const auto& [handler, value, arguments, message] : settings) {
    const std::string command = runs("/usr/bin/tr069/cwmp-qos " + arguments);
    expect_sets({{handler, value, accepted(0x1000), {command}, exits(0)},
                 {handler, value, accepted(0x1000), {command}, exits(0x7f00)},
                 {handler, value, kRefused, {command, logs(message)}, exits(-1)}});
  }
  expect_sets({{QOS(Enable), "2", kRefused}, {QOS(Upband), std::string(5000, '1'), kRefused, {logs("FTSQUB.\n")}}});
}

TEST_F(Services, UpnpIsSwitchedByTheAgent) {
  const auto enabled = [](const std::string& value) { return stores("upnpd.config.enabled", value); };
  expect_gets({{UPnP_Device_Enable, option("upnpd.config.enabled", "maybe"), "maybe"},
               {UPnP_Device_Enable, option("upnpd.config.enabled", ""), kGetFailed}});
  const Source off = option("upnpd.config.enabled", "0");
  expect_sets({{UPnP_Device_Enable, "1", accepted(0x1), {enabled("1"), records("/etc/init.d/miniupnpd restart")}, off},
               {UPnP_Device_Enable, "0", accepted(0x1), {enabled("0"), records("/etc/init.d/miniupnpd stop")}},
               {UPnP_Device_Enable, "on", kRefused},
               {UPnP_Device_Enable, "1", kRefused, {}, no_file("/etc/config/upnpd")},
               {UPnP_Device_Enable, "0", kRefused, {enabled("0"), logs("FTSUPED.\n")}, no_file("/tmp/tr069")}});
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

const Source kThree = members(R"("eth0.1", "ra1", "wl9")");
const Source kNoAnswer = second_bridge("br-test\n") && status("network.device", R"({"status": 4})");
const Source kNoBridge = second_bridge("");

class Bridges : public TableTest {};

TEST_F(Bridges, AreCountedAndSoAreTheirPorts) {
  const auto lines = [](const std::string& count) { return prints("ifconfig | grep 'br-' | wc -l", count); };
  for (const parameter_handler handler : {Bridging_MaxBridgeEntries, Bridging_BridgeNumberOfEntries})
    expect_gets({{handler, lines(" 2 \n"), " 2 "}, {handler, lines(""), kGetFailed}});
  const At ports{BRIDGE(PortNumberOfEntries), {2}};
  expect_gets({{Bridging_MaxVLANEntries, as_is, "3"},
               {BRIDGE(Enable), as_is, "1"},
               {BRIDGE(Status), as_is, "Enabled"},
               {PORT(Enable), as_is, "1"},
               {ports, kThree, "3"},
               {ports, members(R"("eth0.1")"), "1"},
               {ports, members(""), "0"},
               {ports, kNoAnswer, "0"},
               {ports, kNoBridge, "0"},
               {At{BRIDGE(PortNumberOfEntries), {0}}, as_is, kGetFailed, "LE\n"}});
  // As much of a bridge's name as an interface's can be.
  expect_gets({{ports, second_bridge("br-456789012345678\n") && status("network.device", R"([{"when": {"name":
                "br-456789012345"}, "reply": {"bridge-members": ["a", "b"]}}])"),
                "2"}});
}

TEST_F(Bridges, PortsAreTheMembersInTheirOrder) {
  const auto up = [](const std::string& port, const std::string& line) {
    return kThree && prints("ifconfig " + port + " | sed '1d' | grep UP | awk '{print $1}'", line);
  };
  expect_gets(
      {{At{PORT(Name), {2, 1}}, kThree, "eth0.1"},
       {At{PORT(Name), {2, 3}}, kThree, "wl9"},
       {At{PORT(Name), {2, 1}}, members(R"("eth0.1")"), "eth0.1"},
       {At{PORT(Status), {2, 1}}, up("eth0.1", "up\n"), "Up"},
       {At{PORT(Status), {2, 2}}, up("ra1", "UPPER\n"), "Down"},
       {At{PORT(Status), {2, 3}}, up("wl9", ""), "Down"},
       {At{PORT(LowerLayers), {2, 1}}, kThree, "Ethernet.Interface.2"},
       {At{PORT(LowerLayers), {2, 1}}, kThree && option("wireless.wlan00.ifname", "eth0.1"), "Ethernet.Interface.2"},
       {At{PORT(LowerLayers), {2, 1}}, members(R"("geth")"), "Ethernet.Interface.2"},
       {At{PORT(LowerLayers), {2, 3}}, kThree, kLeftAsItWas},
       {At{PORT(Stats_BytesSent), {2, 2}}, kThree, "5000000000"},
       {At{PORT(Stats_PacketsSent), {2, 2}}, kThree, "22"},
       {At{PORT(Stats_ErrorsSent), {2, 2}}, kThree, "23"},
       {At{PORT(Stats_BytesReceived), {2, 2}}, kThree, "11"},
       {At{PORT(Stats_PacketsReceived), {2, 2}}, kThree, "12"},
       {At{PORT(Stats_ErrorsReceived), {2, 2}}, kThree, "0"},
       {At{PORT(Stats_BytesSent), {2, 3}}, kThree, kLeftAsItWas}});
}

TEST_F(Bridges, WifiPortsAreNumberedInAnOrderOfTheirOwn) {
  expect_gets({{At{PORT(LowerLayers), {2, 3}}, kThree && option("wireless.wlan00.ifname", "wl99"), kLeftAsItWas}});
  int number = 0;
  for (const char* network : {"wlan00", "wlan10", "wlan02", "wlan12"}) {
    const Source named = option(std::string("wireless.") + network + ".ifname", "wl9");
    const std::string reference = "WiFi.SSID." + std::to_string(++number);
    expect_gets(
        {{At{PORT(LowerLayers), {2, 3}}, kThree && named, reference},
         {At{PORT(LowerLayers), {2, 3}}, kThree && named && option("wireless.wlan12.ifname", "wl9"), reference}});
  }
}

TEST_F(Bridges, WhatIsNotThereIsLeftOrHasItsOwnText) {
  const struct {
    parameter_handler handler;
    Answer without_bridge;
  } ports[] = {{PORT(Name), answered("")},
               {PORT(Status), answered("Down")},
               {PORT(LowerLayers), kLeftAsItWas},
               {PORT(Stats_PacketsSent), answered("")}};
  for (const auto& [handler, without_bridge] : ports) {
    expect_gets({{At{handler, {2, 1}}, kNoBridge, without_bridge},
                 {At{handler, {2, 1}}, kNoAnswer, kLeftAsItWas},
                 {At{handler, {2, 4}}, kThree, kLeftAsItWas},
                 {At{handler, {2, -1}}, kThree, kLeftAsItWas},
                 {At{handler, {0, 1}}, as_is, kGetFailed, "LE\n"},
                 {At{handler, {2, 0}}, as_is, kGetFailed, "LE\n"}});
  }
}

}  // namespace
}  // namespace kova::test

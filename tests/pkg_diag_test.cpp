// Dynamic DNS settings, and the LAN Ethernet interface's address and counters.
#include "pkg-diag/pkg-diag.h"
#include "support/tables.hpp"

#define DYN(parameter) X_KOVA_AppCfg_DynDnsCfg_##parameter
#define NOIP(parameter) X_KOVA_AppCfg_NoipDnsCfg_##parameter
#define LAN(parameter) LANDevice_LANEthernetInterfaceConfig_##parameter

namespace kova::test {
namespace {

class DynamicDns : public TableTest {
 protected:
  void SetUp() override {
    DeviceTest::SetUp();
    write_file("/etc/config/ddns", "config service 'dyndns'\nconfig service 'noip'\nconfig provider 'provider'\n");
  }
};

TEST_F(DynamicDns, ASwitchIsOnUnlessStoredAsOff) {
  for (const auto& [stored, text] : {std::pair{"", "0"}, {"on", "1"}, {"0", "1"}, {"OFF", "1"}, {"disabled", "1"}}) {
    expect_gets({{DYN(Enable), option("ddns.dyndns.enabled", stored), text},
                 {NOIP(Enable), option("ddns.noip.enabled", stored), text},
                 {NOIP(Login), option("ddns.noip.enabled", stored), text},
                 {NOIP(WANIPBinding), option("ddns.noip.wan_bind", stored), text}});
  }
  expect_gets({{DYN(Enable), option("ddns.dyndns.enabled", "off"), "0"},
               {NOIP(Enable), option("ddns.noip.enabled", "off"), "0"},
               {NOIP(Login), option("ddns.noip.enabled", "off"), "0"},
               {NOIP(WANIPBinding), option("ddns.noip.wan_bind", "off"), "1"},
               {NOIP(WANIPBinding), option("ddns.noip.wan_bind", "disable"), "0"}});
}

TEST_F(DynamicDns, SwitchingAProviderMakesItTheActiveOne) {
  const auto active = [](const std::string& provider) { return stores("ddns.provider.provider", provider); };
  for (const auto& [value, word] : {std::pair{"1", "on"}, {"0", "off"}}) {
    expect_sets({{DYN(Enable), value, accepted(0x100), {stores("ddns.dyndns.enabled", word), active("dyndns")}},
                 {NOIP(Enable), value, accepted(0x80), {stores("ddns.noip.enabled", word), active("noip")}},
                 {NOIP(Login), value, accepted(0x100), {stores("ddns.noip.enabled", word), active("noip")}}});
  }
  expect_sets({{NOIP(WANIPBinding), "1", accepted(0x100), {stores("ddns.noip.wan_bind", "enable")}},
               {NOIP(WANIPBinding), "0", accepted(0x100), {stores("ddns.noip.wan_bind", "disable")}}});
}

TEST_F(DynamicDns, TextsAreStoredAsGiven) {
  const struct {
    parameter_handler handler;
    const char* path;
    uint32_t mask;
  } texts[] = {{DYN(Username), "ddns.dyndns.username", 0},     {NOIP(Username), "ddns.noip.username", 0},
               {DYN(Password), "ddns.dyndns.password", 0},     {NOIP(Password), "ddns.noip.password", 0},
               {DYN(UserDomain), "ddns.dyndns.domain", 0},     {NOIP(UserDomain), "ddns.noip.domain", 0},
               {NOIP(Server), "ddns.noip.service_name", 0x100}};
  for (const auto& [handler, path, mask] : texts) {
    expect_gets({{handler, as_is, ""}, {handler, option(path, "it's text"), "it's text"}});
    expect_sets({{handler, "it's text", accepted(mask), {stores(path, "it's text")}}});
  }
  expect_gets(
      {{DYN(Server), as_is, ""}, {DYN(Server), option("ddns.dyndns.service_name", "dyndns.org"), "dyndns.org"}});
}

TEST_F(DynamicDns, StateIsWhatTheServiceSays) {
  expect_gets({{DYN(State), prints("ddns state dyndns", std::string(120, '.') + "\n"), std::string(99, '.')},
               {DYN(State), prints("ddns state dyndns", ""), ""},
               {NOIP(State), prints("ddns state noip", "updated\n"), "updated"}});
}

TEST_F(DynamicDns, WhatIsRefusedOrCannotBeStoredMarksNothing) {
  for (const parameter_handler handler : {DYN(Enable), NOIP(Enable), NOIP(Login), NOIP(WANIPBinding)})
    expect_sets({{handler, "2", kRefused}, {handler, "", kRefused}});
  for (const parameter_handler handler :
       {DYN(Enable), DYN(Username), NOIP(Login), NOIP(Password), NOIP(Server), NOIP(WANIPBinding)})
    expect_sets({{handler, "1", kRefused, {}, no_file("/etc/config/ddns")}});

  // Gone between the two writes.
  seams().on_log = [](const std::string& message) {
    if (message.ends_with("uci set ddns.provider.provider=noip.\n\n")) run("rm -f /etc/config/ddns");
  };
  EXPECT_EQ(set(NOIP(Login), "1"), kRefused);
  EXPECT_EQ(mirror("ddns.noip.enabled"), "on");
}

// ---- LAN Ethernet ----

const Source kLanUp = status("network.interface.lan", R"({"up": true, "device": "br-test", "l3_device": "l3-test"})");

class LanEthernet : public TableTest {};

TEST_F(LanEthernet, AddressIsTheDevicesAndCountersAreTheLayer3Devices) {
  const Source router = kLanUp && status("network.device", R"([
    {"when": {"name": "br-test"}, "reply": {"macaddr": "02:a4:f1:00:00:01", "statistics:int64": {"tx_bytes": 9}}},
    {"when": {"name": "l3-test"}, "reply": {"macaddr": "02:a4:f1:00:00:02", "statistics:int64": {
      "tx_bytes": 5000000000, "tx_packets": 22, "tx_errors": 23, "rx_bytes": 11, "rx_packets": 12, "rx_errors": 0}}}])");
  expect_gets({{LAN(MACAddress), router, "02:a4:f1:00:00:01"},
               {LAN(Stats_BytesSent), router, "5000000000"},
               {LAN(Stats_PacketsSent), router, "22"},
               {LAN(Stats_ErrorsSent), router, "23"},
               {At{LAN(Stats_BytesReceived), {2, 0}}, router, "11"},  // whatever the instance
               {LAN(Stats_PacketsReceived), router, "12"},
               {LAN(Stats_ErrorsReceived), router, "0"}});
}

TEST_F(LanEthernet, AnAddressIsCutToItsBuffer) {
  const Source router = kLanUp && status("network.device", R"({"macaddr": ")" + std::string(120, 'a') + R"("})");
  expect_gets({{LAN(MACAddress), router, std::string(99, 'a')}});
}

TEST_F(LanEthernet, WhatCannotBeReadHasAFallback) {
  for (const Source& router :
       {kLanUp && status("network.device", R"({"present": true})"),
        kLanUp && status("network.device", R"({"status": 4})"), status("network.interface.lan", R"({"up": false})"),
        status("network.interface.lan", R"({"status": 7})")}) {
    expect_gets({{LAN(MACAddress), router, "0:0:0:0:0:0"}, {LAN(Stats_BytesSent), router, "0"}});
  }
}

}  // namespace
}  // namespace kova::test

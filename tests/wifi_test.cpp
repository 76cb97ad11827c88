// The scan for neighbouring networks, and what the simulated router's wireless service makes of its configuration, as
// both trees see it.
#include "pkg-wl/pkg-wl.h"
#include "support/tables.hpp"

#define WLAN(parameter) LANDevice_WLANConfiguration_##parameter
#define MULTI(parameter) LANDevice_WLANConfiguration_MultiSSID_##parameter
#define SCAN(parameter) WiFi_NeighboringWiFiDiagnostic_##parameter

namespace kova::test {
namespace {

class NeighbourScan : public TableTest {};

TEST_F(NeighbourScan, ResultsAreReadFromItsList) {
  const auto list = [](const std::string& option, const std::string& value) {
    return file("/tmp/tr069/aplist", "config ap '12'\n\toption " + option + " '" + value + "'\n");
  };
  for (const auto& [handler, option, text, shown] :
       {std::tuple{&SCAN(Result_SSID), "ssid", "a b", "a b"},
        {SCAN(Result_BSSID), "bssid", "02:00", "02:00"},
        {SCAN(Result_Channel), "channel", "13", "13"},
        {SCAN(Result_OperatingFrequencyBand), "operatingFrequencyBand", "2.4GHz", "2.4GHz"},
        {SCAN(Result_SignalStrength), "real_rssi", "40", "-60"},
        {SCAN(Result_SignalStrength), "real_rssi", "loud", "-100"},
        {SCAN(Result_Radio), "operatingFrequencyBand", "2.4G", "Device.WiFi.Radio.1"},
        {SCAN(Result_Radio), "operatingFrequencyBand", "5G", "Device.WiFi.Radio.2"},
        {SCAN(Result_Radio), "operatingFrequencyBand", "2.4GHz", ""},
        {SCAN(Result_OperatingChannelBandwidth), "htbw", "ht160", "160MHz"},
        {SCAN(Result_OperatingChannelBandwidth), "htbw", "auto", "auto"}}) {
    expect_gets({{At{handler, {12, 0}}, list(option, text), shown},
                 {At{handler, {12, 0}}, list("half", "written"), ""},
                 {At{handler, {13, 0}}, list(option, text), ""},
                 {At{handler, {0, 0}}, list(option, text), kGetFailed, "LE\n"}});
  }
  get(SCAN(Result_SSID), {0, 0});
  EXPECT_TRUE(seams().syslog.back().starts_with("pkg-wl.c, "));
}

TEST_F(NeighbourScan, ResultsAreCountedOnceTheHostsAreThere) {
  EXPECT_EQ(get(SCAN(ResultNumberOfEntries)), answered("0"));
  EXPECT_EQ(commands(), std::vector<std::string>{"/usr/bin/tr069/gen_hosts"});
  const Source twelve = file("/tmp/tr069/aplist", "config info 'info'\n\toption count '12'\n");
  expect_gets({{SCAN(ResultNumberOfEntries), twelve, "12"}});
}

// ---- The wireless service ----

class WirelessService : public DeviceTest {
 protected:
  void SetUp() override {
    DeviceTest::SetUp();
    apply();  // interfaces are not put back with the rest
  }

  // The agent's part after sets that have raised both of the marks.
  static void apply() {
    for (const char* service : {"wlan", "multi-ssid"})
      EXPECT_EQ(run(std::string("/usr/bin/tr069/apply/") + service + " >/dev/null"), 0);
  }

  static std::string text(parameter_handler handler, const Instances& instances) {
    const Answer answer = get(handler, instances);
    return answer.result == 0 ? answer.text : "(failed)";
  }
};

TEST_F(WirelessService, AChannelIsInUseOnceItHasBeenApplied) {
  EXPECT_EQ(text(WLAN(AutoChannelEnable), {1, 1}), "1");
  EXPECT_EQ(set(WiFi_Radio_Channel, "13", {1, 0}), accepted(APPLY_WLAN));
  EXPECT_EQ(set(WiFi_Radio_Channel, "36", {1, 0}), kRefused);
  EXPECT_EQ(text(WLAN(AutoChannelEnable), {1, 1}), "0");
  EXPECT_EQ(text(WLAN(Channel), {1, 1}), "6");
  apply();
  EXPECT_EQ(text(WLAN(Channel), {1, 1}), "13");
  EXPECT_EQ(text(WLAN(X_KOVA_FrequencyInuse), {1, 1}), "2.472GHz");
}

TEST_F(WirelessService, AWidthInUseIsOneOfTheRadios) {
  const auto in_use = [](const char* width, int32_t radio) {
    EXPECT_EQ(set(WiFi_Radio_OperatingChannelBandwidth, width, {radio, 0}), accepted(APPLY_WLAN));
    apply();
    return text(WiFi_Radio_CurrentOperatingChannelBandwidth, {radio, 0});
  };
  EXPECT_EQ(in_use("20MHz", 1), "20MHz");
  EXPECT_EQ(in_use("Auto", 1), "40MHz");
  EXPECT_EQ(in_use("Auto", 2), "160MHz");
  EXPECT_EQ(text(WiFi_Radio_ChannelsInUse, {1, 0}), "1 2 3 4 5 6 7 8 9 10 11 12 13 ");
}

TEST_F(WirelessService, ANetworkThatIsSwitchedOffIsGone) {
  if (!has_network()) GTEST_SKIP() << "the router has no interfaces here";
  EXPECT_EQ(text(WiFi_AccessPoint_Status, {3, 0}), "Enabled");
  EXPECT_EQ(text(MULTI(BSSID), {1, 1}), "02:A4:F1:00:00:11");
  EXPECT_EQ(text(MULTI(AssociatedDeviceNumberOfEntries), {1, 1}), "1");
  EXPECT_EQ(set(WiFi_SSID_Enable, "0", {3, 0}), accepted(APPLY_MULTI_SSID));
  apply();
  EXPECT_EQ(text(WiFi_AccessPoint_Status, {3, 0}), "Disabled");
  EXPECT_EQ(text(MULTI(BSSID), {1, 1}), "0:0:0:0:0:0");
  EXPECT_EQ(text(MULTI(AssociatedDeviceNumberOfEntries), {1, 1}), "0");
  EXPECT_EQ(text(WLAN(Status), {1, 1}), "Up");

  // So are all networks of a radio that is down, and what it works with.
  configure("wireless.radio1.disabled", "1");
  apply();
  EXPECT_EQ(text(WiFi_SSID_Status, {2, 0}), "Down");
  EXPECT_EQ(text(WLAN(BSSID), {1, 2}), "0:0:0:0:0:0");
  EXPECT_EQ(text(WLAN(Channel), {1, 2}), "36");
  EXPECT_EQ(text(WLAN(X_KOVA_FrequencyInuse), {1, 2}), "0GHz");
  EXPECT_EQ(text(WiFi_Radio_CurrentOperatingChannelBandwidth, {2, 0}), "(failed)");
}

TEST_F(WirelessService, AScanThatIsAskedForFindsWhatIsOnTheAir) {
  const auto scan = [] { return run("/usr/bin/tr069/apply/neighbor-wifi-diag >/dev/null 2>&1"); };
  const auto result = [](parameter_handler handler, int32_t number) { return text(handler, {number, 0}); };
  EXPECT_NE(scan(), 0);  // not asked for
  EXPECT_EQ(set(SCAN(DiagnosticsState), "Requested"), accepted(APPLY_NEIGHBOR_WIFI_DIAG));
  EXPECT_EQ(scan(), 0);
  EXPECT_EQ(get(SCAN(DiagnosticsState)), answered("Complete"));
  EXPECT_EQ(get(SCAN(ResultNumberOfEntries)), answered("5"));
  EXPECT_EQ(result(SCAN(Result_SSID), 2), "Anna's Wi-Fi");
  EXPECT_EQ(result(SCAN(Result_SSID), 3), "");
  EXPECT_EQ(result(SCAN(Result_BSSID), 5), "02:00:5e:00:53:b2");
  EXPECT_EQ(result(SCAN(Result_Channel), 5), "100");
  EXPECT_EQ(result(SCAN(Result_SignalStrength), 5), "-79");
  EXPECT_EQ(result(SCAN(Result_OperatingChannelBandwidth), 5), "160MHz");
  EXPECT_EQ(result(SCAN(Result_Radio), 5), "Device.WiFi.Radio.2");

  // Through the radios that are up alone.
  for (const auto& [radio, state] : {std::pair{"radio1", "Complete"}, {"radio0", "Error"}}) {
    configure(std::string("wireless.") + radio + ".disabled", "1");
    apply();
    set(SCAN(DiagnosticsState), "Requested");
    EXPECT_EQ(scan() == 0, state == std::string("Complete"));
    EXPECT_EQ(get(SCAN(DiagnosticsState)), answered(state));
    EXPECT_EQ(get(SCAN(ResultNumberOfEntries)), answered("3"));
  }
}

TEST_F(WirelessService, WhatIsNotConfiguredCannotBeApplied) {
  run("rm /etc/config/wireless");
  EXPECT_NE(run("/usr/bin/tr069/apply/wlan >/dev/null 2>&1"), 0);
  EXPECT_EQ(text(WLAN(Channel), {1, 1}), "(failed)");
}

}  // namespace
}  // namespace kova::test

// Dynamic DNS settings, and the LAN Ethernet interface's address and counters.
#include "pkg-diag/pkg-diag.h"
#include "support/device.hpp"

namespace kova::test {
namespace {

class DynamicDns : public DeviceTest {
 protected:
  void SetUp() override {
    DeviceTest::SetUp();
    write_file("/etc/config/ddns", "config service 'dyndns'\nconfig service 'noip'\nconfig provider 'provider'\n");
  }
};

struct Provider {
  std::string section;
  parameter_handler enable, login, state, username, password, domain, server;
  uint32_t enable_mask;
};

const Provider kProviders[] = {
    {"dyndns", X_KOVA_AppCfg_DynDnsCfg_Enable, X_KOVA_AppCfg_DynDnsCfg_Login, X_KOVA_AppCfg_DynDnsCfg_State,
     X_KOVA_AppCfg_DynDnsCfg_Username, X_KOVA_AppCfg_DynDnsCfg_Password, X_KOVA_AppCfg_DynDnsCfg_UserDomain,
     X_KOVA_AppCfg_DynDnsCfg_Server, 0x100},
    {"noip", X_KOVA_AppCfg_NoipDnsCfg_Enable, X_KOVA_AppCfg_NoipDnsCfg_Login, X_KOVA_AppCfg_NoipDnsCfg_State,
     X_KOVA_AppCfg_NoipDnsCfg_Username, X_KOVA_AppCfg_NoipDnsCfg_Password, X_KOVA_AppCfg_NoipDnsCfg_UserDomain,
     X_KOVA_AppCfg_NoipDnsCfg_Server, 0x80},
};

TEST_F(DynamicDns, SwitchingAProviderMakesItTheActiveOne) {
  for (const Provider& provider : kProviders) {
    SCOPED_TRACE(provider.section);
    const std::string enabled = "ddns." + provider.section + ".enabled";
    const std::pair<parameter_handler, uint32_t> switches[] = {{provider.enable, provider.enable_mask},
                                                               {provider.login, 0x100}};
    for (const auto& [handler, mask] : switches) {
      configure("ddns.provider.provider", "");
      EXPECT_EQ(set(handler, "2"), kRefused);
      EXPECT_EQ(set(handler, ""), kRefused);
      EXPECT_EQ(config("ddns.provider.provider"), std::nullopt);
      EXPECT_EQ(set(handler, "1"), accepted(mask));
      EXPECT_EQ(config(enabled), "on");
      EXPECT_EQ(mirror(enabled), "on");
      EXPECT_EQ(set(handler, "0"), accepted(mask));
      EXPECT_EQ(config(enabled), "off");
      EXPECT_EQ(config("ddns.provider.provider"), provider.section);
      EXPECT_EQ(mirror("ddns.provider.provider"), provider.section);
    }
  }
}

void expect_switch(parameter_handler handler, const char* stored, const char* text) {
  SCOPED_TRACE(stored);
  EXPECT_EQ(get(handler), answered(text));
}

TEST_F(DynamicDns, AProviderIsOnUnlessStoredAsOff) {
  const std::pair<const char*, const char*> cases[] = {{"", "0"}, {"off", "0"}, {"on", "1"}, {"0", "1"}, {"OFF", "1"}};
  for (const Provider& provider : kProviders) {
    for (const auto& [stored, text] : cases) {
      configure("ddns." + provider.section + ".enabled", stored);
      expect_switch(provider.enable, stored, text);
      expect_switch(provider.login, stored, text);
    }
  }
}

TEST_F(DynamicDns, CredentialsAreStoredAsGivenAndMarkNothing) {
  for (const Provider& provider : kProviders) {
    const std::pair<parameter_handler, const char*> texts[] = {
        {provider.username, "username"}, {provider.password, "password"}, {provider.domain, "domain"}};
    for (const auto& [handler, option] : texts) {
      const std::string path = "ddns." + provider.section + "." + option;
      SCOPED_TRACE(path);
      EXPECT_EQ(get(handler), answered(""));
      EXPECT_EQ(set(handler, "a 'quoted' value of " + path), accepted());
      EXPECT_EQ(mirror(path), "a 'quoted' value of " + path);
      EXPECT_EQ(get(handler), answered("a 'quoted' value of " + path));
    }
  }
}

TEST_F(DynamicDns, TheServiceNameIsNoIpsToChoose) {
  for (const Provider& provider : kProviders) EXPECT_EQ(get(provider.server), answered(""));
  configure("ddns.dyndns.service_name", "dyndns.org");
  EXPECT_EQ(get(X_KOVA_AppCfg_DynDnsCfg_Server), answered("dyndns.org"));
  EXPECT_EQ(set(X_KOVA_AppCfg_DynDnsCfg_Server, "no-ip.com"), kRefused);
  EXPECT_EQ(set(X_KOVA_AppCfg_NoipDnsCfg_Server, "no-ip.com"), accepted(0x100));
  EXPECT_EQ(get(X_KOVA_AppCfg_NoipDnsCfg_Server), answered("no-ip.com"));
}

TEST_F(DynamicDns, NoIpCanBeBoundToTheWanAddress) {
  const std::string path = "ddns.noip.wan_bind";
  expect_switch(X_KOVA_AppCfg_NoipDnsCfg_WANIPBinding, "", "0");
  EXPECT_EQ(set(X_KOVA_AppCfg_NoipDnsCfg_WANIPBinding, "1"), accepted(0x100));
  EXPECT_EQ(config(path), "enable");
  EXPECT_EQ(config("ddns.provider.provider"), std::nullopt);
  expect_switch(X_KOVA_AppCfg_NoipDnsCfg_WANIPBinding, "enable", "1");
  EXPECT_EQ(set(X_KOVA_AppCfg_NoipDnsCfg_WANIPBinding, "2"), kRefused);
  EXPECT_EQ(set(X_KOVA_AppCfg_NoipDnsCfg_WANIPBinding, "0"), accepted(0x100));
  EXPECT_EQ(config(path), "disable");
  expect_switch(X_KOVA_AppCfg_NoipDnsCfg_WANIPBinding, "disable", "0");
  configure(path, "off");
  expect_switch(X_KOVA_AppCfg_NoipDnsCfg_WANIPBinding, "off", "1");
}

TEST_F(DynamicDns, StateIsWhatTheServiceSays) {
  for (const Provider& provider : kProviders) {
    const std::string command = "ddns state " + provider.section;
    seams().answer(command, "updated " + std::string(120, '.') + "\n");
    EXPECT_EQ(get(provider.state), answered("updated " + std::string(91, '.')));
    seams().answer(command, "");
    EXPECT_EQ(get(provider.state), answered(""));
    EXPECT_EQ(set(provider.state, "updated"), kRefused);
    EXPECT_EQ(commands(), std::vector<std::string>(2, command));
    commands().clear();
  }
}

TEST_F(DynamicDns, AStoreThatCannotBeWrittenFailsTheSet) {
  run("rm /etc/config/ddns");
  for (const Provider& provider : kProviders) {
    for (const parameter_handler handler :
         {provider.enable, provider.login, provider.username, provider.password, provider.domain, provider.server})
      EXPECT_EQ(set(handler, "1"), kRefused);
  }
  EXPECT_EQ(set(X_KOVA_AppCfg_NoipDnsCfg_WANIPBinding, "1"), kRefused);
}

TEST_F(DynamicDns, AProviderThatCannotBeMadeTheActiveOneFailsTheSet) {
  seams().on_log = [](const std::string& message) {
    if (message.ends_with("uci set ddns.provider.provider=noip.\n\n")) run("rm -f /etc/config/ddns");
  };
  EXPECT_EQ(set(X_KOVA_AppCfg_NoipDnsCfg_Login, "1"), kRefused);
  EXPECT_EQ(mirror("ddns.noip.enabled"), "on");
}

// ---- LAN Ethernet ----

class LanEthernet : public DeviceTest {
 protected:
  static void interface_is(const std::string& status) {
    write_file("/etc/lab/bus/network.interface.lan/status.json", status);
  }
  static void devices_are(const std::string& status) { write_file("/etc/lab/bus/network.device/status.json", status); }

  void SetUp() override {
    DeviceTest::SetUp();
    run("mkdir -p /etc/lab/bus/network.interface.lan /etc/lab/bus/network.device");
    interface_is(R"({"up": true, "device": "br-test", "l3_device": "l3-test"})");
    devices_are(R"([
      {"when": {"name": "br-test"}, "reply": {"macaddr": "02:a4:f1:00:00:01", "statistics:int64": {"tx_bytes": 9}}},
      {"when": {"name": "l3-test"}, "reply": {"macaddr": "02:a4:f1:00:00:02", "statistics:int64": {
        "tx_bytes": 5000000000, "tx_packets": 22, "tx_errors": 23, "rx_bytes": 11, "rx_packets": 12, "rx_errors": 0}}}
    ])");
  }
};

const std::pair<parameter_handler, const char*> kLanCounters[] = {
    {LANDevice_LANEthernetInterfaceConfig_Stats_BytesSent, "5000000000"},
    {LANDevice_LANEthernetInterfaceConfig_Stats_PacketsSent, "22"},
    {LANDevice_LANEthernetInterfaceConfig_Stats_ErrorsSent, "23"},
    {LANDevice_LANEthernetInterfaceConfig_Stats_BytesReceived, "11"},
    {LANDevice_LANEthernetInterfaceConfig_Stats_PacketsReceived, "12"},
    {LANDevice_LANEthernetInterfaceConfig_Stats_ErrorsReceived, "0"},
};

TEST_F(LanEthernet, AddressIsTheDevicesAndCountersAreTheLayer3Devices) {
  EXPECT_EQ(get(LANDevice_LANEthernetInterfaceConfig_MACAddress), answered("02:a4:f1:00:00:01"));
  EXPECT_EQ(set(LANDevice_LANEthernetInterfaceConfig_MACAddress, "02:a4:f1:00:00:03"), kRefused);
  for (const auto& [handler, count] : kLanCounters) {
    EXPECT_EQ(get(handler), answered(count));
    EXPECT_EQ(set(handler, "0"), kRefused);
  }
}

TEST_F(LanEthernet, RowsOfOtherObjectsAreServedToo) {
  EXPECT_EQ(get(LANDevice_LANEthernetInterfaceConfig_Stats_BytesReceived, {2, 0, 0, 0}), answered("11"));
}

TEST_F(LanEthernet, WhatCannotBeReadHasAFallback) {
  const auto expect_fallbacks = [](const char* trace) {
    SCOPED_TRACE(trace);
    EXPECT_EQ(get(LANDevice_LANEthernetInterfaceConfig_MACAddress), answered("0:0:0:0:0:0"));
    for (const auto& [handler, count] : kLanCounters) EXPECT_EQ(get(handler), answered("0"));
  };
  devices_are(R"({"present": true})");
  expect_fallbacks("a device without address and counters");
  devices_are(R"({"status": 4})");
  expect_fallbacks("no such device");
  interface_is(R"({"up": false})");
  expect_fallbacks("interface down");
  interface_is(R"({"status": 7})");
  expect_fallbacks("the bus does not answer");
}

}  // namespace
}  // namespace kova::test

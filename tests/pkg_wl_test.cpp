// Wireless networks and radios, in both trees.
#include <regex>

#include "pkg-wl/pkg-wl.h"
#include "support/catalogue.hpp"
#include "support/tables.hpp"

#define WLAN(parameter) LANDevice_WLANConfiguration_##parameter
#define MULTI(parameter) LANDevice_WLANConfiguration_MultiSSID_##parameter
#define RADIO(parameter) WiFi_Radio_##parameter
#define SSID(parameter) WiFi_SSID_##parameter
#define ACCESS(parameter) WiFi_AccessPoint_##parameter

namespace kova::test {
namespace {

// The write of this number fails, counted from 1.
Source fails(int write = 1) {
  return {[write] {
    seams().on_log = [write, begun = 0](const std::string& message) mutable {
      if (message.ends_with(": SUCF.\n\n") && ++begun == write) seams().config_context_fails = true;
      if (message.ends_with(": FTSUC.\n\n")) seams().config_context_fails = false;
    };
  }};
}

// ---- Networks, each under the handlers of both trees ----

struct Handlers {
  parameter_handler ssid, enable, status, bssid, advertised, password, device_count, device_mac, counters[6];
  const char *up, *down, *ssid_failure, *no_bssid, *no_device, *no_mac;
};

#define COUNTERS(prefix)                                                                                        \
  {                                                                                                             \
    prefix##BytesSent, prefix##BytesReceived, prefix##PacketsSent, prefix##PacketsReceived, prefix##ErrorsSent, \
        prefix##ErrorsReceived                                                                                  \
  }

// clang-format off
const Handlers kMain = {
    WLAN(SSID), WLAN(Enable), WLAN(Status), WLAN(BSSID), WLAN(SSIDAdvertisementEnabled), WLAN(X_KOVA_Password),
    WLAN(AssociatedDeviceNumberOfEntries), WLAN(AssociatedDevice_AssociatedDeviceMACAddress),
    COUNTERS(LANDevice_WLANConfiguration_Total), "Up", "Disabled",
    "failed to get SSID\n\n", "failed to get BSSID. \n", "LE\n", "LE2\n"};
const Handlers kExtra = {
    MULTI(SSID), MULTI(Enable), MULTI(Status), MULTI(BSSID), MULTI(SSIDAdvertisementEnabled), MULTI(X_KOVA_Password),
    MULTI(AssociatedDeviceNumberOfEntries), MULTI(AssociatedDevice_AssociatedDeviceMACAddress),
    COUNTERS(LANDevice_WLANConfiguration_MultiSSID_Total), "Up", "Disabled",
    "failed to set SSID.\n\n", "failed to get BSSID\n", "LE\n", "LE2.\n"};
const Handlers kSsidOfMain = {
    SSID(SSID), SSID(Enable), SSID(Status), SSID(BSSID), ACCESS(SSIDAdvertisementEnabled),
    ACCESS(Security_KeyPassphrase), ACCESS(AssociatedDeviceNumberOfEntries), ACCESS(AssociatedDevice_MACAddress),
    COUNTERS(WiFi_SSID_Stats_), "Up", "Down", "failed to get SSID\n\n", "failed to get BSSID. \n", "LE1\n", "LE\n"};
const Handlers kSsidOfExtra = {
    SSID(SSID), SSID(Enable), ACCESS(Status), SSID(BSSID), ACCESS(SSIDAdvertisementEnabled),
    ACCESS(Security_KeyPassphrase), ACCESS(AssociatedDeviceNumberOfEntries), ACCESS(AssociatedDevice_MACAddress),
    COUNTERS(WiFi_SSID_Stats_), "Enabled", "Disabled",
    "failed to set SSID.\n\n", "failed to get BSSID\n", "LE1\n", "LE\n"};

const struct Network {
  const Handlers& handlers;
  Instances numbers;
  std::string section, interface;
  uint32_t mask;

  std::string path(const std::string& name) const { return "wireless." + section + "." + name; }
  Source with(const std::string& name, const std::string& value) const { return option(path(name), value); }
  At at(parameter_handler handler) const { return {handler, numbers}; }
  At device(parameter_handler handler, int32_t number) const {
    Instances numbers_of_device = numbers;
    numbers_of_device.insert(numbers_of_device.begin() + (handlers.ssid == SSID(SSID) ? 1 : 2), number);
    return {handler, numbers_of_device};
  }
} kNetworks[] = {
    {kMain,        {1, 1, 0}, "wlan00", "ra0",  0x2},
    {kMain,        {1, 2, 0}, "wlan10", "rai0", 0x2},
    {kExtra,       {1, 1, 0}, "wlan02", "ra1",  0x4000},
    {kExtra,       {1, 2, 0}, "wlan12", "rai1", 0x4000},
    {kSsidOfMain,  {2, 0},    "wlan10", "rai0", 0x2},
    {kSsidOfExtra, {3, 0},    "wlan02", "ra1",  0x4000},
};
// clang-format on

class WirelessNetwork : public TableTest {};

TEST_F(WirelessNetwork, IsNamedHiddenSwitchedAndLockedByItsOptions) {
  for (const Network& network : kNetworks) {
    SCOPED_TRACE(network.section);
    const Handlers& of = network.handlers;
    const auto with = [&](const char* name, const char* value) { return network.with(name, value); };
    const std::string ssid(32, 's');
    const std::string password(64, 'p');
    expect_gets({{network.at(of.ssid), with("ssid", "it's"), "it's"},
                 {network.at(of.ssid), with("ssid", ""), kGetFailed, of.ssid_failure},
                 {network.at(of.enable), with("disabled", "1"), "0"},
                 {network.at(of.enable), with("disabled", "yes"), "1"},
                 {network.at(of.enable), with("disabled", ""), "1"},
                 {network.at(of.advertised), with("hidden", "1"), "0"},
                 {network.at(of.advertised), with("hidden", "0"), "1"},
                 {network.at(of.advertised), with("hidden", ""), "1"},
                 {network.at(of.password), with("key", "se cret"), "se cret"},
                 {network.at(of.password), with("key", ""), ""}});
    const auto stored = [&](const char* name, const std::string& value) {
      return Effects{stores(network.path(name), value)};
    };
    const Outcome done = accepted(network.mask);
    expect_sets({{network.at(of.ssid), ssid, done, stored("ssid", ssid)},
                 {network.at(of.ssid), ssid + "s", kRefused},
                 {network.at(of.ssid), "", kRefused},
                 {network.at(of.ssid), "x", kRefused, {logs(of.ssid_failure)}, fails()},
                 {network.at(of.enable), "1", done, stored("disabled", "0"), with("disabled", "1")},
                 {network.at(of.enable), "0", done, stored("disabled", "1"), with("disabled", "0")},
                 {network.at(of.enable), "2", kRefused},
                 {network.at(of.enable), "1", kRefused, {}, fails()},
                 {network.at(of.enable), "0", network.mask == 0x2 ? kRefused : done, {}, fails()},
                 {network.at(of.advertised), "1", done, stored("hidden", ""), with("hidden", "1")},
                 {network.at(of.advertised), "0", done, stored("hidden", "1")},
                 {network.at(of.advertised), "yes", done, stored("hidden", "1")},
                 {network.at(of.advertised), "1", kRefused, {logs("failed to set HD conf.\n\n")}, fails()},
                 {network.at(of.password), "1234567", kRefused, {logs("pw len error.\n")}},
                 {network.at(of.password), "12345678", done, stored("key", "12345678")},
                 {network.at(of.password), password, done, stored("key", password)},
                 {network.at(of.password), password + "p", kRefused, {logs("pw len error.\n")}},
                 {network.at(of.password), "12345678", kRefused, {logs("failed to set pw\n\n")}, fails()}});
  }
}

TEST_F(WirelessNetwork, IsSeenThroughItsInterface) {
  for (const Network& network : kNetworks) {
    SCOPED_TRACE(network.section);
    const Handlers& of = network.handlers;
    const std::string up = "ifconfig " + network.interface + " | sed '1d' | grep UP | awk '{print $1}'";
    const std::string bssid = "iwinfo " + network.interface + " info | grep 'Access Point' | awk '{print $3}'";
    const Source no_interface = network.with("ifname", "");
    expect_gets({{network.at(of.status), prints(up, "UP\nUP\n"), of.up},
                 {network.at(of.status), prints(up, "up"), of.up},
                 {network.at(of.status), prints(up, "UP,"), of.down},
                 {network.at(of.status), prints(up, ""), of.down},
                 {network.at(of.status), no_interface, kGetFailed},
                 {network.at(of.bssid), prints(bssid, "02:A4:F1:00:00:10\n"), "02:A4:F1:00:00:10"},
                 {network.at(of.bssid), prints(bssid, std::string(200, 'x')), std::string(99, 'x')},
                 {network.at(of.bssid), prints(bssid, ""), "0:0:0:0:0:0", of.no_bssid},
                 {network.at(of.bssid), no_interface, kGetFailed},
                 {network.at(of.bssid), network.with("ifname", std::string(300, 'i')), kGetFailed}});
    const std::string count = "cat /proc/net/dev|grep -w " + network.interface;
    const char* const expected[] = {"21", "11", "22", "12", "23", "13"};
    for (size_t i = 0; i < std::size(expected); ++i) {
      const At counter = network.at(of.counters[i]);
      expect_gets({{counter, prints(count, " x: 11 12 13 0 0 0 0 0 21 22 23 0 0 0 0 0\n"), expected[i]},
                   {counter, prints(count, ""), "0"},
                   {counter, no_interface, kGetFailed}});
    }
  }
}

const std::string kHosts = R"(
config host '1'
	option lay2if 'eth1'
	option mac 'a'
config host '2'
	option lay2if 'NETWORK'
	option mac 'b'
config host '4'
	option lay2if 'NETWORK'
config host '5'
	option lay2if 'NETWORK'
	option mac 'e'
config host '6'
	option lay2if 'NETWORK'
config info 'info'
	option count 'COUNT'
)";

TEST_F(WirelessNetwork, HasTheDevicesThatTheHostsTableShowsOnIt) {
  for (const Network& network : kNetworks) {
    SCOPED_TRACE(network.section);
    const Handlers& of = network.handlers;
    const auto table = [&](const char* count) {
      const std::string hosts = std::regex_replace(kHosts, std::regex("NETWORK"), network.section);
      return file("/tmp/tr069/hosts", std::regex_replace(hosts, std::regex("COUNT"), count));
    };
    expect_gets(
        {{network.at(of.device_count), table("5"), "3"},
         {network.at(of.device_count), table("1"), "0"},
         {network.at(of.device_count), table("none"), "0"},
         {network.at(of.device_count), file("/tmp/tr069/hosts", ""), kGetFailed, "failed to get HINFO.\n"},
         {network.device(of.device_mac, 1), table("5"), "b"},
         {network.device(of.device_mac, 3), table("5"), "e"},
         {network.device(of.device_mac, 2), table("5"), kGetFailed, of.no_mac},
         {network.device(of.device_mac, 4), table("5"), kGetFailed, of.no_device},
         {network.device(of.device_mac, 0), table("5"), kGetFailed, of.no_device},
         {network.device(of.device_mac, 1), file("/tmp/tr069/hosts", ""), kGetFailed, "failed to get HINFO.\n"}});
  }
  expect_gets({{At{WLAN(AssociatedDevice_AssociatedDeviceIPAddress), {1, 2, 1}}, as_is, "192.168.1.101"},
               {At{MULTI(AssociatedDevice_AssociatedDeviceIPAddress), {1, 1, 1}}, as_is, "192.168.1.103"},
               {At{ACCESS(AssociatedDevice_SignalStrength), {3, 1}}, as_is, "-66"},
               {At{ACCESS(AssociatedDevice_SignalStrength), {2, 2}}, as_is, kGetFailed, "LE1\n"}});
  EXPECT_EQ(commands(), Effects{});  // each row is undone
  EXPECT_EQ(get(WLAN(AssociatedDeviceNumberOfEntries)), answered("1"));
  EXPECT_EQ(commands(), std::vector<std::string>{"/usr/bin/tr069/gen_hosts"});

  for (const parameter_handler ip :
       {WLAN(AssociatedDevice_AssociatedDeviceIPAddress), MULTI(AssociatedDevice_AssociatedDeviceIPAddress)}) {
    for (const auto& [number, log] : {std::pair{1, "LE2\n"}, {2, "LE\n"}}) {
      const Source table = file("/tmp/tr069/hosts",
                                "config host '1'\n\toption lay2if 'wlan00'\nconfig host '2'\n\t"
                                "option lay2if 'wlan02'\nconfig info 'info'\n\toption count '2'\n");
      expect_gets({{At{ip, {1, 1, number}}, table, kGetFailed, log}});
    }
  }
}

// ---- Security ----

const struct Security {
  parameter_handler beacon, encryption, encryption_11i, authentication, authentication_11i;
  Instances numbers;
  std::string section;
  uint32_t mask;
  const char* aes_only;
} kSecurity[] = {{WLAN(BeaconType),
                  WLAN(WPAEncryptionModes),
                  WLAN(IEEE11iEncryptionModes),
                  WLAN(WPAAuthenticationMode),
                  WLAN(IEEE11iAuthenticationMode),
                  {1, 1},
                  "wlan00",
                  0x2,
                  "AES only.\n"},
                 {MULTI(BeaconType),
                  MULTI(WPAEncryptionModes),
                  MULTI(IEEE11iEncryptionModes),
                  MULTI(WPAAuthenticationMode),
                  MULTI(IEEE11iAuthenticationMode),
                  {1, 2},
                  "wlan12",
                  0x4000,
                  "AES only\n"}};

class WirelessSecurity : public TableTest {};

TEST_F(WirelessSecurity, IsOpenOrAPassphraseInTheOlderTree) {
  const struct {
    const char *stored, *beacon, *basic, *encryption, *authentication;
  } states[] = {{"psk-mixed", "11i", "", "AESEncryption", "PSKAuthentication"},
                {"psk2+ccmp", "11i", "", "AESEncryption", "PSKAuthentication"},
                {"none", "None", "None", "", ""},
                {"wep", "", "", "AESEncryption", ""}};
  for (const Security& of : kSecurity) {
    SCOPED_TRACE(of.section);
    const std::string path = "wireless." + of.section + ".encryption";
    const auto at = [&](parameter_handler handler) { return At{handler, of.numbers}; };
    for (const auto& state : states) {
      const Source stored = option(path, state.stored);
      expect_gets({{at(of.beacon), stored, state.beacon},
                   {at(of.encryption), stored, state.encryption},
                   {at(of.encryption_11i), stored, state.encryption},
                   {at(of.authentication), stored, state.authentication},
                   {at(of.authentication_11i), stored, state.authentication}});
      if (of.mask == 0x2) expect_gets({{WLAN(BasicEncryptionModes), stored, state.basic}});
    }
    for (const parameter_handler handler : {of.beacon, of.encryption, of.authentication})
      expect_gets({{at(handler), option(path, ""), kGetFailed}});

    const auto set_to = [&](const char* encryption) { return Effects{stores(path, encryption)}; };
    const std::string key = "wireless." + of.section + ".key";
    const Source locked = option(key, "own pass") && option(path, "wep");
    const Source keyless = option(key, "") && option(path, "wep");
    const Effects defaulted = {stores(path, "psk-mixed"), stores(key, "24681357")};
    using Case = std::pair<parameter_handler, const char*>;
    for (const auto& [handler, passphrase] : {Case{of.beacon, "11i"},
                                              {of.authentication, "PSKAuthentication"},
                                              {of.authentication_11i, "PSKAuthentication"}}) {
      expect_sets({{at(handler), passphrase, accepted(of.mask), set_to("psk-mixed"), locked},
                   {at(handler), passphrase, accepted(of.mask), defaulted, keyless},
                   {at(handler), passphrase, accepted(of.mask), set_to("psk-mixed"), keyless && fails(2)},
                   {at(handler), passphrase, kRefused, {}, keyless && fails()},
                   {at(handler), "EAPAuthentication", kRefused}});
    }
    expect_sets({{at(of.beacon), "None", accepted(of.mask), set_to("none"), keyless},
                 {at(of.authentication), "None", kRefused},
                 {at(of.encryption), "AESEncryption", accepted(), {logs(of.aes_only)}, locked},
                 {at(of.encryption_11i), "AESEncryption", accepted(), {logs(of.aes_only)}, locked},
                 {at(of.encryption), "AESEncryption", kRefused, {}, option(path, "none")},
                 {at(of.encryption), "AESEncryption", kRefused, {}, option(path, "")},
                 {at(of.encryption), "TKIPEncryption", kRefused, {}, locked}});
  }
  const Source wep = option("wireless.wlan00.encryption", "wep");
  expect_sets({{WLAN(BasicEncryptionModes), "None", accepted(0x2), {stores("wireless.wlan00.encryption", "none")}},
               {WLAN(BasicEncryptionModes), "None", kRefused, {}, fails()},
               {WLAN(BasicEncryptionModes), "WEPEncryption", kRefused, {}, wep}});
}

TEST_F(WirelessSecurity, WepModeIsThatOfAWepNetwork) {
  const auto wep = [](const char* encryption, const char* mode) {
    return option("wireless.wlan10.encryption", encryption) && option("wireless.wlan10.wep_mode", mode);
  };
  const At mode = {WLAN(BasicAuthenticationMode), {1, 2}};
  for (const auto& [text, stored] : {std::pair{"SharedAuthentication", "shared"}, {"None", "open"}, {"Auto", "auto"}}) {
    expect_gets({{mode, wep("wep", stored), text}, {mode, wep("wep+shared", stored), ""}});
    expect_sets({{mode, text, accepted(0x2), {stores("wireless.wlan10.wep_mode", stored)}}});
  }
  expect_gets({{mode, wep("wep", "mixed"), kGetFailed},
               {mode, wep("wep", ""), kGetFailed},
               {mode, wep("", "open"), kGetFailed}});
  expect_sets({{mode, "shared", kRefused}, {mode, "Auto", kRefused, {}, fails()}});
}

TEST_F(WirelessSecurity, WpsIsOneSettingForBothRadios) {
  const auto both = [](const std::string& option, const std::string& value) {
    return Effects{stores("wireless.wlan00." + option, value), stores("wireless.wlan10." + option, value)};
  };
  const Source unset = option("wireless.wlan00.wps", "") && option("wireless.wlan10.wps", "");
  for (const Instances& anywhere : {Instances{1, 1}, Instances{1, 2}, Instances{7, 7}}) {
    const At enable = {WLAN(WPS_Enable), anywhere};
    const At pin = {WLAN(WPS_DevicePassword), anywhere};
    expect_gets({{enable, option("wireless.wlan00.wps", "on") && option("wireless.wlan10.wps", "off"), "1"},
                 {enable, option("wireless.wlan00.wps", "1") && option("wireless.wlan10.wps", "on"), "0"},
                 {enable, unset, kGetFailed},
                 {At{WLAN(WPS_DeviceName), anywhere}, option("wireless.wps.wps_device_name", "Mine"), "Mine"},
                 {At{WLAN(WPS_DeviceName), anywhere}, option("wireless.wps.wps_device_name", ""), "Router"},
                 {pin, option("wireless.wlan00.wps_pin", "12345670"), "0"}});
    expect_sets({{enable, "1", accepted(0x2), both("wps", "on"), unset},
                 {enable, "0", accepted(0x2), both("wps", "off"), unset},
                 {enable, "on", kRefused},
                 {enable, "1", kRefused, {}, unset && fails()},
                 {enable, "1", kRefused, {stores("wireless.wlan00.wps", "on")}, unset && fails(2)},
                 {pin, "01234567", accepted(0x2), both("wps_pin", "01234567")},
                 {pin, "1234567", kRefused},
                 {pin, "123456789", kRefused},
                 {pin, "1234567x", kRefused}});
  }
}

TEST_F(WirelessSecurity, AnAccessPointHasOneOfSixModes) {
  for (const auto& [number, section, mask] :
       {std::tuple{1, "wlan00", 0x2U}, {2, "wlan10", 0x2U}, {3, "wlan02", 0x4000U}, {4, "wlan12", 0x4000U}}) {
    const At mode = {ACCESS(Security_ModeEnabled), {number, 0}};
    const std::string path = std::string("wireless.") + section + ".encryption";
    const std::string key = std::string("wireless.") + section + ".key";
    const Source keyless = option(key, "") && option(path, "wep");
    for (const auto& [text, stored] : {std::pair{"WPA-PSK", "psk"},
                                       {"WPA2-PSK", "psk2"},
                                       {"WPA-PSK/WPA2-PSK", "psk-mixed"},
                                       {"WPA2-PSK/WPA3-SAE", "psk2psk3"},
                                       {"WPA3-SAE", "psk3"}}) {
      expect_gets({{mode, option(path, stored), text}});
      expect_sets({{mode, text, accepted(mask), {stores(path, stored), stores(key, "24681357")}, keyless}});
    }
    expect_gets({{mode, option(path, "none"), "None"},
                 {mode, option(path, "wep"), ""},
                 {mode, option(path, "psk2+ccmp"), ""},
                 {mode, option(path, ""), kGetFailed}});
    expect_sets({{mode, "None", accepted(mask), {stores(path, "none")}, keyless},
                 {mode, "WPA3-SAE", accepted(mask), {stores(path, "psk3")}, option(key, "own pass")},
                 {mode, "WEP-64", kRefused, {logs("failed to set encry.\n")}},
                 {mode, "WPA3-SAE", kRefused, {}, keyless && fails()}});
    const std::string radio = std::string("wireless.radio") + (number % 2 == 1 ? "0" : "1") + ".hwmodes";
    const At modes = {ACCESS(Security_ModesSupported), {number, 0}};
    const std::string all = "None,WPA-PSK,WPA2-PSK,WPA-PSK/WPA2-PSK,WPA2-PSK/WPA3-SAE,WPA3-SAE";
    expect_gets({{modes, option(radio, "11a 11ax"), all},
                 {modes, option(radio, "11a 11ac"), "None,WPA-PSK,WPA2-PSK,WPA-PSK/WPA2-PSK"},
                 {modes, option(radio, ""), "None,WPA-PSK,WPA2-PSK,WPA-PSK/WPA2-PSK"},
                 {At{ACCESS(Security_EncryptionMode), {number, 0}}, as_is, "AES"},
                 {At{ACCESS(SSIDReference), {number, 0}}, as_is, "Device.WiFi.SSID." + std::to_string(number)},
                 {At{SSID(LowerLayers), {number, 0}}, as_is,
                  std::string("Device.WiFi.Radio.") + (number % 2 == 1 ? "1" : "2")}});
  }
}

// ---- Radios ----

class WirelessRadio : public TableTest {};

const struct Radio {
  Instances numbers;
  std::string section, interface;
  const char *band, *fixed_channel;
} kRadios[] = {{{1, 0}, "radio0", "ra0", "2.4GHz", "5"},
               {{1, 1}, "radio0", "ra0", "2.4GHz", "5"},
               {{1, 2}, "radio1", "rai0", "5GHz", "40"},
               {{2, 0}, "radio1", "rai0", "5GHz", "40"}};

TEST_F(WirelessRadio, ChannelIsTheOneInUseOrElseTheStoredOne) {
  for (const Radio& radio : kRadios) {
    const auto at = [&](parameter_handler handler) { return At{handler, radio.numbers}; };
    const std::string path = "wireless." + radio.section + ".channel";
    const std::string iwinfo = "iwinfo " + radio.interface + " freqlist | ";
    const std::string in_use = iwinfo + "grep '*' | awk '{print $5}' | sed 's/)//g'";
    const std::string frequency = iwinfo + "grep '*' | awk '{print $2}' ";
    const std::string list = iwinfo + "sed -e 's/*//g' -e 's/)//g' | awk '{print $4}' |tr '\n' ' ' ";
    const Source no_interface =
        option(std::string("wireless.") + (radio.interface == "ra0" ? "wlan00" : "wlan10") + ".ifname", "");
    const Source silent = prints(in_use, "");
    const Source supported = prints(list, "3 7 140 ");
    expect_gets(
        {{at(WLAN(Channel)), prints(in_use, "7\n8\n") && option(path, "3"), "7"},
         {at(WLAN(Channel)), silent && option(path, "3"), "3"},
         {at(WLAN(Channel)), silent && option(path, "auto"), "0"},
         {at(WLAN(Channel)), silent && option(path, "Auto"), "Auto"},
         {at(WLAN(Channel)), silent && option(path, ""), kGetFailed, "failed to get ch\n"},
         {at(WLAN(Channel)), no_interface, kGetFailed},
         {at(WLAN(ChannelsInUse)), supported, "3 7 140 "},
         {at(WLAN(ChannelsInUse)), no_interface, kUntouched},
         {at(WLAN(AutoChannelEnable)), option(path, "0"), "1"},
         {at(WLAN(AutoChannelEnable)), option(path, "auto"), "0"},
         {at(WLAN(AutoChannelEnable)), option(path, ""), "0"},
         {at(WLAN(X_KOVA_FrequencyInuse)), prints(frequency, "2.437\n"), "2.437GHz"},
         {at(WLAN(X_KOVA_FrequencyInuse)), prints(frequency, std::string(200, '9')), std::string(127, '9') + "GHz"},
         {at(WLAN(X_KOVA_FrequencyInuse)), prints(frequency, ""), "0GHz", "failed to get freq. \n"},
         {at(WLAN(X_KOVA_FrequencyInuse)), no_interface, kGetFailed},
         {at(WLAN(X_KOVA_Band)), no_file("/etc/config/wireless"), radio.band}});
    const auto stored = [&](const char* channel) { return Effects{stores(path, channel)}; };
    const Effects listed = {runs(list)};
    const auto refused = [&](const char* log) { return Effects{runs(list), logs(log)}; };
    expect_sets({{at(WLAN(Channel)), "140", accepted(0x2), {stores(path, "140"), runs(list)}, supported},
                 {at(WLAN(Channel)), "6", kRefused, refused("invalid ch index\n\n"), supported},
                 {at(WLAN(Channel)), "0", kRefused, refused("invalid ch index\n\n"), supported},
                 {at(WLAN(Channel)), "4294967299", kRefused, refused("invalid ch index\n\n"), supported},
                 {at(WLAN(Channel)), "7", kRefused, {logs("invalid ch index\n\n")}, no_interface},
                 {at(WLAN(Channel)), "7", kRefused, refused("failed to set ch\n\n"), supported && fails()},
                 {at(WLAN(AutoChannelEnable)), "1", accepted(0x2), stored("0"), option(path, "7")},
                 {at(WLAN(AutoChannelEnable)), "1", kRefused, {}, fails()},
                 {at(WLAN(AutoChannelEnable)), "0", accepted(0x2), stored(radio.fixed_channel), option(path, "0")},
                 {at(WLAN(AutoChannelEnable)), "0", accepted(0x2), {}, option(path, "0") && fails()},
                 {at(WLAN(AutoChannelEnable)), "0", accepted(), {}, option(path, "7")},
                 {at(WLAN(AutoChannelEnable)), "0", accepted(), {}, option(path, "")},
                 {at(WLAN(AutoChannelEnable)), "2", kRefused, {}, option(path, "0")}});
  }
}

TEST_F(WirelessRadio, PowerAndWidthAreFromALadder) {
  for (const Radio& radio : kRadios) {
    const auto at = [&](parameter_handler handler) { return At{handler, radio.numbers}; };
    const std::string power = "wireless." + radio.section + ".txpower";
    const std::string width = "wireless." + radio.section + ".htbw";
    expect_gets({{at(WLAN(TransmitPowerSupported)), as_is, "{100,20,5}"},
                 {at(WLAN(TransmitPower)), option(power, "37"), "37"},
                 {at(WLAN(TransmitPower)), option(power, ""), "100"},
                 {at(WLAN(X_KOVA_Bandwidth)), option(width, "aUTO"), "Auto"},
                 {at(WLAN(X_KOVA_Bandwidth)), option(width, "vht160"), "160MHz"},
                 {at(WLAN(X_KOVA_Bandwidth)), option(width, "wide"), "wide"},
                 {at(WLAN(X_KOVA_Bandwidth)), option(width, ""), kGetFailed, "uci get htbw error\n"}});
    for (const auto& [value, stored] : {std::pair{"100", "100"}, {"20", "20"}, {"5", "5"}, {"-1", "100"}})
      expect_sets({{at(WLAN(TransmitPower)), value, accepted(0x2), {stores(power, stored)}, option(power, "")}});
    expect_sets({{at(WLAN(TransmitPower)), "50", kRefused, {logs(" txpwer invalid.\n")}},
                 {at(WLAN(TransmitPower)), "20", kRefused, {logs("failed to set txpwr\n")}, fails()},
                 {at(WLAN(X_KOVA_Bandwidth)), "20mhz", kRefused, {logs("invalid htbw\n")}},
                 {at(WLAN(X_KOVA_Bandwidth)), "40MHz", kRefused, {logs("failed to set bw.\n")}, fails()}});
    for (const auto& [value, stored] : {std::pair{"20MHz", "ht20"}, {"40MHz", "ht40"}, {"AUTO", "auto"}})
      expect_sets({{at(WLAN(X_KOVA_Bandwidth)), value, accepted(0x2), {stores(width, stored)}, option(width, "")}});
    for (const auto& [value, stored] : {std::pair{"80MHz", "ht80"}, {"160MHz", "ht160"}}) {
      const bool wide = radio.section == "radio1";
      const Effects effects = {wide ? stores(width, stored) : logs("invalid htbw\n")};
      expect_sets({{at(WLAN(X_KOVA_Bandwidth)), value, wide ? accepted(0x2) : kRefused, effects, option(width, "")}});
    }
  }
}

TEST_F(WirelessRadio, StandardsAreThoseOfItsBand) {
  const auto modes = [](const char* radio, const char* value) {
    return option(std::string("wireless.") + radio + ".hwmodes", value);
  };
  const At first = {RADIO(SupportedStandards), {1, 0}};
  const At second = {RADIO(SupportedStandards), {2, 0}};
  expect_gets({{first, modes("radio0", "11b 11ax"), "b,bg,bgn,bgnax"},
               {first, modes("radio0", "11b 11n"), "b,bg,bgn"},
               {first, modes("radio0", ""), kGetFailed, "failed to get radio0 hwm\n"},
               {second, modes("radio1", "11ax"), "a,an,anac,anacax"},
               {second, modes("radio1", "11ac"), "a,an,anac"},
               {second, modes("radio1", ""), kGetFailed, "failed to get radio1 hwm\n"}});
  const std::vector<std::string> standards[] = {{"b", "g", "n", "bg", "ng", "bgn", "bgnax"},
                                                {"a", "n", "an", "nac", "anac", "anacax"}};
  for (const Radio& radio : kRadios) {
    const At standard = {RADIO(OperatingStandards), radio.numbers};
    const At standard_too = {WLAN(Standard), radio.numbers};
    const std::string path = "wireless." + radio.section + ".hwmode";
    expect_gets({{standard, option(path, "11bgn"), "bgn"},
                 {standard_too, option(path, "x11y11"), "y11"},
                 {standard, option(path, "b"), "b"},
                 {standard, option(path, ""), kGetFailed, "failed to get " + radio.section + " hwm\n"}});
    for (const auto& list : standards) {
      const bool own = &list == &standards[radio.section == "radio1" ? 1 : 0];
      for (const std::string& value : list) {
        if (!own && value == "n") continue;  // of both
        const Effects effects = {own ? stores(path, "11" + value) : logs("no matched hwm 11" + value + " \n")};
        expect_sets({{standard, value, own ? accepted(0x2) : kRefused, effects, option(path, "")}});
      }
    }
    expect_sets({{standard, "ac", kRefused, {logs("no matched hwm 11ac \n")}},
                 {standard_too, "", kRefused, {logs("no matched hwm 11 \n")}},
                 {standard_too, "n", kRefused, {logs("failed to set " + radio.section + " hwm\n")}, fails()}});
  }
}

TEST_F(WirelessRadio, HasFixedPropertiesAndAWidthInUse) {
  for (const auto& [number, network, band] : {std::tuple{1, "wlan00", "2.4GHz"}, {2, "wlan10", "5GHz"}}) {
    const auto at = [n = number](parameter_handler handler) { return At{handler, {n, 0}}; };
    const std::string query = std::string(R"(ubus call wireless status '{"iface":")") + network +
                              R"("}' | grep htbw | tr '"' ' ' | awk '{print $3}')";
    expect_gets({{at(RADIO(Enable)), as_is, "1"},
                 {at(RADIO(Status)), as_is, "Up"},
                 {at(RADIO(SupportedFrequencyBands)), as_is, band},
                 {at(RADIO(OperatingFrequencyBand)), as_is, band},
                 {at(RADIO(AutoChannelSupported)), as_is, "1"},
                 {at(RADIO(CurrentOperatingChannelBandwidth)), prints(query, "ht20\n"), "20MHz"},
                 {at(RADIO(CurrentOperatingChannelBandwidth)), prints(query, "ht40"), "40MHz"},
                 {at(RADIO(CurrentOperatingChannelBandwidth)), prints(query, "ht80"), "80MHz"},
                 {at(RADIO(CurrentOperatingChannelBandwidth)), prints(query, "ht160"), "160MHz"},
                 {at(RADIO(CurrentOperatingChannelBandwidth)), prints(query, "auto"), ""},
                 {at(RADIO(CurrentOperatingChannelBandwidth)), prints(query, ""), kGetFailed, "GCOCBE.\n"}});
    for (const char* value : {"0", "1", "anything"}) expect_sets({{at(RADIO(Enable)), value, accepted()}});
  }
  const auto widths = [](const char* supported) {
    return option("wireless.radio0.ht160", "1") && option("wireless.radio1.ht160", supported);
  };
  const At second = {RADIO(SupportedOperatingChannelBandwidths), {2, 0}};
  expect_gets({{RADIO(SupportedOperatingChannelBandwidths), widths("1"), "Auto,20MHz,40MHz"},
               {second, widths("1"), "Auto,20MHz,40MHz,80MHz,160MHz"},
               {second, widths("01"), "Auto,20MHz,40MHz,80MHz"},
               {second, widths(""), "Auto,20MHz,40MHz,80MHz"},
               {WiFi_RadioNumberOfEntries, as_is, "2"},
               {WiFi_SSIDNumberOfEntries, as_is, "4"},
               {WiFi_AccessPointNumberOfEntries, as_is, "4"},
               {At{LANDevice_LANWLANConfigurationNumberOfEntries, {3, 3}}, as_is, "2"}});
}

// ---- What instance numbers mean ----

TEST_F(WirelessNetwork, NumbersNameItInTheWayOfEachTree) {
  const struct {
    const char* section;
    std::vector<At> names;
  } networks[] = {
      {"wlan00", {{WLAN(SSID), {1, 0}}, {WLAN(SSID), {1, 1}}, {SSID(SSID), {1, 0}}}},
      {"wlan10", {{WLAN(SSID), {1, 2}}, {WLAN(SSID), {2, 0}}, {SSID(SSID), {2, 0}}}},
      {"wlan02", {{MULTI(SSID), {1, 0}}, {MULTI(SSID), {1, 1}}, {SSID(SSID), {3, 0}}}},
      {"wlan12", {{MULTI(SSID), {1, 2}}, {MULTI(SSID), {2, 0}}, {SSID(SSID), {4, 0}}}},
  };
  for (const auto& [section, names] : networks) {
    for (const At& name : names) expect_gets({{name, option(std::string("wireless.") + section + ".ssid", "x"), "x"}});
  }
  for (const auto& [number, interface] : {std::pair{1, "ra0"}, {4, "rai1"}}) {
    const std::string up = std::string("ifconfig ") + interface + " | sed '1d' | grep UP | awk '{print $1}'";
    expect_gets({{At{SSID(Status), {number, 0}}, prints(up, "UP"), "Up"},
                 {At{SSID(Status), {number, 0}}, prints(up, ""), "Down"},
                 {At{ACCESS(Status), {number, 0}}, prints(up, "UP"), "Enabled"},
                 {At{ACCESS(Status), {number, 0}}, prints(up, ""), "Disabled"}});
  }
}

TEST_F(WirelessNetwork, NumbersThatMeanNothingFailBeforeAnythingIsDone) {
  const Instances kNoPairs[] = {{0, 0}, {0, 1}, {1, 3}, {1, -1}, {2, 1}, {2, 2}, {3, 0}};
  for (const Row& row : kCatalogue) {
    std::vector<Instances> wrong;
    if (row.name.starts_with("LANDevice_WLAN") && !row.name.starts_with("LANDevice_WLANConfiguration_WPS_"))
      wrong.assign(std::begin(kNoPairs), std::end(kNoPairs));
    if (row.name.starts_with("WiFi_Radio_")) wrong = {{0, 0}, {3, 0}, {-1, 0}};
    if (row.name.starts_with("WiFi_SSID_") || row.name.starts_with("WiFi_AccessPoint_"))
      wrong = {{0, 0}, {5, 0}, {-1, 0}};
    SCOPED_TRACE(row.name);
    for (const Instances& numbers : wrong) {
      EXPECT_EQ(get(row.handler, numbers), row.handler == SSID(LowerLayers) ? answered(kUntouched) : kGetFailed);
      EXPECT_EQ(set(row.handler, "1", numbers), kRefused);
    }
  }
  EXPECT_TRUE(messages().empty() && commands().empty());
}

TEST_F(WirelessNetwork, AnExtraNetworkLeavesTheRadiosNumberInTheCallersArray) {
  agent_state agent = running_agent();
  char output[4096];
  using Case = std::pair<parameter_handler, bool>;
  for (const auto& [handler, renamed] : {Case{SSID(SSID), true},
                                         {SSID(Status), true},
                                         {ACCESS(Security_ModesSupported), true},
                                         {ACCESS(Security_ModeEnabled), false}}) {
    for (const int32_t number : {1, 2, 3, 4}) {
      int32_t numbers[] = {number, 0};
      EXPECT_EQ(call(handler, 0, numbers, output, &agent), 0);
      EXPECT_EQ(numbers[0], renamed && number > 2 ? number - 2 : number);
    }
  }
}

}  // namespace
}  // namespace kova::test

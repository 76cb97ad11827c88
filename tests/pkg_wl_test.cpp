// Wireless networks and radios, in both trees.
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

std::string ask_up(const std::string& interface) {
  return "ifconfig " + interface + " | sed '1d' | grep UP | awk '{print $1}'";
}

// ---- Networks ----

enum Tree { LAN_DEVICE, MULTI_SSID, DEVICE };

// A network, and the numbers by which the handlers of a tree know it.
const struct Network {
  Tree tree;
  Instances numbers;
  std::string section, interface;

  At at(parameter_handler lan_device, parameter_handler multi_ssid, parameter_handler device) const {
    return {tree == DEVICE ? device : tree == MULTI_SSID ? multi_ssid : lan_device, numbers};
  }
  bool is_extra() const { return section.ends_with("2"); }
  uint32_t mask() const { return is_extra() ? 0x4000 : 0x2; }
  std::string path(const std::string& name) const { return "wireless." + section + "." + name; }
  Source with(const std::string& name, const std::string& value) const { return option(path(name), value); }
} kNetworks[] = {{LAN_DEVICE, {1, 1}, "wlan00", "ra0"}, {LAN_DEVICE, {2, 0}, "wlan10", "rai0"},
                 {MULTI_SSID, {1, 0}, "wlan02", "ra1"}, {MULTI_SSID, {1, 2}, "wlan12", "rai1"},
                 {DEVICE, {1, 0}, "wlan00", "ra0"},     {DEVICE, {2, 0}, "wlan10", "rai0"},
                 {DEVICE, {3, 0}, "wlan02", "ra1"},     {DEVICE, {4, 0}, "wlan12", "rai1"}};

class WirelessNetwork : public TableTest {};

TEST_F(WirelessNetwork, IsNamedHiddenSwitchedAndLockedByItsOptions) {
  for (const Network& network : kNetworks) {
    const At ssid = network.at(WLAN(SSID), MULTI(SSID), SSID(SSID));
    const At enable = network.at(WLAN(Enable), MULTI(Enable), SSID(Enable));
    const At advertised =
        network.at(WLAN(SSIDAdvertisementEnabled), MULTI(SSIDAdvertisementEnabled), ACCESS(SSIDAdvertisementEnabled));
    const At password = network.at(WLAN(X_KOVA_Password), MULTI(X_KOVA_Password), ACCESS(Security_KeyPassphrase));
    const Outcome done = accepted(network.mask());
    const Outcome switched_off = network.is_extra() ? done : kRefused;  // what cannot be stored
    const char* const no_ssid = network.is_extra() ? "failed to set SSID.\n\n" : "failed to get SSID\n\n";
    expect_options({{ssid, network.path("ssid"), kGetFailed, no_ssid}, {password, network.path("key"), ""}});
    for (const auto& [at, name] : {std::pair{enable, "disabled"}, {advertised, "hidden"}})
      expect_gets({{at, network.with(name, "1"), "0"}, {at, network.with(name, "yes"), "1"}});

    const std::string name(32, 's');
    const std::string key(64, 'p');
    expect_stored(ssid, name, network.path("ssid"), name, network.mask(), no_ssid);
    expect_stored(enable, "1", network.path("disabled"), "0", network.mask());
    expect_stored(advertised, "1", network.path("hidden"), "", network.mask(), "failed to set HD conf.\n\n");
    expect_stored(advertised, "yes", network.path("hidden"), "1", network.mask(), "failed to set HD conf.\n\n");
    for (const std::string& length : {key, key.substr(0, 8)})
      expect_stored(password, length, network.path("key"), length, network.mask(), "failed to set pw\n\n");
    expect_sets({{ssid, name + "s", kRefused},
                 {ssid, "", kRefused},
                 {enable, "0", done, {stores(network.path("disabled"), "1")}, network.with("disabled", "")},
                 {enable, "0", switched_off, {}, write_fails(network.path("disabled"))},
                 {enable, "2", kRefused},
                 {password, key.substr(0, 7), kRefused, {logs("pw len error.\n")}},
                 {password, key + "p", kRefused, {logs("pw len error.\n")}}});
  }
}

TEST_F(WirelessNetwork, IsSeenThroughItsInterface) {
  const std::vector<parameter_handler> counters[] = {COUNTERS(LANDevice_WLANConfiguration_Total),
                                                     COUNTERS(LANDevice_WLANConfiguration_MultiSSID_Total),
                                                     COUNTERS(WiFi_SSID_Stats_)};
  for (const Network& network : kNetworks) {
    const Source no_interface = network.with("ifname", "");
    const auto expect_status = [&](const At& status, const char* up, const char* down) {
      expect_gets({{status, prints(ask_up(network.interface), "UP\nUP\n"), up},
                   {status, prints(ask_up(network.interface), "UP,"), down},
                   {status, no_interface, kGetFailed}});
    };
    const bool in_device = network.tree == DEVICE;
    expect_status(network.at(WLAN(Status), MULTI(Status), SSID(Status)), "Up", in_device ? "Down" : "Disabled");
    if (in_device) expect_status({ACCESS(Status), network.numbers}, "Enabled", "Disabled");

    const At bssid = network.at(WLAN(BSSID), MULTI(BSSID), SSID(BSSID));
    const auto ask_address = [](const std::string& interface) {
      return "iwinfo " + interface + " info | grep 'Access Point' | awk '{print $3}'";
    };
    const std::string address = ask_address(network.interface);
    const std::string long_name(300, 'i');
    const char* const no_bssid = network.is_extra() ? "failed to get BSSID\n" : "failed to get BSSID. \n";
    expect_gets({{bssid, prints(address, std::string(200, 'x')), std::string(99, 'x')},
                 {bssid, prints(address, ""), "0:0:0:0:0:0", no_bssid},
                 {bssid, no_interface, kGetFailed},
                 {bssid, network.with("ifname", long_name) && prints(ask_address(long_name), "02:00"), "02:00"},
                 {bssid, network.with("ifname", std::string(5000, 'i')), kGetFailed}});

    const std::string count = "cat /proc/net/dev|grep -w " + network.interface;
    size_t next = 0;
    for (const char* counted : {"21", "11", "22", "12", "23", "13"}) {
      const At counter{counters[network.tree][next++], network.numbers};
      expect_gets({{counter, prints(count, " x: 11 12 13 0 0 0 0 0 21 22 23 0 0 0 0 0\n"), counted},
                   {counter, prints(count, ""), "0"},
                   {counter, no_interface, kGetFailed}});
    }
  }
}

TEST_F(WirelessNetwork, HasTheDevicesThatTheHostsTableShowsOnIt) {
  for (const Network& network : kNetworks) {
    const auto hosts = [&](const std::string& count) {
      const std::string seen = "\toption lay2if '" + network.section + "'\n";
      return file("/tmp/tr069/hosts",
                  "config host '1'\n\toption lay2if 'eth1'\n\toption mac 'a'\nconfig host '2'\n" + seen +
                      "\toption mac 'b'\n\toption ip 'ip'\n\toption SignalStrength '-66'\nconfig host '4'\n" + seen +
                      "config host '5'\n" + seen + "\toption mac 'e'\nconfig host '6'\n" + seen +
                      "config info 'info'\n\toption count '" + count + "'\n");
    };
    const Source no_count = file("/tmp/tr069/hosts", "");
    const At count = network.at(WLAN(AssociatedDeviceNumberOfEntries), MULTI(AssociatedDeviceNumberOfEntries),
                                ACCESS(AssociatedDeviceNumberOfEntries));
    expect_gets({{count, hosts("5"), "3"},
                 {count, hosts("00000000000000000005"), "3"},
                 {count, hosts("2147483647"), "4"},
                 {count, hosts("1"), "0"},
                 {count, hosts("none"), "0"},
                 {count, no_count, kGetFailed, "failed to get HINFO.\n"}});

    const bool in_device = network.tree == DEVICE;
    const char* const no_device = in_device ? "LE1\n" : "LE\n";
    const char* const no_mac = in_device ? "LE\n" : network.is_extra() ? "LE2.\n" : "LE2\n";
    const auto device = [&](const At& at, int32_t number) {
      Instances numbers = network.numbers;
      numbers.insert(numbers.begin() + (in_device ? 1 : 2), number);
      return At{at.handler, numbers};
    };
    const At mac = network.at(WLAN(AssociatedDevice_AssociatedDeviceMACAddress),
                              MULTI(AssociatedDevice_AssociatedDeviceMACAddress), ACCESS(AssociatedDevice_MACAddress));
    const At other =
        network.at(WLAN(AssociatedDevice_AssociatedDeviceIPAddress), MULTI(AssociatedDevice_AssociatedDeviceIPAddress),
                   ACCESS(AssociatedDevice_SignalStrength));
    for (const auto& [at, first, no_option] :
         {std::tuple{mac, "b", no_mac}, {other, in_device ? "-66" : "ip", in_device ? "LE\n" : "LE2\n"}}) {
      expect_gets({{device(at, 1), hosts("5"), first},
                   {device(at, 2), hosts("5"), kGetFailed, no_option},
                   {device(at, 4), hosts("5"), kGetFailed, no_device},
                   {device(at, 0), hosts("5"), kGetFailed, no_device},
                   {device(at, 1), no_count, kGetFailed, "failed to get HINFO.\n"}});
    }
    expect_gets({{device(mac, 3), hosts("5"), "e"}});

    std::string scattered = "config info 'info'\n\toption count '2147483647'\n";
    for (const char* row : {"2147483647", "10", "03", "4294967299", "2"})
      scattered += std::string("config host '") + row + "'\n\toption lay2if '" + network.section + "'\n\toption mac '" +
                   row + "'\n";
    const Source rows = file("/tmp/tr069/hosts", scattered);
    expect_gets({{count, rows, "3"},
                 {device(mac, 1), rows, "2"},
                 {device(mac, 2), rows, "10"},
                 {device(mac, 3), rows, "2147483647"},
                 {device(mac, 4), rows, kGetFailed, no_device}});
  }
  EXPECT_EQ(get(WLAN(AssociatedDeviceNumberOfEntries)), answered("1"));
  EXPECT_EQ(commands(), std::vector<std::string>{"/usr/bin/tr069/gen_hosts"});
}

// ---- Security ----

class WirelessSecurity : public TableTest {};

TEST_F(WirelessSecurity, IsOpenOrAPassphraseInTheOlderTree) {
  for (const Network& network : kNetworks) {
    if (network.tree == DEVICE) continue;
    const At beacon = network.at(WLAN(BeaconType), MULTI(BeaconType), nullptr);
    const At encryption = network.at(WLAN(WPAEncryptionModes), MULTI(WPAEncryptionModes), nullptr);
    const At authentication = network.at(WLAN(WPAAuthenticationMode), MULTI(WPAAuthenticationMode), nullptr);
    const std::string path = network.path("encryption");
    const std::string key = network.path("key");
    const Outcome done = accepted(network.mask());
    const char* const aes_only = network.is_extra() ? "AES only\n" : "AES only.\n";
    for (const auto& [stored, of_beacon, of_basic, of_encryption, of_authentication] :
         {std::tuple{std::string("psk2+ccmp"), "11i", "", "AESEncryption", "PSKAuthentication"},
          {std::string(500, ' ') + "psk", "11i", "", "AESEncryption", "PSKAuthentication"},
          {"none", "None", "None", "", ""},
          {"wep", "", "", "AESEncryption", ""}})
      expect_gets({{beacon, option(path, stored), of_beacon},
                   {encryption, option(path, stored), of_encryption},
                   {authentication, option(path, stored), of_authentication},
                   {WLAN(BasicEncryptionModes), option("wireless.wlan00.encryption", stored), of_basic}});
    for (const At& at : {beacon, encryption, authentication}) expect_gets({{at, option(path, ""), kGetFailed}});

    option(key, "own pass").put();
    const Source keyless = option(key, "") && option(path, "wep");
    const std::string passphrase = stores(path, "psk-mixed");
    for (const auto& [at, value] : {std::pair{beacon, "11i"}, {authentication, "PSKAuthentication"}}) {
      expect_stored(at, value, path, "psk-mixed", network.mask());
      expect_sets({{at, value, done, {passphrase, stores(key, "24681357")}, keyless},
                   {at, value, done, {passphrase}, keyless && write_fails(key)},
                   {at, "EAPAuthentication", kRefused}});
    }
    expect_sets({{beacon, "None", done, {stores(path, "none")}, keyless},
                 {authentication, "None", kRefused},
                 {encryption, "AESEncryption", accepted(), {logs(aes_only)}, option(path, "wep")},
                 {encryption, "AESEncryption", kRefused, {}, option(path, "none")},
                 {encryption, "AESEncryption", kRefused, {}, option(path, "")},
                 {encryption, "TKIPEncryption", kRefused, {}, option(path, "wep")}});
  }
  expect_stored(WLAN(BasicEncryptionModes), "None", "wireless.wlan00.encryption", "none", 0x2);
  expect_sets({{WLAN(BasicEncryptionModes), "WEPEncryption", kRefused}});
}

TEST_F(WirelessSecurity, WepModeIsThatOfAWepNetwork) {
  const auto wep = [](const char* encryption, const char* mode) {
    return option("wireless.wlan10.encryption", encryption) && option("wireless.wlan10.wep_mode", mode);
  };
  const At mode = {WLAN(BasicAuthenticationMode), {1, 2}};
  for (const auto& [text, stored] : {std::pair{"SharedAuthentication", "shared"}, {"None", "open"}, {"Auto", "auto"}}) {
    expect_gets({{mode, wep("wep", stored), text}, {mode, wep("wep+shared", stored), ""}});
    expect_stored(mode, text, "wireless.wlan10.wep_mode", stored, 0x2);
  }
  expect_gets({{mode, wep("wep", "mixed"), kGetFailed},
               {mode, wep("wep", ""), kGetFailed},
               {mode, wep("", "open"), kGetFailed}});
  expect_sets({{mode, "shared", kRefused}});
}

TEST_F(WirelessSecurity, WpsIsOneSettingForBothRadios) {
  const auto both = [](const std::string& option, const std::string& value) {
    return Effects{stores("wireless.wlan00." + option, value), stores("wireless.wlan10." + option, value)};
  };
  const auto wps = [](const char* first, const char* second) {
    return option("wireless.wlan00.wps", first) && option("wireless.wlan10.wps", second);
  };
  for (const Instances& anywhere : {Instances{1, 2}, Instances{7, 7}}) {
    const At enable = {WLAN(WPS_Enable), anywhere};
    const At pin = {WLAN(WPS_DevicePassword), anywhere};
    expect_options({{At{WLAN(WPS_DeviceName), anywhere}, "wireless.wps.wps_device_name", "Router"}});
    expect_gets({{enable, wps("on", "off"), "1"},
                 {enable, wps("1", "on"), "0"},
                 {enable, wps("", ""), kGetFailed},
                 {pin, option("wireless.wlan00.wps_pin", "12345670"), "0"}});
    expect_sets({{enable, "1", accepted(0x2), both("wps", "on"), wps("", "")},
                 {enable, "0", accepted(0x2), both("wps", "off"), wps("", "")},
                 {enable, "on", kRefused},
                 {enable, "1", kRefused, {}, wps("", "") && write_fails("wireless.wlan00")},
                 {enable, "1", kRefused, {both("wps", "on")[0]}, wps("", "") && write_fails("wireless.wlan10")},
                 {pin, "01234567", accepted(0x2), both("wps_pin", "01234567")}});
    for (const char* wrong : {"1234567", "123456789", "1234567x"}) expect_sets({{pin, wrong, kRefused}});
  }
}

TEST_F(WirelessSecurity, AnAccessPointHasOneOfSixModes) {
  const std::string psk = "None,WPA-PSK,WPA2-PSK,WPA-PSK/WPA2-PSK";
  for (const Network& network : kNetworks) {
    if (network.tree != DEVICE) continue;
    const std::string path = network.path("encryption");
    const std::string key = network.path("key");
    option(key, "own pass").put();
    const Source keyless = option(key, "") && option(path, "wep");
    const auto at = [&](parameter_handler handler) { return At{handler, network.numbers}; };
    const At mode = at(ACCESS(Security_ModeEnabled));
    for (const auto& [text, stored] : {std::pair{"WPA-PSK", "psk"},
                                       {"WPA2-PSK", "psk2"},
                                       {"WPA-PSK/WPA2-PSK", "psk-mixed"},
                                       {"WPA2-PSK/WPA3-SAE", "psk2psk3"},
                                       {"WPA3-SAE", "psk3"}}) {
      expect_gets({{mode, option(path, stored), text}});
      expect_sets({{mode, text, accepted(network.mask()), {stores(path, stored), stores(key, "24681357")}, keyless}});
    }
    expect_gets({{mode, option(path, "none"), "None"},
                 {mode, option(path, "psk2+ccmp"), ""},
                 {mode, option(path, ""), kGetFailed}});
    expect_stored(mode, "WPA3-SAE", path, "psk3", network.mask());
    expect_sets({{mode, "None", accepted(network.mask()), {stores(path, "none")}, keyless},
                 {mode, "WEP-64", kRefused, {logs("failed to set encry.\n")}}});

    const std::string radio = network.interface.starts_with("rai") ? "1" : "0";
    const auto has = [&](const char* modes) { return option("wireless.radio" + radio + ".hwmodes", modes); };
    expect_gets({{at(ACCESS(Security_ModesSupported)), has("11a 11ax"), psk + ",WPA2-PSK/WPA3-SAE,WPA3-SAE"},
                 {at(ACCESS(Security_ModesSupported)), has("11a 11ac"), psk},
                 {at(ACCESS(Security_ModesSupported)), has(""), psk},
                 {at(ACCESS(Security_EncryptionMode)), as_is, "AES"},
                 {at(ACCESS(SSIDReference)), as_is, "Device.WiFi.SSID." + std::to_string(network.numbers[0])},
                 {at(SSID(LowerLayers)), as_is, "Device.WiFi.Radio." + std::string(radio == "0" ? "1" : "2")}});
  }
}

// ---- Radios ----

const struct Radio {
  Instances numbers;
  bool wide;
  std::string section = wide ? "radio1" : "radio0";
  std::string network = wide ? "wlan10" : "wlan00";

  At at(parameter_handler handler) const { return {handler, numbers}; }
  std::string path(const std::string& name) const { return "wireless." + section + "." + name; }
  Source with(const std::string& name, const std::string& value) const { return option(path(name), value); }
} kRadios[] = {{{1, 0}, false}, {{1, 1}, false}, {{1, 2}, true}, {{2, 0}, true}};

class WirelessRadio : public TableTest {};

TEST_F(WirelessRadio, ChannelIsTheOneInUseOrElseTheStoredOne) {
  for (const Radio& radio : kRadios) {
    const At channel = radio.at(WLAN(Channel));
    const At automatic = radio.at(WLAN(AutoChannelEnable));
    const At frequency = radio.at(WLAN(X_KOVA_FrequencyInuse));
    const std::string iwinfo = std::string("iwinfo ") + (radio.wide ? "rai0" : "ra0") + " freqlist | ";
    const std::string ask = iwinfo + "grep '*' | awk '{print $2}' ";
    const std::string list = iwinfo + "sed -e 's/*//g' -e 's/)//g' | awk '{print $4}' |tr '\n' ' ' ";
    const Source no_interface = option("wireless." + radio.network + ".ifname", "");
    const auto set_to = [&](const char* stored) { return radio.with("channel", stored); };
    const auto used = [&](const char* number, const char* stored) {
      return prints(iwinfo + "grep '*' | awk '{print $5}' | sed 's/)//g'", number) && set_to(stored);
    };
    expect_gets({{channel, used("7\n8\n", "3"), "7"},
                 {channel, used("", "3"), "3"},
                 {channel, used("", "auto"), "0"},
                 {channel, used("", "Auto"), "Auto"},
                 {channel, used("", ""), kGetFailed, "failed to get ch\n"},
                 {channel, no_interface, kGetFailed},
                 {radio.at(WLAN(ChannelsInUse)), prints(list, "3 7 140 "), "3 7 140 "},
                 {radio.at(WLAN(ChannelsInUse)), no_interface, kUntouched},
                 {automatic, set_to("0"), "1"},
                 {automatic, set_to("auto"), "0"},
                 {frequency, prints(ask, "2.437\n"), "2.437GHz"},
                 {frequency, prints(ask, std::string(200, '9')), std::string(127, '9') + "GHz"},
                 {frequency, prints(ask, ""), "0GHz", "failed to get freq. \n"},
                 {frequency, no_interface, kGetFailed},
                 {radio.at(WLAN(X_KOVA_Band)), no_file("/etc/config/wireless"), radio.wide ? "5GHz" : "2.4GHz"}});

    const std::string path = radio.path("channel");
    const Source supported = prints(list, "3 7 140 ");
    expect_sets({{channel, "140", accepted(0x2), {stores(path, "140"), runs(list)}, supported},
                 {channel, "7", kRefused, {logs("invalid ch index\n\n")}, no_interface},
                 {channel, "7", kRefused, {runs(list), logs("failed to set ch\n\n")}, supported && write_fails(path)},
                 {automatic, "0", accepted(0x2), {stores(path, radio.wide ? "40" : "5")}, set_to("0")},
                 {automatic, "0", accepted(0x2), {}, set_to("0") && write_fails(path)},
                 {automatic, "0", accepted(), {}, set_to("7")},
                 {automatic, "2", kRefused, {}, set_to("0")}});
    for (const char* wrong : {"6", "0", "4294967299"})
      expect_sets({{channel, wrong, kRefused, {runs(list), logs("invalid ch index\n\n")}, supported}});
    expect_stored(automatic, "1", path, "0", 0x2);
  }
}

TEST_F(WirelessRadio, PowerAndWidthAreFromALadder) {
  for (const Radio& radio : kRadios) {
    const At power = radio.at(WLAN(TransmitPower));
    const At width = radio.at(WLAN(X_KOVA_Bandwidth));
    expect_options({{power, radio.path("txpower"), "100"}});
    expect_gets({{radio.at(WLAN(TransmitPowerSupported)), as_is, "{100,20,5}"},
                 {width, radio.with("htbw", "aUTO"), "Auto"},
                 {width, radio.with("htbw", "vht160"), "160MHz"},
                 {width, radio.with("htbw", "wide"), "wide"},
                 {width, radio.with("htbw", ""), kGetFailed, "uci get htbw error\n"}});
    for (const auto& [value, stored] : {std::pair{"100", "100"}, {"20", "20"}, {"5", "5"}, {"-1", "100"}})
      expect_stored(power, value, radio.path("txpower"), stored, 0x2, "failed to set txpwr\n");
    for (const auto& [value, stored, everywhere] : {std::tuple{"20MHz", "ht20", true},
                                                    {"40MHz", "ht40", true},
                                                    {"AUTO", "auto", true},
                                                    {"80MHz", "ht80", false},
                                                    {"160MHz", "ht160", false}}) {
      if (everywhere || radio.wide) {
        expect_stored(width, value, radio.path("htbw"), stored, 0x2, "failed to set bw.\n");
      } else {
        expect_sets({{width, value, kRefused, {logs("invalid htbw\n")}}});
      }
    }
    expect_sets(
        {{power, "50", kRefused, {logs(" txpwer invalid.\n")}}, {width, "20mhz", kRefused, {logs("invalid htbw\n")}}});
  }
}

TEST_F(WirelessRadio, StandardsAreThoseOfItsBand) {
  const std::vector<const char*> narrow = {"b", "g", "n", "bg", "ng", "bgn", "bgnax"};
  const std::vector<const char*> wide = {"a", "n", "an", "nac", "anac", "anacax"};
  for (const Radio& radio : kRadios) {
    const At standard = radio.at(RADIO(OperatingStandards));
    const std::string path = radio.path("hwmode");
    const std::string name = radio.section + " hwm\n";
    expect_gets({{standard, option(path, "x11y11"), "y11"},
                 {standard, option(path, "b"), "b"},
                 {standard, option(path, ""), kGetFailed, "failed to get " + name}});
    for (const std::string value : radio.wide ? wide : narrow)
      expect_stored(standard, value, path, "11" + value, 0x2, "failed to set " + name);
    for (const std::string value : {radio.wide ? "bgn" : "anac", "ac", ""})
      expect_sets({{standard, value, kRefused, {logs("no matched hwm 11" + value + " \n")}}});
  }
}

TEST_F(WirelessRadio, HasItsOwnAbilitiesAndAWidthInUse) {
  for (const Radio& radio : kRadios) {
    if (radio.numbers[1] != 0) continue;
    const std::string query = R"(ubus call wireless status '{"iface":")" + radio.network +
                              R"("}' | grep htbw | tr '"' ' ' | awk '{print $3}')";
    const At width = radio.at(RADIO(CurrentOperatingChannelBandwidth));
    for (const auto& [stored, text] :
         {std::pair{"ht20\n", "20MHz"}, {"ht40", "40MHz"}, {"ht80", "80MHz"}, {"ht160", "160MHz"}, {"auto", ""}})
      expect_gets({{width, prints(query, stored), text}});
    const At widths = radio.at(RADIO(SupportedOperatingChannelBandwidths));
    const At standards = radio.at(RADIO(SupportedStandards));
    const std::string known = radio.wide ? "a,an,anac" : "b,bg,bgn";
    const std::string all_widths = radio.wide ? "Auto,20MHz,40MHz,80MHz" : "Auto,20MHz,40MHz";
    expect_gets({{width, prints(query, ""), kGetFailed, "GCOCBE.\n"},
                 {widths, radio.with("ht160", "1"), all_widths + (radio.wide ? ",160MHz" : "")},
                 {widths, radio.with("ht160", "01"), all_widths},
                 {standards, radio.with("hwmodes", "11ax 11b"), known + (radio.wide ? ",anacax" : ",bgnax")},
                 {standards, radio.with("hwmodes", std::string(500, ' ') + "11ax"),
                  known + (radio.wide ? ",anacax" : ",bgnax")},
                 {standards, radio.with("hwmodes", "11a 11n"), known},
                 {standards, radio.with("hwmodes", ""), kGetFailed, "failed to get " + radio.section + " hwm\n"},
                 {radio.at(RADIO(Enable)), as_is, "1"},
                 {radio.at(RADIO(Status)), as_is, "Up"},
                 {radio.at(RADIO(SupportedFrequencyBands)), as_is, radio.wide ? "5GHz" : "2.4GHz"},
                 {radio.at(RADIO(AutoChannelSupported)), as_is, "1"}});
    expect_sets({{radio.at(RADIO(Enable)), "anything", accepted()}});
  }
  expect_gets({{WiFi_RadioNumberOfEntries, as_is, "2"},
               {WiFi_SSIDNumberOfEntries, as_is, "4"},
               {WiFi_AccessPointNumberOfEntries, as_is, "4"},
               {At{LANDevice_LANWLANConfigurationNumberOfEntries, {3, 3}}, as_is, "2"}});
}

// ---- What instance numbers mean ----

TEST_F(WirelessNetwork, NumbersThatMeanNothingFailBeforeAnythingIsDone) {
  for (const Row& row : kCatalogue) {
    std::vector<Instances> wrong;
    if (row.name.starts_with("LANDevice_WLAN") && !row.name.starts_with("LANDevice_WLANConfiguration_WPS_"))
      wrong = {{0, 0}, {0, 1}, {1, 3}, {1, -1}, {2, 1}, {2, 2}, {3, 0}};
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
  for (const auto& [handler, left] : {std::pair{&SSID(SSID), 2},
                                      {SSID(Status), 2},
                                      {ACCESS(Security_ModesSupported), 2},
                                      {ACCESS(Security_ModeEnabled), 4}}) {
    int32_t numbers[] = {4, 0};
    EXPECT_EQ(call(handler, 0, numbers, output, &agent), 0);
    EXPECT_EQ(numbers[0], left);
  }
}

}  // namespace
}  // namespace kova::test

// DeviceInfo, UserInterface, Users, LEDs and Time.
#include "pkg-dev/pkg-dev.h"
#include "support/tables.hpp"

#define INFO(parameter) DeviceInfo_##parameter
#define REMOTE(parameter) UserInterface_RemoteAccess_##parameter

namespace kova::test {
namespace {

class DeviceInfo : public TableTest {};

TEST_F(DeviceInfo, FixedTextsBoardAndFirmware) {
  expect_gets({{DeviceSummary, as_is, "InternetGatewayDevice:1.1[](Baseline:1,EthernetLAN:1)"},
               {LANDeviceNumberOfEntries, as_is, "1"},
               {WANDeviceNumberOfEntries, as_is, "1"},
               {INFO(SpecVersion), as_is, "1.0"},
               {INFO(FirstUseDate), as_is, "None"},
               {INFO(DeviceLog), as_is, ""},
               {INFO(SoftwareVersion), prints("cat /etc/rom_version", "KOVA 2.1.0\nsecond line\n"), "KOVA 2.1.0"},
               {INFO(SerialNumber), prints("bdinfo sn", std::string(70, 's') + "\n"), std::string(63, 's')},
               {INFO(SerialNumber), prints("bdinfo sn", ""), "01234567890", "NASNFUD.\n\n"}});
  expect_options({{INFO(Manufacturer), "system.board.manufacturer", "Kova"},
                  {INFO(ProductClass), "system.board.model", "IGD"},
                  {INFO(ProvisioningCode), "cwmp.info.provisioningcode", ""}});
  expect_stored(INFO(ProvisioningCode), "P-2", "cwmp.info.provisioningcode", "P-2", 0, "FTSPSC.\n");
  expect_sets(
      {{INFO(FirstUseDate), "x", kRefused, {logs("GFUDE.\n")}}, {INFO(DeviceLog), "x", kRefused, {logs("FTGDL.\n")}}});
  set(INFO(DeviceLog), "x");
  EXPECT_TRUE(seams().syslog[0].starts_with("pkg-dev.c, "));
}

TEST_F(DeviceInfo, OuiIsTheFirstSixDigitsOfTheMac) {
  for (const auto& [mac, oui, other] : {std::tuple{"AA-BB-CC-DD-EE-FF\n", "AABBCC", "AABBCC"},
                                        {"AA:BB:CC:DD:EE:FF", "AABBCC", "AABBCC"},
                                        {"A-B\n", "AB", "AB"},
                                        {"", "", "02a4f1"}})
    expect_gets(
        {{INFO(ManufacturerOUI), prints("bdinfo mac", mac), oui}, {INFO(OUI), prints("bdinfo mac", mac), other}});
  expect_gets({{INFO(ManufacturerOUI), no_pipes, kGetFailed, "FTGM.\n"}});
}

TEST_F(DeviceInfo, MemoryComesFromTheKernelsTable) {
  const auto table = [](const std::string& lines) { return prints("cat /proc/meminfo", lines); };
  const Source whole = table("MemTotal: 126000 kB\nMemFree:  60000 kB\nBuffers: 4000 kB\nCached: 30000 kB\n");
  // Of a repeated line the last counts; "SwapCached" must not count as "Cached", and nothing is used below zero.
  const Source odd = table("MemTotal: 1 kB\nMemTotal: 1000 kB\nCached: 100 kB\nSwapCached: 7 kB\n");
  expect_gets({{INFO(MemoryStatus_Total), whole, "126000"},
               {INFO(MemoryStatus_Free), whole, "60000"},
               {INFO(MemoryStatus_Used), whole, "32000"},
               {INFO(MemoryStatus_Total), odd, "1000"},
               {INFO(MemoryStatus_Free), odd, ""},
               {INFO(MemoryStatus_Used), odd, "893"},
               {INFO(MemoryStatus_Used), table("MemTotal: 10 kB\nMemFree: 20 kB\n"), "0"},
               {INFO(MemoryStatus_Total), no_pipes, kGetFailed, "FTOMI.\n"},
               {INFO(MemoryStatus_Used), no_pipes, kGetFailed, "FTOMI.\n"}});
}

TEST_F(DeviceInfo, OtherReadingsAreTheToolsOutput) {
  const std::string usage = "top -n1 | grep idle | grep irq | awk '{print $8}' | sed 's/%//g'";
  for (const auto& [handler, command, output, text, failure] :
       {std::tuple{&INFO(UpTime), std::string("cat /proc/uptime | awk -F '.' '{print $1}' "), "77\n", "77", "FTGU.\n"},
        {INFO(ProcessStatus_ProcessNumberOfEntries), "ps | sed '1d' | sed -n '$='", "42\n", "42", "FTGPNE.\n"},
        {INFO(ProcessStatus_CPUUsage), usage, "94\n", "6", "FTGCU.\n"},
        {INFO(ProcessStatus_CPUUsage), usage, "idle\n", "5", "FTGCU.\n"}})
    expect_gets({{handler, prints(command, output), text}, {handler, no_pipes, kGetFailed, failure}});
  for (const parameter_handler live :
       {INFO(UpTime), INFO(MemoryStatus_Used), INFO(ProcessStatus_ProcessNumberOfEntries)})
    EXPECT_GT(std::stol(get(live).text), 0);  // on the running kernel
  EXPECT_EQ(run(usage + " | grep -qx '[0-9.]*'"), 0) << "the line of this system's top is not understood";
}

// ---- Remote access ----

class RemoteAccess : public TableTest {};

TEST_F(RemoteAccess, SwitchingMarksOneBitForOnAndAnotherForOff) {
  const std::string path = "filter.remoteweb.enabled";
  const std::string port = "filter.remoteweb.https_port";
  for (const auto& [stored, text] : {std::pair{"", "0"}, {"0", "0"}, {"1", "1"}, {"off", "1"}, {"00", "1"}})
    expect_gets({{REMOTE(Enable), option(path, stored), text}});
  expect_options({{REMOTE(Port), port, "443"}});
  expect_stored(REMOTE(Enable), "1", path, "1", 0x200);
  expect_stored(REMOTE(Enable), "0", path, "", 0x400);
  expect_stored(REMOTE(Port), "any", port, "any", 0x200);
  expect_sets({{REMOTE(Enable), "yes", kRefused}});
}

// ---- Users ----

class Users : public TableTest {
 protected:
  void SetUp() override {
    DeviceTest::SetUp();
    write_file("/etc/config/rpcd",
               "config rpcd 'socket'\n\toption username 'no login'\nconfig login\n\toption username 'root'\n"
               "config login\nconfig login\n\toption username 'admin'\nconfig login 'g'\n\toption username 'guest'\n");
  }
};

TEST_F(Users, AreTheLoginsButForRoot) {
  const Source no_store = no_file("/etc/config/rpcd");
  const std::string no_accounts = "[ERR]uci failed to load config:rpcd\n";
  expect_gets({{Users_UserNumberOfEntries, as_is, "2"},
               {Users_UserNumberOfEntries, no_store, kGetFailed, no_accounts},
               {At{Users_User_Username, {1}}, as_is, "admin"},
               {At{Users_User_Username, {2}}, as_is, "guest"},
               {At{Users_User_Username, {3}}, as_is, kGetFailed},
               {At{Users_User_Username, {0}}, as_is, kGetFailed, "LE\n"},
               {At{Users_User_Username, {1}}, no_store, kGetFailed, no_accounts},
               {At{Users_User_Password, {1}}, as_is, ""}});
  expect_sets({{Users_UserNumberOfEntries, "9", accepted()}});
}

TEST_F(Users, PasswordsOfUsualLengthReachTheScriptUnquoted) {
  const std::string script = "/usr/bin/tr069/cwmp-user ";
  const std::string longest(64, 'p');
  const std::string name(600, 'n');
  const Source long_name = exits(0) && option("rpcd.g.username", name);
  const At admin{Users_User_Password, {1}};
  const At guest{Users_User_Password, {2}};
  expect_sets({{admin, "eight888", accepted(), {runs(script + "admin eight888")}, exits(0)},
               {admin, longest, accepted(), {runs(script + "admin " + longest)}, exits(256)},
               {admin, "two words", accepted(), {runs(script + "admin two words")}, exits(0)},
               {guest, "password", accepted(), {runs((script + name).substr(0, 510))}, long_name},
               {admin, "seven77", kRefused},
               {admin, longest + "p", kRefused},
               {At{Users_User_Password, {3}}, "for nobody", kRefused},
               {At{Users_User_Password, {0}}, "for nobody", kRefused, {logs("LE\n")}}});
  EXPECT_EQ(set(Users_User_Password, "new secret", {2}), accepted());
  EXPECT_EQ(config("rpcd.g.password"), "new");  // the router's own script takes its second word
}

// ---- LEDs ----

class Leds : public TableTest {};

TEST_F(Leds, AreSwitchedOnlyWhereTheBoardCan) {
  const std::string path = "system.board.ledctl";
  const std::string read = "uci get system.@system[0].leds";
  expect_gets({{LEDs_Enable, option(path, "1") && prints(read, "0\n"), "0"},
               {LEDs_Enable, option(path, "1") && prints(read, ""), "1"},
               {LEDs_Enable, option(path, "10"), "0"},
               {LEDs_Enable, option(path, ""), "0"}});
  const std::string written = "uci set system.@system[0].leds='0'";
  expect_sets({{LEDs_Enable, "0", accepted(APPLY_LEDS), {runs(written)}, option(path, "1") && prints(written, "")},
               {LEDs_Enable, "0", accepted(APPLY_LEDS), {}, option(path, "10")},
               {LEDs_Enable, "0", accepted(), {}, option(path, "")}});
}

TEST_F(Leds, AreTheKernelsInOrder) {
  const Source third = prints("ls /sys/class/leds/ | sed -n 3p", "power\n");
  const Source none = prints("ls /sys/class/leds/ | sed -n 3p", "");
  const auto bright = [&](const char* level) { return third && prints("cat /sys/class/leds/power/brightness", level); };
  const At name{LEDs_LED_Name, {3}};
  const At status{LEDs_LED_Status, {3}};
  expect_gets({{LEDs_LEDNumberOfEntries, prints("ls /sys/class/leds/ | wc -l", "7\n"), "7"},
               {LEDs_LEDNumberOfEntries, prints("ls /sys/class/leds/ | wc -l", ""), "2"},
               {name, third, "power"},
               {name, none, "led"},
               {At{LEDs_LED_Name, {0}}, as_is, kGetFailed, "LE\n"},
               {status, bright("0\n"), "Disabled"},
               {status, bright("255\n"), "InUse"},
               {status, bright(""), "Error"},
               {status, none, "Error"},
               {At{LEDs_LED_Status, {0}}, as_is, kGetFailed, "LE\n"}});
  if (!has_leds()) GTEST_SKIP() << "the router has no LEDs here";
  EXPECT_NE(get(LEDs_LED_Name), answered("led"));
}

// ---- Time ----

const std::string kNtp = "/usr/bin/tr069/cwmp-ntp ";

class Time : public TableTest {};

TEST_F(Time, NtpServersAreThePositionsOfTheList) {
  const std::string list = "config timeserver 'ntp'\n\toption enabled '1'\n\tlist server 'a'\n\tlist server 'b'\n";
  const std::string longer =
      "config timeserver\n\tlist server '1'\n\tlist server '2'\n\tlist server 'c'\n\tlist server 'd'\n";
  const std::string plain = "config timeserver\n\toption server 'plain'\n";
  for (const auto& [handler, server] :
       {std::pair{&Time_NTPServer1, "a"}, {Time_NTPServer2, "b"}, {Time_NTPServer3, "c"}, {Time_NTPServer4, "d"}})
    expect_gets(
        {{handler, package("system", plain + list + longer), server},
         {handler, package("system", plain), ""},
         {handler, package("system", "config timeserver\n" + list), "", "[ERR]uci failed to get server option\n"},
         {handler, no_file("/etc/config/system"), "", "[ERR]uci failed to load config:system\n"}});
  expect_gets({{Time_Enable, package("system", list), "1"}, {Time_Enable, package("system", plain), "0"}});
}

TEST_F(Time, ChangesAreTheScriptsWork) {
  for (const auto& [handler, command] : {std::pair{&Time_NTPServer1, "ntpserver 1"},
                                         {Time_NTPServer2, "ntpserver 2"},
                                         {Time_NTPServer3, "ntpserver 3"},
                                         {Time_NTPServer4, "ntpserver 4"},
                                         {Time_Enable, "enable"}})
    expect_sets({{handler, "x.example", accepted(), {runs(kNtp + command + " x.example")}, exits(256)}});
  const std::string zone = runs(kNtp + "timezoneinfo set CET-1");
  expect_sets({{Time_NTPServer4, "", accepted(), {runs(kNtp + "ntpserver 4")}, exits(0)},
               {Time_LocalTimeZone, "CET-1", accepted(), {zone}, exits(0)},
               {Time_LocalTimeZone, "CET-1", kRefused, {zone}, exits(256)},
               {Time_LocalTimeZone, "CET-1", kRefused, {zone}, exits(-1)},
               {Time_CurrentLocalTime, "now", accepted()},
               {Time_TimeZoneList, "x", accepted()}});
}

TEST_F(Time, ClockZoneAndZonesAreWhatToolsAndScriptSay) {
  const std::string longest(254, 'z');
  const Source zones = file("/tmp/tr069/timezonelist", "UTC\n" + longest + "\nCET-1CEST\n");
  exits(0).put();
  expect_gets({{Time_CurrentLocalTime, prints("date '+%F %X'", "2026-01-02 03:04:05\n"), "2026-01-02 03:04:05"},
               {Time_LocalTimeZone, prints("cat /tmp/tr069/curtimezone", "CET-1CEST\nmore\n"), "CET-1CEST"},
               {Time_TimeZoneList, zones && asks(kNtp + "timezonelist"), "UTC, " + longest + ", CET-1CEST, "},
               {Time_LocalTimeZone, asks(kNtp + "timezoneinfo get"), ""},
               {Time_TimeZoneList, as_is, kGetFailed, "read timezonelist error.\n"}});
}

TEST_F(Time, TheRoutersOwnScriptsAnswer) {
  EXPECT_EQ(set(Time_NTPServer1, "ntp.example"), accepted());
  EXPECT_EQ(get(Time_NTPServer1), answered("ntp.example"));
  const auto hour = [] { return get(Time_CurrentLocalTime).text.substr(11, 2); };
  const std::string here = hour();
  EXPECT_EQ(set(Time_LocalTimeZone, "CST-8"), accepted());
  EXPECT_EQ(get(Time_LocalTimeZone), answered("CST-8"));
  EXPECT_NE(hour(), here);
  EXPECT_EQ(set(Time_LocalTimeZone, "nowhere"), kRefused);
  EXPECT_TRUE(get(Time_TimeZoneList).text.ends_with(", "));
}

}  // namespace
}  // namespace kova::test

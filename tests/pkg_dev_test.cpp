// DeviceInfo, UserInterface, Users, LEDs and Time.
#include "pkg-dev/pkg-dev.h"
#include "support/device.hpp"

namespace kova::test {
namespace {

class DeviceInfo : public DeviceTest {};

TEST_F(DeviceInfo, ConstantsAndReadOnlyRefusals) {
  EXPECT_EQ(get(DeviceSummary), answered("InternetGatewayDevice:1.1[](Baseline:1,EthernetLAN:1)"));
  EXPECT_EQ(get(LANDeviceNumberOfEntries), answered("1"));
  EXPECT_EQ(get(WANDeviceNumberOfEntries), answered("1"));
  EXPECT_EQ(get(DeviceInfo_SpecVersion), answered("1.0"));
  EXPECT_EQ(get(DeviceInfo_FirstUseDate), answered("None"));
  EXPECT_EQ(get(DeviceInfo_DeviceLog), answered(""));
  EXPECT_EQ(set(DeviceInfo_FirstUseDate, "x"), kRefused);
  EXPECT_EQ(set(DeviceInfo_DeviceLog, "x"), kRefused);
  EXPECT_EQ(messages(), (std::vector<std::string>{"GFUDE.\n", "FTGDL.\n"}));
  EXPECT_TRUE(seams().syslog[0].starts_with("pkg-dev.c, "));
}

TEST_F(DeviceInfo, BoardOptionsAndWhatStandsInForThem) {
  configure("system.board.manufacturer", "Acme");
  configure("system.board.model", "R 1");
  EXPECT_EQ(get(DeviceInfo_Manufacturer), answered("Acme"));
  const parameter_handler model_handlers[] = {DeviceInfo_ProductClass, DeviceInfo_ModelName, DeviceInfo_Description,
                                              DeviceInfo_HardwareVersion};
  for (const parameter_handler handler : model_handlers) EXPECT_EQ(get(handler), answered("R 1"));
  configure("system.board.manufacturer", "");
  configure("system.board.model", "");
  EXPECT_EQ(get(DeviceInfo_Manufacturer), answered("Kova"));
  for (const parameter_handler handler : model_handlers) EXPECT_EQ(get(handler), answered("IGD"));
}

TEST_F(DeviceInfo, OuiIsTheFirstSixDigitsOfTheMac) {
  for (const char* mac : {"AA-BB-CC-DD-EE-FF\n", "AA:BB:CC:DD:EE:FF", "AABBCCDDEEFF\n"}) {
    seams().answer("bdinfo mac", mac);
    EXPECT_EQ(get(DeviceInfo_ManufacturerOUI), answered("AABBCC"));
    EXPECT_EQ(get(DeviceInfo_OUI), answered("AABBCC"));
  }
  seams().answer("bdinfo mac", "A-B\n");
  EXPECT_EQ(get(DeviceInfo_ManufacturerOUI), answered("AB"));
  EXPECT_EQ(get(DeviceInfo_OUI), answered("AB"));
  seams().answer("bdinfo mac", "");
  EXPECT_EQ(get(DeviceInfo_ManufacturerOUI), answered(""));
  EXPECT_EQ(get(DeviceInfo_OUI), answered("02a4f1"));
  seams().popen_fails = true;
  EXPECT_EQ(get(DeviceInfo_ManufacturerOUI), kGetFailed);
  EXPECT_TRUE(logged("FTGM.\n"));
}

TEST_F(DeviceInfo, SerialNumberAndVersions) {
  seams().answer("bdinfo sn", std::string(70, 's') + "\n");
  EXPECT_EQ(get(DeviceInfo_SerialNumber), answered(std::string(63, 's')));
  seams().answer("bdinfo sn", "");
  EXPECT_EQ(get(DeviceInfo_SerialNumber), answered("01234567890"));
  EXPECT_TRUE(logged("NASNFUD.\n\n"));

  write_file("/etc/rom_version", "KOVA 2.1.0\nsecond line\n");
  EXPECT_EQ(get(DeviceInfo_SoftwareVersion), answered("KOVA 2.1.0"));
  EXPECT_EQ(get(DeviceInfo_ModemFirmwareVersion), answered("KOVA 2.1.0"));
}

TEST_F(DeviceInfo, ProvisioningCodeIsTheAgentsOption) {
  EXPECT_EQ(set(DeviceInfo_ProvisioningCode, "P-1"), accepted());
  EXPECT_EQ(config("cwmp.info.provisioningcode"), "P-1");
  EXPECT_EQ(get(DeviceInfo_ProvisioningCode), answered("P-1"));
  run("rm /etc/config/cwmp");
  EXPECT_EQ(get(DeviceInfo_ProvisioningCode), answered(""));
  EXPECT_EQ(set(DeviceInfo_ProvisioningCode, "P-2"), kRefused);
  EXPECT_TRUE(logged("FTSPSC.\n"));
}

TEST_F(DeviceInfo, MemoryComesFromTheKernelsTable) {
  const char* const table =
      "MemTotal:         126000 kB\nMemFree:           60000 kB\nBuffers:            4000 kB\n"
      "Cached:            30000 kB\nSwapCached:            0 kB\n";
  seams().answer("cat /proc/meminfo", table);
  EXPECT_EQ(get(DeviceInfo_MemoryStatus_Total), answered("126000"));
  EXPECT_EQ(get(DeviceInfo_MemoryStatus_Free), answered("60000"));
  EXPECT_EQ(get(DeviceInfo_MemoryStatus_Used), answered("32000"));
  // Of a repeated line the last counts; "SwapCached" must not count as "Cached", and nothing is used below zero.
  seams().answer("cat /proc/meminfo", "MemTotal: 1 kB\nMemTotal: 1000 kB\nCached: 100 kB\nSwapCached: 7 kB\n");
  EXPECT_EQ(get(DeviceInfo_MemoryStatus_Used), answered("893"));
  EXPECT_EQ(get(DeviceInfo_MemoryStatus_Total), answered("1000"));
  EXPECT_EQ(get(DeviceInfo_MemoryStatus_Free), answered(""));
  seams().answer("cat /proc/meminfo", "MemTotal: 10 kB\nMemFree: 20 kB\n");
  EXPECT_EQ(get(DeviceInfo_MemoryStatus_Used), answered("0"));
}

TEST_F(DeviceInfo, LiveReadingsOfTheRunningKernel) {
  for (const parameter_handler handler :
       {DeviceInfo_UpTime, DeviceInfo_MemoryStatus_Total, DeviceInfo_MemoryStatus_Used,
        DeviceInfo_ProcessStatus_ProcessNumberOfEntries}) {
    const Answer answer = get(handler);
    EXPECT_EQ(answer.result, 0);
    EXPECT_GT(std::stol(answer.text), 0);
  }
  EXPECT_EQ(commands(), (std::vector<std::string>{"cat /proc/uptime | awk -F '.' '{print $1}' ", "cat /proc/meminfo",
                                                  "cat /proc/meminfo", "ps | sed '1d' | sed -n '$='"}));
  const int usage = std::stoi(get(DeviceInfo_ProcessStatus_CPUUsage).text);
  EXPECT_GE(usage, 0);
  EXPECT_LE(usage, 100);
  EXPECT_EQ(run(commands().back() + " | grep -qx '[0-9.]*'"), 0) << "the line of this system's top is not understood";
}

TEST_F(DeviceInfo, CpuUsageIsWhatIsNotIdle) {
  const char* const command = "top -n1 | grep idle | grep irq | awk '{print $8}' | sed 's/%//g'";
  seams().answer(command, "94\n");
  EXPECT_EQ(get(DeviceInfo_ProcessStatus_CPUUsage), answered("6"));
  seams().answer(command, "idle\n");
  EXPECT_EQ(get(DeviceInfo_ProcessStatus_CPUUsage), answered("5"));
}

TEST_F(DeviceInfo, AToolThatCannotBeStartedFailsTheGet) {
  seams().popen_fails = true;
  const std::pair<parameter_handler, const char*> getters[] = {
      {DeviceInfo_UpTime, "FTGU.\n"},
      {DeviceInfo_SoftwareVersion, "FTGDI.\n"},
      {DeviceInfo_MemoryStatus_Total, "FTOMI.\n"},
      {DeviceInfo_MemoryStatus_Free, "FTOMI.\n"},
      {DeviceInfo_MemoryStatus_Used, "FTOMI.\n"},
      {DeviceInfo_ProcessStatus_ProcessNumberOfEntries, "FTGPNE.\n"},
      {DeviceInfo_ProcessStatus_CPUUsage, "FTGCU.\n"}};
  for (const auto& [handler, message] : getters) {
    seams().syslog.clear();
    EXPECT_EQ(get(handler), kGetFailed);
    EXPECT_EQ(messages(), std::vector<std::string>{message});
  }
}

class RemoteAccess : public DeviceTest {};

TEST_F(RemoteAccess, SwitchingMarksOneBitForOnAndAnotherForOff) {
  EXPECT_EQ(set(UserInterface_RemoteAccess_Enable, "1"), accepted(APPLY_REMOTE_ACCESS));
  EXPECT_EQ(config("filter.remoteweb.enabled"), "1");
  EXPECT_EQ(get(UserInterface_RemoteAccess_Enable), answered("1"));
  EXPECT_EQ(set(UserInterface_RemoteAccess_Enable, "yes"), kRefused);
  EXPECT_EQ(set(UserInterface_RemoteAccess_Enable, "0"), accepted(APPLY_REMOTE_ACCESS_OFF));
  EXPECT_EQ(config("filter.remoteweb.enabled"), std::nullopt);
  EXPECT_EQ(get(UserInterface_RemoteAccess_Enable), answered("0"));
  configure("filter.remoteweb.enabled", "0");
  EXPECT_EQ(get(UserInterface_RemoteAccess_Enable), answered("0"));
  for (const char* text : {"on", "off", "00"}) {
    configure("filter.remoteweb.enabled", text);
    EXPECT_EQ(get(UserInterface_RemoteAccess_Enable), answered("1"));
  }
}

TEST_F(RemoteAccess, PortIsStoredAsGiven) {
  configure("filter.remoteweb.https_port", "");
  EXPECT_EQ(get(UserInterface_RemoteAccess_Port), answered("443"));
  EXPECT_EQ(set(UserInterface_RemoteAccess_Port, "99999"), accepted(APPLY_REMOTE_ACCESS));
  EXPECT_EQ(get(UserInterface_RemoteAccess_Port), answered("99999"));
  run("rm /etc/config/filter");
  EXPECT_EQ(set(UserInterface_RemoteAccess_Port, "443"), kRefused);
  for (const char* value : {"0", "1"}) EXPECT_EQ(set(UserInterface_RemoteAccess_Enable, value), kRefused);
}

class Users : public DeviceTest {
 protected:
  void SetUp() override {
    DeviceTest::SetUp();
    write_file("/etc/config/rpcd",
               "config rpcd 'socket'\n\toption username 'no login'\nconfig login\n\toption username 'root'\n"
               "config login\nconfig login\n\toption username 'admin'\nconfig login 'g'\n\toption username 'guest'\n");
  }
};

TEST_F(Users, AreTheLoginsButForRoot) {
  EXPECT_EQ(get(Users_UserNumberOfEntries), answered("2"));
  EXPECT_EQ(set(Users_UserNumberOfEntries, "9"), accepted());
  EXPECT_EQ(get(Users_User_Username, {1}), answered("admin"));
  EXPECT_EQ(get(Users_User_Username, {2}), answered("guest"));
  EXPECT_EQ(get(Users_User_Username, {3}), kGetFailed);
  EXPECT_TRUE(messages().empty());
  EXPECT_EQ(get(Users_User_Username, {0}), kGetFailed);
  EXPECT_EQ(set(Users_User_Password, "password", {0}), kRefused);
  EXPECT_EQ(messages(), std::vector<std::string>(2, "LE\n"));
  EXPECT_EQ(get(Users_User_Password, {1}), answered(""));
  run("rm /etc/config/rpcd");
  EXPECT_EQ(get(Users_UserNumberOfEntries), kGetFailed);
  EXPECT_TRUE(logged("[ERR]uci failed to load config:rpcd\n"));
}

TEST_F(Users, PasswordsOfUsualLengthReachTheScriptUnquoted) {
  const int done = 0;
  seams().system_status = [&](const std::string&) { return &done; };
  EXPECT_EQ(set(Users_User_Password, "seven77", {1}), kRefused);
  EXPECT_EQ(set(Users_User_Password, std::string(65, 'p'), {1}), kRefused);
  EXPECT_EQ(set(Users_User_Password, "for nobody", {3}), kRefused);
  EXPECT_TRUE(commands().empty());
  EXPECT_EQ(set(Users_User_Password, std::string(64, 'p'), {1}), accepted());
  EXPECT_EQ(set(Users_User_Password, "two word", {2}), accepted());
  const std::string longest(600, 'n');
  configure("rpcd.g.username", longest);
  EXPECT_EQ(set(Users_User_Password, "password", {2}), accepted());
  EXPECT_EQ(commands(), (std::vector<std::string>{"/usr/bin/tr069/cwmp-user admin " + std::string(64, 'p'),
                                                  "/usr/bin/tr069/cwmp-user guest two word",
                                                  ("/usr/bin/tr069/cwmp-user " + longest).substr(0, 510)}));
}

TEST_F(Users, ThePasswordIsTheRoutersThen) {
  EXPECT_EQ(set(Users_User_Password, "new secret", {2}), accepted());
  EXPECT_EQ(config("rpcd.g.password"), "new");  // the script's second word
}

class Leds : public DeviceTest {};

TEST_F(Leds, AreSwitchedOnlyWhereTheBoardCan) {
  configure("system.board.ledctl", "1");
  EXPECT_EQ(set(LEDs_Enable, "0"), accepted(APPLY_LEDS));
  EXPECT_EQ(commands().back(), "uci set system.@system[0].leds='0'");
  EXPECT_EQ(get(LEDs_Enable), answered("0"));
  run("uci set system.@system[0].leds=");
  EXPECT_EQ(get(LEDs_Enable), answered("1"));

  seams().commands.clear();
  for (const char* other : {"0", "10"}) {
    configure("system.board.ledctl", other);
    EXPECT_EQ(set(LEDs_Enable, "1"), accepted(APPLY_LEDS));
    EXPECT_EQ(get(LEDs_Enable), answered("0"));
  }
  configure("system.board.ledctl", "");
  EXPECT_EQ(set(LEDs_Enable, "1"), accepted());
  EXPECT_EQ(get(LEDs_Enable), answered("0"));
  EXPECT_TRUE(commands().empty());
}

TEST_F(Leds, AreTheKernelsInOrder) {
  if (!has_leds()) GTEST_SKIP() << "the router runs in place, without LEDs";
  const int count = std::stoi(get(LEDs_LEDNumberOfEntries).text);
  EXPECT_GT(count, 0);
  EXPECT_NE(get(LEDs_LED_Name, {1}), answered("led"));
  EXPECT_EQ(get(LEDs_LED_Name, {count + 1}), answered("led"));
  EXPECT_EQ(get(LEDs_LED_Status, {count + 1}), answered("Error"));
  EXPECT_EQ(get(LEDs_LED_Name, {0}), kGetFailed);

  seams().answer("ls /sys/class/leds/ | sed -n 1p", "power\n");
  const std::string brightness = "cat /sys/class/leds/power/brightness";
  seams().answer(brightness, "0\n");
  EXPECT_EQ(get(LEDs_LED_Status, {1}), answered("Disabled"));
  seams().answer(brightness, "255\n");
  EXPECT_EQ(get(LEDs_LED_Status, {1}), answered("InUse"));
  seams().answer(brightness, "");
  EXPECT_EQ(get(LEDs_LED_Status, {1}), answered("Error"));
  seams().answer("ls /sys/class/leds/ | wc -l", "");
  EXPECT_EQ(get(LEDs_LEDNumberOfEntries), answered("2"));
}

class Time : public DeviceTest {};

TEST_F(Time, NtpServersAreThePositionsOfTheList) {
  write_file("/etc/config/system",
             "config timeserver 'ntp'\n\toption enabled '1'\n\tlist server 'a'\n\tlist server 'b'\n");
  EXPECT_EQ(get(Time_Enable), answered("1"));
  EXPECT_EQ(get(Time_NTPServer1), answered("a"));
  EXPECT_EQ(get(Time_NTPServer2), answered("b"));
  EXPECT_EQ(get(Time_NTPServer3), answered(""));
  EXPECT_EQ(get(Time_NTPServer4), answered(""));
  write_file("/etc/config/system",
             "config timeserver 'ntp'\n\toption server 'plain'\nconfig timeserver\n\tlist server 'c'\n"
             "config timeserver\n\tlist server 'd'\n\tlist server 'e'\n");
  EXPECT_EQ(get(Time_NTPServer1), answered("c"));
  EXPECT_EQ(get(Time_NTPServer2), answered("e"));
  write_file("/etc/config/system", "config timeserver 'ntp'\n");
  EXPECT_EQ(get(Time_Enable), answered("0"));
  EXPECT_EQ(get(Time_NTPServer1), answered(""));
  EXPECT_TRUE(logged("[ERR]uci failed to get server option\n"));
  run("rm /etc/config/system");
  EXPECT_EQ(get(Time_NTPServer1), answered(""));
  EXPECT_TRUE(logged("[ERR]uci failed to load config:system\n"));
}

TEST_F(Time, ChangesAreTheScriptsWork) {
  int failed = 256;
  seams().system_status = [&](const std::string&) { return &failed; };
  const std::pair<parameter_handler, std::string> setters[] = {{Time_NTPServer1, "ntpserver 1"},
                                                               {Time_NTPServer2, "ntpserver 2"},
                                                               {Time_NTPServer3, "ntpserver 3"},
                                                               {Time_NTPServer4, "ntpserver 4"},
                                                               {Time_Enable, "enable"}};
  for (const auto& [handler, command] : setters) {
    EXPECT_EQ(set(handler, "x.example"), accepted());
    EXPECT_EQ(commands().back(), "/usr/bin/tr069/cwmp-ntp " + command + " x.example");
  }
  EXPECT_EQ(set(Time_NTPServer4, ""), accepted());
  EXPECT_EQ(commands().back(), "/usr/bin/tr069/cwmp-ntp ntpserver 4");
  for (const int status : {256, -1}) {
    failed = status;
    EXPECT_EQ(set(Time_LocalTimeZone, "CET-1"), kRefused);
    EXPECT_EQ(commands().back(), "/usr/bin/tr069/cwmp-ntp timezoneinfo set CET-1");
  }
  EXPECT_EQ(set(Time_CurrentLocalTime, "now"), accepted());
  EXPECT_EQ(set(Time_TimeZoneList, "x"), accepted());
}

TEST_F(Time, ZoneAndListAreReadFromWhatTheScriptWrites) {
  const int done = 0;
  seams().system_status = [&](const std::string&) { return &done; };
  write_file("/tmp/tr069/curtimezone", "CET-1CEST\nmore\n");
  const std::string longest(254, 'z');
  write_file("/tmp/tr069/timezonelist", "UTC\n" + longest + "\nCET-1CEST\n");
  EXPECT_EQ(get(Time_LocalTimeZone), answered("CET-1CEST"));
  EXPECT_EQ(get(Time_TimeZoneList), answered("UTC, " + longest + ", CET-1CEST, "));
  EXPECT_EQ(commands(),
            (std::vector<std::string>{"/usr/bin/tr069/cwmp-ntp timezoneinfo get", "cat /tmp/tr069/curtimezone",
                                      "/usr/bin/tr069/cwmp-ntp timezonelist"}));
  EXPECT_EQ(set(Time_LocalTimeZone, "UTC"), accepted());
  run("rm /tmp/tr069/timezonelist");
  EXPECT_EQ(get(Time_TimeZoneList), kGetFailed);
  EXPECT_TRUE(logged("read timezonelist error.\n"));
}

TEST_F(Time, TheRoutersOwnScriptsAnswer) {
  EXPECT_EQ(set(Time_NTPServer1, "ntp.example"), accepted());
  EXPECT_EQ(get(Time_NTPServer1), answered("ntp.example"));
  EXPECT_EQ(set(Time_NTPServer4, "fourth.example"), accepted());  // behind the end of the list: its third
  EXPECT_EQ(get(Time_NTPServer3), answered("fourth.example"));
  EXPECT_EQ(set(Time_NTPServer1, ""), accepted());
  EXPECT_EQ(get(Time_NTPServer2), answered("fourth.example"));

  const auto hour = [] { return get(Time_CurrentLocalTime).text.substr(11, 2); };
  EXPECT_EQ(set(Time_LocalTimeZone, "GMT0"), accepted());
  const std::string here = hour();
  EXPECT_EQ(commands().back(), "date '+%F %X'");
  EXPECT_EQ(set(Time_LocalTimeZone, "CST-8"), accepted());
  EXPECT_EQ(get(Time_LocalTimeZone), answered("CST-8"));
  EXPECT_NE(hour(), here);
  EXPECT_EQ(set(Time_LocalTimeZone, "nowhere"), kRefused);
  EXPECT_TRUE(get(Time_TimeZoneList).text.ends_with(", "));
}

}  // namespace
}  // namespace kova::test

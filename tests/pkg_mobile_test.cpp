// Cellular: the mobile interface, its modem and its access point.
#include "pkg-mobile/pkg-mobile.h"
#include "support/tables.hpp"

#define INTERFACE(parameter) Cellular_Interface_##parameter
#define ACCESS_POINT(parameter) Cellular_AccessPoint_##parameter

namespace kova::test {
namespace {

constexpr uint32_t kApplied = 0x2004;

Source link(const std::string& answer) { return status("network.interface.4g", answer); }
Source setting(const std::string& name, const std::string& value) { return option("network.4g." + name, value); }
const Source no_link = no_status("network.interface.4g");

class Cellular : public TableTest {
 protected:
  void SetUp() override {
    DeviceTest::SetUp();
    run("rm -rf /etc/lab/bus/network.gcom /var/run/4g");
    write_file("/etc/config/network", "config interface '4g'\n\toption cdevice '/dev/ttyUSB2'\n");
    link(R"({"up": true})").put();
  }
};

TEST_F(Cellular, WithoutTheInterfaceMostParametersHaveNothingToSay) {
  for (const Source& router : {no_link, link(R"({"proto": "gcom"})")}) {
    expect_gets({{Cellular_RoamingEnabled, router, "0"},
                 {Cellular_RoamingStatus, router, ""},
                 {INTERFACE(Enable), router, "0"},
                 {INTERFACE(Status), router, "Down"},
                 {INTERFACE(IPAddress), router, "0.0.0.0"},
                 {INTERFACE(SubnetMask), router, "0.0.0.0"},
                 {INTERFACE(AddressingType), router, ""},
                 {INTERFACE(Stats_BytesSent), router, "0"},
                 {ACCESS_POINT(Enable), router, "0"}});
    for (const parameter_handler handler :
         {INTERFACE(IMEI), INTERFACE(USIM_IMSI), INTERFACE(USIM_ICCID), INTERFACE(RSSI),
          INTERFACE(CurrentAccessTechnology), INTERFACE(RSRP), INTERFACE(RSRQ), INTERFACE(SINR), INTERFACE(CELLID)})
      expect_gets({{handler, router, kUntouched}});
    for (const parameter_handler handler : {ACCESS_POINT(APN), ACCESS_POINT(Username), ACCESS_POINT(Password)}) {
      expect_gets({{handler, router, kUntouched}});
      expect_sets({{handler, "text", accepted(), {}, router}});
    }
  }
}

TEST_F(Cellular, FixedTextsAndSwitches) {
  expect_gets({{Cellular_InterfaceNumberOfEntries, as_is, "1"},
               {Cellular_AccessPointNumberOfEntries, as_is, "1"},
               {INTERFACE(AddressingType), as_is, "DHCP"},
               {ACCESS_POINT(Interface), as_is, "Device.Cellular.Interface.1"},
               {ACCESS_POINT(Enable), link(R"({"up": false})"), "1"}});
  for (const auto& [handler, option, value, then, otherwise] :
       {std::tuple{&Cellular_RoamingEnabled, "roaming", "0", "0", "1"},
        {Cellular_RoamingStatus, "roaming", "0", "Home", "Roaming"},
        {INTERFACE(Enable), "disabled", "1", "0", "1"}})
    expect_gets({{handler, setting(option, value), then},
                 {handler, setting(option, "yes"), otherwise},
                 {handler, as_is, otherwise}});
}

TEST_F(Cellular, SwitchesApplyTheInterfaceWhateverTheValueAndTheLink) {
  no_link.put();
  for (const auto& [handler, value, option, stored, failure] :
       {std::tuple{&Cellular_RoamingEnabled, "0", "roaming", "0", "CREDSE.\n"},
        {Cellular_RoamingEnabled, "1", "roaming", "1", "CREDSE.\n"},
        {INTERFACE(Enable), "0", "disabled", "1", "CEDSE. \n"},
        {INTERFACE(Enable), "1", "disabled", "0", "CEDSE. \n"},
        {ACCESS_POINT(Enable), "0", "isp", "auto", "FTSCAIA.\n"}})
    expect_stored(handler, value, std::string("network.4g.") + option, stored, kApplied, failure);
  expect_sets({{Cellular_RoamingEnabled, "01", accepted(kApplied)},
               {INTERFACE(Enable), "", accepted(kApplied)},
               {ACCESS_POINT(Enable), "1", accepted(kApplied)}});
}

TEST_F(Cellular, StatusAddressAndCountersAreThoseOfTheLink) {
  const Source down =
      link(R"({"up": false, "ipv4-address": [{"address": "10.64.1.2", "mask": 30}, {"address": "10.0.0.9"}]})");
  expect_gets({{INTERFACE(Status), as_is, "Up"},
               {INTERFACE(Status), down, "Down"},
               {INTERFACE(IPAddress), as_is, "0.0.0.0"},
               {INTERFACE(IPAddress), down, "10.64.1.2"},
               {INTERFACE(SubnetMask), as_is, "0.0.0.0"},
               {INTERFACE(SubnetMask), down, "255.255.255.252"}});
  expect_counters("4g", COUNTERS(Cellular_Interface_Stats_));
}

TEST_F(Cellular, IdentityIsWhatTheModemServiceKeeps) {
  for (const auto& [handler, command, message] :
       {std::tuple{&INTERFACE(IMEI), "cat /var/run/4g/getimei", "failed to get IMEI. \n"},
        {INTERFACE(USIM_IMSI), "cat /var/run/4g/getimsi", "FTGIMSI. \n"},
        {INTERFACE(USIM_ICCID), "cat /var/run/4g/geticcid", "FTGICCID.\n"}}) {
    expect_gets({{handler, prints(command, std::string(120, '7') + "\n"), std::string(99, '7')},
                 {handler, prints(command, ""), "", message}});
  }
}

// ---- AT commands ----

const std::string kServingCell =
    R"(ubus call network.gcom at '{"device":"/dev/ttyUSB2","cmd":"AT+QENG=\"servingcell\""}' | grep '+QENG:')";

const std::pair<parameter_handler, const char*> kCellValues[] = {{INTERFACE(RSRP), "FTGRPR. \n"},
                                                                 {INTERFACE(RSRQ), "FTGRQ. \n"},
                                                                 {INTERFACE(SINR), "FTGSINR. \n"},
                                                                 {INTERFACE(CELLID), "FTGCID. \n"}};

TEST_F(Cellular, ServingCellValuesArePickedByAccessTechnology) {
  const std::tuple<const char*, const char*, const char*, std::vector<std::pair<const char*, const char*>>> cells[] = {
      {"nr5g-sa", "NR5G-SA", "tail -n 1", {{"13", "-92"}, {"14", "-11"}, {"15", "18"}, {"7", "1A2B3C001"}}},
      {"nr5g-nsa", "NR5G-NSA", "tail -n 2 | head -n 1", {{"12", "-97"}, {"13", "-12"}, {"15", "14"}, {"5", "2C3D4E2"}}},
      {"lte", "LTE", "tail -n 1", {{"14", "-101"}, {"15", "-13"}, {"17", "11"}, {"7", "3D4E5F3"}}}};
  for (const auto& [model, technology, pick, values] : cells) {
    const Source modem = file("/etc/lab/bus/network.gcom/at.json", R"({"script": "/usr/libexec/lab/modem-at"})") &&
                         file("/etc/lab/modem", model);
    expect_gets({{INTERFACE(CurrentAccessTechnology), modem && asks(kServingCell), technology}});
    size_t next = 0;
    for (const auto& [field, value] : values) {
      const std::string command = kServingCell + " | " + pick + " | awk -F, '{ print $" + field + " }'";
      expect_gets({{kCellValues[next++].first, modem && asks(command), value}});
    }
  }
}

TEST_F(Cellular, AccessTechnologyIsTheFirstKnownNameInTheAnswer) {
  expect_gets({{INTERFACE(CurrentAccessTechnology), prints(kServingCell, "LTE,NR5G-NSA\n"), "NR5G-NSA"},
               {INTERFACE(CurrentAccessTechnology), prints(kServingCell, "NR5G-NSA,NR5G-SA\n"), "NR5G-SA"}});
  const Source searching = prints(kServingCell, "+QENG: \"servingcell\",\"SEARCH\"\n");
  const Source silent = prints(kServingCell, "");
  expect_gets({{INTERFACE(CurrentAccessTechnology), searching, "UNKNOWN", "GCNMF.\n"},
               {INTERFACE(CurrentAccessTechnology), silent, "UNKNOWN", "GAQSF.. \n"}});
  for (const auto& [handler, message] : kCellValues) {
    expect_gets({{handler, searching, "", "GCNMF.\n"},
                 {handler, silent, "", "GAQSF.. \n"},
                 {handler, prints(kServingCell, "+QENG: \"servingcell\",\"LIMSRV\",\"LTE\"\n"), "", message}});
  }
}

TEST_F(Cellular, SignalStrengthIsTheFirstNumberOfTheModemsAnswer) {
  const std::string start = R"(ubus call network.gcom at '{"device":")";
  const std::string end = R"(","cmd":"AT+CSQ"}' | grep '+CSQ:' | awk '{print $3 }' | awk -F, '{ print $1 }')";
  const std::string command = start + "/dev/ttyUSB2" + end;
  const Source modem = file("/etc/lab/bus/network.gcom/at.json", R"({"reply": {"answer": "+CSQ: 23,99"}})");
  const std::string overlong(600, 'd');  // cut with its command
  expect_gets(
      {{INTERFACE(RSSI), modem && asks(command), "23"},
       {INTERFACE(RSSI), prints(command, ""), "", "failed to get RSSI. \n"},
       {INTERFACE(RSSI), setting("cdevice", overlong) && prints((start + overlong).substr(0, 510), "9\n"), "9"}});
}

TEST_F(Cellular, WithoutAControlDeviceThereIsNoQuestionToAsk) {
  setting("cdevice", "").put();
  const Answer failed{-1, "0"};
  for (const auto& [handler, message] : kCellValues) expect_gets({{handler, as_is, failed, " GCDE 4g \n\n"}});
  expect_gets({{INTERFACE(RSSI), as_is, failed, "GCDE 4g\n\n"},
               {INTERFACE(CurrentAccessTechnology), as_is, "0", "GCDE 4g \n\n"}});
  get(INTERFACE(RSSI));
  EXPECT_TRUE(seams().syslog.back().starts_with("pkg-mobile.c, "));
  EXPECT_TRUE(commands().empty());
}

// ---- Access point ----

const char kSimSlot[] = "cat /var/run/4g/simslot";

TEST_F(Cellular, CredentialsAreThoseOfTheSimSlot) {
  setting("isp", "manual").put();
  for (const auto& [handler, option, no_slot, not_stored] :
       {std::tuple{&ACCESS_POINT(APN), "apn", "FTGSS.\n", "FTSAN.\n"},
        {ACCESS_POINT(Username), "username", "FTGSS.\n", "FTSCAUN.\n"},
        {ACCESS_POINT(Password), "password", "FTGSS. \n", "FTSCAPW.\n"}}) {
    for (const std::string slot : {"", "2"}) {
      const Source sim = prints(kSimSlot, slot);
      const std::string name = option + slot;
      const std::string log = slot.empty() ? no_slot : "";
      expect_gets({{handler, sim, kUntouched, log}, {handler, sim && setting(name, "it's"), "it's", log}});
      Effects effects{stores("network.4g." + name, "it's"), runs(kSimSlot)};
      if (name.starts_with("apn")) effects.insert(effects.begin() + 1, mirrors("network.4g.isp", "manual"));
      if (slot.empty()) effects.push_back(logs(no_slot));
      expect_sets({{handler, "it's", accepted(), effects, sim}});
    }
    const Effects failed{runs(kSimSlot), logs(not_stored)};
    expect_sets({{handler, "lost", kRefused, failed, prints(kSimSlot, "2") && write_fails("network.4g")}});
  }
}

TEST_F(Cellular, AnAccessPointNameIsTheServersOrTheNetworks) {
  const std::string registered = "cat /var/run/4g/getregsta";
  setting("apn1", "internet").put();
  for (const char* isp : {"", "auto"}) {
    expect_gets({{ACCESS_POINT(APN), setting("isp", isp) && prints(registered, "cmnet\n"), "cmnet"},
                 {ACCESS_POINT(APN), setting("isp", isp) && prints(registered, ""), "", "FTGGR.\n"}});
  }
  expect_gets({{ACCESS_POINT(APN), setting("isp", "any") && prints(kSimSlot, "1\n"), "internet"}});

  const Source odd_slot = prints(kSimSlot, "1234567\n");  // of which an access point's option takes five characters
  expect_gets({{ACCESS_POINT(APN), odd_slot && setting("isp", "manual") && setting("apn12345", "five"), "five"},
               {ACCESS_POINT(Username), odd_slot && setting("username1234567", "all"), "all"}});

  const std::string name = stores("network.4g.apn2", "a.example");
  const std::string manual = stores("network.4g.isp", "manual");
  const Source second = prints(kSimSlot, "2");
  const Effects half = {name, runs(kSimSlot), logs("FTSCAIM.\n")};
  expect_sets({{ACCESS_POINT(APN), "a.example", accepted(), {name, manual, runs(kSimSlot)}, second},
               {ACCESS_POINT(APN), "a.example", kRefused, half, second && write_fails("network.4g.isp")}});
}

}  // namespace
}  // namespace kova::test

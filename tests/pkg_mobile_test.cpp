// Cellular: the mobile interface, its modem and its access point.
#include "pkg-mobile/pkg-mobile.h"
#include "support/device.hpp"

namespace kova::test {
namespace {

constexpr uint32_t kApplied = 0x2004;

const char kSimSlot[] = "cat /var/run/4g/simslot";

const parameter_handler kCounters[] = {Cellular_Interface_Stats_BytesSent,   Cellular_Interface_Stats_BytesReceived,
                                       Cellular_Interface_Stats_PacketsSent, Cellular_Interface_Stats_PacketsReceived,
                                       Cellular_Interface_Stats_ErrorsSent,  Cellular_Interface_Stats_ErrorsReceived};

class Cellular : public DeviceTest {
 protected:
  void SetUp() override {
    DeviceTest::SetUp();
    run("rm -rf /etc/lab/bus/network.gcom /var/run/4g");
    write_file("/etc/config/network", "config interface '4g'\n\toption cdevice '/dev/ttyUSB2'\n");
    interface_is(R"({"up": true})");
  }

  static void interface_is(const std::string& status) { answer_on_bus("network.interface.4g", "status", status); }
  static void no_interface() { run("rm -r /etc/lab/bus/network.interface.4g"); }
  static void modem_is(const std::string& cases) { answer_on_bus("network.gcom", "at", cases); }

  // What the modem's service keeps.
  static void service_has(const std::string& file, const std::string& text) {
    run("mkdir -p /var/run/4g");
    write_file("/var/run/4g/" + file, text);
  }

  static void break_store() { run("rm /etc/config/network"); }

 private:
  static void answer_on_bus(const std::string& object, const std::string& method, const std::string& answer) {
    run("mkdir -p /etc/lab/bus/" + object);
    write_file("/etc/lab/bus/" + object + "/" + method + ".json", answer);
  }
};

TEST_F(Cellular, WithoutTheInterfaceMostParametersHaveNothingToSay) {
  const struct {
    parameter_handler handler;
    std::string text;
  } answers[] = {
      {Cellular_RoamingEnabled, "0"},
      {Cellular_RoamingStatus, ""},
      {Cellular_Interface_Enable, "0"},
      {Cellular_Interface_Status, "Down"},
      {Cellular_Interface_IPAddress, "0.0.0.0"},
      {Cellular_Interface_SubnetMask, "0.0.0.0"},
      {Cellular_Interface_AddressingType, ""},
      {Cellular_Interface_IMEI, kUntouched},
      {Cellular_Interface_USIM_IMSI, kUntouched},
      {Cellular_Interface_USIM_ICCID, kUntouched},
      {Cellular_Interface_RSSI, kUntouched},
      {Cellular_Interface_CurrentAccessTechnology, kUntouched},
      {Cellular_Interface_RSRP, kUntouched},
      {Cellular_Interface_RSRQ, kUntouched},
      {Cellular_Interface_SINR, kUntouched},
      {Cellular_Interface_CELLID, kUntouched},
      {Cellular_AccessPoint_APN, kUntouched},
      {Cellular_AccessPoint_Enable, "0"},
      {Cellular_AccessPoint_Username, kUntouched},
      {Cellular_AccessPoint_Password, kUntouched},
  };
  for (const bool known_without_state : {false, true}) {
    known_without_state ? interface_is(R"({"proto": "gcom"})") : no_interface();
    for (const auto& [handler, text] : answers)
      EXPECT_EQ(get(handler), answered(text)) << &handler - &answers[0].handler;
    for (const parameter_handler counter : kCounters) EXPECT_EQ(get(counter), answered("0"));
    for (const auto& handler : {Cellular_AccessPoint_APN, Cellular_AccessPoint_Username, Cellular_AccessPoint_Password})
      EXPECT_EQ(set(handler, "text"), accepted());
  }
  EXPECT_TRUE(commands().empty());
  EXPECT_EQ(mirror("network.4g.apn"), std::nullopt);
}

TEST_F(Cellular, FixedTexts) {
  EXPECT_EQ(get(Cellular_InterfaceNumberOfEntries), answered("1"));
  EXPECT_EQ(get(Cellular_AccessPointNumberOfEntries), answered("1"));
  EXPECT_EQ(get(Cellular_AccessPoint_Interface), answered("Device.Cellular.Interface.1"));
  EXPECT_EQ(get(Cellular_Interface_AddressingType), answered("DHCP"));
  EXPECT_EQ(get(Cellular_AccessPoint_Enable), answered("1"));
}

TEST_F(Cellular, SwitchesAreReadFromTheStore) {
  const struct {
    parameter_handler handler;
    const char* option;
    const char* stored;  // empty: no such option
    const char* text;
  } cases[] = {
      {Cellular_RoamingEnabled, "roaming", "0", "0"},     {Cellular_RoamingEnabled, "roaming", "1", "1"},
      {Cellular_RoamingEnabled, "roaming", "yes", "1"},   {Cellular_RoamingEnabled, "roaming", "", "1"},
      {Cellular_RoamingStatus, "roaming", "0", "Home"},   {Cellular_RoamingStatus, "roaming", "1", "Roaming"},
      {Cellular_RoamingStatus, "roaming", "", "Roaming"}, {Cellular_Interface_Enable, "disabled", "1", "0"},
      {Cellular_Interface_Enable, "disabled", "0", "1"},  {Cellular_Interface_Enable, "disabled", "", "1"},
  };
  for (const auto& [handler, option, stored, text] : cases) {
    SCOPED_TRACE(std::string(option) + " " + stored);
    configure(std::string("network.4g.") + option, stored);
    EXPECT_EQ(get(handler), answered(text));
  }
}

TEST_F(Cellular, SwitchesApplyTheInterfaceWhateverTheValue) {
  const struct {
    parameter_handler handler;
    const char* option;
    const char* value;
    std::optional<std::string> written;
  } cases[] = {
      {Cellular_RoamingEnabled, "roaming", "yes", std::nullopt},
      {Cellular_RoamingEnabled, "roaming", "0", "0"},
      {Cellular_RoamingEnabled, "roaming", "1", "1"},
      {Cellular_RoamingEnabled, "roaming", "01", "1"},
      {Cellular_Interface_Enable, "disabled", "2", std::nullopt},
      {Cellular_Interface_Enable, "disabled", "0", "1"},
      {Cellular_Interface_Enable, "disabled", "1", "0"},
      {Cellular_Interface_Enable, "disabled", "", "0"},
      {Cellular_AccessPoint_Enable, "isp", "1", std::nullopt},
      {Cellular_AccessPoint_Enable, "isp", "0", "auto"},
  };
  no_interface();
  for (const auto& [handler, option, value, written] : cases) {
    SCOPED_TRACE(std::string(option) + " " + value);
    EXPECT_EQ(set(handler, value), accepted(kApplied));
    EXPECT_EQ(config(std::string("network.4g.") + option), written);
    EXPECT_EQ(mirror(std::string("network.4g.") + option), written);
  }

  break_store();
  EXPECT_EQ(set(Cellular_RoamingEnabled, "0"), kRefused);
  EXPECT_EQ(set(Cellular_Interface_Enable, "1"), kRefused);
  EXPECT_EQ(set(Cellular_AccessPoint_Enable, "0"), kRefused);
  for (const char* message : {"CREDSE.\n", "CEDSE. \n", "FTSCAIA.\n"}) EXPECT_TRUE(logged(message)) << message;
  EXPECT_EQ(set(Cellular_AccessPoint_Enable, "1"), accepted(kApplied));
}

TEST_F(Cellular, StatusAndAddressComeFromTheBus) {
  EXPECT_EQ(get(Cellular_Interface_Status), answered("Up"));
  EXPECT_EQ(get(Cellular_Interface_IPAddress), answered("0.0.0.0"));
  interface_is(R"({"up": false, "ipv4-address": [{"address": "10.64.1.2", "mask": 30}, {"address": "10.0.0.9"}]})");
  EXPECT_EQ(get(Cellular_Interface_Status), answered("Down"));
  EXPECT_EQ(get(Cellular_Interface_IPAddress), answered("10.64.1.2"));
  EXPECT_EQ(get(Cellular_Interface_SubnetMask), answered("255.255.255.252"));
  EXPECT_EQ(get(Cellular_AccessPoint_Enable), answered("1"));  // present, though down
}

TEST_F(Cellular, CountersAreThoseOfTheLayer3Device) {
  interface_is(R"({"up": true, "device": "cdc-wdm0", "l3_device": "wwan0"})");
  seams().answer("cat /proc/net/dev|grep -w wwan0", " wwan0: 11 12 13 0 0 0 0 0 21 22 23 0 0 0 0 0\n");
  const char* const expected[] = {"21", "11", "22", "12", "23", "13"};
  for (size_t i = 0; i < std::size(kCounters); ++i) EXPECT_EQ(get(kCounters[i]), answered(expected[i]));
}

TEST_F(Cellular, IdentityIsWhatTheModemServiceKeeps) {
  const struct {
    parameter_handler handler;
    const char* file;
    const char* message;
  } lines[] = {{Cellular_Interface_IMEI, "getimei", "failed to get IMEI. \n"},
               {Cellular_Interface_USIM_IMSI, "getimsi", "FTGIMSI. \n"},
               {Cellular_Interface_USIM_ICCID, "geticcid", "FTGICCID.\n"}};
  for (const auto& [handler, file, message] : lines) {
    SCOPED_TRACE(file);
    EXPECT_EQ(get(handler), answered(""));
    EXPECT_EQ(commands().back(), std::string("cat /var/run/4g/") + file);
    EXPECT_EQ(messages().back(), message);
    service_has(file, std::string(120, '7') + "\nmore\n");
    EXPECT_EQ(get(handler), answered(std::string(99, '7')));
    EXPECT_NE(messages().back(), message);
  }
}

// ---- AT commands ----

const std::string kServingCell =
    R"(ubus call network.gcom at '{"device":"/dev/ttyUSB2","cmd":"AT+QENG=\"servingcell\""}' | grep '+QENG:')";

// The answer to a command, one line each; the bus tool prints an array's elements below each other.
std::string answer_to(const std::string& command, const std::string& lines) {
  return R"({"when": {"device": "/dev/ttyUSB2", "cmd": ")" + command + R"("}, "reply": {"answer": [)" + lines + "]}}";
}

std::string serving_cell(const std::string& lines) { return answer_to(R"(AT+QENG=\"servingcell\")", lines); }

TEST_F(Cellular, SignalStrengthIsTheFirstNumberOfTheModemsAnswer) {
  modem_is(R"({"when": {"device": "/dev/ttyUSB2", "cmd": "AT+CSQ"}, "reply": {"answer": "+CSQ: 23,99"}})");
  EXPECT_EQ(get(Cellular_Interface_RSSI), answered("23"));
  EXPECT_EQ(
      commands(),
      std::vector<std::string>{
          R"(ubus call network.gcom at '{"device":"/dev/ttyUSB2","cmd":"AT+CSQ"}' | grep '+CSQ:' | awk '{print $3 }' | awk -F, '{ print $1 }')"});

  modem_is(R"({"status": 7})");
  EXPECT_EQ(get(Cellular_Interface_RSSI), answered(""));
  EXPECT_EQ(messages().back(), "failed to get RSSI. \n");
}

struct CellCase {
  const char* modem;  // the lab's
  const char* technology;
  const char* pick;       // the line selection of the command
  const char* fields[4];  // RSRP, RSRQ, SINR, CELLID
  const char* values[4];
};

const CellCase kCells[] = {
    {"nr5g-sa", "NR5G-SA", "tail -n 1", {"13", "14", "15", "7"}, {"-92", "-11", "18", "1A2B3C001"}},
    {"nr5g-nsa", "NR5G-NSA", "tail -n 2 | head -n 1", {"12", "13", "15", "5"}, {"-97", "-12", "14", "2C3D4E2"}},
    {"lte", "LTE", "tail -n 1", {"14", "15", "17", "7"}, {"-101", "-13", "11", "3D4E5F3"}},
};

const parameter_handler kCellValues[] = {Cellular_Interface_RSRP, Cellular_Interface_RSRQ, Cellular_Interface_SINR,
                                         Cellular_Interface_CELLID};

TEST_F(Cellular, ServingCellValuesArePickedByAccessTechnology) {
  modem_is(R"({"script": "/usr/libexec/lab/modem-at"})");
  for (const CellCase& cell : kCells) {
    SCOPED_TRACE(cell.technology);
    write_file("/etc/lab/modem", cell.modem);
    commands().clear();
    EXPECT_EQ(get(Cellular_Interface_CurrentAccessTechnology), answered(cell.technology));
    EXPECT_EQ(commands(), std::vector<std::string>{kServingCell});
    for (size_t i = 0; i < std::size(kCellValues); ++i) {
      commands().clear();
      EXPECT_EQ(get(kCellValues[i]), answered(cell.values[i]));
      const std::string value = kServingCell + " | " + cell.pick + " | awk -F, '{ print $" + cell.fields[i] + " }'";
      EXPECT_EQ(commands(), (std::vector<std::string>{kServingCell, value}));
    }
  }
}

TEST_F(Cellular, AnUnknownTechnologyHasNoCellValues) {
  modem_is(serving_cell(R"("+QENG: \"servingcell\",\"SEARCH\"")"));
  EXPECT_EQ(get(Cellular_Interface_CurrentAccessTechnology), answered("UNKNOWN"));
  EXPECT_EQ(messages().back(), "GCNMF.\n");
  for (const parameter_handler value : kCellValues) EXPECT_EQ(get(value), answered(""));

  modem_is(R"({"status": 7})");
  EXPECT_EQ(get(Cellular_Interface_CurrentAccessTechnology), answered("UNKNOWN"));
  EXPECT_EQ(messages().back(), "GAQSF.. \n");
  for (const parameter_handler value : kCellValues) EXPECT_EQ(get(value), answered(""));
  for (const std::string& command : commands()) EXPECT_EQ(command, kServingCell);
}

TEST_F(Cellular, AShortServingCellLineLeavesValuesEmpty) {
  const char* const expected[] = {"FTGRPR. \n", "FTGRQ. \n", "FTGSINR. \n", "FTGCID. \n"};
  modem_is(serving_cell(R"("+QENG: \"servingcell\",\"LIMSRV\",\"LTE\"")"));
  for (size_t i = 0; i < std::size(kCellValues); ++i) {
    EXPECT_EQ(get(kCellValues[i]), answered(""));
    EXPECT_EQ(messages().back(), expected[i]);
  }
}

TEST_F(Cellular, WithoutAControlDeviceThereIsNoQuestionToAsk) {
  configure("network.4g.cdevice", "");
  for (const parameter_handler value : kCellValues) {
    EXPECT_EQ(get(value), (Answer{-1, "0"}));
    EXPECT_EQ(messages().back(), " GCDE 4g \n\n");
  }
  EXPECT_EQ(get(Cellular_Interface_RSSI), (Answer{-1, "0"}));
  EXPECT_EQ(messages().back(), "GCDE 4g\n\n");
  EXPECT_EQ(get(Cellular_Interface_CurrentAccessTechnology), answered("0"));
  EXPECT_EQ(messages().back(), "GCDE 4g \n\n");
  EXPECT_TRUE(seams().syslog.back().starts_with("pkg-mobile.c, "));
  EXPECT_TRUE(commands().empty());
}

TEST_F(Cellular, AnOverlongDeviceIsCutWithItsCommand) {
  configure("network.4g.cdevice", std::string(600, 'd'));
  EXPECT_EQ(get(Cellular_Interface_RSSI), answered(""));
  EXPECT_EQ(commands().back().size(), 510U);
}

// ---- Access point ----

struct Credential {
  parameter_handler handler;
  std::string option;
  const char* no_slot;
  const char* not_stored;
};

const Credential kCredentials[] = {{Cellular_AccessPoint_APN, "apn", "FTGSS.\n", "FTSAN.\n"},
                                   {Cellular_AccessPoint_Username, "username", "FTGSS.\n", "FTSCAUN.\n"},
                                   {Cellular_AccessPoint_Password, "password", "FTGSS. \n", "FTSCAPW.\n"}};

TEST_F(Cellular, CredentialsAreThoseOfTheSimSlot) {
  configure("network.4g.isp", "manual");
  for (const auto& [handler, option, no_slot, not_stored] : kCredentials) {
    SCOPED_TRACE(option);
    const std::string path = "network.4g." + option;
    for (const std::string slot : {"", "2"}) {
      slot.empty() ? void(run("rm -rf /var/run/4g")) : service_has("simslot", slot + "\n");
      seams().syslog.clear();
      EXPECT_EQ(get(handler), answered(kUntouched));
      EXPECT_EQ(logged(no_slot), slot.empty());
      seams().syslog.clear();
      EXPECT_EQ(set(handler, "value " + slot), accepted());
      EXPECT_EQ(logged(no_slot), slot.empty());
      EXPECT_EQ(commands().back(), kSimSlot);
      EXPECT_EQ(config(path + slot), "value " + slot);
      EXPECT_EQ(mirror(path + slot), "value " + slot);
      EXPECT_EQ(get(handler), answered("value " + slot));
    }
    break_store();
    EXPECT_EQ(set(handler, "lost"), kRefused);
    EXPECT_EQ(messages().back(), not_stored);
    write_file("/etc/config/network", "config interface '4g'\n\toption isp 'manual'\n");
  }
}

TEST_F(Cellular, AnAccessPointNameIsTheServersOrTheNetworks) {
  service_has("simslot", "1\n");
  configure("network.4g.apn1", "internet");
  for (const char* isp : {"", "auto"}) {
    configure("network.4g.isp", isp);
    run("rm -f /var/run/4g/getregsta");
    EXPECT_EQ(get(Cellular_AccessPoint_APN), answered(""));
    EXPECT_EQ(messages().back(), "FTGGR.\n");
    service_has("getregsta", "cmnet\n");
    EXPECT_EQ(get(Cellular_AccessPoint_APN), answered("cmnet"));
    EXPECT_EQ(commands().back(), "cat /var/run/4g/getregsta");
  }
  EXPECT_EQ(set(Cellular_AccessPoint_APN, "private.example"), accepted());
  EXPECT_EQ(config("network.4g.isp"), "manual");
  EXPECT_EQ(get(Cellular_AccessPoint_APN), answered("private.example"));
  EXPECT_EQ(set(Cellular_AccessPoint_Enable, "0"), accepted(kApplied));
  EXPECT_EQ(get(Cellular_AccessPoint_APN), answered("cmnet"));
}

TEST_F(Cellular, AnAccessPointNameThatCannotBeMadeTheOneInUseFailsTheSet) {
  seams().on_log = [](const std::string& message) {
    if (message.ends_with("uci set network.4g.isp=manual.\n\n")) break_store();
  };
  EXPECT_EQ(set(Cellular_AccessPoint_APN, "private.example"), kRefused);
  EXPECT_EQ(messages().back(), "FTSCAIM.\n");
}

TEST_F(Cellular, AnAccessPointNameIsKeptUnderEightCharacters) {
  service_has("simslot", "1234567\n");
  EXPECT_EQ(set(Cellular_AccessPoint_APN, "long"), accepted());
  EXPECT_EQ(config("network.4g.apn12345"), "long");
  EXPECT_EQ(set(Cellular_AccessPoint_Username, "user"), accepted());
  EXPECT_EQ(config("network.4g.username1234567"), "user");
}

}  // namespace
}  // namespace kova::test

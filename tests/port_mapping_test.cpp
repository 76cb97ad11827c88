// Port mappings: the firewall's redirect sections, in all their places.
#include "pkg-wan/pkg-wan.h"
#include "support/device.hpp"

#define IP(parameter) WANDevice_WANConnectionDevice_WANIPConnection_##parameter
#define PPP(parameter) WANDevice_WANConnectionDevice_WANPPPConnection_##parameter

namespace kova::test {
namespace {

class PortMapping : public DeviceTest {
 protected:
  void SetUp() override {
    DeviceTest::SetUp();
    write_file("/etc/config/firewall",
               "config rule\n\toption src_dport '1'\n"
               "config redirect 'web'\n\toption name 'web'\n\toption proto 'tcp'\n\toption src_dport '8080'\n"
               "\toption dest_ip '192.168.1.10'\n\toption dest_port '80'\n"
               "config rule\n\toption src_dport '2'\n"
               "config redirect\n\toption name 'game'\n\toption proto 'udp'\n\toption src_dport '27015'\n"
               "\toption dest_ip '192.168.1.30'\n\toption dest_port '27016'\n"
               "config forwarding\n"
               "config redirect\n");
  }
};

const char kReload[] = "/usr/bin/tr069/cwmp-nat &\n";

// Where a mapping with this number is found.
Instances below_wan(int32_t number) { return {1, 1, 1, number}; }

struct Field {
  parameter_handler nat;
  std::vector<parameter_handler> wan;
  const char* option;
  const char* second;   // of the mapping 2
  const char* value;    // to set, as written
  const char* written;  // in the command
};

const Field kFields[] = {
    {NAT_PortMapping_ExternalPort,
     {IP(PortMapping_ExternalPort), PPP(PortMapping_ExternalPort)},
     "src_dport",
     "27015",
     "65534",
     "src_dport='65534'"},
    {NAT_PortMapping_InternalPort,
     {IP(PortMapping_InternalPort), PPP(PortMapping_InternalPort)},
     "dest_port",
     "27016",
     "1",
     "dest_port='1'"},
    {NAT_PortMapping_Protocol,
     {IP(PortMapping_PortMappingProtocol), PPP(PortMapping_PortMappingProtocol)},
     "proto",
     "udp",
     "tcp udp",
     "proto='tcp udp'"},
    {NAT_PortMapping_InternalClient,
     {IP(PortMapping_InternalClient), PPP(PortMapping_InternalClient)},
     "dest_ip",
     "192.168.1.30",
     "10.0.0.9",
     "dest_ip=10.0.0.9"},
    {NAT_PortMapping_Description, {IP(PortMapping_PortMappingDescription)}, "name", "game", "new", "name=new"},
};

TEST_F(PortMapping, AreTheRedirectSections) {
  for (const parameter_handler handler :
       {IP(PortMappingNumberOfEntries), PPP(PortMappingNumberOfEntries), NAT_PortMappingNumberOfEntries}) {
    EXPECT_EQ(get(handler), answered("3"));
    EXPECT_EQ(set(handler, "4"), kRefused);
  }
  for (const Field& field : kFields) {
    EXPECT_EQ(get(field.nat, {2}), answered(field.second));
    EXPECT_EQ(get(field.nat, {3}), answered(""));
    for (const int32_t nowhere : {4, 0, -1}) EXPECT_EQ(get(field.nat, {nowhere}), kGetFailed);
    for (const parameter_handler handler : field.wan) {
      EXPECT_EQ(get(handler, below_wan(2)), answered(field.second));
      EXPECT_EQ(get(handler, below_wan(3)), answered(""));
    }
  }
  EXPECT_TRUE(messages().empty());
}

TEST_F(PortMapping, ChangesAreWrittenAtOnceAndAppliedOnce) {
  const auto expect_change = [](parameter_handler handler, const Field& field, const Instances& first,
                                const Instances& second) {
    SCOPED_TRACE(field.option);
    ASSERT_EQ(run("/sbin/lab-reset"), 0);
    write_file("/etc/config/firewall", "config redirect 'web'\nconfig rule\nconfig redirect\n");
    EXPECT_EQ(set(handler, field.value, first), accepted(APPLY_TASK_COMMANDS));
    EXPECT_EQ(commands().back(), std::string("uci set firewall.web.") + field.written + " && uci commit");
    EXPECT_EQ(set(handler, field.value, second), accepted(APPLY_TASK_COMMANDS));
    EXPECT_EQ(get(handler, second), answered(field.value));
    for (const char* section : {"firewall.web.", "firewall.@redirect[1]."})
      EXPECT_EQ(config(std::string(section) + field.option), field.value);
    EXPECT_EQ(config(std::string("firewall.@rule[0].") + field.option), std::nullopt);
    EXPECT_EQ(task_record_once(), kReload);
    EXPECT_EQ(task_record(), "");
  };
  for (const Field& field : kFields) {
    expect_change(field.nat, field, {1}, {2});
    for (const parameter_handler handler : field.wan) expect_change(handler, field, below_wan(1), below_wan(2));
  }
}

TEST_F(PortMapping, ValuesAreCheckedBeforeAnythingElse) {
  run("rm /etc/config/firewall");
  const struct {
    parameter_handler handler;
    const char* value;
    const char* message;  // nullptr for none
  } refused[] = {{NAT_PortMapping_ExternalPort, "0", nullptr},
                 {NAT_PortMapping_ExternalPort, "65535", nullptr},
                 {NAT_PortMapping_ExternalPort, "", nullptr},
                 {NAT_PortMapping_ExternalPort, "4294967376", nullptr},
                 {NAT_PortMapping_InternalPort, "65535", nullptr},
                 {NAT_PortMapping_InternalPort, "http", nullptr},
                 {NAT_PortMapping_Protocol, "tcpudp", nullptr},
                 {NAT_PortMapping_Protocol, "", nullptr},
                 {NAT_PortMapping_InternalClient, "host", "mal format ip\n"},
                 {NAT_PortMapping_InternalClient, "10.0.0.9 ", "mal format ip\n"}};
  for (const auto& [handler, value, message] : refused) {
    seams().syslog.clear();
    EXPECT_EQ(set(handler, value, {1}), kRefused) << value;
    EXPECT_EQ(messages(), message != nullptr ? std::vector<std::string>{message} : std::vector<std::string>{});
  }
  EXPECT_TRUE(commands().empty());
  EXPECT_EQ(task_record_once(), "");
}

TEST_F(PortMapping, ValuesReachTheStoreAsTheyAreOrInTheListsSpelling) {
  EXPECT_EQ(set(NAT_PortMapping_ExternalPort, "80 and more", {1}), accepted(APPLY_TASK_COMMANDS));
  EXPECT_EQ(config("firewall.web.src_dport"), "80 and more");
  for (const auto& [value, written] :
       {std::pair{"TCP", "tcp"}, {"Udp", "udp"}, {"TCP UDP", "tcp udp"}, {"Other", "other"}}) {
    EXPECT_EQ(set(NAT_PortMapping_Protocol, value, {1}), accepted(APPLY_TASK_COMMANDS));
    EXPECT_EQ(config("firewall.web.proto"), written);
  }
  // Unquoted, the shell splits a description: what follows the blank is a stray word to the tool.
  EXPECT_EQ(set(NAT_PortMapping_Description, "two words", {1}), accepted(APPLY_TASK_COMMANDS));
  EXPECT_EQ(commands().back(), "uci set firewall.web.name=two words && uci commit");
}

TEST_F(PortMapping, ANumberBeyondTheLastChangesNothingYetReloads) {
  const std::string before = *contents("/etc/config/firewall");
  for (const int32_t nowhere : {4, 0, -1}) {
    for (const Field& field : kFields) {
      run("rm -f /tmp/tr069/cmd_record_once");
      EXPECT_EQ(set(field.nat, field.value, {nowhere}), accepted(APPLY_TASK_COMMANDS));
      EXPECT_EQ(task_record_once(), kReload);
    }
  }
  EXPECT_TRUE(commands().empty());
  EXPECT_EQ(contents("/etc/config/firewall"), before);
}

TEST_F(PortMapping, AChangeThatCannotBeRecordedFailsThoughWritten) {
  run("rm -r /tmp/tr069");
  for (const Field& field : kFields) {
    EXPECT_EQ(set(field.nat, field.value, {1}), kRefused);
    EXPECT_EQ(messages().back(), "SPME.\n");
    EXPECT_EQ(config(std::string("firewall.web.") + field.option), field.value);
  }
}

TEST_F(PortMapping, ACommandThatWouldBeCutIsNotRun) {
  EXPECT_EQ(set(NAT_PortMapping_Description, std::string(2000, 'x'), {1}), kRefused);
  EXPECT_TRUE(commands().empty());
  EXPECT_EQ(task_record_once(), "");
}

TEST_F(PortMapping, WithoutAFirewallEverythingFails) {
  run("rm /etc/config/firewall");
  EXPECT_EQ(get(NAT_PortMappingNumberOfEntries), kGetFailed);
  EXPECT_EQ(messages().back(), "[ERR]uci failed to load config:firwall\n");
  for (const Field& field : kFields) {
    seams().syslog.clear();
    EXPECT_EQ(get(field.nat, {1}), kGetFailed);
    EXPECT_EQ(set(field.nat, field.value, {1}), kRefused);
    EXPECT_EQ(messages(), std::vector<std::string>(2, "[ERR]uci failed to load config:firewall\n"));
  }
  EXPECT_EQ(task_record_once(), "");
}

}  // namespace
}  // namespace kova::test

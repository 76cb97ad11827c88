// Port mappings: the firewall's redirect sections, in all their places.
#include "pkg-wan/pkg-wan.h"
#include "support/tables.hpp"

#define IP(parameter) WANDevice_WANConnectionDevice_WANIPConnection_PortMapping_##parameter
#define NAT(parameter) NAT_PortMapping_##parameter

namespace kova::test {
namespace {

const Source no_firewall = no_file("/etc/config/firewall");
const Source others_wait = file("/tmp/.uci/firewall", "firewall.game.target='DNAT'\n");
const std::string kReload = records_once("/usr/bin/tr069/cwmp-nat &");

struct Field {
  parameter_handler nat;
  parameter_handler wan;
  std::string option;
  const char* stored;   // of the mapping "game"
  const char* value;    // to set
  std::string written;  // as in the command

  // Where the mapping with this number is found.
  std::vector<At> places(int32_t number) const { return {{nat, {number, 9, 9, 9}}, {wan, {9, 9, 9, number}}}; }
};

const Field kFields[] = {
    {NAT(ExternalPort), IP(ExternalPort), "src_dport", "27015", "65534", "'65534'"},
    {NAT(InternalPort), IP(InternalPort), "dest_port", "27016", "1", "'1'"},
    {NAT(Protocol), IP(PortMappingProtocol), "proto", "udp", "TCP UDP", "'tcp udp'"},
    {NAT(InternalClient), IP(InternalClient), "dest_ip", "192.168.1.30", "10.0.0.9", "10.0.0.9"},
    {NAT(Description), IP(PortMappingDescription), "name", "game", "new", "new"},
};

class PortMapping : public TableTest {
 protected:
  void SetUp() override {
    DeviceTest::SetUp();
    write_file("/etc/config/firewall",
               "config rule\n\toption src_dport '1'\nconfig redirect\nconfig rule\n\toption src_dport '2'\n"
               "config redirect 'game'\n\toption name 'game'\n\toption proto 'udp'\n\toption src_dport '27015'\n"
               "\toption dest_ip '192.168.1.30'\n\toption dest_port '27016'\nconfig forwarding\n");
  }
};

TEST_F(PortMapping, AreTheRedirectSections) {
  expect_gets({{NAT_PortMappingNumberOfEntries, as_is, "2"},
               {NAT_PortMappingNumberOfEntries, no_firewall, kGetFailed, "[ERR]uci failed to load config:firwall\n"}});
  for (const Field& field : kFields) {
    for (const At& at : field.places(1)) expect_gets({{at, as_is, ""}});
    for (const At& at : field.places(2))
      expect_gets(
          {{at, as_is, field.stored}, {at, no_firewall, kGetFailed, "[ERR]uci failed to load config:firewall\n"}});
    for (const int32_t nowhere : {3, -1}) expect_gets({{At{field.nat, {nowhere}}, as_is, kGetFailed}});
    for (const At& at : field.places(0)) expect_gets({{at, as_is, kGetFailed, "LE\n"}});
  }
}

TEST_F(PortMapping, ChangesAreWrittenAtOnceAndAppliedLater) {
  for (const Field& field : kFields) {
    const std::string command = runs("uci set firewall.game." + field.option + "=" + field.written + " && uci commit");
    const std::string kept_value =
        field.written.starts_with('\'') ? std::string("'") + field.stored + "'" : field.stored;
    const std::string kept = runs("uci set firewall.game." + field.option + "=" + kept_value + " && uci commit");
    const std::string value = field.option == "proto" ? "tcp udp" : field.value;
    const std::string change = changes("firewall.game." + field.option, value);
    for (const At& at : field.places(2))
      expect_sets({{at, field.value, accepted(APPLY_TASK_COMMANDS), {change, kReload, command}},
                   {at, field.value, kRefused, {change, command, logs("SPME.\n")}, no_file("/tmp/tr069")},
                   {at, field.value, kRefused, {logs("SPME.\n")}, no_room},
                   {at, field.stored, accepted(APPLY_TASK_COMMANDS), {kReload, kept}, no_room},
                   {at, field.stored, kRefused, {logs("SPME.\n")}, no_room && others_wait},
                   {at, field.value, kRefused, {logs("[ERR]uci failed to load config:firewall\n")}, no_firewall}});
    for (const int32_t nowhere : {3, 0, -1})  // nothing to write, yet the firewall is reloaded
      expect_sets({{At{field.nat, {nowhere}}, field.value, accepted(APPLY_TASK_COMMANDS), {kReload}}});
  }
  EXPECT_EQ(set(NAT(ExternalPort), "8080", {1}), accepted(APPLY_TASK_COMMANDS));
  EXPECT_EQ(config("firewall.@redirect[0].src_dport"), "8080");
}

TEST_F(PortMapping, ValuesAreWrittenAsTheyAreOrInTheListsSpelling) {
  for (const auto& [handler, value, written] :
       {std::tuple{&NAT(ExternalPort), "80 and more", "src_dport='80 and more'"},
        {NAT(Protocol), "TCP", "proto='tcp'"},
        {NAT(Protocol), "Udp", "proto='udp'"},
        {NAT(Protocol), "Other", "proto='other'"},
        {NAT(Description), "two words", "name=two words"}}) {  // which the shell splits
    const std::string command = runs(std::string("uci set firewall.game.") + written + " && uci commit");
    expect_sets({{At{handler, {2}}, value, accepted(APPLY_TASK_COMMANDS), {kReload, command}, exits(0)}});
  }
}

TEST_F(PortMapping, ValuesAreCheckedBeforeAnythingElse) {
  for (const parameter_handler port : {NAT(ExternalPort), NAT(InternalPort)})
    for (const char* value : {"0", "65535", "4294967376"}) expect_sets({{port, value, kRefused, {}, no_firewall}});
  expect_sets({{NAT(Protocol), "tcpudp", kRefused, {}, no_firewall},
               {NAT(InternalClient), "10.0.0.9 ", kRefused, {logs("mal format ip\n")}, no_firewall},
               {NAT(Description), std::string(5000, 'x'), kRefused, {logs("SPME.\n")}}});  // the command would be cut
}

}  // namespace
}  // namespace kova::test

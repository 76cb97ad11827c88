// The calling form, which differs between processors: what is taken from the argument list, and what happens to it.
#include <gtest/gtest.h>

#include <regex>

#include "support/catalogue.hpp"
#include "support/device.hpp"
#include "support/watched_list.hpp"

namespace kova::test {
namespace {

const int32_t kFirstRow[] = {1, 1, 1, 1, 0, 0};

// Calls twice with one list; only a handler that works on a copy sees the same arguments again.
std::pair<int32_t, int32_t> call_twice(parameter_handler handler, int32_t operation, ...) {
  va_list arguments;
  va_start(arguments, operation);
  const int32_t first = handler(operation, arguments);
  const int32_t second = handler(operation, arguments);
  va_end(arguments);
  return {first, second};
}

class HandlerForm : public DeviceTest {};

TEST_F(HandlerForm, GettersTakeTheAgentRecordOnlyWhereTheyReportIt) {
  const std::regex report_the_agent(
      "ManagementServer_(ConnectionRequestURL|UDPConnectionRequestAddress|NATDetected|STUN.*)|"
      "WANDevice_WAN(EthernetInterfaceConfig|ConnectionDevice_WANIPConnection)_MACAddress");
  const agent_state agent = running_agent();
  for (const Row& row : kCatalogue) {
    static char output[65536];
    WatchedList list(kFirstRow, output, &agent);
    list.call(row.handler, 0);
    EXPECT_EQ(list.third_was_taken(), std::regex_match(row.name, report_the_agent)) << row.name;
  }
}

TEST_F(HandlerForm, ReadOnlyHandlersRefuseEverySetWithoutTakingTheMask) {
  for (const Row& row : kCatalogue) {
    if (row.access != Access::READ_ONLY) continue;
    SCOPED_TRACE(row.name);
    for (const int32_t operation : {1, 5, -1}) {
      WatchedList list(kFirstRow, "1", nullptr);
      EXPECT_EQ(list.call(row.handler, operation), -1);
      EXPECT_FALSE(list.third_was_taken());
    }
  }
  EXPECT_TRUE(commands().empty());
}

TEST_F(HandlerForm, SettersThatMarkNothingNeverTakeTheMask) {
  for (const auto& [handler, value, result] :
       {std::tuple{&ManagementServer_KickURL, "http://kick.example", 0},
        {ManagementServer_EnableResetFactory, "0", 0},
        {ManagementServer_PeriodicInformEnable, "yes", -1},
        {DeviceInfo_ProvisioningCode, "code", 0},
        {Time_CurrentLocalTime, "2026-01-01T00:00:00", 0},
        {X_KOVA_AppCfg_DynDnsCfg_Enable, "2", -1},
        {Cellular_AccessPoint_APN, "apn", 0},
        {WANDevice_WANConnectionDevice_WANIPConnection_MaxMTUSize, "1541", -1},
        {WANDevice_WANConnectionDevice_WANPPPConnection_Username, "subscriber@isp.example", 0},
        {NAT_PortMapping_ExternalPort, "65535", -1}}) {
    WatchedList list(kFirstRow, value, nullptr);
    EXPECT_EQ(list.call(handler, 1), result) << value;
    EXPECT_FALSE(list.third_was_taken()) << value;
  }
}

TEST_F(HandlerForm, HandlersWorkOnACopyOfTheList) {
  char url[1024] = {};
  agent_state agent = running_agent();
  EXPECT_EQ(call_twice(ManagementServer_ConnectionRequestURL, 0, kFirstRow, url, &agent), std::pair(0, 0));
  EXPECT_STREQ(url, "http://192.0.2.10:7547/kova");

  uint32_t mask = 0x80000000;
  EXPECT_EQ(call_twice(ManagementServer_Username, 5, kFirstRow, "cpe", &mask), std::pair(0, 0));
  EXPECT_EQ(mask, 0x80000000 | APPLY_MANAGEMENT);

  // What is forwarded is a copy of the list as it was given.
  const int32_t lan[] = {2, 1};
  EXPECT_EQ(call_twice(IP_Interface_IPv4Address_IPAddress, 0, lan, url, &agent), std::pair(0, 0));
  EXPECT_STREQ(url, "192.168.1.1");
  EXPECT_EQ(call_twice(IP_Interface_IPv4Address_IPAddress, -1, lan, "192.168.1.2", &mask), std::pair(0, 0));
  EXPECT_EQ(mask, 0x80000000 | APPLY_MANAGEMENT | APPLY_TASK_COMMANDS);
}

}  // namespace
}  // namespace kova::test

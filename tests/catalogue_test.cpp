// What holds for every handler of the catalogue.
#include "support/catalogue.hpp"

#include <dirent.h>

#include <algorithm>
#include <climits>
#include <optional>
#include <sstream>

#include "support/tables.hpp"

namespace kova::test {
namespace {

const Instances kFirstRow = {1, 1, 1, 1, 0, 0};

// All that a call answered and did.
struct Observed {
  std::string answer;
  std::vector<std::string> deeds;
  bool operator==(const Observed&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Observed& observed) {
  return out << observed.answer << " " << testing::PrintToString(observed.deeds);
}

template <typename Work>
Observed observe(Work work) {
  const seam::Snapshot before = seam::Snapshot::of_lab();
  seams().commands.clear();
  seams().syslog.clear();
  std::ostringstream answer;
  answer << work();
  std::vector<std::string> deeds = effects_since(before);
  for (const std::string& command : seams().commands) deeds.push_back(runs(command));
  deeds.insert(deeds.end(), seams().syslog.begin(), seams().syslog.end());
  before.restore();
  return {answer.str(), deeds};
}

Outcome set_with(int32_t operation, parameter_handler handler, const std::string& value) {
  uint32_t mask = 0;
  const int32_t result = call(handler, operation, kFirstRow.data(), value.c_str(), &mask);
  return {result, mask};
}

Observed observe_get(parameter_handler handler) {
  return observe([=] { return get(handler, kFirstRow); });
}

Observed observe_set(parameter_handler handler, const std::string& value, int32_t operation = 1) {
  return observe([=] { return set_with(operation, handler, value); });
}

// A value that the handler accepts; nothing when it takes none of the common ones.
std::optional<std::string> accepted_value(parameter_handler handler) {
  const seam::Snapshot before = seam::Snapshot::of_lab();
  std::optional<std::string> found;
  for (const char* value : kCommonValues) {
    if (!found && set(handler, value, kFirstRow).result == 0) found = value;
  }
  before.restore();
  return found;
}

int open_descriptors() {
  int count = 0;
  DIR* const directory = opendir("/proc/self/fd");
  while (readdir(directory) != nullptr) ++count;
  closedir(directory);
  return count;
}

// A router whose commands all print and do the same, and whose bus is as simple, so that nothing is run.
class Catalogue : public TableTest {
 protected:
  void SetUp() override {
    DeviceTest::SetUp();
    seams().popen_answer = [line = std::string("1\n")](const std::string& /*command*/) { return &line; };
    exits(0).put();
    for (const char* interface : {"network.interface.wan", "network.interface.4g"})
      status(interface, R"({"up": true, "uptime": 7, "device": "eth0", "l3_device": "eth0"})").put();
    configure("wireless.wlan02.encryption", "psk2");
    configure("network.wan.proto", "static");
    write_file("/tmp/tr069/check", "config result 'result'\n\toption set_result '1'\n");
    write_file("/tmp/tr069/hosts", "config host '1'\n\toption ip '192.168.1.10'\n");
  }
};

TEST_F(Catalogue, EveryOperationButZeroSets) {
  for (const Row& row : kCatalogue) {
    if (row.access == Access::READ_ONLY) continue;
    SCOPED_TRACE(row.name);
    const auto value = accepted_value(row.handler);
    EXPECT_NE(value, std::nullopt);
    if (!value) continue;
    const Observed expected = observe_set(row.handler, *value);
    for (const int32_t operation : {5, -1, INT_MIN}) EXPECT_EQ(observe_set(row.handler, *value, operation), expected);
  }
}

TEST_F(Catalogue, GetsLeaveTheRoutersFilesAlone) {
  const seam::Snapshot before = seam::Snapshot::of_lab();
  for (const Row& row : kCatalogue) {
    get(row.handler, kFirstRow);
    EXPECT_EQ(effects_since(before), Effects{}) << row.name;
  }
}

TEST_F(Catalogue, NobodyLogsWithoutTheDebugFileOrLeavesADescriptorOpen) {
  run("rm /tmp/cwmp_debug");
  const seam::Snapshot before = seam::Snapshot::of_lab();
  const int descriptors = open_descriptors();
  for (const Row& row : kCatalogue) {
    SCOPED_TRACE(row.name);
    get(row.handler, kFirstRow);
    get(row.handler, {0, 0, 0, 0, 0, 0});
    for (const char* value : {"1", "10.0.0.1", "Requested", ""}) set(row.handler, value, kFirstRow);
    EXPECT_EQ(open_descriptors(), descriptors);
    EXPECT_TRUE(seams().syslog.empty() && seams().stderr_log.empty());
    before.restore();
  }
}

TEST_F(Catalogue, TextsOfAnyLengthAreCopiedWhole) {
  const std::string text(5000, 'x');
  const auto host = [&](const std::string& option) {
    return file("/tmp/tr069/hosts", "config info 'info'\n\toption count '" + text + "'\nconfig host '1'\n\toption " +
                                        option + " '" + text + "'\n");
  };
  const Source servers =
      package("system", "config timeserver 'ntp'\n\tlist server 'a'\n\tlist server '" + text + "'\n");
  expect_gets({{LANDevice_Hosts_HostNumberOfEntries, host("ip"), text},
               {LANDevice_Hosts_Host_IPAddress, host("ip"), text},
               {LANDevice_Hosts_Host_HostName, host("hostname"), text},
               {Hosts_Host_PhysAddress, host("mac"), text},
               {Hosts_Host_HostName, host("hostname"), text},
               {Time_NTPServer2, servers, text},
               {ManagementServer_URL, option("cwmp.info.url", text), text},
               {LANDevice_LANHostConfigManagement_DHCPLeaseTime,
                option("dhcp.lan.leasetime", "2" + std::string(300, ' ') + "h"), "7200"}});
}

// ---- Aliases ----

struct Alias {
  parameter_handler alias, target;
};

#define LAN(name) LANDevice_LANHostConfigManagement_##name
#define WAN_IP(name) WANDevice_WANConnectionDevice_WANIPConnection_##name
#define WAN_PPP(name) WANDevice_WANConnectionDevice_WANPPPConnection_##name
#define WLAN(name) LANDevice_WLANConfiguration_##name

const Alias kAliases[] = {
    {DeviceInfo_ModelName, DeviceInfo_ProductClass},
    {DeviceInfo_Description, DeviceInfo_ProductClass},
    {DeviceInfo_HardwareVersion, DeviceInfo_ProductClass},
    {DeviceInfo_ModemFirmwareVersion, DeviceInfo_SoftwareVersion},
    {LAN(IPRouters), LAN(IPInterface_IPInterfaceIPAddress)},
    {LAN(IPInterface_DHCPServerEnable), LAN(DHCPServerEnable)},
    {LAN(IPInterface_MinAddress), LAN(MinAddress)},
    {LAN(IPInterface_MaxAddress), LAN(MaxAddress)},
    {LAN(IPInterface_DHCPLeaseTime), LAN(DHCPLeaseTime)},
    {DHCPv4_Server_Enable, LAN(DHCPServerEnable)},
    {DHCPv4_Server_Pool_Enable, LAN(DHCPServerEnable)},
    {DHCPv4_Server_Pool_LeaseTime, LAN(DHCPLeaseTime)},
    {DHCPv4_Server_Pool_MinAddress, LAN(MinAddress)},
    {DHCPv4_Server_Pool_MaxAddress, LAN(MaxAddress)},
    {DHCPv4_Server_Pool_IPRouters, LAN(IPInterface_IPInterfaceIPAddress)},
    {DHCPv4_Server_Pool_DNSServers, LAN(DNSServers)},
    {DHCPv4_Server_Pool_SubnetMask, LAN(Subnetmask)},
    {Hosts_HostNumberOfEntries, LANDevice_Hosts_HostNumberOfEntries},
    {X_KOVA_AppCfg_DynDnsCfg_Login, X_KOVA_AppCfg_DynDnsCfg_Enable},
    {WANDevice_WANEthernetInterfaceConfig_MACAddress, WAN_IP(MACAddress)},
    {WANDevice_WANEthernetInterfaceConfig_Stats_BytesSent, WANDevice_WANCommonInterfaceConfig_TotalBytesSent},
    {WANDevice_WANEthernetInterfaceConfig_Stats_BytesReceived, WANDevice_WANCommonInterfaceConfig_TotalBytesReceived},
    {WANDevice_WANEthernetInterfaceConfig_Stats_PacketsSent, WANDevice_WANCommonInterfaceConfig_TotalPacketsSent},
    {WANDevice_WANEthernetInterfaceConfig_Stats_PacketsReceived,
     WANDevice_WANCommonInterfaceConfig_TotalPacketsReceived},
    {NAT_PortMappingNumberOfEntries, WAN_IP(PortMappingNumberOfEntries)},
    {NAT_PortMapping_ExternalPort, WAN_IP(PortMapping_ExternalPort)},
    {NAT_PortMapping_InternalPort, WAN_IP(PortMapping_InternalPort)},
    {NAT_PortMapping_Protocol, WAN_IP(PortMapping_PortMappingProtocol)},
    {NAT_PortMapping_InternalClient, WAN_IP(PortMapping_InternalClient)},
    {NAT_PortMapping_Description, WAN_IP(PortMapping_PortMappingDescription)},
    {WAN_PPP(PortMappingNumberOfEntries), WAN_IP(PortMappingNumberOfEntries)},
    {WAN_PPP(PortMapping_ExternalPort), WAN_IP(PortMapping_ExternalPort)},
    {WAN_PPP(PortMapping_InternalPort), WAN_IP(PortMapping_InternalPort)},
    {WAN_PPP(PortMapping_PortMappingProtocol), WAN_IP(PortMapping_PortMappingProtocol)},
    {WAN_PPP(PortMapping_InternalClient), WAN_IP(PortMapping_InternalClient)},
    {WLAN(IEEE11iEncryptionModes), WLAN(WPAEncryptionModes)},
    {WLAN(IEEE11iAuthenticationMode), WLAN(WPAAuthenticationMode)},
    {WLAN(MultiSSID_IEEE11iEncryptionModes), WLAN(MultiSSID_WPAEncryptionModes)},
    {WLAN(MultiSSID_IEEE11iAuthenticationMode), WLAN(MultiSSID_WPAAuthenticationMode)},
    {WLAN(Standard), WiFi_Radio_OperatingStandards},
    {WiFi_Radio_OperatingFrequencyBand, WiFi_Radio_SupportedFrequencyBands},
    {WiFi_Radio_OperatingChannelBandwidth, WLAN(X_KOVA_Bandwidth)},
    {WiFi_Radio_ChannelsInUse, WLAN(ChannelsInUse)},
    {WiFi_Radio_Channel, WLAN(Channel)},
    {WiFi_Radio_AutoChannelEnable, WLAN(AutoChannelEnable)},
    {WiFi_Radio_TransmitPowerSupported, WLAN(TransmitPowerSupported)},
    {WiFi_Radio_TransmitPower, WLAN(TransmitPower)},
    {WiFi_SSID_MACAddress, WiFi_SSID_BSSID},
    {WiFi_AccessPoint_Enable, WiFi_SSID_Enable},
};

TEST_F(Catalogue, AnAliasAnswersAndDoesWhatItsTargetDoes) {
  for (const auto& [alias, target] : kAliases) {
    SCOPED_TRACE(name_of(alias));
    EXPECT_EQ(observe_get(alias), observe_get(target));
    const std::string value = accepted_value(target).value_or("1");
    EXPECT_EQ(observe_set(alias, value), observe_set(target, value));
  }
}

}  // namespace
}  // namespace kova::test

// LAN address, DHCP server and hosts, in both trees.
#include "pkg-lan/pkg-lan.h"
#include "support/tables.hpp"

#define LAN(parameter) LANDevice_LANHostConfigManagement_##parameter
#define LAN_IP(parameter) LANDevice_LANHostConfigManagement_IPInterface_##parameter
#define LAN_HOST(parameter) LANDevice_Hosts_Host_##parameter

namespace kova::test {
namespace {

class LanAddress : public TableTest {};

TEST_F(LanAddress, IsReadFromTheStore) {
  expect_options({{LAN_IP(IPInterfaceIPAddress), "network.lan.ipaddr", kGetFailed, "FTGLI.\n"},
                  {LAN_IP(IPInterfaceSubnetMask), "network.lan.netmask", kGetFailed, "FTGLM.\n"},
                  {LAN(Subnetmask), "network.lan.netmask", kGetFailed, "FTGLM.\n"},
                  {LAN_IP(IPInterfaceAddressingType), "network.lan.proto", Answer{-1, ""}}});
}

TEST_F(LanAddress, ChangesAreRecordedForLater) {
  expect_recorded(LAN_IP(IPInterfaceIPAddress), "192.168.2.1", "lan_ip \"192.168.2.1\" &");
  expect_recorded(LAN_IP(IPInterfaceSubnetMask), "255.0.255.0", "lan_mask \"255.0.255.0\" &");
  expect_sets({{LAN_IP(IPInterfaceIPAddress), "192.168.2", kRefused, {logs("mal format ip\n")}},
               {LAN_IP(IPInterfaceSubnetMask), "/24", kRefused, {logs("mal format ip\n")}}});
  set(LAN_IP(IPInterfaceSubnetMask), "/24");
  EXPECT_TRUE(seams().syslog.back().starts_with("pkg-lan.c, "));
}

TEST_F(LanAddress, MacIsTheBridgesForTheOneInterfaceThereIs) {
  const char command[] = "ifconfig br-lan | grep HWaddr | awk '{print $5}'";
  expect_gets({{LAN_IP(MACAddress), prints(command, "02:A4:F1:00:00:01\n"), "02:A4:F1:00:00:01"},
               {LAN_IP(MACAddress), prints(command, ""), "0:0:0:0:0:0"},
               {LAN_IP(MACAddress), no_pipes, kGetFailed, "FTGMAD.\n"},
               {At{LAN_IP(MACAddress), {1, 2}}, as_is, kGetFailed},
               {At{LAN_IP(MACAddress), {2, 1}}, as_is, kGetFailed}});
}

// ---- DHCP server ----

class DhcpServer : public TableTest {};

// The verify script replaced by one that leaves this verdict and does nothing else.
Source verdict(const std::string& verdict, int status = 0) {
  return exits(status) && file("/tmp/tr069/check", "config check 'result'\n\toption set_result '" + verdict + "'\n");
}

std::string verifies(const std::string& arguments) { return runs("lua /usr/bin/tr069/verify_pms " + arguments); }

TEST_F(DhcpServer, StateAndPoolAreReadFromTheConfiguration) {
  for (const auto& [ignore, enabled, status] :
       {std::tuple{"1", "0", "Disabled"}, {"0", "1", "Enabled"}, {"", "1", "Enabled"}, {"11111", "1", "Enabled"}})
    expect_gets({{LAN(DHCPServerEnable), option("dhcp.lan.ignore", ignore), enabled},
                 {DHCPv4_Server_Pool_Status, option("dhcp.lan.ignore", ignore), status}});
  expect_gets({{DHCPv4_Server_Pool_Interface, as_is, "Device.IP.Interface.2."},
               {LAN(MinAddress), as_is, "192.168.1.100"},
               {LAN(MaxAddress), as_is, "192.168.1.249"},
               {LAN(MinAddress), option("dhcp.lan.limit", ""), kGetFailed, "FTGDSIAD.\n"},
               {LAN(MaxAddress), option("dhcp.lan.limit", ""), kGetFailed, "FTGDEIAD.\n"}});
}

TEST_F(DhcpServer, ChangesRunTheVerifyScriptAndHeedItsVerdict) {
  for (const auto& [handler, value, arguments, failure] :
       {std::tuple{&LAN(DHCPServerEnable), "0", "dhcps_enable \"0\"", "FTSDSE.\n"},
        {LAN(MinAddress), "192.168.1.50", R"(dhcps_startip "192.168.1.50" "192.168.1.249")", "FTSSIAD.\n"},
        {LAN(MaxAddress), "192.168.1.200", R"(dhcps_endip "192.168.1.100" "192.168.1.200")", "FTSEIAD.\n"},
        {LAN(DHCPLeaseTime), "7199", "dhcps_leasetime \"119\"", "FTSDLT.\n"},
        {LAN(DNSServers), "any text", "dhcps_dns \"any text\"", "FTSDSS.\n"}}) {
    const Effects refused{verifies(arguments), logs(failure)};
    expect_sets({{handler, value, accepted(), {verifies(arguments)}, verdict("1", 256)},  // however the script ended
                 {handler, value, kRefused, refused, verdict("01")},
                 {handler, value, kRefused, refused, verdict("11111")},
                 {handler, value, kRefused, refused, exits(0)}});
  }
  // A command that would be cut is not run, and an address outside the LAN never reaches the script.
  expect_sets({{LAN(DNSServers), std::string(5000, '1'), kRefused, {logs("FTSDSS.\n")}},
               {LAN(MinAddress), "10.0.0.1", kRefused, {logs("FTSSIAD.\n")}},
               {LAN(MinAddress), "192.168.1.050", kRefused, {logs("mal format ip\n")}},
               {LAN(MaxAddress), "10.0.0.1", kRefused, {logs("FTSEIAD.\n")}},
               {LAN(MaxAddress), "192.168.1.050", kRefused, {logs("mal format ip\n")}}});
  // The router's own script.
  EXPECT_EQ(set(LAN(MinAddress), "192.168.1.20"), accepted());
  EXPECT_EQ(config("dhcp.lan.start"), "20");
}

TEST_F(DhcpServer, LeaseTimeCountsMinutesOrHours) {
  for (const auto& [stored, seconds] :
       {std::pair{"12h", "43200"}, {"120", "7200"}, {"h", "0"}, {"5 or h", "18000"}, {"000000000000000000120", "7200"}})
    expect_gets({{LAN(DHCPLeaseTime), option("dhcp.lan.leasetime", stored), seconds}});
  expect_gets({{LAN(DHCPLeaseTime), option("dhcp.lan.leasetime", ""), kGetFailed, "FTGDLTE.\n\n"}});

  for (const auto& [seconds, minutes] : {std::pair{"-1", "35791394"},
                                         {"words", "1"},
                                         {"59", "1"},
                                         {"60", "1"},
                                         {"120", "2"},
                                         {"4294967295", "35791394"},
                                         {"-59", "0"},
                                         {"-120", "-2"}}) {
    const std::string arguments = std::string("dhcps_leasetime \"") + minutes + "\"";
    expect_sets({{LAN(DHCPLeaseTime), seconds, accepted(), {verifies(arguments)}, verdict("1")}});
  }
}

TEST_F(DhcpServer, DnsServersAreTwoWithASpaceBetween) {
  const auto offered = [](const std::string& first, const std::string& second) {
    const std::string command = "cat /var/etc/dnsmasq.conf* | grep dhcp-option=lan,6 | awk -F ',' '{print $";
    return prints(command + "3}'", first) && prints(command + "4}'", second);
  };
  const Source unset = offered("0.0.0.0", "0.0.0.0");
  const std::string overlong(40, 's');
  expect_gets({{LAN(DNSServers), offered("1.2.3.1", "1.2.3.2"), "1.2.3.1 1.2.3.2"},
               {LAN(DNSServers), offered("1.2.3.1", ""), "1.2.3.1 "},
               {LAN(DNSServers), offered("1.2.3.1", "1.2.3.1"), "1.2.3.1 0.0.0.0"},
               {LAN(DNSServers), offered("0.0.0.0", "1.2.3.2"), "0.0.0.0 1.2.3.2"},
               {LAN(DNSServers), offered("1.2.3.1", "0.0.0.0"), "1.2.3.1 0.0.0.0"},
               {LAN(DNSServers), offered("", ""), " 0.0.0.0"},
               {LAN(DNSServers), offered(overlong, overlong + "2"), std::string(31, 's') + " 0.0.0.0"},
               {LAN(DNSServers), unset, "192.168.1.1 0.0.0.0"},
               {LAN(DNSServers), unset && option("network.lan.ipaddr", overlong), overlong + " 0.0.0.0"},
               {LAN(DNSServers), unset && option("network.lan.ipaddr", ""), kGetFailed, "FTGLI.\n"}});
}

// ---- Hosts ----

const Source no_hosts = no_file("/tmp/tr069/hosts");

class Hosts : public TableTest {
 protected:
  void SetUp() override {
    DeviceTest::SetUp();
    write_file("/tmp/tr069/hosts",
               "config info 'info'\n\toption count '2'\n"
               "config host '1'\n\toption ip '192.168.1.10'\n\toption mac '02:00:00:00:00:10'\n"
               "\toption hostname 'laptop'\n\toption addresssource 'DHCP'\n\toption lease_remain '300'\n"
               "\toption iftype '802.11'\n\toption active '1'\n\toption lay2if 'wlan02'\n");
  }
};

TEST_F(Hosts, RowsOfBothTreesReadTheSnapshot) {
  for (const auto& [lan_device, device, text, fallback, missing, unlocated] :
       {std::tuple{&LAN_HOST(IPAddress), &Hosts_Host_IPAddress, "192.168.1.10", "", "uci get error\n", "LE\n"},
        {LAN_HOST(MACAddress), Hosts_Host_PhysAddress, "02:00:00:00:00:10", "0:0:0:0:0:0", "", "LE\n"},
        {LAN_HOST(HostName), Hosts_Host_HostName, "laptop", "unkown", "", "locate error\n"},
        {LAN_HOST(AddressSource), Hosts_Host_AddressSource, "DHCP", "", "", "LE\n"},
        {LAN_HOST(LeaseTimeRemaining), Hosts_Host_LeaseTimeRemaining, "300", "0", "", "LE\n"},
        {LAN_HOST(InterfaceType), Hosts_Host_InterfaceType, "802.11", " ", "", "LE\n"},
        {LAN_HOST(Active), Hosts_Host_Active, "1", "unkown", "", "LE\n"}}) {
    expect_gets({{At{lan_device, {2, 1}}, as_is, text},
                 {At{lan_device, {1, 7}}, as_is, fallback, missing},
                 {At{lan_device, {1, 0}}, as_is, kGetFailed, "LE\n"},
                 {At{lan_device, {0, 1}}, as_is, kGetFailed, "LE\n"},
                 {At{device, {1, 0}}, as_is, text},
                 {At{device, {7, 1}}, as_is, fallback, missing},
                 {At{device, {0, 1}}, as_is, kGetFailed, unlocated}});
  }
  for (const parameter_handler lease : {LAN_HOST(LeaseTimeRemaining), Hosts_Host_LeaseTimeRemaining})
    expect_sets({{lease, "1", kRefused, {logs("FTSHLTR.\n")}}});
}

TEST_F(Hosts, InterfacesAreReferencedInEachTreesOwnSpelling) {
  const std::string lan_device = "InternetGatewayDevice.LANDevice.1.";
  for (const auto& [interface, in_lan_device, in_device] :
       {std::tuple{"wlan00", "WLANConfiguration.1", "WiFi.Radio.1."},
        {"wlan10", "WLANConfiguration.2", "WiFi.Radio.2."},
        {"wlan02", "WLANConfiguration.3", "WiFi.Radio.1."},
        {"wlan12", "WLANConfiguration.4", "WiFi.Radio.2."},
        {"eth1", "LANEthernetInterfaceConfig.1", "Device.Ethernet.Interface.2."}}) {
    const Source row = file("/tmp/tr069/hosts", std::string("config host '3'\n\toption lay2if '") + interface + "'\n");
    expect_gets({{At{LAN_HOST(Layer2Interface), {1, 3}}, row, lan_device + in_lan_device},
                 {At{Hosts_Host_Layer1Interface, {3}}, row, in_device},
                 {At{Hosts_Host_Layer3Interface, {3}}, row, "Device.IP.Interface.2."}});
  }
  for (const parameter_handler handler :
       {LAN_HOST(Layer2Interface), Hosts_Host_Layer1Interface, Hosts_Host_Layer3Interface})
    expect_gets({{At{handler, {7, 7}}, as_is, ""}, {At{handler, {0, 1}}, as_is, kGetFailed, "LE\n"}});
  expect_gets({{At{LAN_HOST(Layer2Interface), {1, 0}}, as_is, kGetFailed, "LE\n"}});
}

TEST_F(Hosts, TheSnapshotIsMadeOnceAndRemovedOnRequest) {
  expect_gets({{LANDevice_Hosts_HostNumberOfEntries, as_is, "2"},
               {LANDevice_Hosts_HostNumberOfEntries, no_hosts && exits(256), "0"}});
  EXPECT_EQ(delete_host_info(), 0);
  EXPECT_NE(delete_host_info(), 0);
  std::vector<std::string> expected{"rm /tmp/tr069/hosts"};
  for (const parameter_handler handler :
       {LANDevice_Hosts_HostNumberOfEntries, LAN_HOST(IPAddress), Hosts_Host_Layer1Interface}) {
    no_hosts.put();
    expected.emplace_back("/usr/bin/tr069/gen_hosts");
    get(handler, {0, 0});  // made before the row is looked for
    get(handler, {1, 1});
    EXPECT_EQ(generate_host_info(), 0);
    EXPECT_EQ(commands(), expected);
  }
  (no_hosts && exits(256)).put();
  EXPECT_NE(generate_host_info(), 0);
}

TEST_F(Hosts, TheMeshListIsMadeOnceToo) {
  for (int call = 1; call <= 2; ++call) EXPECT_EQ(generate_mesh_info(), 0);
  EXPECT_EQ(commands(), std::vector<std::string>{"/usr/bin/tr069/gen_meshlist"});
}

}  // namespace
}  // namespace kova::test

// LAN address, DHCP server and hosts, in both trees.
#include "pkg-lan/pkg-lan.h"
#include "support/device.hpp"

namespace kova::test {
namespace {

// The verify script replaced by one that leaves `verdict` and does nothing else.
void verdict(const std::string& verdict) {
  static const int done = 0;
  write_file("/tmp/tr069/check", "config check 'result'\n\toption set_result '" + verdict + "'\n");
  seams().system_status = [](const std::string&) { return &done; };
}

class LanAddress : public DeviceTest {};

TEST_F(LanAddress, IsReadFromTheStore) {
  configure("network.lan.ipaddr", "192.168.7.1");
  configure("network.lan.netmask", "255.255.254.0");
  configure("network.lan.proto", "static");
  for (const parameter_handler handler : {LANDevice_LANHostConfigManagement_IPInterface_IPInterfaceIPAddress,
                                          LANDevice_LANHostConfigManagement_IPRouters, DHCPv4_Server_Pool_IPRouters})
    EXPECT_EQ(get(handler), answered("192.168.7.1"));
  for (const parameter_handler handler : {LANDevice_LANHostConfigManagement_IPInterface_IPInterfaceSubnetMask,
                                          LANDevice_LANHostConfigManagement_Subnetmask, DHCPv4_Server_Pool_SubnetMask})
    EXPECT_EQ(get(handler), answered("255.255.254.0"));
  EXPECT_EQ(get(LANDevice_LANHostConfigManagement_IPInterface_IPInterfaceAddressingType), answered("static"));
  EXPECT_EQ(get(LANDevice_LANHostConfigManagement_IPInterfaceNumberOfEntries), answered("1"));
}

TEST_F(LanAddress, CannotBeReadWithoutItsOptions) {
  write_file("/etc/config/network", "config interface 'lan'\n");
  EXPECT_EQ(get(LANDevice_LANHostConfigManagement_IPInterface_IPInterfaceIPAddress), kGetFailed);
  EXPECT_EQ(messages().back(), "FTGLI.\n");
  EXPECT_TRUE(seams().syslog.back().starts_with("pkg-lan.c, "));
  for (const parameter_handler mask : {LANDevice_LANHostConfigManagement_IPInterface_IPInterfaceSubnetMask,
                                       LANDevice_LANHostConfigManagement_Subnetmask}) {
    seams().syslog.clear();
    EXPECT_EQ(get(mask), kGetFailed);
    EXPECT_EQ(messages().back(), "FTGLM.\n");
  }
  EXPECT_EQ(get(LANDevice_LANHostConfigManagement_IPInterface_IPInterfaceAddressingType), (Answer{-1, ""}));
}

TEST_F(LanAddress, ChangesAreRecordedForLater) {
  for (const parameter_handler handler : {LANDevice_LANHostConfigManagement_IPInterface_IPInterfaceIPAddress,
                                          LANDevice_LANHostConfigManagement_IPRouters, DHCPv4_Server_Pool_IPRouters})
    EXPECT_EQ(set(handler, "192.168.2.1"), accepted(APPLY_TASK_COMMANDS));
  EXPECT_EQ(set(LANDevice_LANHostConfigManagement_IPInterface_IPInterfaceSubnetMask, "255.0.255.0"),
            accepted(APPLY_TASK_COMMANDS));
  const std::string address = "lua /usr/bin/tr069/verify_pms lan_ip \"192.168.2.1\" &\n";
  EXPECT_EQ(task_record(), address + address + address + "lua /usr/bin/tr069/verify_pms lan_mask \"255.0.255.0\" &\n");
  EXPECT_TRUE(commands().empty());
}

TEST_F(LanAddress, OnlyDottedQuadsAreRecorded) {
  EXPECT_EQ(set(LANDevice_LANHostConfigManagement_IPInterface_IPInterfaceIPAddress, "192.168.2"), kRefused);
  EXPECT_EQ(set(LANDevice_LANHostConfigManagement_IPInterface_IPInterfaceSubnetMask, "/24"), kRefused);
  EXPECT_EQ(messages(), (std::vector<std::string>{"mal format ip\n", "mal format ip\n"}));
  run("rm -r /tmp/tr069");
  EXPECT_EQ(set(LANDevice_LANHostConfigManagement_IPInterface_IPInterfaceIPAddress, "192.168.2.1"), kRefused);
  EXPECT_EQ(messages().back(), "fopen error\n");
}

TEST_F(LanAddress, MacIsTheBridgesForTheOneInterfaceThereIs) {
  if (!has_network()) GTEST_SKIP() << "the router runs in place, without interfaces";
  const parameter_handler handler = LANDevice_LANHostConfigManagement_IPInterface_MACAddress;
  EXPECT_EQ(get(handler, {1, 1}).text.size(), std::string("02:A4:F1:00:00:01").size());
  EXPECT_EQ(get(handler, {1, 2}), kGetFailed);
  EXPECT_EQ(get(handler, {0, 1}), kGetFailed);
  seams().answer("ifconfig br-lan | grep HWaddr | awk '{print $5}'", "");
  EXPECT_EQ(get(handler, {1, 1}), answered("0:0:0:0:0:0"));
  seams().popen_fails = true;
  EXPECT_EQ(get(handler, {1, 1}), kGetFailed);
  EXPECT_TRUE(logged("FTGMAD.\n"));
}

class DhcpServer : public DeviceTest {
 protected:
  void SetUp() override {
    DeviceTest::SetUp();
    configure("network.lan.ipaddr", "192.168.1.1");
    configure("network.lan.netmask", "255.255.255.0");
    configure("dhcp.lan.start", "100");
    configure("dhcp.lan.limit", "150");
  }
};

const parameter_handler kEnableHandlers[] = {LANDevice_LANHostConfigManagement_DHCPServerEnable,
                                             LANDevice_LANHostConfigManagement_IPInterface_DHCPServerEnable,
                                             DHCPv4_Server_Enable, DHCPv4_Server_Pool_Enable};
const parameter_handler kFirstHandlers[] = {LANDevice_LANHostConfigManagement_MinAddress,
                                            LANDevice_LANHostConfigManagement_IPInterface_MinAddress,
                                            DHCPv4_Server_Pool_MinAddress};
const parameter_handler kLastHandlers[] = {LANDevice_LANHostConfigManagement_MaxAddress,
                                           LANDevice_LANHostConfigManagement_IPInterface_MaxAddress,
                                           DHCPv4_Server_Pool_MaxAddress};
const parameter_handler kLeaseHandlers[] = {LANDevice_LANHostConfigManagement_DHCPLeaseTime,
                                            LANDevice_LANHostConfigManagement_IPInterface_DHCPLeaseTime,
                                            DHCPv4_Server_Pool_LeaseTime};
const parameter_handler kDnsHandlers[] = {LANDevice_LANHostConfigManagement_DNSServers, DHCPv4_Server_Pool_DNSServers};

TEST_F(DhcpServer, IsOnUnlessIgnored) {
  for (const auto& [ignore, enabled, status] :
       {std::tuple{"1", "0", "Disabled"}, {"0", "1", "Enabled"}, {"", "1", "Enabled"}, {"11111", "1", "Enabled"}}) {
    configure("dhcp.lan.ignore", ignore);
    for (const parameter_handler handler : kEnableHandlers) EXPECT_EQ(get(handler), answered(enabled));
    EXPECT_EQ(get(DHCPv4_Server_Pool_Status), answered(status));
  }
  EXPECT_EQ(get(DHCPv4_Server_PoolNumberOfEntries), answered("1"));
  EXPECT_EQ(get(DHCPv4_Server_Pool_Interface), answered("Device.IP.Interface.2."));
}

TEST_F(DhcpServer, SynchronousChangesRunTheVerifyScriptAndHeedItsVerdict) {
  struct Change {
    parameter_handler handler;
    const char* value;
    std::string arguments;
    const char* failure;
  };
  std::vector<Change> changes;
  for (const parameter_handler handler : kEnableHandlers)
    changes.push_back({handler, "0", "dhcps_enable \"0\"", "FTSDSE.\n"});
  for (const parameter_handler handler : kFirstHandlers)
    changes.push_back({handler, "192.168.1.50", R"(dhcps_startip "192.168.1.50" "192.168.1.249")", "FTSSIAD.\n"});
  for (const parameter_handler handler : kLastHandlers)
    changes.push_back({handler, "192.168.1.200", R"(dhcps_endip "192.168.1.100" "192.168.1.200")", "FTSEIAD.\n"});
  for (const parameter_handler handler : kLeaseHandlers)
    changes.push_back({handler, "7199", "dhcps_leasetime \"119\"", "FTSDLT.\n"});
  for (const parameter_handler handler : kDnsHandlers)
    changes.push_back({handler, "any text", "dhcps_dns \"any text\"", "FTSDSS.\n"});

  for (const Change& change : changes) {
    SCOPED_TRACE(change.arguments);
    verdict("1");
    EXPECT_EQ(set(change.handler, change.value), accepted());
    EXPECT_EQ(commands().back(), "lua /usr/bin/tr069/verify_pms " + change.arguments);
    for (const char* rejected : {"0", "01", "1 ", "11111"}) {
      verdict(rejected);
      seams().syslog.clear();
      EXPECT_EQ(set(change.handler, change.value), kRefused);
      EXPECT_EQ(messages().back(), change.failure);
    }
    run("rm /tmp/tr069/check");
    EXPECT_EQ(set(change.handler, change.value), kRefused);
  }

  // The verdict alone counts, not how the script ended; and a command that would be cut is not run.
  verdict("1");
  static const int failed = 256;
  seams().system_status = [](const std::string&) { return &failed; };
  EXPECT_EQ(set(kEnableHandlers[0], "0"), accepted());
  commands().clear();
  EXPECT_EQ(set(kDnsHandlers[0], std::string(2000, '1')), kRefused);
  EXPECT_TRUE(commands().empty());
}

TEST_F(DhcpServer, PoolEndsAreReadFromTheConfiguration) {
  for (const parameter_handler handler : kFirstHandlers) EXPECT_EQ(get(handler), answered("192.168.1.100"));
  for (const parameter_handler handler : kLastHandlers) EXPECT_EQ(get(handler), answered("192.168.1.249"));
  configure("dhcp.lan.limit", "");
  EXPECT_EQ(get(kFirstHandlers[0]), kGetFailed);
  EXPECT_TRUE(logged("FTGDSIAD.\n"));
  EXPECT_EQ(get(kLastHandlers[0]), kGetFailed);
  EXPECT_TRUE(logged("FTGDEIAD.\n"));
}

TEST_F(DhcpServer, AnAddressOutsideTheLanNeverReachesTheScript) {
  for (const auto& [handler, failure] :
       {std::pair{kFirstHandlers[0], "FTSSIAD.\n"}, std::pair{kLastHandlers[0], "FTSEIAD.\n"}}) {
    EXPECT_EQ(set(handler, "10.0.0.1"), kRefused);
    EXPECT_EQ(messages().back(), failure);
    EXPECT_EQ(set(handler, "192.168.1.050"), kRefused);
    EXPECT_EQ(messages().back(), "mal format ip\n");
  }
  EXPECT_TRUE(commands().empty());
}

TEST_F(DhcpServer, LeaseTimeCountsMinutesOrHours) {
  for (const auto& [stored, seconds] : {std::pair{"12h", "43200"}, {"120", "7200"}, {"h", "0"}, {"5 or h", "18000"}}) {
    configure("dhcp.lan.leasetime", stored);
    for (const parameter_handler handler : kLeaseHandlers) EXPECT_EQ(get(handler), answered(seconds));
  }
  configure("dhcp.lan.leasetime", "");
  EXPECT_EQ(get(kLeaseHandlers[0]), kGetFailed);
  EXPECT_TRUE(logged("FTGDLTE.\n\n"));

  verdict("1");
  for (const auto& [seconds, minutes] : {std::pair{"-1", "35791394"},
                                         {"0", "1"},
                                         {"59", "1"},
                                         {"60", "1"},
                                         {"120", "2"},
                                         {"-59", "0"},
                                         {"-120", "-2"},
                                         {"words", "1"}}) {
    EXPECT_EQ(set(kLeaseHandlers[0], seconds), accepted());
    EXPECT_EQ(commands().back(), std::string("lua /usr/bin/tr069/verify_pms dhcps_leasetime \"") + minutes + "\"");
  }
}

TEST_F(DhcpServer, DnsServersAreTwoWithASpaceBetween) {
  const auto offer = [](const std::string& servers) {
    run("rm -f /var/etc/dnsmasq.conf*");
    write_file("/var/etc/dnsmasq.conf.cfg01411c",
               "port=53\ndhcp-option=lan,3,192.168.1.1\ndhcp-option=lan,6," + servers + "\n");
  };
  for (const auto& [offered, answer] : {std::pair{"192.0.2.1,192.0.2.2", "192.0.2.1 192.0.2.2"},
                                        {"192.0.2.1", "192.0.2.1 "},
                                        {"192.0.2.1,192.0.2.1", "192.0.2.1 0.0.0.0"},
                                        {"0.0.0.0,192.0.2.2", "0.0.0.0 192.0.2.2"},
                                        {"192.0.2.1,0.0.0.0", "192.0.2.1 0.0.0.0"},
                                        {"0.0.0.0,0.0.0.0", "192.168.1.1 0.0.0.0"},
                                        {"192.0.2.1.and.twenty.letters.more", "192.0.2.1.and.twenty.letters.mo "}}) {
    offer(offered);
    for (const parameter_handler handler : kDnsHandlers) EXPECT_EQ(get(handler), answered(answer));
  }
  run("rm -f /var/etc/dnsmasq.conf*");
  EXPECT_EQ(get(kDnsHandlers[0]), answered(" 0.0.0.0"));
  offer("0.0.0.0,0.0.0.0");
  configure("network.lan.ipaddr", "");
  EXPECT_EQ(get(kDnsHandlers[0]), kGetFailed);
  EXPECT_TRUE(logged("FTGLI.\n"));
}

TEST_F(DhcpServer, TheRoutersVerifyScriptChangesTheDhcpPackage) {
  EXPECT_EQ(set(DHCPv4_Server_Pool_MinAddress, "192.168.1.20", {1}), accepted());
  EXPECT_EQ(config("dhcp.lan.start"), "20");
  EXPECT_EQ(get(DHCPv4_Server_Pool_MinAddress, {1}), answered("192.168.1.20"));
  EXPECT_EQ(get(DHCPv4_Server_Pool_MaxAddress, {1}), answered("192.168.1.249"));
  EXPECT_EQ(set(DHCPv4_Server_Enable, "0"), accepted());
  EXPECT_EQ(config("dhcp.lan.ignore"), "1");
  EXPECT_EQ(set(DHCPv4_Server_Enable, "maybe"), kRefused);
  EXPECT_EQ(config("dhcp.lan.ignore"), "1");
}

// ---- Hosts ----

class Hosts : public DeviceTest {
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

struct HostField {
  parameter_handler lan_device;
  parameter_handler device;
  const char* text;
  const char* fallback;
};

const HostField kHostFields[] = {
    {LANDevice_Hosts_Host_IPAddress, Hosts_Host_IPAddress, "192.168.1.10", ""},
    {LANDevice_Hosts_Host_MACAddress, Hosts_Host_PhysAddress, "02:00:00:00:00:10", "0:0:0:0:0:0"},
    {LANDevice_Hosts_Host_HostName, Hosts_Host_HostName, "laptop", "unkown"},
    {LANDevice_Hosts_Host_AddressSource, Hosts_Host_AddressSource, "DHCP", ""},
    {LANDevice_Hosts_Host_LeaseTimeRemaining, Hosts_Host_LeaseTimeRemaining, "300", "0"},
    {LANDevice_Hosts_Host_InterfaceType, Hosts_Host_InterfaceType, "802.11", " "},
    {LANDevice_Hosts_Host_Active, Hosts_Host_Active, "1", "unkown"},
};

TEST_F(Hosts, RowsOfBothTreesReadTheSnapshot) {
  EXPECT_EQ(get(LANDevice_Hosts_HostNumberOfEntries), answered("2"));
  EXPECT_EQ(get(Hosts_HostNumberOfEntries), answered("2"));
  for (const HostField& field : kHostFields) {
    for (const auto& [handler, row, beyond] :
         {std::tuple{field.lan_device, Instances{1, 1}, Instances{1, 7}}, {field.device, {1}, {7}}}) {
      EXPECT_EQ(get(handler, row), answered(field.text));
      seams().syslog.clear();
      EXPECT_EQ(get(handler, beyond), answered(field.fallback));
      EXPECT_EQ(logged("uci get error\n"), field.lan_device == LANDevice_Hosts_Host_IPAddress);
      seams().syslog.clear();
      EXPECT_EQ(set(handler, "x", row), kRefused);
      EXPECT_EQ(logged("FTSHLTR.\n"), field.lan_device == LANDevice_Hosts_Host_LeaseTimeRemaining);
    }
  }
}

TEST_F(Hosts, RowsThatCannotBeLocatedFail) {
  for (const Instances& nowhere : {Instances{1, 0}, Instances{0, 1}}) {
    for (const HostField& field : kHostFields) EXPECT_EQ(get(field.lan_device, nowhere), kGetFailed);
    EXPECT_EQ(get(LANDevice_Hosts_Host_Layer2Interface, nowhere), kGetFailed);
    EXPECT_EQ(messages(), std::vector<std::string>(std::size(kHostFields) + 1, "LE\n"));
    seams().syslog.clear();
  }
  for (const parameter_handler reference : {Hosts_Host_Layer1Interface, Hosts_Host_Layer3Interface}) {
    run("rm -f /tmp/tr069/hosts");
    EXPECT_EQ(get(reference, {0}), kGetFailed);
    EXPECT_EQ(messages().back(), "LE\n");
    EXPECT_EQ(commands().back(), "/usr/bin/tr069/gen_hosts");  // made before the row is looked for
    commands().clear();
  }
  for (const HostField& field : kHostFields) {
    EXPECT_EQ(get(field.device, {0}), kGetFailed);
    EXPECT_EQ(messages().back(), field.device == Hosts_Host_HostName ? "locate error\n" : "LE\n");
  }
}

TEST_F(Hosts, InterfacesAreReferencedInEachTreesOwnSpelling) {
  const struct {
    const char* interface;
    const char* lan_device;
    const char* device;
  } references[] = {
      {"wlan00", "InternetGatewayDevice.LANDevice.1.WLANConfiguration.1", "WiFi.Radio.1."},
      {"wlan10", "InternetGatewayDevice.LANDevice.1.WLANConfiguration.2", "WiFi.Radio.2."},
      {"wlan02", "InternetGatewayDevice.LANDevice.1.WLANConfiguration.3", "WiFi.Radio.1."},
      {"wlan12", "InternetGatewayDevice.LANDevice.1.WLANConfiguration.4", "WiFi.Radio.2."},
      {"eth1", "InternetGatewayDevice.LANDevice.1.LANEthernetInterfaceConfig.1", "Device.Ethernet.Interface.2."},
  };
  for (const auto& [interface, lan_device, device] : references) {
    write_file("/tmp/tr069/hosts", std::string("config host '3'\n\toption lay2if '") + interface + "'\n");
    EXPECT_EQ(get(LANDevice_Hosts_Host_Layer2Interface, {1, 3}), answered(lan_device));
    EXPECT_EQ(get(Hosts_Host_Layer1Interface, {3}), answered(device));
    EXPECT_EQ(get(Hosts_Host_Layer3Interface, {3}), answered("Device.IP.Interface.2."));
  }
  EXPECT_EQ(get(LANDevice_Hosts_Host_Layer2Interface, {1, 4}), answered(""));
  EXPECT_EQ(get(Hosts_Host_Layer1Interface, {4}), answered(""));
  EXPECT_EQ(get(Hosts_Host_Layer3Interface, {4}), answered(""));
}

TEST_F(Hosts, TheSnapshotIsMadeOnceAndRemovedOnRequest) {
  get(Hosts_HostNumberOfEntries);
  EXPECT_TRUE(commands().empty());
  EXPECT_EQ(delete_host_info(), 0);
  EXPECT_NE(delete_host_info(), 0);
  EXPECT_EQ(commands(), std::vector<std::string>{"rm /tmp/tr069/hosts"});

  EXPECT_GT(std::stoi(get(Hosts_HostNumberOfEntries).text), 0);
  EXPECT_EQ(commands().back(), "/usr/bin/tr069/gen_hosts");
  EXPECT_EQ(generate_host_info(), 0);
  EXPECT_EQ(commands().size(), 2U);

  delete_host_info();
  const int failed = 256;
  seams().system_status = [&](const std::string&) { return &failed; };
  EXPECT_EQ(get(LANDevice_Hosts_HostNumberOfEntries), answered("0"));
  EXPECT_NE(generate_host_info(), 0);
  EXPECT_EQ(get(Hosts_Host_IPAddress, {1}), answered(""));
}

TEST_F(Hosts, TheMeshListIsMadeOnceToo) {
  EXPECT_EQ(generate_mesh_info(), 0);
  EXPECT_EQ(generate_mesh_info(), 0);
  EXPECT_EQ(commands(), std::vector<std::string>{"/usr/bin/tr069/gen_meshlist"});
  EXPECT_TRUE(contents("/tmp/tr069/meshlist").has_value());
}

}  // namespace
}  // namespace kova::test

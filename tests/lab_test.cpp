// The simulated router itself: what its scripts and its bus make of its configuration, as the plug-in meets it.
#include "pkg-br/pkg-br.h"
#include "pkg-diag/pkg-diag.h"
#include "pkg-mobile/pkg-mobile.h"
#include "pkg-wan/pkg-wan.h"
#include "support/device.hpp"

#define IP(parameter) WANDevice_WANConnectionDevice_WANIPConnection_##parameter
#define PPP(parameter) WANDevice_WANConnectionDevice_WANPPPConnection_##parameter

namespace kova::test {
namespace {

class Lab : public DeviceTest {
 protected:
  // The verdict of the verify script.
  static std::string verify(const std::string& arguments) {
    run("lua /usr/bin/tr069/verify_pms " + arguments);
    return stored("/tmp/tr069", "check.result.set_result").value_or("none");
  }
};

TEST_F(Lab, TheWanFollowsItsConfiguredProtocol) {
  const struct {
    const char* protocol;
    const char* fixed;    // status of the connection with a static address
    const char* dynamic;  // with one from DHCP
    const char* ppp;
    const char* type;
    const char* address;
    const char* gateway;
  } cases[] = {
      {"static", "Connected", "Disconnected", "Disconnected", " ", "192.0.2.10", "0.0.0.0"},
      {"dhcp", "Disconnected", "Connected", "Disconnected", " ", "192.0.2.77", "0.0.0.0"},
      {"pppoe", "Disconnected", "Disconnected", "Connected", "PPPoE", "203.0.113.42", "203.0.113.1"},
      {"l2tp", "Disconnected", "Disconnected", "Connected", "L2TP", "203.0.113.99", "203.0.113.2"},
      {"none", "Disconnected", "Disconnected", "Disconnected", " ", "0.0.0.0", "0.0.0.0"},
  };
  for (const auto& [protocol, fixed, dynamic, ppp, type, address, gateway] : cases) {
    SCOPED_TRACE(protocol);
    configure("network.wan.proto", protocol);
    EXPECT_EQ(get(IP(ConnectionStatus), {1, 1, 1}), answered(fixed));
    EXPECT_EQ(get(IP(ConnectionStatus), {1, 1, 2}), answered(dynamic));
    EXPECT_EQ(get(IP(ExternalIPAddress), {1, 1, 1}), answered(address));
    EXPECT_EQ(get(PPP(ConnectionStatus)), answered(ppp));
    EXPECT_EQ(get(PPP(TransportType)), answered(type));
    EXPECT_EQ(get(PPP(DefaultGateway)), answered(gateway));
  }
}

TEST_F(Lab, CountersAreThoseOfTheLinksOwnInterface) {
  if (!has_network()) GTEST_SKIP() << "the router has no interfaces here";
  for (const auto& [protocol, interface] : {std::pair{"dhcp", "eth0"}, {"pppoe", "pppoe-wan"}, {"l2tp", "l2tp-wan"}}) {
    configure("network.wan.proto", protocol);
    commands().clear();
    EXPECT_EQ(get(WANDevice_WANCommonInterfaceConfig_TotalBytesReceived).result, 0);
    EXPECT_EQ(commands(), std::vector<std::string>{std::string("cat /proc/net/dev|grep -w ") + interface});
    EXPECT_EQ(run(commands()[0] + " | grep -c . | grep -qx 1"), 0) << "not found, or another one too";
  }
}

TEST_F(Lab, ACellularInterfaceCanBeSwitchedOffOrMissing) {
  EXPECT_EQ(get(Cellular_Interface_Status), answered("Up"));
  EXPECT_EQ(set(Cellular_Interface_Enable, "0"), accepted(APPLY_CELLULAR | APPLY_MANAGEMENT));
  EXPECT_EQ(get(Cellular_Interface_Status), answered("Down"));
  EXPECT_EQ(get(Cellular_Interface_Enable), answered("0"));
  EXPECT_EQ(get(Cellular_Interface_CurrentAccessTechnology), answered("NR5G-SA"));
  write_file("/etc/lab/modem", "none\n");
  EXPECT_EQ(get(Cellular_Interface_CurrentAccessTechnology), answered(kUntouched));
}

struct Setting {
  std::string key;
  std::string value;  // as on the command line
  const char* option;
  std::optional<std::string> stored;
};

TEST_F(Lab, TheVerifyScriptAppliesWhatFits) {
  const Setting settings[] = {
      {"lan_ip", "192.168.1.2", "network.lan.ipaddr", "192.168.1.2"},
      {"dhcps_enable", "0", "dhcp.lan.ignore", "1"},
      {"dhcps_startip", "192.168.1.50 192.168.1.60", "dhcp.lan.start", "50"},
      {"dhcps_endip", "192.168.1.50 192.168.1.59", "dhcp.lan.limit", "10"},
      {"dhcps_leasetime", "120", "dhcp.lan.leasetime", "120"},
      {"dhcps_dns", "'192.0.2.1 192.0.2.2'", "dhcp.lan.dns2", "192.0.2.2"},
      {"lan_mask", "255.255.0.0", "network.lan.netmask", "255.255.0.0"},
      {"wan_type", "static_ip", "network.wan.proto", "static"},
      {"wan_type", "dynamic_ip", "network.wan.proto", "dhcp"},
      {"wan_ip", "10.0.0.2", "network.wan.ipaddr", "10.0.0.2"},
      {"wan_mask", "255.0.0.0", "network.wan.netmask", "255.0.0.0"},
      {"wan_gate", "10.0.0.1", "network.wan.gateway", "10.0.0.1"},
      {"wan_dns_static", "10.0.0.3", "network.wan.static_dns1", "10.0.0.3"},
      {"wan_dns_static", "10.0.0.3", "network.wan.static_dns2", std::nullopt},
      {"static_mtu", "1400", "network.wan.mtu", "1400"},
      {"dynamic_mtu", "1300", "network.wan.mtu", "1300"},
      {"pppoe_enable", "on", "network.wan.proto", "pppoe"},
      {"pppoe_enable", "off", "network.wan.proto", "dhcp"},
      {"pppoe_username", "\"it's\"", "network.wan.username", "it's"},
      {"pppoe_password", "'new secret'", "network.wan.password", "new secret"},
      {"pppoe_servicename", "''", "network.wan.service", std::nullopt},
      {"pppoe_access", "ac-2", "network.wan.ac", "ac-2"},
      {"pppoe_mtu", "1400", "network.wan.pppoe_mtu", "1400"},
      {"iptv_vlan_enable", "0", "network.iptv.enabled", "0"},
      {"iptv_type_LAN_set", "lan1 voip", "network.iptv.lan1", "voip"},
  };
  for (const Setting& setting : settings) {
    EXPECT_EQ(verify(setting.key + " " + setting.value), "1") << setting.key;
    EXPECT_EQ(config(setting.option), setting.stored) << setting.key;
  }
}

TEST_F(Lab, TheVerifyScriptRefusesTheRestAndChangesNothing) {
  const std::string network = *contents("/etc/config/network");
  const std::string dhcp = *contents("/etc/config/dhcp");
  for (const char* arguments : {"lan_ip 192.168.1.255",
                                "lan_mask 255.0.255.0",
                                "dhcps_enable yes",
                                "dhcps_startip 192.168.1.60 192.168.1.50",
                                "dhcps_endip 192.168.2.1 192.168.2.9",
                                "dhcps_leasetime 0",
                                "dhcps_dns none",
                                "wan_type pppoe",
                                "wan_ip 10.0.0",
                                "wan_mask 0.255.0.0",
                                "wan_dns_static '1.1.1.1,2.2.2.2,3.3.3.3'",
                                "static_mtu 1541",
                                "dynamic_mtu x",
                                "pppoe_enable 1",
                                "pppoe_mtu 1493",
                                "static_mtu 0x400",
                                "wan_ip 0.0.0.0",
                                "wan_gate 255.255.255.255",
                                "iptv_vlan_enable on",
                                "iptv_type_LAN_set lan4 iptv",
                                "iptv_type_LAN_set eth1 iptv",
                                "iptv_type_LAN_set lan1 Internet",
                                "unknown 1",
                                "lan_ip"}) {
    EXPECT_EQ(verify("wan_ip 192.0.2.10"), "1");
    EXPECT_EQ(verify(arguments), "0") << arguments;
  }
  EXPECT_EQ(contents("/etc/config/network"), network);
  EXPECT_EQ(contents("/etc/config/dhcp"), dhcp);
  configure("network.lan.netmask", "nonsense");
  EXPECT_EQ(verify("dhcps_startip 192.168.1.50 192.168.1.60"), "0");
  run("rm /etc/config/network");
  EXPECT_EQ(verify("wan_ip 192.0.2.10"), "0");
}

TEST_F(Lab, AStaticWanIsWhatIsConfigured) {
  for (const char* setting : {"wan_type static_ip", "wan_ip 10.0.0.2", "wan_mask 255.255.240.0", "wan_gate 10.0.0.1",
                              "wan_dns_static 10.0.0.3"})
    EXPECT_EQ(verify(setting), "1");
  const auto status = [](uint32_t query) {
    char text[32] = {};
    netif_get_interface_status("wan", query, text, sizeof text);
    return std::string(text);
  };
  EXPECT_EQ(status(INTERFACE_ADDRESS), "10.0.0.2");
  EXPECT_EQ(status(INTERFACE_MASK), "255.255.240.0");
  EXPECT_EQ(status(INTERFACE_NEXTHOP), "10.0.0.1");
  EXPECT_EQ(status(INTERFACE_DNS_SERVERS), "10.0.0.3");
}

TEST_F(Lab, ALanPortIsInTheBridgeOfItsService) {
  const auto move_second_port = [](const std::string& service) {
    set(X_KOVA_IPTV_VLANTYPE_LAN, service, {2});
    std::string bridges = get(X_KOVA_IPTV_VLANTYPE_LAN, {2}).text;
    for (const char* bridge : {"br-lan", "br-iptv"}) {
      char members[64] = {};
      netif_get_device_status(bridge, DEVICE_BRIDGE_MEMBERS, members, sizeof members);
      bridges += std::string("; ") + members;
    }
    return bridges;
  };
  EXPECT_EQ(move_second_port("iptv"), "iptv; eth1,ra0,ra1,rai0,rai1; eth2,eth3");
  EXPECT_EQ(move_second_port("Internet"), "Internet; eth1,eth2,ra0,ra1,rai0,rai1; eth3");
}

TEST_F(Lab, LimitsAndVlansAreLoadedAsConfigured) {
  set(X_KOVA_QoS_Enable, "1");
  set(X_KOVA_QoS_Upband, "1000");
  EXPECT_EQ(set(X_KOVA_QoS_Downband, "much"), accepted(APPLY_QOS));
  EXPECT_EQ(get(X_KOVA_QoS_Downband), answered("250000"));
  EXPECT_EQ(run("/usr/bin/tr069/apply/qos >/dev/null"), 0);
  EXPECT_EQ(contents("/tmp/qos"), "eth0 upload 1000 kbit/s\neth0 download 250000 kbit/s\n");

  set(Layer2Bridging_Bridge_VLAN_VLANID, "20");
  EXPECT_EQ(run("/usr/bin/tr069/apply/vlan >/dev/null"), 0);
  EXPECT_EQ(contents("/tmp/vlans"), "internet 40 priority 0\niptv 31 priority 4\nvoip 21 priority 5\n");
  configure("network.iptv.voip_vlan", "none");
  EXPECT_NE(run("/usr/bin/tr069/apply/vlan >/dev/null 2>&1"), 0);
}

TEST_F(Lab, TheDynamicDnsServiceIsConnectedToTheActiveProvider) {
  EXPECT_EQ(get(X_KOVA_AppCfg_DynDnsCfg_State), answered("Disabled"));
  set(X_KOVA_AppCfg_DynDnsCfg_Enable, "1");
  EXPECT_EQ(get(X_KOVA_AppCfg_DynDnsCfg_State), answered("Connected"));
  set(X_KOVA_AppCfg_NoipDnsCfg_Enable, "1");
  EXPECT_EQ(get(X_KOVA_AppCfg_DynDnsCfg_State), answered("Disabled"));
  EXPECT_EQ(get(X_KOVA_AppCfg_NoipDnsCfg_State), answered("Connected"));
}

}  // namespace
}  // namespace kova::test

// WANPPPConnection: the link as a PPP connection.
#include "pkg-wan/pkg-wan.h"
#include "support/wan.hpp"

#define PPP(parameter) WANDevice_WANConnectionDevice_WANPPPConnection_##parameter

namespace kova::test {
namespace {

Source proto(const std::string& protocol) { return wan_option("proto", protocol); }

class WanPpp : public WanTest {};

TEST_F(WanPpp, SettingsAreReadFromTheStore) {
  expect_gets({{PPP(Enable), proto("pppoe"), "1"},
               {PPP(Enable), proto("PPPoE"), "0"},
               {PPP(Enable), proto("l2tp"), "0"},  // PPPoE alone
               {PPP(Enable), as_is, kGetFailed, "uci get failed\n\n"},
               {PPP(PPPAuthenticationProtocol), as_is, "AUTO_AUTH"}});
  expect_options({{PPP(Username), "network.wan.username", " "},
                  {PPP(Password), "network.wan.password", " "},
                  {PPP(MaxMRUSize), "network.wan.pppoe_mtu", "1480"},
                  {PPP(PPPoEServiceName), "network.wan.service", ""},
                  {PPP(PPPoEACName), "network.wan.ac", ""}});
}

TEST_F(WanPpp, ChangesAreRecordedForLater) {
  for (const char* on : {"TRUE", "1"}) expect_recorded(PPP(Enable), on, "pppoe_enable \"on\"", "SPEE. \n");
  for (const char* off : {"False", "0"}) expect_recorded(PPP(Enable), off, "pppoe_enable \"off\"", "SPEE. \n");
  expect_recorded(PPP(Password), "", "pppoe_password \"\" ", "SPPWE. \n");
  expect_recorded(PPP(MaxMRUSize), "576", "pppoe_mtu \"576\"");
  expect_recorded(PPP(MaxMRUSize), "1492x", "pppoe_mtu \"1492x\"");
  expect_recorded(PPP(PPPoEServiceName), "a service", "pppoe_servicename \"a service\"");
  expect_recorded(PPP(PPPoEACName), "ac", "pppoe_access \"ac\"");
  expect_sets({{PPP(Enable), "yes", kRefused, {logs("Invalid param\n")}},
               {PPP(MaxMRUSize), "575", kRefused},
               {PPP(MaxMRUSize), "1493", kRefused}});
}

TEST_F(WanPpp, AStoredCredentialIsNotRecordedAgain) {
  (wan_option("username", "Stored One") && wan_option("password", "Stored Two")).put();
  expect_sets({{PPP(Username), "Stored One", accepted()}, {PPP(Password), "Stored Two", accepted()}});
  expect_recorded(PPP(Username), "stored one", "pppoe_username \"stored one\" ", "SPUNE. \n");
  expect_recorded(PPP(Password), "Stored One", "pppoe_password \"Stored One\" ", "SPPWE. \n");
  const std::string longest(1500, 'x');
  (wan_option("username", longest) && wan_option("password", longest)).put();
  expect_sets({{PPP(Username), longest, accepted()}, {PPP(Password), longest, accepted()}});
  expect_recorded(PPP(Username), longest.substr(1), "pppoe_username \"" + longest.substr(1) + "\" ", "SPUNE. \n");
}

TEST_F(WanPpp, StateIsThatOfTheLinkWhilePppIsConfigured) {
  const Source link =
      wan_link(R"({"uptime": 3600, "device": "eth0", "route": [{"nexthop": "203.0.113.1"}],
                                   "ipv4-address": [{"address": "203.0.113.9", "mask": 32}]})") &&
      status("network.device", R"([{"when": {"name": "eth0"}, "reply": {"macaddr": "02:a4:f1:0:0:2"}}])");
  const Source bare = wan_link(R"({"up": true, "device": "eth9", "ipv4-address": [], "route": []})");
  for (const auto& [handler, live, unanswered] : {std::tuple{&PPP(Uptime), "3600", ""},
                                                  {PPP(ExternalIPAddress), "203.0.113.9", "0.0.0.0"},
                                                  {PPP(RemoteIPAddress), "203.0.113.1", "0.0.0.0"},
                                                  {PPP(MACAddress), "02:a4:f1:0:0:2", "0:0:0:0:0:0"}}) {
    expect_gets({{handler, proto("pppoe") && link, live},
                 {handler, proto("l2tp") && link, live},
                 {handler, proto("l2tp") && bare, unanswered},
                 {handler, proto("PPPOE") && link, ""},
                 {handler, link, kGetFailed}});
  }
}

TEST_F(WanPpp, ConnectionStatusTakesTheProtocolInAnyCase) {
  const Source up = wan_link(R"({"up": true})");
  for (const char* protocol : {"PPPoE", "l2tp", "L2TP"})
    expect_gets({{PPP(ConnectionStatus), proto(protocol) && up, "Connected"},
                 {PPP(ConnectionStatus), proto(protocol), "Unconfigured"}});
  expect_gets({{PPP(ConnectionStatus), proto("dhcp") && up, "Disconnected"}, {PPP(ConnectionStatus), up, kGetFailed}});
}

TEST_F(WanPpp, IsCalledAfterItsProtocol) {
  for (const auto& [protocol, name, connection, transport] : {std::tuple{"pppoe", "wan_pppoe", "PPPoE_Relay", "PPPoE"},
                                                              {"l2tp", "wan_l2tp", "L2TP_Relay", "L2TP"},
                                                              {"pptp", " ", "PPTP_Relay", "PPTP"},
                                                              {"PPPoE", " ", " ", " "}}) {
    const Source running = wan_link(std::string(R"({"proto": ")") + protocol + "\"}");
    expect_gets({{PPP(Name), proto(protocol), name},
                 {PPP(ConnectionType), proto("none") && running, connection},  // the daemon's word counts
                 {PPP(TransportType), proto("none") && running, transport}});
  }
  expect_gets({{PPP(Name), as_is, " "}, {PPP(ConnectionType), as_is, " "}, {PPP(TransportType), as_is, " "}});
}

TEST_F(WanPpp, CurrentMruIsThatOfTheProtocol) {
  const Source mtu = wan_option("mtu", "1500");
  const Source all = mtu && wan_option("pppoe_mtu", "1480") && wan_option("l2tp_mtu", "1440");
  for (const auto& [source, mru] : {std::pair{as_is, " "},
                                    {all, "1500"},
                                    {mtu && proto("pppoe"), "1500"},
                                    {all && proto("pppoe"), "1480"},
                                    {all && proto("l2tp"), "1440"},
                                    {all && proto("PPPoE"), ""}})
    expect_gets({{PPP(CurrentMRUSize), source, mru}});
}

TEST_F(WanPpp, GatewayIsWhatTheScriptPrints) {
  const char script[] = "/usr/bin/tr069/cwmp-ppp";
  expect_gets({{PPP(DefaultGateway), prints(script, "203.0.113.1\nmore\n"), "203.0.113.1"},
               {PPP(DefaultGateway), prints(script, "\n"), "0.0.0.0"},
               {PPP(DefaultGateway), prints(script, std::string(200, '9')), std::string(127, '9')},
               {PPP(DefaultGateway), no_pipes, kGetFailed, "popen error.\n"}});
}

TEST_F(WanPpp, CountersAreThoseOfTheLayer3Device) {
  const std::vector<parameter_handler> counters = {PPP(Stats_EthernetBytesSent),   PPP(Stats_EthernetBytesReceived),
                                                   PPP(Stats_EthernetPacketsSent), PPP(Stats_EthernetPacketsReceived),
                                                   PPP(Stats_EthernetErrorsSent),  PPP(Stats_EthernetErrorsReceived)};
  expect_counters("wan", counters, proto("pppoe"));
  for (const parameter_handler handler : counters)
    expect_gets({{handler, proto("l2tp"), "0"}, {handler, proto("PPPoE"), ""}, {handler, as_is, kGetFailed}});
}

}  // namespace
}  // namespace kova::test

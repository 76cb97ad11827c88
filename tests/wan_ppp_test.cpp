// WANPPPConnection: the link as a PPP connection.
#include "pkg-wan/pkg-wan.h"
#include "support/wan.hpp"

#define PPP(parameter) WANDevice_WANConnectionDevice_WANPPPConnection_##parameter

namespace kova::test {
namespace {

const Instances kAny{1, 1, 1};

class WanPpp : public WanTest {};

TEST_F(WanPpp, PppoeAloneIsEnabled) {
  EXPECT_EQ(get(PPP(Enable)), kGetFailed);
  EXPECT_EQ(messages().back(), "uci get failed\n\n");
  for (const auto& [protocol, text] : {std::pair{"pppoe", "1"}, {"PPPoE", "0"}, {"l2tp", "0"}, {"dhcp", "0"}}) {
    option_is("proto", protocol);
    EXPECT_EQ(get(PPP(Enable)), answered(text));
  }
}

TEST_F(WanPpp, Settings) {
  const struct {
    parameter_handler handler;
    const char* option;
    const char* missing;
  } settings[] = {{PPP(Username), "username", " "},
                  {PPP(Password), "password", " "},
                  {PPP(MaxMRUSize), "pppoe_mtu", "1480"},
                  {PPP(PPPoEServiceName), "service", ""},
                  {PPP(PPPoEACName), "ac", ""}};
  for (const auto& [handler, option, missing] : settings) {
    EXPECT_EQ(get(handler), answered(missing));
    option_is(option, std::string("1400 ") + option);
    EXPECT_EQ(get(handler), answered(std::string("1400 ") + option));
  }
  EXPECT_EQ(get(PPP(PPPAuthenticationProtocol)), answered("AUTO_AUTH"));
}

TEST_F(WanPpp, AStoredCredentialIsNotRecordedAgain) {
  for (const auto& [handler, option] : {std::pair{&PPP(Username), "username"}, {&PPP(Password), "password"}}) {
    option_is(option, "Stored One");
    EXPECT_EQ(set(handler, "Stored One"), accepted());
    EXPECT_EQ(task_record(), "");
    EXPECT_EQ(set(handler, "stored one"), accepted(APPLY_TASK_COMMANDS));
    EXPECT_EQ(task_record(), verify(std::string("pppoe_") + option + " \"stored one\" "));
    run("rm /tmp/tr069/cmd_record");
  }
}

TEST_F(WanPpp, StateIsThatOfTheLinkWhilePppIsConfigured) {
  devices_are(R"([{"when": {"name": "eth0"}, "reply": {"macaddr": "02:a4:f1:00:00:02"}}])");
  const struct {
    parameter_handler handler;
    const char* live;
    const char* unanswered;
  } states[] = {{PPP(Uptime), "3600", ""},
                {PPP(ExternalIPAddress), "203.0.113.9", "0.0.0.0"},
                {PPP(RemoteIPAddress), "203.0.113.1", "0.0.0.0"},
                {PPP(MACAddress), "02:a4:f1:00:00:02", "0:0:0:0:0:0"}};
  const char answer[] = R"({"uptime": 3600, "device": "eth0", "ipv4-address": [{"address": "203.0.113.9", "mask": 32}],
                            "route": [{"nexthop": "203.0.113.1"}]})";
  for (const auto& [handler, live, unanswered] : states) {
    for (const char* protocol : {"pppoe", "l2tp"}) {
      option_is("proto", protocol);
      link_is(answer);
      EXPECT_EQ(get(handler), answered(live));
      link_is(R"({"up": true, "ipv4-address": [], "route": []})");
      EXPECT_EQ(get(handler), answered(unanswered));
      no_link();
      EXPECT_EQ(get(handler), answered(unanswered));
    }
    link_is(answer);
    for (const char* protocol : {"dhcp", "pptp", "PPPOE", "L2TP"}) {
      option_is("proto", protocol);
      EXPECT_EQ(get(handler), answered("")) << protocol;
    }
    option_is("proto", "");
    EXPECT_EQ(get(handler), kGetFailed);
  }
  option_is("proto", "pppoe");
  link_is(R"({"device": "eth9"})");
  EXPECT_EQ(get(PPP(MACAddress)), answered("0:0:0:0:0:0"));
}

TEST_F(WanPpp, ConnectionStatusTakesTheProtocolInAnyCase) {
  EXPECT_EQ(get(PPP(ConnectionStatus)), kGetFailed);
  for (const char* protocol : {"pppoe", "PPPoE", "l2tp", "L2TP"}) {
    option_is("proto", protocol);
    for (const auto& [status, text] : {std::pair{R"({"up": true})", "Connected"},
                                       {R"({"up": false})", "Disconnected"},
                                       {R"({"pending": true})", "Unconfigured"}}) {
      link_is(status);
      EXPECT_EQ(get(PPP(ConnectionStatus)), answered(text));
    }
  }
  link_is(R"({"up": true})");
  option_is("proto", "dhcp");
  EXPECT_EQ(get(PPP(ConnectionStatus)), answered("Disconnected"));
}

TEST_F(WanPpp, IsCalledAfterItsProtocol) {
  EXPECT_EQ(get(PPP(Name)), answered(" "));
  for (const parameter_handler handler : {PPP(ConnectionType), PPP(TransportType)})
    EXPECT_EQ(get(handler), answered(" "));
  const struct {
    const char* protocol;
    const char* name;
    const char* connection;
    const char* transport;
  } cases[] = {{"pppoe", "wan_pppoe", "PPPoE_Relay", "PPPoE"},
               {"l2tp", "wan_l2tp", "L2TP_Relay", "L2TP"},
               {"pptp", " ", "PPTP_Relay", "PPTP"},
               {"dhcp", " ", " ", " "},
               {"PPPoE", " ", " ", " "},
               {"pppoe-and-more", " ", " ", " "}};
  for (const auto& [protocol, name, connection, transport] : cases) {
    SCOPED_TRACE(protocol);
    option_is("proto", protocol);
    EXPECT_EQ(get(PPP(Name)), answered(name));
    link_is(std::string(R"({"proto": ")") + protocol + "\"}");
    option_is("proto", "dhcp");  // the daemon's word counts for the other two
    EXPECT_EQ(get(PPP(ConnectionType)), answered(connection));
    EXPECT_EQ(get(PPP(TransportType)), answered(transport));
  }
}

TEST_F(WanPpp, CurrentMruIsThatOfTheProtocol) {
  EXPECT_EQ(get(PPP(CurrentMRUSize)), answered(" "));
  option_is("mtu", "1500");
  for (const char* protocol : {"", "pppoe", "l2tp"}) {
    option_is("proto", protocol);
    EXPECT_EQ(get(PPP(CurrentMRUSize)), answered("1500"));
  }
  option_is("pppoe_mtu", "1480");
  option_is("l2tp_mtu", "1440");
  for (const auto& [protocol, text] :
       {std::pair{"pppoe", "1480"}, {"l2tp", "1440"}, {"dhcp", ""}, {"PPPoE", ""}, {"", "1500"}}) {
    option_is("proto", protocol);
    EXPECT_EQ(get(PPP(CurrentMRUSize)), answered(text));
  }
}

TEST_F(WanPpp, GatewayIsWhatTheScriptPrints) {
  const std::string script = "/usr/bin/tr069/cwmp-ppp";
  for (const auto& [printed, text] :
       {std::pair{"203.0.113.1\nmore\n", "203.0.113.1"}, {"", "0.0.0.0"}, {"\n", "0.0.0.0"}}) {
    seams().answer(script, printed);
    EXPECT_EQ(get(PPP(DefaultGateway)), answered(text));
  }
  seams().answer(script, std::string(200, '9'));
  EXPECT_EQ(get(PPP(DefaultGateway)), answered(std::string(127, '9')));
  EXPECT_EQ(commands(), std::vector<std::string>(4, script));
  seams().popen_fails = true;
  EXPECT_EQ(get(PPP(DefaultGateway)), kGetFailed);
  EXPECT_EQ(messages().back(), "popen error.\n");
}

TEST_F(WanPpp, CountersAreThoseOfTheLayer3Device) {
  const struct {
    parameter_handler handler;
    const char* count;
  } counters[] = {{PPP(Stats_EthernetBytesSent), "21"},   {PPP(Stats_EthernetBytesReceived), "11"},
                  {PPP(Stats_EthernetPacketsSent), "22"}, {PPP(Stats_EthernetPacketsReceived), "12"},
                  {PPP(Stats_EthernetErrorsSent), "23"},  {PPP(Stats_EthernetErrorsReceived), "13"}};
  seams().answer("cat /proc/net/dev|grep -w pppoe-wan", " pppoe-wan: 11 12 13 0 0 0 0 0 21 22 23 0 0 0 0 0\n");
  for (const auto& [handler, count] : counters) {
    EXPECT_EQ(get(handler), kGetFailed);
    link_is(R"({"device": "eth0", "l3_device": "pppoe-wan"})");
    for (const auto& [protocol, text] : {std::pair{"pppoe", count}, {"l2tp", count}, {"PPPoE", ""}, {"dhcp", ""}}) {
      option_is("proto", protocol);
      EXPECT_EQ(get(handler), answered(text));
    }
    option_is("proto", "pppoe");
    link_is(R"({"l3_device": "gone"})");
    EXPECT_EQ(get(handler), answered("0"));
    no_link();
    EXPECT_EQ(get(handler), answered("0"));
    EXPECT_EQ(set(handler, "0"), kRefused);
    option_is("proto", "");
  }
}

TEST_F(WanPpp, ChangesAreRecordedForLater) {
  const Change changes[] = {
      {PPP(Enable), kAny, "TRUE", "pppoe_enable \"on\"", "SPEE. \n"},
      {PPP(Enable), kAny, "1", "pppoe_enable \"on\"", "SPEE. \n"},
      {PPP(Enable), kAny, "False", "pppoe_enable \"off\"", "SPEE. \n"},
      {PPP(Enable), kAny, "0", "pppoe_enable \"off\"", "SPEE. \n"},
      {PPP(Username), kAny, "new user", "pppoe_username \"new user\" ", "SPUNE. \n"},
      {PPP(Password), kAny, "", "pppoe_password \"\" ", "SPPWE. \n"},
      {PPP(MaxMRUSize), kAny, "576", "pppoe_mtu \"576\"", nullptr},
      {PPP(MaxMRUSize), kAny, "1492x", "pppoe_mtu \"1492x\"", nullptr},
      {PPP(PPPoEServiceName), kAny, "a service", "pppoe_servicename \"a service\"", nullptr},
      {PPP(PPPoEACName), kAny, "ac", "pppoe_access \"ac\"", nullptr},
  };
  expect_recorded(changes);
}

TEST_F(WanPpp, RefusedValuesAreNotRecorded) {
  const Refusal refusals[] = {
      {PPP(Enable), kAny, "yes", "Invalid param\n"},
      {PPP(Enable), kAny, "", "Invalid param\n"},
      {PPP(MaxMRUSize), kAny, "575", nullptr},
      {PPP(MaxMRUSize), kAny, "1493", nullptr},
  };
  expect_refused(refusals);
}

}  // namespace
}  // namespace kova::test

// ManagementServer.
#include "pkg-mgmt/pkg-mgmt.h"
#include "support/tables.hpp"

#define SERVER(parameter) ManagementServer_##parameter

namespace kova::test {
namespace {

const Source no_store = no_file("/etc/config/cwmp");

class ManagementServer : public TableTest {
 protected:
  void SetUp() override {
    DeviceTest::SetUp();
    write_file("/etc/config/cwmp", "config info 'info'\n");
  }

  // What is logged before a change: `log` and the value; nothing for an empty one.
  static Effects message(const std::string& log, const std::string& value) {
    return log.empty() ? Effects{} : Effects{logs(log + value + "\n\n")};
  }

  // The server is told of a change even when the store refused it.
  static void expect_stored(parameter_handler handler, const std::string& value, uint32_t mask, const std::string& path,
                            const std::string& stored, const std::string& log) {
    Effects effects = message(log, value);
    expect_sets({{handler, value, accepted(mask), effects, no_store}});
    effects.insert(effects.begin(), stores(path, stored));
    expect_sets({{handler, value, accepted(mask), effects}});
  }
};

TEST_F(ManagementServer, SettingsAreWrittenAsGiven) {
  for (const auto& [handler, name, log] : {std::tuple{&SERVER(URL), "url", "CWMP_URL:"},
                                           {SERVER(Username), "username", "CWMP_UN:"},
                                           {SERVER(Password), "password", "CWMP_PW:"},
                                           {SERVER(ConnectionRequestUsername), "conn_username", "CWMP_CR_UN: "},
                                           {SERVER(ConnectionRequestPassword), "conn_password", "CWMP_CR_PW:"},
                                           {SERVER(PeriodicInformInterval), "inform_interval", "CWMP_PIFI:"},
                                           {SERVER(STUNEnable), "stun_enable", ""},
                                           {SERVER(STUNServerAddress), "stun_server_addr", ""},
                                           {SERVER(STUNServerPort), "stun_server_port", ""},
                                           {SERVER(STUNUsername), "stun_username", ""},
                                           {SERVER(STUNPassword), "stun_password", ""},
                                           {SERVER(STUNMinimumKeepAlivePeriod), "stun_min_keepalive", "MGMSSTMKAP:"},
                                           {SERVER(STUNMaximumKeepAlivePeriod), "stun_max_keepalive", "MGMSSTMKAP:"}}) {
    const std::string path = std::string("cwmp.info.") + name;
    expect_stored(handler, "it's new", APPLY_MANAGEMENT, path, "it's new", log);
    if (!path.starts_with("cwmp.info.stun_")) expect_options({{handler, path, ""}});
  }
  expect_options({{SERVER(ParameterKey), "cwmp.info.parameterKey", ""}});
  expect_gets({{SERVER(KickURL), as_is, ""}});
  expect_sets({{SERVER(KickURL), "http://kick.example", accepted()}});

  set(SERVER(URL), "logged first");
  EXPECT_TRUE(seams().syslog[0].starts_with("pkg-mgmt.c, "));
}

TEST_F(ManagementServer, TheRunningAgentAnswers) {
  agent_state agent = running_agent();
  agent.connection_request_port = 65535;
  agent.stun_enabled = agent.nat_detected = 1;
  agent.stun_max_keepalive = 40000;
  agent.stun_min_keepalive = 30;
  agent.stun_server_port = 3478;
  std::string("stun user").copy(agent.stun_username, 63);
  std::string(64, 'p').copy(agent.stun_password, 64);  // fills its field, without a terminator
  std::string("198.51.100.7:49152").copy(agent.udp_connection_request_address, 63);
  std::string("stun.example").copy(agent.stun_server_address, 63);
  for (const auto& [handler, text] : {std::pair{&SERVER(ConnectionRequestURL), "http://192.0.2.10:65535/kova"},
                                      {SERVER(UDPConnectionRequestAddress), "198.51.100.7:49152"},
                                      {SERVER(NATDetected), "1"},
                                      {SERVER(STUNEnable), "1"},
                                      {SERVER(STUNServerAddress), "stun.example"},
                                      {SERVER(STUNServerPort), "3478"},
                                      {SERVER(STUNUsername), "stun user"},
                                      {SERVER(STUNMinimumKeepAlivePeriod), "30"},
                                      {SERVER(STUNMaximumKeepAlivePeriod), "40000"}})
    EXPECT_EQ(get(handler, agent), answered(text));
  EXPECT_EQ(get(SERVER(STUNPassword), agent), answered(std::string(64, 'p')));
  agent.nat_detected = 2;
  EXPECT_EQ(get(SERVER(NATDetected), agent), answered("0"));
  agent.connection_request_host = agent.connection_request_path = nullptr;  // of an agent that listens nowhere
  EXPECT_EQ(get(SERVER(ConnectionRequestURL), agent), answered("http://(null):65535(null)"));
}

TEST_F(ManagementServer, SwitchesTakeOneAndZeroOnly) {
  for (const auto& [handler, name, mask, log] :
       {std::tuple{&SERVER(EnableCWMP), "enable", APPLY_MANAGEMENT, "ECWMP:"},
        {SERVER(PeriodicInformEnable), "inform_enable", APPLY_MANAGEMENT, ""},
        {SERVER(EnableResetFactory), "reset_factory", apply_mask{}, "ECRF."}}) {
    const std::string path = std::string("cwmp.info.") + name;
    expect_stored(handler, "1", mask, path, "on", log);
    expect_stored(handler, "0", mask, path, "off", log);
    for (const char* value : {"true", "", "01"}) expect_sets({{handler, value, kRefused, message(log, value)}});
    expect_gets({{handler, option(path, "on"), "1"}, {handler, option(path, "ON"), "0"}});
  }
  expect_gets({{SERVER(EnableCWMP), as_is, kGetFailed, "FTGACSE.\n\n"},
               {SERVER(PeriodicInformEnable), as_is, kGetFailed, "FTGIE.\n\n"},
               {SERVER(EnableResetFactory), as_is, "1"}});
}

}  // namespace
}  // namespace kova::test

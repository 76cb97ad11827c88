// ManagementServer.
#include "pkg-mgmt/pkg-mgmt.h"
#include "support/device.hpp"

namespace kova::test {
namespace {

class ManagementServer : public DeviceTest {};

struct Setting {
  parameter_handler handler;
  const char* option;
  const char* message;  // logged before the write, with the value; nullptr for none
};

std::string with_value(std::string message, const std::string& value) {
  return message.replace(message.find("%s"), 2, value);
}

const Setting kStoredSettings[] = {
    {ManagementServer_URL, "url", "CWMP_URL:%s\n\n"},
    {ManagementServer_Username, "username", "CWMP_UN:%s\n\n"},
    {ManagementServer_Password, "password", "CWMP_PW:%s\n\n"},
    {ManagementServer_ConnectionRequestUsername, "conn_username", "CWMP_CR_UN: %s\n\n"},
    {ManagementServer_ConnectionRequestPassword, "conn_password", "CWMP_CR_PW:%s\n\n"},
    {ManagementServer_PeriodicInformInterval, "inform_interval", "CWMP_PIFI:%s\n\n"},
};

const Setting kAgentSettings[] = {
    {ManagementServer_STUNEnable, "stun_enable", nullptr},
    {ManagementServer_STUNServerAddress, "stun_server_addr", nullptr},
    {ManagementServer_STUNServerPort, "stun_server_port", nullptr},
    {ManagementServer_STUNUsername, "stun_username", nullptr},
    {ManagementServer_STUNPassword, "stun_password", nullptr},
    {ManagementServer_STUNMinimumKeepAlivePeriod, "stun_min_keepalive", "MGMSSTMKAP:%s\n\n"},
    {ManagementServer_STUNMaximumKeepAlivePeriod, "stun_max_keepalive", "MGMSSTMKAP:%s\n\n"},
};

void expect_writes(const Setting& setting, const std::string& value) {
  SCOPED_TRACE(setting.option);
  seams().syslog.clear();
  EXPECT_EQ(set(setting.handler, value), accepted(APPLY_MANAGEMENT));
  EXPECT_EQ(stored("/etc/config", "cwmp", "info", setting.option), value);
  EXPECT_EQ(stored("/tmp/cwmp-config", "cwmp", "info", setting.option), value);
  const std::string first = seams().syslog.at(0).substr(seams().syslog[0].find(": ") + 2);
  EXPECT_EQ(first, setting.message != nullptr ? with_value(setting.message, value) : "SUCF.\n\n");
  EXPECT_EQ(seams().syslog[0].starts_with("pkg-mgmt.c, "), setting.message != nullptr);
}

TEST_F(ManagementServer, SettingsAreWrittenAsGivenAndReadBack) {
  for (const Setting& setting : kStoredSettings) {
    const std::string value = std::string("new ") + setting.option;
    expect_writes(setting, value);
    EXPECT_EQ(get(setting.handler), answered(value));
    configure(std::string("cwmp.info.") + setting.option, "");
    EXPECT_EQ(get(setting.handler), answered(""));
  }
}

TEST_F(ManagementServer, AgentSettingsAreWrittenButReadFromTheRunningAgent) {
  for (const Setting& setting : kAgentSettings) expect_writes(setting, "7");
  agent_state agent = running_agent();
  EXPECT_EQ(get(ManagementServer_STUNEnable, agent), answered("0"));
  EXPECT_EQ(get(ManagementServer_STUNServerPort, agent), answered("0"));
  EXPECT_EQ(get(ManagementServer_STUNUsername, agent), answered(""));
}

TEST_F(ManagementServer, AnswersFromTheRunningAgent) {
  agent_state agent = running_agent();
  agent.connection_request_port = 65535;
  agent.stun_enabled = 1;
  agent.nat_detected = 1;
  agent.stun_max_keepalive = 40000;
  agent.stun_min_keepalive = 30;
  agent.stun_server_port = 3478;
  std::string("stun user").copy(agent.stun_username, 63);
  std::string(64, 'p').copy(agent.stun_password, 64);  // fills its field, without a terminator
  std::string("198.51.100.7:49152").copy(agent.udp_connection_request_address, 63);
  std::string("stun.example").copy(agent.stun_server_address, 63);

  EXPECT_EQ(get(ManagementServer_ConnectionRequestURL, agent), answered("http://192.0.2.10:65535/kova"));
  EXPECT_EQ(get(ManagementServer_UDPConnectionRequestAddress, agent), answered("198.51.100.7:49152"));
  EXPECT_EQ(get(ManagementServer_NATDetected, agent), answered("1"));
  EXPECT_EQ(get(ManagementServer_STUNEnable, agent), answered("1"));
  EXPECT_EQ(get(ManagementServer_STUNServerAddress, agent), answered("stun.example"));
  EXPECT_EQ(get(ManagementServer_STUNServerPort, agent), answered("3478"));
  EXPECT_EQ(get(ManagementServer_STUNUsername, agent), answered("stun user"));
  EXPECT_EQ(get(ManagementServer_STUNPassword, agent), answered(std::string(64, 'p')));
  EXPECT_EQ(get(ManagementServer_STUNMinimumKeepAlivePeriod, agent), answered("30"));
  EXPECT_EQ(get(ManagementServer_STUNMaximumKeepAlivePeriod, agent), answered("40000"));
  agent.nat_detected = 2;
  EXPECT_EQ(get(ManagementServer_NATDetected, agent), answered("0"));
}

TEST_F(ManagementServer, SwitchesTakeOneAndZeroOnly) {
  const struct {
    parameter_handler handler;
    const char* option;
    const char* unreadable;
  } switches[] = {{ManagementServer_PeriodicInformEnable, "inform_enable", "FTGIE.\n\n"},
                  {ManagementServer_EnableCWMP, "enable", "FTGACSE.\n\n"}};
  for (const auto& [handler, option, unreadable] : switches) {
    SCOPED_TRACE(option);
    const std::string path = std::string("cwmp.info.") + option;
    EXPECT_EQ(set(handler, "0"), accepted(APPLY_MANAGEMENT));
    EXPECT_EQ(config(path), "off");
    EXPECT_EQ(get(handler), answered("0"));
    for (const char* refused : {"true", "", "01", "on"}) EXPECT_EQ(set(handler, refused), kRefused);
    EXPECT_EQ(config(path), "off");
    EXPECT_EQ(set(handler, "1"), accepted(APPLY_MANAGEMENT));
    EXPECT_EQ(config(path), "on");
    EXPECT_EQ(get(handler), answered("1"));
    configure(path, "ON");
    EXPECT_EQ(get(handler), answered("0"));
    configure(path, "");
    EXPECT_EQ(get(handler), kGetFailed);
    EXPECT_TRUE(logged(unreadable));
  }
  EXPECT_TRUE(logged("ECWMP:true\n\n"));
}

TEST_F(ManagementServer, FactoryResetIsAllowedUnlessSwitchedOff) {
  configure("cwmp.info.reset_factory", "");
  EXPECT_EQ(get(ManagementServer_EnableResetFactory), answered("1"));
  EXPECT_EQ(set(ManagementServer_EnableResetFactory, "0"), accepted());
  EXPECT_EQ(config("cwmp.info.reset_factory"), "off");
  EXPECT_EQ(get(ManagementServer_EnableResetFactory), answered("0"));
  configure("cwmp.info.reset_factory", "maybe");
  EXPECT_EQ(get(ManagementServer_EnableResetFactory), answered("0"));
  EXPECT_EQ(set(ManagementServer_EnableResetFactory, "maybe"), kRefused);
  EXPECT_TRUE(logged("ECRF.maybe\n\n"));
  EXPECT_EQ(set(ManagementServer_EnableResetFactory, "1"), accepted());
  EXPECT_EQ(get(ManagementServer_EnableResetFactory), answered("1"));
}

TEST_F(ManagementServer, TheServerIsToldOfAChangeEvenWhenTheStoreRefusedIt) {
  run("rm /etc/config/cwmp");
  for (const Setting& setting : kStoredSettings) EXPECT_EQ(set(setting.handler, "lost"), accepted(APPLY_MANAGEMENT));
  for (const Setting& setting : kAgentSettings) EXPECT_EQ(set(setting.handler, "1"), accepted(APPLY_MANAGEMENT));
  EXPECT_EQ(set(ManagementServer_PeriodicInformEnable, "1"), accepted(APPLY_MANAGEMENT));
  EXPECT_EQ(set(ManagementServer_EnableCWMP, "1"), accepted(APPLY_MANAGEMENT));
  EXPECT_EQ(set(ManagementServer_EnableResetFactory, "1"), accepted());
  EXPECT_EQ(messages().back(), "FTSUC.\n\n");
}

TEST_F(ManagementServer, KickUrlAndParameterKey) {
  EXPECT_EQ(set(ManagementServer_KickURL, "http://kick.example"), accepted());
  EXPECT_EQ(get(ManagementServer_KickURL), answered(""));
  configure("cwmp.info.parameterKey", "key 1");
  EXPECT_EQ(get(ManagementServer_ParameterKey), answered("key 1"));
  EXPECT_EQ(set(ManagementServer_ParameterKey, "key 2"), kRefused);
}

}  // namespace
}  // namespace kova::test

// ManagementServer: the agent's own settings, and what the running agent makes of them.
#include <string.h>

#include "parameter.hpp"
#include "pkg-mgmt.h"
#include "text.hpp"

namespace {

using namespace kova;

constexpr Section info{"cwmp", "info"};

// The agent reloads its settings even when the store refused one: the server has asked for a change.
int store_and_mark(Call& call, const char* option, const char* value) {
  uci_raw_set_value(info.package, info.name, option, value);
  return call.mark(APPLY_MANAGEMENT);
}

constexpr auto agent_setting(const char* option, LogMessage message = {}) {
  return [=](Call& call) IN_CODE {
    message.print(call.origin(), call.value());
    return store_and_mark(call, option, call.value());
  };
}

// ---- Switches: "on" and "off" in the store, "1" and "0" in the data model ----

int reply_switch(Call& call, const char* option, LogMessage failure) {
  Text<8> stored;
  if (read_option(info, option, stored.span()) != SUCCESS) return refuse(call, failure);
  return call.reply(stored == "on" ? "1" : "0");
}

const char* on_or_off(const Call& call) {
  if (call.value_is("0")) return "off";
  if (call.value_is("1")) return "on";
  return nullptr;
}

constexpr auto agent_switch(const char* option, LogMessage failure) {
  return [=](Call& call) IN_CODE { return reply_switch(call, option, failure.copy()); };
}

constexpr auto set_agent_switch(const char* option, LogMessage message = {}) {
  return [=](Call& call) IN_CODE {
    message.print(call.origin(), call.value());
    const char* value = on_or_off(call);
    return value != nullptr ? store_and_mark(call, option, value) : FAILURE;
  };
}

// A device that does not say otherwise may be reset.
int reset_allowed(Call& call) {
  Text<8> stored;
  const bool missing = read_option(info, "reset_factory", stored.span()) != SUCCESS;
  return call.reply(missing || stored == "on" ? "1" : "0");
}

int set_reset_allowed(Call& call) {
  LOG("ECRF.%s\n\n", call.value());
  const char* value = on_or_off(call);
  if (value == nullptr) return FAILURE;
  uci_raw_set_value(info.package, info.name, "reset_factory", value);
  return SUCCESS;
}

// ---- What the running agent uses ----

template <typename Number>
constexpr auto agent_number(Number agent_state::*field) {
  return [=](Call& call) IN_CODE { return call.reply_number(call.agent().*field); };
}

// A text that fills its field need not be terminated there.
int reply_agent_text(Call& call, const char (&field)[64]) {
  return call.reply(Text<sizeof field + 1>({field, strnlen(field, sizeof field)}).c_str());
}

constexpr auto agent_text(char (agent_state::*field)[64]) {
  return [=](Call& call) IN_CODE { return reply_agent_text(call, call.agent().*field); };
}

int nat_detected(Call& call) { return call.reply(call.agent().nat_detected == 1 ? "1" : "0"); }

int connection_request_url(Call& call) {
  const agent_state& agent = call.agent();
  Text<256> url;
  url.print("http://%s:%d%s", agent.connection_request_host, agent.connection_request_port,
            agent.connection_request_path);
  return call.reply(url.c_str());
}

}  // namespace

// clang-format off
PARAMETER(ManagementServer_EnableCWMP,                agent_switch("enable", "FTGACSE.\n\n"),        set_agent_switch("enable", "ECWMP:%s\n\n"))
PARAMETER(ManagementServer_URL,                       text(info, "url"),                             agent_setting("url", "CWMP_URL:%s\n\n"))
PARAMETER(ManagementServer_Username,                  text(info, "username"),                        agent_setting("username", "CWMP_UN:%s\n\n"))
PARAMETER(ManagementServer_Password,                  text(info, "password"),                        agent_setting("password", "CWMP_PW:%s\n\n"))
PARAMETER(ManagementServer_PeriodicInformEnable,      agent_switch("inform_enable", "FTGIE.\n\n"),   set_agent_switch("inform_enable"))
PARAMETER(ManagementServer_PeriodicInformInterval,    text(info, "inform_interval"),                 agent_setting("inform_interval", "CWMP_PIFI:%s\n\n"))
PARAMETER(ManagementServer_ParameterKey,              text(info, "parameterKey"),                    read_only)
PARAMETER(ManagementServer_ConnectionRequestURL,      connection_request_url,                        read_only)
PARAMETER(ManagementServer_ConnectionRequestUsername, text(info, "conn_username"),                   agent_setting("conn_username", "CWMP_CR_UN: %s\n\n"))
PARAMETER(ManagementServer_ConnectionRequestPassword, text(info, "conn_password"),                   agent_setting("conn_password", "CWMP_CR_PW:%s\n\n"))
PARAMETER(ManagementServer_KickURL,                   constant(""),                                  ignored)
PARAMETER(ManagementServer_EnableResetFactory,        reset_allowed,                                 set_reset_allowed)

PARAMETER(ManagementServer_UDPConnectionRequestAddress, agent_text(&agent_state::udp_connection_request_address), read_only)
PARAMETER(ManagementServer_NATDetected,                 nat_detected,                                             read_only)
PARAMETER(ManagementServer_STUNEnable,                  agent_number(&agent_state::stun_enabled),                 agent_setting("stun_enable"))
PARAMETER(ManagementServer_STUNServerAddress,           agent_text(&agent_state::stun_server_address),            agent_setting("stun_server_addr"))
PARAMETER(ManagementServer_STUNServerPort,              agent_number(&agent_state::stun_server_port),             agent_setting("stun_server_port"))
PARAMETER(ManagementServer_STUNUsername,                agent_text(&agent_state::stun_username),                  agent_setting("stun_username"))
PARAMETER(ManagementServer_STUNPassword,                agent_text(&agent_state::stun_password),                  agent_setting("stun_password"))
// Both periods log the same text; engineers tell them apart by the option that is written next.
PARAMETER(ManagementServer_STUNMinimumKeepAlivePeriod,  agent_number(&agent_state::stun_min_keepalive),           agent_setting("stun_min_keepalive", "MGMSSTMKAP:%s\n\n"))
PARAMETER(ManagementServer_STUNMaximumKeepAlivePeriod,  agent_number(&agent_state::stun_max_keepalive),           agent_setting("stun_max_keepalive", "MGMSSTMKAP:%s\n\n"))
// clang-format on

// ManagementServer: the agent's own settings, and what the running agent makes of them.
#include <string.h>

#include "parameter.hpp"
#include "pkg-mgmt.h"
#include "text.hpp"

namespace {

using namespace kova;

constexpr Section info{"cwmp", "info"};

// The agent reloads its settings even when the store refused one: the server has asked for a change.
bool store_and_mark(Call& call, const char* option, const char* value, uint32_t bits = APPLY_MANAGEMENT) {
  write_option(info, option, value);
  return bits == 0 || call.mark(bits);
}

constexpr auto agent_setting(const char* option, LogMessage message = {}) {
  return [=](Call& call) {
    message.print(call.origin(), call.value());
    return store_and_mark(call, option, call.value());
  };
}

// ---- Switches: "on" and "off" in the store, "1" and "0" in the data model ----

bool reply_switch(Call& call, const char* option, LogMessage failure) {
  const Option stored(info, option);
  return stored ? call.reply(stored == "on" ? "1" : "0") : call.refuse(failure);
}

const char* on_or_off(const Call& call) {
  if (call.value_is("0")) return "off";
  if (call.value_is("1")) return "on";
  return nullptr;
}

constexpr auto agent_switch(const char* option, LogMessage failure) {
  return [=](Call& call) { return reply_switch(call, option, failure); };
}

constexpr auto set_agent_switch(const char* option, LogMessage message = {}, uint32_t bits = APPLY_MANAGEMENT) {
  return [=](Call& call) {
    message.print(call.origin(), call.value());
    const char* value = on_or_off(call);
    return value != nullptr && store_and_mark(call, option, value, bits);
  };
}

// A device that does not say otherwise may be reset.
bool reset_allowed(Call& call) {
  const Option stored(info, "reset_factory");
  return call.reply(!stored || stored == "on" ? "1" : "0");
}

// ---- What the running agent uses ----

template <typename Number>
constexpr auto agent_number(Number agent_state::*field) {
  return [=](Call& call) { return call.reply_number(call.agent().*field); };
}

// A text that fills its field need not be terminated there.
bool reply_agent_text(Call& call, const char (&field)[64]) {
  return call.reply(Text<sizeof field + 1>({field, strnlen(field, sizeof field)}).c_str());
}

constexpr auto agent_text(char (agent_state::*field)[64]) {
  return [=](Call& call) { return reply_agent_text(call, call.agent().*field); };
}

bool nat_detected(Call& call) { return call.reply(call.agent().nat_detected == 1 ? "1" : "0"); }

bool connection_request_url(Call& call) {
  const agent_state& agent = call.agent();
  Text<256> url;
  url.print("http://%s:%d%s", agent.connection_request_host, agent.connection_request_port,
            agent.connection_request_path);  // an agent that listens nowhere may have neither
  return call.reply(url.c_str());
}

}  // namespace

// clang-format off
PARAMETER(ManagementServer_EnableCWMP,                agent_switch("enable", "FTGACSE.\n\n"),      set_agent_switch("enable", "ECWMP:%s\n\n"))
PARAMETER(ManagementServer_URL,                       option(info, "url"),                         agent_setting("url", "CWMP_URL:%s\n\n"))
PARAMETER(ManagementServer_Username,                  option(info, "username"),                    agent_setting("username", "CWMP_UN:%s\n\n"))
PARAMETER(ManagementServer_Password,                  option(info, "password"),                    agent_setting("password", "CWMP_PW:%s\n\n"))
PARAMETER(ManagementServer_PeriodicInformEnable,      agent_switch("inform_enable", "FTGIE.\n\n"), set_agent_switch("inform_enable"))
PARAMETER(ManagementServer_PeriodicInformInterval,    option(info, "inform_interval"),             agent_setting("inform_interval", "CWMP_PIFI:%s\n\n"))
PARAMETER(ManagementServer_ParameterKey,              option(info, "parameterKey"),                read_only)
PARAMETER(ManagementServer_ConnectionRequestURL,      connection_request_url,                      read_only)
PARAMETER(ManagementServer_ConnectionRequestUsername, option(info, "conn_username"),               agent_setting("conn_username", "CWMP_CR_UN: %s\n\n"))
PARAMETER(ManagementServer_ConnectionRequestPassword, option(info, "conn_password"),               agent_setting("conn_password", "CWMP_CR_PW:%s\n\n"))
PARAMETER(ManagementServer_KickURL,                   constant(""),                                ignored)
PARAMETER(ManagementServer_EnableResetFactory,        reset_allowed,                               set_agent_switch("reset_factory", "ECRF.%s\n\n", 0))

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

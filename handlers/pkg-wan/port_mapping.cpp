// PortMapping: the firewall's redirect rules, numbered from 1 as they stand. The data model shows them three times.
#include <string.h>

#include "parameter.hpp"
#include "pkg-wan.h"
#include "wan.hpp"

namespace {

using namespace kova;

// ---- The table ----

constexpr LogMessage kNoFirewall = "[ERR]uci failed to load config:firewall\n";

int number_of_mappings(Call& call) {
  const WalkedPackage firewall("firewall", HERE, "[ERR]uci failed to load config:firwall\n");
  if (!firewall) return FAILURE;
  int count = 0;
  for ([[maybe_unused]] uci_section* mapping : firewall.sections("redirect")) ++count;
  return call.reply_number(count);
}

int reply_field(Call& call, int32_t number, const char* option) {
  const WalkedPackage firewall("firewall", HERE, kNoFirewall);
  if (!firewall) return FAILURE;
  uci_section* mapping = firewall.sections("redirect").nth(number);
  if (mapping == nullptr) return FAILURE;
  const char* value = firewall.string(mapping, option);
  return call.reply(value != nullptr ? value : "");
}

// ---- Values: as they are written, or nullptr for one that is refused ----

const char* port(const Call& call) { return number_between(call.value(), 1, 65534) ? call.value() : nullptr; }

const char* protocol(const Call& call) {
  for (const char* word : {"tcp", "udp", "tcp udp", "other"}) {
    if (strcasecmp(call.value(), word) == 0) return word;
  }
  return nullptr;
}

const char* any_text(const Call& call) { return call.value(); }

// ---- Changes: written at once, taken over by the firewall when the agent runs the recorded command ----

constexpr char kQuoted[] = "uci set firewall.%s.%s='%s' && uci commit";
constexpr char kBare[] = "uci set firewall.%s.%s=%s && uci commit";  // the shell sees the value's blanks and more

// One field of a mapping.
struct Field {
  const char* option;
  const char* (*accepted)(const Call&);
  const char* command;
};

int write_field(int32_t number, const Field& field, const char* value) {
  const WalkedPackage firewall("firewall", HERE, kNoFirewall);
  if (!firewall) return FAILURE;
  return write_at_once(field.command, firewall.sections("redirect").nth(number), field.option, value);
}

int set_field(Call& call, int32_t number, const Field& field) {
  const char* value = field.accepted(call);
  if (value == nullptr || write_field(number, field, value) != SUCCESS) return FAILURE;
  if (record_task_cmd_once("/usr/bin/tr069/cwmp-nat &") != 0) {
    LOG("SPME.\n");
    return FAILURE;
  }
  return call.mark(APPLY_TASK_COMMANDS);
}

int work(Call& call, int32_t position, const Field& field) {
  const int32_t number = call.instance(static_cast<std::size_t>(position));
  return call.is_get() ? reply_field(call, number, field.option) : set_field(call, number, field);
}

}  // namespace

// The handler of a field, for every place in the data model that has it.
#define WORKER(worker, option, accepted, command)                          \
  int32_t worker(int32_t operation, va_list arguments, int32_t position) { \
    kova::Call call(operation, kova::place_of(arguments), HERE);           \
    return work(call, position, {option, accepted, command});              \
  }

// clang-format off
WORKER(PortMapping_ExternalPort,           "src_dport", port,     kQuoted)
WORKER(PortMapping_InternalPort,           "dest_port", port,     kQuoted)
WORKER(PortMapping_PortMappingProtocol,    "proto",     protocol, kQuoted)
WORKER(PortMapping_InternalClient,         "dest_ip",   address_value, kBare)
WORKER(PortMapping_PortMappingDescription, "name",      any_text, kBare)

PARAMETER(WANDevice_WANConnectionDevice_WANIPConnection_PortMappingNumberOfEntries, number_of_mappings, read_only)
// Last stands the place of the mapping's number among the instance numbers: behind the three of WANDevice, or first.
ALIAS(WANDevice_WANConnectionDevice_WANIPConnection_PortMapping_ExternalPort,           PortMapping_ExternalPort,           3)
ALIAS(WANDevice_WANConnectionDevice_WANIPConnection_PortMapping_InternalPort,           PortMapping_InternalPort,           3)
ALIAS(WANDevice_WANConnectionDevice_WANIPConnection_PortMapping_PortMappingProtocol,    PortMapping_PortMappingProtocol,    3)
ALIAS(WANDevice_WANConnectionDevice_WANIPConnection_PortMapping_InternalClient,         PortMapping_InternalClient,         3)
ALIAS(WANDevice_WANConnectionDevice_WANIPConnection_PortMapping_PortMappingDescription, PortMapping_PortMappingDescription, 3)

ALIAS(NAT_PortMapping_ExternalPort,   PortMapping_ExternalPort,           0)
ALIAS(NAT_PortMapping_InternalPort,   PortMapping_InternalPort,           0)
ALIAS(NAT_PortMapping_Protocol,       PortMapping_PortMappingProtocol,    0)
ALIAS(NAT_PortMapping_InternalClient, PortMapping_InternalClient,         0)
ALIAS(NAT_PortMapping_Description,    PortMapping_PortMappingDescription, 0)
// clang-format on
ALIAS(NAT_PortMappingNumberOfEntries, WANDevice_WANConnectionDevice_WANIPConnection_PortMappingNumberOfEntries)

ALIAS(WANDevice_WANConnectionDevice_WANPPPConnection_PortMappingNumberOfEntries,
      WANDevice_WANConnectionDevice_WANIPConnection_PortMappingNumberOfEntries)
ALIAS(WANDevice_WANConnectionDevice_WANPPPConnection_PortMapping_ExternalPort,
      WANDevice_WANConnectionDevice_WANIPConnection_PortMapping_ExternalPort)
ALIAS(WANDevice_WANConnectionDevice_WANPPPConnection_PortMapping_InternalPort,
      WANDevice_WANConnectionDevice_WANIPConnection_PortMapping_InternalPort)
ALIAS(WANDevice_WANConnectionDevice_WANPPPConnection_PortMapping_PortMappingProtocol,
      WANDevice_WANConnectionDevice_WANIPConnection_PortMapping_PortMappingProtocol)
ALIAS(WANDevice_WANConnectionDevice_WANPPPConnection_PortMapping_InternalClient,
      WANDevice_WANConnectionDevice_WANIPConnection_PortMapping_InternalClient)

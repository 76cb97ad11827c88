// PortMapping: the firewall's redirect rules, numbered from 1 as they stand. The data model shows them three times.
#include <string.h>

#include "parameter.hpp"
#include "pkg-wan.h"
#include "wan.hpp"

namespace {

using namespace kova;

// ---- The table ----

constexpr LogMessage kNoFirewall = "[ERR]uci failed to load config:firewall\n";

bool number_of_mappings(Call& call) {
  const WalkedPackage firewall("firewall", HERE, "[ERR]uci failed to load config:firwall\n");
  if (!firewall) return false;
  return call.reply_number(firewall.sections("redirect").count());
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

// ---- Fields of a mapping. A change is written at once; the firewall takes it over when the agent runs the recorded
// command. ----

constexpr char kQuoted[] = "uci set firewall.%s.%s='%s' && uci commit";
constexpr char kBare[] = "uci set firewall.%s.%s=%s && uci commit";  // the shell sees the value's blanks and more

struct Field {
  const char* option;
  const char* (*accepted)(const Call&);
  const char* command;

  bool get(Call& call, int32_t number) const;
  bool set(Call& call, int32_t number) const;
  bool write(int32_t number, const char* value) const;
};

bool Field::get(Call& call, int32_t number) const {
  const WalkedPackage firewall("firewall", HERE, kNoFirewall);
  if (!firewall) return false;
  uci_section* mapping = firewall.sections("redirect").nth(number);
  if (mapping == nullptr) return false;
  const char* value = firewall.string(mapping, option);
  return call.reply(value != nullptr ? value : "");
}

bool Field::write(int32_t number, const char* value) const {
  const WalkedPackage firewall("firewall", HERE, kNoFirewall);
  return firewall && write_at_once(command, firewall.sections("redirect").nth(number), option, value);
}

bool Field::set(Call& call, int32_t number) const {
  const char* value = accepted(call);
  if (value == nullptr || !write(number, value)) return false;
  if (record_task_cmd_once("/usr/bin/tr069/cwmp-nat &") == 0) return call.mark(APPLY_TASK_COMMANDS);
  LOG("SPME.\n");
  return false;
}

}  // namespace

// clang-format off
int32_t PortMapping_ExternalPort(int32_t operation, va_list arguments, int32_t position)           { return serve_field(operation, arguments, position, HERE, Field{"src_dport", port,          kQuoted}); }
int32_t PortMapping_InternalPort(int32_t operation, va_list arguments, int32_t position)           { return serve_field(operation, arguments, position, HERE, Field{"dest_port", port,          kQuoted}); }
int32_t PortMapping_PortMappingProtocol(int32_t operation, va_list arguments, int32_t position)    { return serve_field(operation, arguments, position, HERE, Field{"proto",     protocol,      kQuoted}); }
int32_t PortMapping_InternalClient(int32_t operation, va_list arguments, int32_t position)         { return serve_field(operation, arguments, position, HERE, Field{"dest_ip",   address_value, kBare}); }
int32_t PortMapping_PortMappingDescription(int32_t operation, va_list arguments, int32_t position) { return serve_field(operation, arguments, position, HERE, Field{"name",      any_text,      kBare}); }

PARAMETER(WANDevice_WANConnectionDevice_WANIPConnection_PortMappingNumberOfEntries,     number_of_mappings,                 read_only)
// The number says where in the path the mapping's number stands: behind the three of WANDevice, or first.
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

// PortMapping: the firewall's redirect rules, numbered from 1 in file order. The data model shows them at three
// paths.
#include <strings.h>

#include "pkg-wan.h"
#include "rows.hpp"

namespace {

using namespace kova;

// ---- The table ----

constexpr LogMessage kNoFirewall = "[ERR]uci failed to load config:firewall\n";

bool number_of_mappings(Call& call) {
  const WalkedPackage firewall("firewall", call.origin(), "[ERR]uci failed to load config:firwall\n");
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
constexpr char kBare[] = "uci set firewall.%s.%s=%s && uci commit";  // the shell splits and expands the value

struct Field {
  const char* option;
  const char* (*to_store)(const Call& call);
  const char* command;

  bool get(Call& call, int32_t number) const;
  bool set(Call& call, int32_t number) const;
};

bool Field::get(Call& call, int32_t number) const {
  const WalkedPackage firewall("firewall", call.origin(), kNoFirewall);
  if (!firewall) return false;
  uci_section* mapping = firewall.sections("redirect").nth(number);
  if (mapping == nullptr) return no_row(call, number);
  const char* value = firewall.string(mapping, option);
  return call.reply(value != nullptr ? value : "");
}

// Has the firewall reloaded even when there is no mapping of this number, and nothing to write.
bool Field::set(Call& call, int32_t number) const {
  const char* value = to_store(call);
  if (value == nullptr) return false;
  const WalkedPackage firewall("firewall", call.origin(), kNoFirewall);
  if (!firewall) return false;
  uci_section* mapping = firewall.sections("redirect").nth(number);
  const bool reloads = write_at_once(command, firewall, mapping, option, value) &&
                       record_task_cmd_once("/usr/bin/tr069/cwmp-nat &") == 0;
  return reloads ? call.mark(APPLY_TASK_COMMANDS) : call.refuse("SPME.\n");
}

constexpr Field kExternalPort{"src_dport", port, kQuoted};
constexpr Field kInternalPort{"dest_port", port, kQuoted};
constexpr Field kProtocol{"proto", protocol, kQuoted};
constexpr Field kInternalClient{"dest_ip", address_value, kBare};
constexpr Field kDescription{"name", any_text, kBare};

}  // namespace

int32_t PortMapping_ExternalPort(int32_t operation, va_list arguments, int32_t position) {
  return serve_field(operation, arguments, position, HERE, kExternalPort);
}
int32_t PortMapping_InternalPort(int32_t operation, va_list arguments, int32_t position) {
  return serve_field(operation, arguments, position, HERE, kInternalPort);
}
int32_t PortMapping_PortMappingProtocol(int32_t operation, va_list arguments, int32_t position) {
  return serve_field(operation, arguments, position, HERE, kProtocol);
}
int32_t PortMapping_InternalClient(int32_t operation, va_list arguments, int32_t position) {
  return serve_field(operation, arguments, position, HERE, kInternalClient);
}
int32_t PortMapping_PortMappingDescription(int32_t operation, va_list arguments, int32_t position) {
  return serve_field(operation, arguments, position, HERE, kDescription);
}

// clang-format off
PARAMETER(WANDevice_WANConnectionDevice_WANIPConnection_PortMappingNumberOfEntries,     number_of_mappings,                 read_only)
// The last argument is the place of the mapping's number in the path: 3 behind those of WANDevice, 0 where it is first.
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

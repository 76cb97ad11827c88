// Routing: the static routes, sections of type "route" in package "network", numbered from 1 as they stand.
#include <strings.h>

#include "interfaces.hpp"
#include "pkg-wan.h"
#include "wan.hpp"

namespace {

using namespace kova;

constexpr LogMessage kNoNetwork = "[ERR]uci failed to load config:network\n";

int number_of_routes(Call& call) {
  const WalkedPackage network("network", call.origin(), kNoNetwork);
  if (!network) return FAILURE;
  int count = 0;
  for ([[maybe_unused]] uci_section* route : network.sections("route")) ++count;
  return call.reply_number(count);
}

// ---- Values: as they are shown; and as they are written, or nullptr for one that is refused ----

const char* as_stored(const char* value) { return value; }

// A network that is no interface of the data model counts as the WAN.
const char* reference(const char* name) {
  for (const NetworkInterface& interface : network_interfaces()) {
    if (strcasecmp(name, interface.name) == 0) return interface.reference;
  }
  return network_interfaces()[0].reference;
}

const char* referenced_name(const Call& call) {
  for (const NetworkInterface& interface : network_interfaces()) {
    if (strcasecmp(call.value(), interface.reference) == 0) return interface.name;
  }
  return nullptr;
}

// One field of a route.
struct Field {
  const char* option;
  const char* (*shown)(const char*);
  const char* (*accepted)(const Call&);
};

int reply_field(Call& call, const WalkedPackage& network, uci_section* route, const Field& field) {
  if (route == nullptr) return FAILURE;
  const char* value = network.string(route, field.option);
  return call.reply(value != nullptr ? field.shown(value) : "");
}

// Marks the routes even when there is none of this number, and nothing to write.
int set_field(Call& call, const uci_section* route, const Field& field) {
  const char* value = field.accepted(call);
  if (value == nullptr) return FAILURE;
  if (write_at_once("uci set network.%s.%s=%s && uci commit", route, field.option, value) != SUCCESS) return FAILURE;
  return call.mark(APPLY_ROUTES);
}

int work(Call& call, int32_t position, const Field& field) {
  const WalkedPackage network("network", call.origin(), kNoNetwork);
  if (!network) return FAILURE;
  uci_section* route = network.sections("route").nth(call.instance(static_cast<std::size_t>(position)));
  return call.is_get() ? reply_field(call, network, route, field) : set_field(call, route, field);
}

}  // namespace

// The handler of a field, for every place in the data model that has it.
#define WORKER(worker, option, shown, accepted)                            \
  int32_t worker(int32_t operation, va_list arguments, int32_t position) { \
    kova::Call call(operation, kova::place_of(arguments), HERE);           \
    return work(call, position, {option, shown, accepted});                \
  }

int32_t Router_IPv4Forwarding_StaticRoute(int32_t operation, va_list arguments, int32_t /*position*/) {
  Call call(operation, place_of(arguments), HERE);
  return call.is_get() ? call.reply("1") : FAILURE;
}

// clang-format off
WORKER(Router_IPv4Forwarding_Interface,        "interface", reference, referenced_name)
WORKER(Router_IPv4Forwarding_DestIPAddress,    "target",    as_stored, address_value)
WORKER(Router_IPv4Forwarding_DestSubnetMask,   "netmask",   as_stored, address_value)
WORKER(Router_IPv4Forwarding_GatewayIPAddress, "gateway",   as_stored, address_value)

PARAMETER(Routing_RouterNumberOfEntries,        constant("1"),    read_only)
PARAMETER(Router_IPv4ForwardingNumberOfEntries, number_of_routes, read_only)
ALIAS(Routing_Router_IPv4ForwardingNumberOfEntries, Router_IPv4ForwardingNumberOfEntries)
// Last stands the place of the route's number among the instance numbers: behind that of the router.
ALIAS(Routing_Router_IPv4Forwarding_StaticRoute,      Router_IPv4Forwarding_StaticRoute,      1)
ALIAS(Routing_Router_IPv4Forwarding_Interface,        Router_IPv4Forwarding_Interface,        1)
ALIAS(Routing_Router_IPv4Forwarding_DestIPAddress,    Router_IPv4Forwarding_DestIPAddress,    1)
ALIAS(Routing_Router_IPv4Forwarding_DestSubnetMask,   Router_IPv4Forwarding_DestSubnetMask,   1)
ALIAS(Routing_Router_IPv4Forwarding_GatewayIPAddress, Router_IPv4Forwarding_GatewayIPAddress, 1)
// clang-format on

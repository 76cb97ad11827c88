// Routing: the static routes, sections of type "route" in package "network", numbered from 1 as they stand.
#include <strings.h>

#include "interfaces.hpp"
#include "pkg-wan.h"
#include "wan.hpp"

namespace {

using namespace kova;

constexpr LogMessage kNoNetwork = "[ERR]uci failed to load config:network\n";

bool number_of_routes(Call& call) {
  const WalkedPackage network("network", call.origin(), kNoNetwork);
  if (!network) return false;
  return call.reply_number(network.sections("route").count());
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

// ---- Fields of a route. A change is written at once. ----

struct Field {
  const char* option;
  const char* (*shown)(const char*);
  const char* (*accepted)(const Call&);

  bool get(Call& call, int32_t number) const;
  bool set(Call& call, int32_t number) const;
};

bool Field::get(Call& call, int32_t number) const {
  const WalkedPackage network("network", call.origin(), kNoNetwork);
  if (!network) return false;
  uci_section* route = network.sections("route").nth(number);
  if (route == nullptr) return false;
  const char* value = network.string(route, option);
  return call.reply(value != nullptr ? shown(value) : "");
}

// Marks the routes even when there is none of this number, and nothing to write.
bool Field::set(Call& call, int32_t number) const {
  const WalkedPackage network("network", call.origin(), kNoNetwork);
  if (!network) return false;
  const char* value = accepted(call);
  if (value == nullptr) return false;
  const uci_section* route = network.sections("route").nth(number);
  return write_at_once("uci set network.%s.%s=%s && uci commit", route, option, value) && call.mark(APPLY_ROUTES);
}

}  // namespace

int32_t Router_IPv4Forwarding_StaticRoute(int32_t operation, va_list arguments, int32_t /*position*/) {
  return serve(operation, arguments, HERE, constant("1"), read_only);
}

// clang-format off
int32_t Router_IPv4Forwarding_Interface(int32_t operation, va_list arguments, int32_t position)        { return serve_field(operation, arguments, position, HERE, Field{"interface", reference, referenced_name}); }
int32_t Router_IPv4Forwarding_DestIPAddress(int32_t operation, va_list arguments, int32_t position)    { return serve_field(operation, arguments, position, HERE, Field{"target",    as_stored, address_value}); }
int32_t Router_IPv4Forwarding_DestSubnetMask(int32_t operation, va_list arguments, int32_t position)   { return serve_field(operation, arguments, position, HERE, Field{"netmask",   as_stored, address_value}); }
int32_t Router_IPv4Forwarding_GatewayIPAddress(int32_t operation, va_list arguments, int32_t position) { return serve_field(operation, arguments, position, HERE, Field{"gateway",   as_stored, address_value}); }

PARAMETER(Routing_RouterNumberOfEntries,              constant("1"),                          read_only)
PARAMETER(Router_IPv4ForwardingNumberOfEntries,       number_of_routes,                       read_only)
ALIAS(Routing_Router_IPv4ForwardingNumberOfEntries,   Router_IPv4ForwardingNumberOfEntries)
// The number says where in the path the route's number stands: behind that of the router.
ALIAS(Routing_Router_IPv4Forwarding_StaticRoute,      Router_IPv4Forwarding_StaticRoute,      1)
ALIAS(Routing_Router_IPv4Forwarding_Interface,        Router_IPv4Forwarding_Interface,        1)
ALIAS(Routing_Router_IPv4Forwarding_DestIPAddress,    Router_IPv4Forwarding_DestIPAddress,    1)
ALIAS(Routing_Router_IPv4Forwarding_DestSubnetMask,   Router_IPv4Forwarding_DestSubnetMask,   1)
ALIAS(Routing_Router_IPv4Forwarding_GatewayIPAddress, Router_IPv4Forwarding_GatewayIPAddress, 1)
// clang-format on

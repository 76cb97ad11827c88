// Routing: the static routes, sections of type "route" in package "network", numbered from 1 in file order.
#include <strings.h>

#include "interfaces.hpp"
#include "pkg-wan.h"
#include "rows.hpp"

namespace {

using namespace kova;

constexpr LogMessage kNoNetwork = "[ERR]uci failed to load config:network\n";

bool number_of_routes(Call& call) {
  const WalkedPackage network("network", call.origin(), kNoNetwork);
  if (!network) return false;
  return call.reply_number(network.sections("route").count());
}

// ---- Values: as they are replied, and as they are written, or nullptr for one that is refused ----

const char* as_stored(const char* stored) { return stored; }

// A network that is no interface of the data model counts as the WAN.
const char* reference_of_name(const char* stored) {
  for (const NetworkInterface& interface : network_interfaces()) {
    if (strcasecmp(stored, interface.name) == 0) return interface.reference;
  }
  return network_interfaces()[0].reference;
}

const char* name_of_reference(const Call& call) {
  for (const NetworkInterface& interface : network_interfaces()) {
    if (strcasecmp(call.value(), interface.reference) == 0) return interface.name;
  }
  return nullptr;
}

// ---- Fields of a route. A change is written at once. ----

struct Field {
  const char* option;
  const char* (*to_reply)(const char* stored);
  const char* (*to_store)(const Call& call);

  bool get(Call& call, int32_t number) const;
  bool set(Call& call, int32_t number) const;
};

bool Field::get(Call& call, int32_t number) const {
  const WalkedPackage network("network", call.origin(), kNoNetwork);
  if (!network) return false;
  uci_section* route = network.sections("route").nth(number);
  if (route == nullptr) return no_row(call, number);
  const char* value = network.string(route, option);
  return call.reply(value != nullptr ? to_reply(value) : "");
}

// Marks the routes even when there is no route of this number, and nothing to write.
bool Field::set(Call& call, int32_t number) const {
  const WalkedPackage network("network", call.origin(), kNoNetwork);
  if (!network) return false;
  const char* value = to_store(call);
  if (value == nullptr) return false;
  uci_section* route = network.sections("route").nth(number);
  return write_at_once("uci set network.%s.%s=%s && uci commit", network, route, option, value) &&
         call.mark(APPLY_ROUTES);
}

constexpr Field kInterface{"interface", reference_of_name, name_of_reference};
constexpr Field kDestination{"target", as_stored, address_value};
constexpr Field kMask{"netmask", as_stored, address_value};
constexpr Field kGateway{"gateway", as_stored, address_value};

}  // namespace

int32_t Router_IPv4Forwarding_StaticRoute(int32_t operation, va_list arguments, int32_t /*position*/) {
  return serve(operation, arguments, HERE, constant("1"), read_only);
}

int32_t Router_IPv4Forwarding_Interface(int32_t operation, va_list arguments, int32_t position) {
  return serve_field(operation, arguments, position, HERE, kInterface);
}
int32_t Router_IPv4Forwarding_DestIPAddress(int32_t operation, va_list arguments, int32_t position) {
  return serve_field(operation, arguments, position, HERE, kDestination);
}
int32_t Router_IPv4Forwarding_DestSubnetMask(int32_t operation, va_list arguments, int32_t position) {
  return serve_field(operation, arguments, position, HERE, kMask);
}
int32_t Router_IPv4Forwarding_GatewayIPAddress(int32_t operation, va_list arguments, int32_t position) {
  return serve_field(operation, arguments, position, HERE, kGateway);
}

// clang-format off
PARAMETER(Routing_RouterNumberOfEntries,              constant("1"),                          read_only)
PARAMETER(Router_IPv4ForwardingNumberOfEntries,       number_of_routes,                       read_only)
ALIAS(Routing_Router_IPv4ForwardingNumberOfEntries,   Router_IPv4ForwardingNumberOfEntries)
// The last argument is the place of the route's number in the path: behind that of the router.
ALIAS(Routing_Router_IPv4Forwarding_StaticRoute,      Router_IPv4Forwarding_StaticRoute,      1)
ALIAS(Routing_Router_IPv4Forwarding_Interface,        Router_IPv4Forwarding_Interface,        1)
ALIAS(Routing_Router_IPv4Forwarding_DestIPAddress,    Router_IPv4Forwarding_DestIPAddress,    1)
ALIAS(Routing_Router_IPv4Forwarding_DestSubnetMask,   Router_IPv4Forwarding_DestSubnetMask,   1)
ALIAS(Routing_Router_IPv4Forwarding_GatewayIPAddress, Router_IPv4Forwarding_GatewayIPAddress, 1)
// clang-format on

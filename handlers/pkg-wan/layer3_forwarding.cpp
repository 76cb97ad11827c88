// Layer3Forwarding: which of the WAN's connections is the default.
#include "parameter.hpp"
#include "pkg-wan.h"
#include "wan.hpp"

namespace {

using namespace kova;

bool has_ppp(const Protocol& protocol) {
  return in_any_case("pppoe")(protocol) || in_any_case("l2tp")(protocol) || in_any_case("pptp")(protocol);
}

constexpr char kPppConnection[] = "InternetGatewayDevice.WANDevice.1.WANConnectionDevice.1.WANPPPConnection.1.";
// Of a DHCP WAN too, though its connection is number 2 elsewhere.
constexpr char kIpConnection[] = "InternetGatewayDevice.WANDevice.1.WANConnectionDevice.1.WANIPConnection.1.";

}  // namespace

PARAMETER(Layer3Forwarding_DefaultConnectionService, if_protocol(has_ppp, constant(kPppConnection), kIpConnection),
          read_only)

// Layer3Forwarding: the connection of the WAN that is the default.
#include "parameter.hpp"
#include "pkg-wan.h"
#include "wan.hpp"

namespace {

using namespace kova;

constexpr char kPppConnection[] = "InternetGatewayDevice.WANDevice.1.WANConnectionDevice.1.WANPPPConnection.1.";
// For a DHCP WAN too, although WANIPConnection 2 is the one that runs then.
constexpr char kIpConnection[] = "InternetGatewayDevice.WANDevice.1.WANConnectionDevice.1.WANIPConnection.1.";

}  // namespace

PARAMETER(Layer3Forwarding_DefaultConnectionService,
          if_protocol(in_any_case("pppoe", "l2tp", "pptp"), constant(kPppConnection), kIpConnection), read_only)

// UDPEchoConfig, and IP.Diagnostics.UDPEchoConfig: the responder that sends a host's datagrams back to it.
#include "pkg-diag.h"
#include "test_results.hpp"

namespace {

using namespace kova;

bool set_source(Call& call) {
  return is_address(call) && store_option(call, params, "udpecho_sourceIPAddress", call.value(), APPLY_UDP_ECHO);
}

}  // namespace

// clang-format off
PARAMETER(UDPEchoConfig_Enable,          option(params, "udpecho_enable", "0"),         store(params, "udpecho_enable", APPLY_UDP_ECHO))
PARAMETER(UDPEchoConfig_SourceIPAddress, option(params, "udpecho_sourceIPAddress", ""), set_source)
// The last port, 65535, is refused on purpose.
PARAMETER(UDPEchoConfig_UDPPort,         option(params, "udpecho_UDPPort", "7"),        number("udpecho_UDPPort", {.from = 1, .to = 65534}, APPLY_UDP_ECHO))

PARAMETER(IP_Diagnostics_IPv4UDPEchoDiagnosticsSupported, constant("1"), read_only)
ALIAS(IP_Diagnostics_UDPEchoConfig_Enable,                UDPEchoConfig_Enable)
ALIAS(IP_Diagnostics_UDPEchoConfig_SourceIPAddress,       UDPEchoConfig_SourceIPAddress)
ALIAS(IP_Diagnostics_UDPEchoConfig_UDPPort,               UDPEchoConfig_UDPPort)
// clang-format on

// IPPingDiagnostics, and IP.Diagnostics.IPPing: whether a host answers, and how fast.
#include "pkg-diag.h"
#include "test_results.hpp"

namespace {

using namespace kova;

constexpr char kState[] = "/tmp/diag/ping_state";
constexpr ResultFile ping{"/tmp/diag/ping_result", "FTGDS.\n", "0"};

}  // namespace

// clang-format off
PARAMETER(IPPingDiagnostics_DiagnosticsState,    diagnostics_state(kState),   diagnostics_request(kState, APPLY_IPPING_DIAG))
PARAMETER(IPPingDiagnostics_Host,                option(params, "host"),      host("host"))
PARAMETER(IPPingDiagnostics_NumberOfRepetitions, required(params, "count"),   digits("count", ANY_DIGITS))
PARAMETER(IPPingDiagnostics_Timeout,             required(params, "timeout"), digits("timeout", AT_MOST_SIX_DIGITS))
PARAMETER(IPPingDiagnostics_DataBlockSize,       required(params, "pktsize"), digits("pktsize", FROM_1_TO_65535))
PARAMETER(IPPingDiagnostics_SuccessCount,        prefixed(ping, "Recv"),      read_only)
PARAMETER(IPPingDiagnostics_FailureCount,        prefixed(ping, "Lost"),      read_only)
PARAMETER(IPPingDiagnostics_AverageResponseTime, prefixed(ping, "Avg"),       read_only)
PARAMETER(IPPingDiagnostics_MinimumResponseTime, prefixed(ping, "Min"),       read_only)
PARAMETER(IPPingDiagnostics_MaximumResponseTime, prefixed(ping, "Max"),       read_only)

PARAMETER(IP_Diagnostics_IPv4PingSupported,      constant("1"), read_only)
ALIAS(IP_Diagnostics_IPPing_DiagnosticsState,    IPPingDiagnostics_DiagnosticsState)
ALIAS(IP_Diagnostics_IPPing_Host,                IPPingDiagnostics_Host)
ALIAS(IP_Diagnostics_IPPing_NumberOfRepetitions, IPPingDiagnostics_NumberOfRepetitions)
ALIAS(IP_Diagnostics_IPPing_Timeout,             IPPingDiagnostics_Timeout)
ALIAS(IP_Diagnostics_IPPing_DataBlockSize,       IPPingDiagnostics_DataBlockSize)
ALIAS(IP_Diagnostics_IPPing_SuccessCount,        IPPingDiagnostics_SuccessCount)
ALIAS(IP_Diagnostics_IPPing_FailureCount,        IPPingDiagnostics_FailureCount)
ALIAS(IP_Diagnostics_IPPing_AverageResponseTime, IPPingDiagnostics_AverageResponseTime)
ALIAS(IP_Diagnostics_IPPing_MinimumResponseTime, IPPingDiagnostics_MinimumResponseTime)
ALIAS(IP_Diagnostics_IPPing_MaximumResponseTime, IPPingDiagnostics_MaximumResponseTime)
// clang-format on

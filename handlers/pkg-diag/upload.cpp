// UploadDiagnostics, and IP.Diagnostics.UploadDiagnostics: how fast a file is sent to a server.
#include "pkg-diag.h"
#include "test_results.hpp"

namespace {

using namespace kova;

constexpr char kState[] = "/tmp/diag/upload_state";
constexpr ResultFile upload{"/tmp/diag/upload_result", "FTGDUR.\n", "0"};

}  // namespace

// clang-format off
PARAMETER(UploadDiagnostics_DiagnosticsState,                diagnostics_state(kState),                  diagnostics_request(kState, APPLY_UPLOAD_DIAG))
PARAMETER(UploadDiagnostics_UploadURL,                       url("uploadURL"),                           store(params, "uploadURL"))
PARAMETER(UploadDiagnostics_UploadTransports,                constant("HTTP"),                           read_only)
PARAMETER(UploadDiagnostics_UploadDiagnosticsMaxConnections, constant("9"),                              read_only)
PARAMETER(UploadDiagnostics_TestFileLength,                  option(params, "testFileLength", "1024"),   store(params, "testFileLength"))
PARAMETER(UploadDiagnostics_NumberOfConnections,             option(params, "numberOfConnections", "4"), number("numberOfConnections", {.from = 1, .to = 9}))
PARAMETER(UploadDiagnostics_TotalBytesSent,                  keyed(upload, "TotalBytesSend"),            read_only)
PARAMETER(UploadDiagnostics_BOMTime,                         keyed(upload, "bomtime_utc"),               read_only)
PARAMETER(UploadDiagnostics_EOMTime,                         keyed(upload, "eomtime_utc"),               read_only)
ALIAS(UploadDiagnostics_ROMTime,                             UploadDiagnostics_BOMTime)
ALIAS(UploadDiagnostics_TCPOpenRequestTime,                  UploadDiagnostics_BOMTime)
ALIAS(UploadDiagnostics_TCPOpenResponseTime,                 UploadDiagnostics_BOMTime)

PARAMETER(IP_Diagnostics_IPv4UploadDiagnosticsSupported,                constant("1"), read_only)
ALIAS(IP_Diagnostics_UploadDiagnostics_DiagnosticsState,                UploadDiagnostics_DiagnosticsState)
ALIAS(IP_Diagnostics_UploadDiagnostics_UploadURL,                       UploadDiagnostics_UploadURL)
ALIAS(IP_Diagnostics_UploadDiagnostics_UploadTransports,                UploadDiagnostics_UploadTransports)
ALIAS(IP_Diagnostics_UploadDiagnostics_UploadDiagnosticsMaxConnections, UploadDiagnostics_UploadDiagnosticsMaxConnections)
ALIAS(IP_Diagnostics_UploadDiagnostics_TestFileLength,                  UploadDiagnostics_TestFileLength)
ALIAS(IP_Diagnostics_UploadDiagnostics_NumberOfConnections,             UploadDiagnostics_NumberOfConnections)
ALIAS(IP_Diagnostics_UploadDiagnostics_ROMTime,                         UploadDiagnostics_ROMTime)
ALIAS(IP_Diagnostics_UploadDiagnostics_BOMTime,                         UploadDiagnostics_BOMTime)
ALIAS(IP_Diagnostics_UploadDiagnostics_EOMTime,                         UploadDiagnostics_EOMTime)
ALIAS(IP_Diagnostics_UploadDiagnostics_TotalBytesSent,                  UploadDiagnostics_TotalBytesSent)
ALIAS(IP_Diagnostics_UploadDiagnostics_TCPOpenRequestTime,              UploadDiagnostics_TCPOpenRequestTime)
ALIAS(IP_Diagnostics_UploadDiagnostics_TCPOpenResponseTime,             UploadDiagnostics_TCPOpenResponseTime)
// clang-format on

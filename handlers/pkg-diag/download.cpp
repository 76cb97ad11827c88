// DownloadDiagnostics, and IP.Diagnostics.DownloadDiagnostics: how fast a file is received from a server.
#include "pkg-diag.h"
#include "test_results.hpp"

namespace {

using namespace kova;

constexpr char kState[] = "/tmp/diag/download_state";
constexpr ResultFile download{"/tmp/diag/download_result", "FTGDDR.\n", "0"};

}  // namespace

// clang-format off
PARAMETER(DownloadDiagnostics_DiagnosticsState,             diagnostics_state(kState),      diagnostics_request(kState, APPLY_DOWNLOAD_DIAG))
PARAMETER(DownloadDiagnostics_DownloadURL,                  url("downloadURL"),             store(params, "downloadURL"))
PARAMETER(DownloadDiagnostics_DownloadTransports,           constant("HTTP"),               read_only)
PARAMETER(DownloadDiagnostics_BOMTime,                      keyed(download, "bomtime_utc"), read_only)
PARAMETER(DownloadDiagnostics_EOMTime,                      keyed(download, "eomtime_utc"), read_only)
PARAMETER(DownloadDiagnostics_TotalBytesReceived,           keyed(download, "total_bytes"), read_only)
PARAMETER(DownloadDiagnostics_TestBytesReceived,            keyed(download, "bytes_recv"),  read_only)
ALIAS(DownloadDiagnostics_DownloadDiagnosticMaxConnections, UploadDiagnostics_UploadDiagnosticsMaxConnections)
ALIAS(DownloadDiagnostics_NumberOfConnections,              UploadDiagnostics_NumberOfConnections)
ALIAS(DownloadDiagnostics_ROMTime,                          DownloadDiagnostics_BOMTime)
ALIAS(DownloadDiagnostics_TCPOpenRequestTime,               DownloadDiagnostics_BOMTime)
ALIAS(DownloadDiagnostics_TCPOpenResponseTime,              DownloadDiagnostics_BOMTime)

PARAMETER(IP_Diagnostics_IPv4DownloadDiagnosticsSupported,                 constant("1"), read_only)
ALIAS(IP_Diagnostics_DownloadDiagnostics_DiagnosticsState,                 DownloadDiagnostics_DiagnosticsState)
ALIAS(IP_Diagnostics_DownloadDiagnostics_DownloadURL,                      DownloadDiagnostics_DownloadURL)
ALIAS(IP_Diagnostics_DownloadDiagnostics_DownloadTransports,               DownloadDiagnostics_DownloadTransports)
ALIAS(IP_Diagnostics_DownloadDiagnostics_DownloadDiagnosticMaxConnections, DownloadDiagnostics_DownloadDiagnosticMaxConnections)
ALIAS(IP_Diagnostics_DownloadDiagnostics_NumberOfConnections,              DownloadDiagnostics_NumberOfConnections)
ALIAS(IP_Diagnostics_DownloadDiagnostics_ROMTime,                          DownloadDiagnostics_ROMTime)
ALIAS(IP_Diagnostics_DownloadDiagnostics_BOMTime,                          DownloadDiagnostics_BOMTime)
ALIAS(IP_Diagnostics_DownloadDiagnostics_EOMTime,                          DownloadDiagnostics_EOMTime)
ALIAS(IP_Diagnostics_DownloadDiagnostics_TotalBytesReceived,               DownloadDiagnostics_TotalBytesReceived)
ALIAS(IP_Diagnostics_DownloadDiagnostics_TestBytesReceived,                DownloadDiagnostics_TestBytesReceived)
ALIAS(IP_Diagnostics_DownloadDiagnostics_TCPOpenRequestTime,               DownloadDiagnostics_TCPOpenRequestTime)
ALIAS(IP_Diagnostics_DownloadDiagnostics_TCPOpenResponseTime,              DownloadDiagnostics_TCPOpenResponseTime)
// clang-format on

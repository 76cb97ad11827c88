// NSLookupDiagnostics, and DNS.Diagnostics.NSLookupDiagnostics: the addresses of a host name. A test has one result.
#include "link.hpp"
#include "pkg-diag.h"
#include "test_results.hpp"

namespace {

using namespace kova;

constexpr char kState[] = "/tmp/diag/nslookup_state";
constexpr ResultFile lookup{"/tmp/diag/nslookup_result", "FTGNSR.\n", ""};

// A result that does not name its server is the answer of the WAN's.
bool wan_dns_servers(Call& call) { return call.reply(interface_status<100>("wan", INTERFACE_DNS_SERVERS).c_str()); }

}  // namespace

// clang-format off
PARAMETER(NSLookupDiagnostics_DiagnosticsState,      diagnostics_state(kState),                     diagnostics_request(kState, APPLY_NSLOOKUP_DIAG))
PARAMETER(NSLookupDiagnostics_HostName,              option(params, "nslookupHost"),                host("nslookupHost"))
PARAMETER(NSLookupDiagnostics_DNSServer,             option(params, "nslookupDnsserver"),           store(params, "nslookupDnsserver"))
PARAMETER(NSLookupDiagnostics_NumberOfRepetitions,   constant("1"),                                 read_only)
PARAMETER(NSLookupDiagnostics_SuccessCount,          keyed(lookup, "SuccessCount"),                 read_only)
PARAMETER(NSLookupDiagnostics_ResultNumberOfEntries, constant("1"),                                 read_only)
PARAMETER(NSLookupDiagnostics_Result_Status,         keyed(lookup, "Status"),                       read_only)
PARAMETER(NSLookupDiagnostics_Result_IPAddresses,    keyed(lookup, "IPAddresses"),                  read_only)
PARAMETER(NSLookupDiagnostics_Result_DNSServerIP,    keyed(lookup, "DNSServerIP", wan_dns_servers), read_only)

ALIAS(DNS_Diagnostics_NSLookupDiagnostics_DiagnosticsState,      NSLookupDiagnostics_DiagnosticsState)
ALIAS(DNS_Diagnostics_NSLookupDiagnostics_HostName,              NSLookupDiagnostics_HostName)
ALIAS(DNS_Diagnostics_NSLookupDiagnostics_DNSServer,             NSLookupDiagnostics_DNSServer)
ALIAS(DNS_Diagnostics_NSLookupDiagnostics_NumberOfRepetitions,   NSLookupDiagnostics_NumberOfRepetitions)
ALIAS(DNS_Diagnostics_NSLookupDiagnostics_SuccessCount,          NSLookupDiagnostics_SuccessCount)
ALIAS(DNS_Diagnostics_NSLookupDiagnostics_ResultNumberOfEntries, NSLookupDiagnostics_ResultNumberOfEntries)
ALIAS(DNS_Diagnostics_NSLookupDiagnostics_Result_Status,         NSLookupDiagnostics_Result_Status)
ALIAS(DNS_Diagnostics_NSLookupDiagnostics_Result_IPAddresses,    NSLookupDiagnostics_Result_IPAddresses)
ALIAS(DNS_Diagnostics_NSLookupDiagnostics_Result_DNSServerIP,    NSLookupDiagnostics_Result_DNSServerIP)
// clang-format on

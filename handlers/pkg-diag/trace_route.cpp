// TraceRouteDiagnostics, and IP.Diagnostics.TraceRoute: the hops on the way to a host.
#include <algorithm>
#include <string_view>

#include "file.hpp"
#include "pkg-diag.h"
#include "test_results.hpp"

namespace {

using namespace kova;

constexpr char kState[] = "/tmp/diag/trace_state";
constexpr ResultFile trace{"/tmp/diag/trace_result", "FTGDS.\n", "0"};

// ---- Hop lines: the hop's number, a time for each try, the host's name, its address ----

struct Hop {
  ResultLine line;
  int tries = 0;  // that the line has times of

  // A token of the line, counted from 1; empty when there are fewer. The last one ends with the line end.
  std::string_view token(int number) const;
  std::string_view host() const { return token(tries + 2); }
  std::string_view address() const { return token(tries + 3); }
  bool timed_out() const { return begins_with("Timeout", host()); }
};

std::string_view Hop::token(int number) const {
  std::string_view rest = line.view();
  std::string_view token;
  for (int i = 0; i < number; ++i) {
    rest.remove_prefix(std::min(rest.find_first_not_of(' '), rest.size()));
    token = up_to(' ', rest);
    rest.remove_prefix(token.size());
  }
  return token;
}

// Reads the line of a hop: its number counts lines from 0. False when the file has no such line.
bool read_line(File& file, int32_t hop, ResultLine& line) {
  for (int32_t number = 0; number <= hop; ++number) {
    if (!file.read_line(line.span())) return false;
  }
  return true;
}

bool reply_hop(Call& call, bool (*part)(Call&, const Hop&)) {
  constexpr int kMostTries = 3;
  if (call.instance(0) < 1) return call.refuse("LE\n");
  File file(trace.path, "r");
  if (!file) return reply_no_results(call, trace, "None");
  Hop hop;
  if (!read_line(file, call.instance(0), hop.line)) return true;
  const Option tries(params, "count");
  if (!tries) return false;
  hop.tries = std::min(leading_number(tries.text()), kMostTries);
  return part(call, hop);
}

bool host_name(Call& call, const Hop& hop) {
  const ResultLine host(hop.host());
  if (host.empty()) return call.reply("None");
  constexpr LogMessage kHost = "%s.\n";
  kHost.print(call.origin(), host.c_str());
  return call.reply(hop.timed_out() ? "None" : host.c_str());
}

bool host_address(Call& call, const Hop& hop) {
  std::string_view address = hop.address();
  if (address.empty()) return call.reply("None");
  address.remove_suffix(1);  // the line end; of a line that has none, the last character
  return call.reply(ResultLine(address).c_str());
}

bool error_code(Call& call, const Hop& hop) { return call.reply(hop.timed_out() ? "1" : "0"); }

bool times(Call& call, const Hop& hop) {
  using Times = Text<ResultLine::capacity() + 4>;
  Times times;
  for (int number = 2; number < hop.tries + 2; ++number) {
    const ResultLine time(hop.token(number));
    if (time.empty()) break;
    const Times before = times;
    times.print("%s%s,", before.c_str(), time.c_str());
  }
  constexpr LogMessage kTimes = "%s\n";
  kTimes.print(call.origin(), times.c_str());
  return call.reply(times.c_str());
}

constexpr auto hop(bool (*part)(Call&, const Hop&)) {
  return [=](Call& call) { return reply_hop(call, part); };
}

}  // namespace

// clang-format off
PARAMETER(TraceRouteDiagnostics_DiagnosticsState,         diagnostics_state(kState), diagnostics_request(kState, APPLY_TRACEROUTE_DIAG))
PARAMETER(TraceRouteDiagnostics_Host,                     option(params, "host"),    host("host"))
PARAMETER(TraceRouteDiagnostics_NumberOfTries,            required(params, "count"), number("count", {.from = 1, .to = 3, .longest_text = 1}))
PARAMETER(TraceRouteDiagnostics_MaxHopCount,              required(params, "ttl"),   number("ttl", {.from = 1, .to = 30, .longest_text = 2}))
PARAMETER(TraceRouteDiagnostics_ResponseTime,             constant("0"),             read_only)
PARAMETER(TraceRouteDiagnostics_RouteHopsNumberOfEntries, prefixed(trace, "Hops"),   read_only)
PARAMETER(TraceRouteDiagnostics_RouteHops_HopHost,        hop(host_name),            read_only)
PARAMETER(TraceRouteDiagnostics_RouteHops_HopHostAddress, hop(host_address),         read_only)
PARAMETER(TraceRouteDiagnostics_RouteHops_HopErrorCode,   hop(error_code),           read_only)
PARAMETER(TraceRouteDiagnostics_RouteHops_HopRTTimes,     hop(times),                read_only)

PARAMETER(IP_Diagnostics_IPv4TraceRouteSupported,         constant("1"), read_only)
ALIAS(IP_Diagnostics_TraceRoute_DiagnosticsState,         TraceRouteDiagnostics_DiagnosticsState)
ALIAS(IP_Diagnostics_TraceRoute_Host,                     TraceRouteDiagnostics_Host)
ALIAS(IP_Diagnostics_TraceRoute_NumberOfTries,            TraceRouteDiagnostics_NumberOfTries)
ALIAS(IP_Diagnostics_TraceRoute_MaxHopCount,              TraceRouteDiagnostics_MaxHopCount)
ALIAS(IP_Diagnostics_TraceRoute_ResponseTime,             TraceRouteDiagnostics_ResponseTime)
ALIAS(IP_Diagnostics_TraceRoute_RouteHopsNumberOfEntries, TraceRouteDiagnostics_RouteHopsNumberOfEntries)
ALIAS(IP_Diagnostics_TraceRoute_RouteHops_Host,           TraceRouteDiagnostics_RouteHops_HopHost)
ALIAS(IP_Diagnostics_TraceRoute_RouteHops_HostAddress,    TraceRouteDiagnostics_RouteHops_HopHostAddress)
ALIAS(IP_Diagnostics_TraceRoute_RouteHops_ErrorCode,      TraceRouteDiagnostics_RouteHops_HopErrorCode)
ALIAS(IP_Diagnostics_TraceRoute_RouteHops_RTTimes,        TraceRouteDiagnostics_RouteHops_HopRTTimes)
// clang-format on

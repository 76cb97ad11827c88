// WiFi.NeighboringWiFiDiagnostic: a scan for other networks, and what it has found.
#include <string_view>

#include "diagnostics.hpp"
#include "pkg-wl.h"
#include "text.hpp"
#include "wireless.hpp"

namespace {

using namespace kova;

constexpr char kState[] = "/tmp/diag/neighboringwifi_state";
constexpr char kResults[] = "aplist";

bool result_count(Call& call) {
  generate_host_info();  // the hosts have nothing to do with the scan, but who counts its results relies on them
  const StateOption count({kResults, "info"}, "count");
  return call.reply(count ? count.text() : "0");
}

// ---- Options of a result ----

// Replies what a parameter makes of the stored text.
using Reply = bool(Call& call, const char* stored);

bool as_stored(Call& call, const char* stored) { return call.reply(stored); }

// In dBm; the scan stores 100 more.
bool signal_strength(Call& call, const char* stored) { return call.reply_number(leading_number(stored) - 100LL); }

bool radio_reference(Call& call, const char* stored) {
  for (const Radio& radio : radios()) {
    if (std::string_view(stored) == radio.scanned_band) return call.reply(radio.reference);
  }
  return call.reply("");
}

bool width(Call& call, const char* stored) {
  const char* text = text_for(kWidths, stored);
  return call.reply(text != nullptr ? text : stored);
}

// Empty when the option cannot be read; fails for number 0.
bool reply_result(Call& call, const char* option, Reply* reply) {
  if (call.instance(0) == 0) return call.refuse("LE\n");
  Text<12> result;
  result.print("%d", call.instance(0));
  const StateOption stored({kResults, result.c_str()}, option);
  return stored ? reply(call, stored.text()) : call.reply("");
}

constexpr auto result(const char* option, Reply* reply = as_stored) {
  return [=](Call& call) { return reply_result(call, option, reply); };
}

}  // namespace

// clang-format off
PARAMETER(WiFi_NeighboringWiFiDiagnostic_DiagnosticsState,                 diagnostics_state(kState),                         diagnostics_request(kState, APPLY_NEIGHBOR_WIFI_DIAG))
PARAMETER(WiFi_NeighboringWiFiDiagnostic_ResultNumberOfEntries,            result_count,                                      read_only)
PARAMETER(WiFi_NeighboringWiFiDiagnostic_Result_SSID,                      result("ssid"),                                    read_only)
PARAMETER(WiFi_NeighboringWiFiDiagnostic_Result_BSSID,                     result("bssid"),                                   read_only)
PARAMETER(WiFi_NeighboringWiFiDiagnostic_Result_Channel,                   result("channel"),                                 read_only)
PARAMETER(WiFi_NeighboringWiFiDiagnostic_Result_SignalStrength,            result("real_rssi", signal_strength),              read_only)
PARAMETER(WiFi_NeighboringWiFiDiagnostic_Result_Radio,                     result("operatingFrequencyBand", radio_reference), read_only)
PARAMETER(WiFi_NeighboringWiFiDiagnostic_Result_OperatingFrequencyBand,    result("operatingFrequencyBand"),                  read_only)
PARAMETER(WiFi_NeighboringWiFiDiagnostic_Result_OperatingChannelBandwidth, result("htbw", width),                             read_only)
// clang-format on

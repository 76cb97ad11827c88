// WiFi.NeighboringWiFiDiagnostic: a scan for other networks, and what it has found.
#include "diagnostics.hpp"
#include "pkg-wl.h"
#include "wireless.hpp"

namespace {

using namespace kova;

constexpr char kState[] = "/tmp/diag/neighboringwifi_state";
constexpr char kResults[] = "aplist";
constexpr int kSignalOffset = 100;

bool result_count(Call& call) {
  generate_host_info();  // the hosts have nothing to do with the scan, but who counts its results relies on them
  if (uci_raw_extract_value_By_path(kResults, "info", "count", call.output()) == 0) return true;
  return call.reply("0");
}

// Writes an option of the call's result into the output, an empty text when it cannot be read; false for number 0.
bool reply_result(Call& call, const char* option) {
  if (call.instance(0) == 0) return call.refuse("LE\n");
  Text<12> result;
  result.print("%d", call.instance(0));
  if (uci_raw_extract_value_By_path(kResults, result.c_str(), option, call.output()) == 0) return true;
  return call.reply("");
}

constexpr auto result(const char* option) {
  return [=](Call& call) { return reply_result(call, option); };
}

bool signal_strength(Call& call) {
  if (!reply_result(call, "real_rssi")) return false;
  if (call.output()[0] == '\0') return true;
  return call.reply_number(static_cast<long long>(leading_number(call.output())) - kSignalOffset);
}

bool radio_reference(Call& call) {
  constexpr Pair kBands[] = {{"Device.WiFi.Radio.1", "2.4G"}, {"Device.WiFi.Radio.2", "5G"}};
  if (!reply_result(call, "operatingFrequencyBand")) return false;
  const char* radio = text_for(kBands, call.output());
  return call.reply(radio != nullptr ? radio : "");
}

bool width(Call& call) {
  if (!reply_result(call, "htbw")) return false;
  const char* text = text_for(kWidths, call.output());
  return text == nullptr || call.reply(text);
}

}  // namespace

// clang-format off
PARAMETER(WiFi_NeighboringWiFiDiagnostic_DiagnosticsState,                 diagnostics_state(kState),        diagnostics_request(kState, APPLY_NEIGHBOR_WIFI_DIAG))
PARAMETER(WiFi_NeighboringWiFiDiagnostic_ResultNumberOfEntries,            result_count,                     read_only)
PARAMETER(WiFi_NeighboringWiFiDiagnostic_Result_SSID,                      result("ssid"),                   read_only)
PARAMETER(WiFi_NeighboringWiFiDiagnostic_Result_BSSID,                     result("bssid"),                  read_only)
PARAMETER(WiFi_NeighboringWiFiDiagnostic_Result_Channel,                   result("channel"),                read_only)
PARAMETER(WiFi_NeighboringWiFiDiagnostic_Result_SignalStrength,            signal_strength,                  read_only)
PARAMETER(WiFi_NeighboringWiFiDiagnostic_Result_Radio,                     radio_reference,                  read_only)
PARAMETER(WiFi_NeighboringWiFiDiagnostic_Result_OperatingFrequencyBand,    result("operatingFrequencyBand"), read_only)
PARAMETER(WiFi_NeighboringWiFiDiagnostic_Result_OperatingChannelBandwidth, width,                            read_only)
// clang-format on

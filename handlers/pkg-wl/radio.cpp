// WiFi.Radio: what the radios can do; their settings are those of the other tree.
#include <string.h>

#include "pkg-wl.h"
#include "wireless.hpp"

namespace {

using namespace kova;

constexpr LogMessage kNoMode = "failed to get %s hwm\n";

int refuse_for(Call& call, const Radio& radio, LogMessage message) {
  message.print(call.origin(), radio.section.name);
  return FAILURE;
}

int ignore(Call& /*call*/, const Radio& /*radio*/) { return SUCCESS; }

// ---- Standards ----

int standards(Call& call, const Radio& radio) {
  bool has_ax = false;
  if (read_ax(radio, has_ax) != SUCCESS) return refuse_for(call, radio, kNoMode);
  call.reply(radio.standards);
  if (has_ax) strcat(call.output(), radio.ax_standard);
  return SUCCESS;
}

// A standard is stored behind "11".
constexpr char kFamily[] = "11";

int standard(Call& call, const Radio& radio) {
  const auto& [package, name] = radio.section;
  if (uci_raw_extract_value(package, name, "hwmode", call.output()) != 0) return refuse_for(call, radio, kNoMode);
  return reply_after(call, kFamily, "");
}

int set_standard(Call& call, const Radio& radio) {
  for (const char* mode : radio.mode_texts) {
    if (strcmp(mode + strlen(kFamily), call.value()) != 0) continue;
    if (uci_raw_set_value(radio.section.package, radio.section.name, "hwmode", mode) != 0)
      return refuse_for(call, radio, "failed to set %s hwm\n");
    return call.mark(APPLY_WLAN);
  }
  constexpr LogMessage kNoMatch = "no matched hwm 11%s \n";
  kNoMatch.print(call.origin(), call.value());
  return FAILURE;
}

// ---- Channel widths ----

int widths(Call& call, const Radio& radio) {
  if (!radio.wide) return call.reply("Auto,20MHz,40MHz");
  return call.reply(option_is(radio.section, "ht160", "1") ? "Auto,20MHz,40MHz,80MHz,160MHz"
                                                           : "Auto,20MHz,40MHz,80MHz");
}

// The width in use, which the wireless service knows of the radio's main network.
int current_width(Call& call, const Radio& radio) {
  constexpr char kQuery[] = R"(ubus call wireless status '{"iface":"%s"}' | grep htbw | tr '"' ' ' | awk '{print $3}')";
  Text<256> command;
  command.print(kQuery, radio.main_network);
  Text<100> stored;
  if (util_exec(command.c_str(), stored.data(), stored.size()) < 0) return refuse(call, "GCOCBE.\n");
  const char* width = text_for(kWidths, stored.view());
  return call.reply(width != nullptr ? width : "");
}

}  // namespace

// clang-format off
PARAMETER(WiFi_RadioNumberOfEntries, constant("2"), read_only)

PARAMETER(WiFi_Radio_Enable,                              radio(fixed("1")),    radio(ignore))
PARAMETER(WiFi_Radio_Status,                              radio(fixed("Up")),   read_only)
PARAMETER(WiFi_Radio_SupportedFrequencyBands,             radio(reply_band),    read_only)
ALIAS(WiFi_Radio_OperatingFrequencyBand,                  WiFi_Radio_SupportedFrequencyBands)
PARAMETER(WiFi_Radio_SupportedStandards,                  radio(standards),     read_only)
PARAMETER(WiFi_Radio_OperatingStandards,                  wlan_radio(standard), wlan_radio(set_standard))
ALIAS(LANDevice_WLANConfiguration_Standard,               WiFi_Radio_OperatingStandards)
PARAMETER(WiFi_Radio_SupportedOperatingChannelBandwidths, radio(widths),        read_only)
ALIAS(WiFi_Radio_OperatingChannelBandwidth,               LANDevice_WLANConfiguration_X_KOVA_Bandwidth)
PARAMETER(WiFi_Radio_CurrentOperatingChannelBandwidth,    radio(current_width), read_only)
ALIAS(WiFi_Radio_ChannelsInUse,                           LANDevice_WLANConfiguration_ChannelsInUse)
ALIAS(WiFi_Radio_Channel,                                 LANDevice_WLANConfiguration_Channel)
PARAMETER(WiFi_Radio_AutoChannelSupported,                radio(fixed("1")),    read_only)
ALIAS(WiFi_Radio_AutoChannelEnable,                       LANDevice_WLANConfiguration_AutoChannelEnable)
ALIAS(WiFi_Radio_TransmitPowerSupported,                  LANDevice_WLANConfiguration_TransmitPowerSupported)
ALIAS(WiFi_Radio_TransmitPower,                           LANDevice_WLANConfiguration_TransmitPower)
// clang-format on

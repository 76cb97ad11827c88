// WiFi.Radio: what the radios can do; their settings are those of the other tree.
#include <string.h>

#include "command.hpp"
#include "pkg-wl.h"
#include "text.hpp"
#include "wireless.hpp"

namespace {

using namespace kova;

constexpr LogMessage kNoMode = "failed to get %s hwm\n";

bool refuse_for(Call& call, const Radio& radio, LogMessage message) {
  message.print(call.origin(), radio.section.name);
  return false;
}

// ---- Standards ----

bool standards(Call& call, const Radio& radio) {
  const Option modes(radio.section, kHardwareModes);
  if (!modes) return refuse_for(call, radio, kNoMode);
  return call.reply(has_ax(modes) ? radio.standards_with_ax : radio.standards);
}

// What a stored standard begins with.
constexpr char kFamily[] = "11";

bool standard(Call& call, const Radio& radio) {
  const Option mode(radio.section, "hwmode");
  if (!mode) return refuse_for(call, radio, kNoMode);
  const char* family = strstr(mode.text(), kFamily);
  return call.reply(family != nullptr ? family + strlen(kFamily) : mode.text());
}

bool set_standard(Call& call, const Radio& radio) {
  for (const char* mode : radio.hwmodes) {
    if (strcmp(mode + strlen(kFamily), call.value()) != 0) continue;
    if (!write_option(radio.section, "hwmode", mode)) return refuse_for(call, radio, "failed to set %s hwm\n");
    return call.mark(APPLY_WLAN);
  }
  constexpr LogMessage kNoMatch = "no matched hwm 11%s \n";
  kNoMatch.print(call.origin(), call.value());
  return false;
}

// ---- Channel widths ----

bool widths(Call& call, const Radio& radio) {
  if (!radio.wide) return call.reply("Auto,20MHz,40MHz");
  return call.reply(Option(radio.section, "ht160") == "1" ? "Auto,20MHz,40MHz,80MHz,160MHz" : "Auto,20MHz,40MHz,80MHz");
}

// The width in use, as the wireless service has it for the radio's main network.
bool current_width(Call& call, const Radio& radio) {
  constexpr char kQuery[] = R"(ubus call wireless status '{"iface":"%s"}' | grep htbw | tr '"' ' ' | awk '{print $3}')";
  const CommandLine command(kQuery, radio.main_network);
  Text<100> stored;
  if (util_exec(command.c_str(), stored.data(), Text<100>::capacity()) < 0) return call.refuse("GCOCBE.\n");
  const char* width = text_for(kWidths, stored.view());
  return call.reply(width != nullptr ? width : "");
}

}  // namespace

// clang-format off
PARAMETER(WiFi_RadioNumberOfEntries, constant("2"), read_only)

PARAMETER(WiFi_Radio_Enable,                              radio(constant("1")),  radio(ignored))
PARAMETER(WiFi_Radio_Status,                              radio(constant("Up")), read_only)
PARAMETER(WiFi_Radio_SupportedFrequencyBands,             radio(reply_band),     read_only)
ALIAS(WiFi_Radio_OperatingFrequencyBand,                  WiFi_Radio_SupportedFrequencyBands)
PARAMETER(WiFi_Radio_SupportedStandards,                  radio(standards),      read_only)
PARAMETER(WiFi_Radio_OperatingStandards,                  wlan_radio(standard),  wlan_radio(set_standard))
ALIAS(LANDevice_WLANConfiguration_Standard,               WiFi_Radio_OperatingStandards)
PARAMETER(WiFi_Radio_SupportedOperatingChannelBandwidths, radio(widths),         read_only)
ALIAS(WiFi_Radio_OperatingChannelBandwidth,               LANDevice_WLANConfiguration_X_KOVA_Bandwidth)
PARAMETER(WiFi_Radio_CurrentOperatingChannelBandwidth,    radio(current_width),  read_only)
ALIAS(WiFi_Radio_ChannelsInUse,                           LANDevice_WLANConfiguration_ChannelsInUse)
ALIAS(WiFi_Radio_Channel,                                 LANDevice_WLANConfiguration_Channel)
PARAMETER(WiFi_Radio_AutoChannelSupported,                radio(constant("1")),  read_only)
ALIAS(WiFi_Radio_AutoChannelEnable,                       LANDevice_WLANConfiguration_AutoChannelEnable)
ALIAS(WiFi_Radio_TransmitPowerSupported,                  LANDevice_WLANConfiguration_TransmitPowerSupported)
ALIAS(WiFi_Radio_TransmitPower,                           LANDevice_WLANConfiguration_TransmitPower)
// clang-format on

// LANDevice.WLANConfiguration: the main network of each radio, and the radio itself.
#include <stdio.h>
#include <string.h>
#include <strings.h>

#include <span>

#include "associated_devices.hpp"
#include "channels.hpp"
#include "network.hpp"
#include "pkg-wl.h"
#include "security.hpp"
#include "text.hpp"
#include "wireless.hpp"

namespace {

using namespace kova;

// Replies a text of any length with its unit.
bool reply_with_unit(Call& call, const char* text, const char* unit) {
  sprintf(call.output(), "%s%s", text, unit);
  return true;
}

// ---- Channel; automatic selection is channel 0 ----

constexpr char kAutomatic[] = "0";

bool channel(Call& call, const Network& network) {
  Text<100> current;
  constexpr char kCurrent[] = "iwinfo %s freqlist | grep '*' | awk '{print $5}' | sed 's/)//g'";
  if (!ask_interface(network, kCurrent, current.span())) return false;
  if (!current.empty()) return call.reply(current.c_str());
  const Option stored(network.radio->section, "channel");
  if (!stored) return call.refuse("failed to get ch\n");
  return call.reply(stored == "auto" ? kAutomatic : stored.text());
}

bool set_channel(Call& call, const Network& network) {
  if (!supports_channel(network.section, call.value())) return call.refuse("invalid ch index\n\n");
  return store_option(call, network.radio->section, "channel", call.value(), APPLY_WLAN, "failed to set ch\n\n");
}

// Succeeds even when the radio cannot be asked, and then replies nothing.
bool channels(Call& call, const Network& /*network*/) {
  GetChannelPoll(0, nullptr, call.output(), call.instances(), 0);
  return true;
}

bool set_auto_channel(Call& call, const Radio& radio) {
  if (call.value_is("1")) return store_option(call, radio.section, "channel", kAutomatic, APPLY_WLAN);
  if (!call.value_is("0")) return false;
  if (Option(radio.section, "channel") != kAutomatic) return true;
  write_option(radio.section, "channel", radio.fixed_channel);  // the bit is set even if this fails
  return call.mark(APPLY_WLAN);
}

// ---- Power, in percent ----

bool set_transmit_power(Call& call, const Radio& radio) {
  constexpr Pair kLevels[] = {{"100", "100"}, {"20", "20"}, {"5", "5"}, {"-1", "100"}};
  const char* level = stored_for(kLevels, call.value());
  if (level == nullptr) return call.refuse(" txpwer invalid.\n");
  return store_option(call, radio.section, "txpower", level, APPLY_WLAN, "failed to set txpwr\n");
}

// ---- Channel width and frequency ----

// What stands before the width in a stored text.
constexpr char kBeforeWidth[] = "ht";

bool bandwidth(Call& call, const Radio& radio) {
  const Option stored(radio.section, "htbw");
  if (!stored) return call.refuse("uci get htbw error\n");
  if (strcasecmp(stored.text(), "auto") == 0) return call.reply("Auto");
  const char* width = strstr(stored.text(), kBeforeWidth);
  if (width == nullptr) return call.reply(stored.text());
  return reply_with_unit(call, width + strlen(kBeforeWidth), "MHz");
}

bool set_bandwidth(Call& call, const Radio& radio) {
  const std::span all(kWidths);
  const bool automatic = strcasecmp(call.value(), "Auto") == 0;
  const char* width = automatic ? "auto" : stored_for(radio.wide ? all : all.first(kNarrowWidths), call.value());
  if (width == nullptr) return call.refuse("invalid htbw\n");
  return store_option(call, radio.section, "htbw", width, APPLY_WLAN, "failed to set bw.\n");
}

bool frequency(Call& call, const Network& network) {
  Text<128> used;
  if (!ask_interface(network, "iwinfo %s freqlist | grep '*' | awk '{print $2}' ", used.span())) return false;
  if (used.empty()) LOG("failed to get freq. \n");
  return reply_with_unit(call, used.empty() ? "0" : used.c_str(), "GHz");
}

// ---- WEP ----

constexpr Pair kWepModes[] = {{"SharedAuthentication", "shared"}, {"None", "open"}, {"Auto", "auto"}};

bool wep_mode(Call& call, const Network& network) {
  const Option encryption(network.section, "encryption");
  if (!encryption) return false;
  if (encryption != "wep") return call.reply("");
  const Option stored(network.section, "wep_mode");
  const char* mode = stored ? text_for(kWepModes, stored.text()) : nullptr;
  return mode != nullptr && call.reply(mode);
}

bool set_wep_mode(Call& call, const Network& network) {
  const char* mode = stored_for(kWepModes, call.value());
  return mode != nullptr && store_option(call, network.section, "wep_mode", mode, network.bit());
}

}  // namespace

// clang-format off
PARAMETER(LANDevice_LANWLANConfigurationNumberOfEntries, constant("2"), read_only)

PARAMETER(LANDevice_WLANConfiguration_SSID,                     wlan(ssid("failed to get SSID\n\n")),   wlan(store_ssid("failed to get SSID\n\n")))
PARAMETER(LANDevice_WLANConfiguration_Enable,                   wlan(unless("disabled")),               wlan(set_enabled))
PARAMETER(LANDevice_WLANConfiguration_Status,                   wlan(status("Up", "Disabled")),         read_only)
PARAMETER(LANDevice_WLANConfiguration_BSSID,                    wlan(bssid("failed to get BSSID. \n")), read_only)
PARAMETER(LANDevice_WLANConfiguration_SSIDAdvertisementEnabled, wlan(unless("hidden")),                 wlan(set_advertised))

PARAMETER(LANDevice_WLANConfiguration_Channel,                wlan(channel),                            wlan(set_channel))
PARAMETER(LANDevice_WLANConfiguration_ChannelsInUse,          wlan(channels),                           read_only)
PARAMETER(LANDevice_WLANConfiguration_AutoChannelEnable,      wlan_radio(when("channel", kAutomatic)),  wlan_radio(set_auto_channel))
PARAMETER(LANDevice_WLANConfiguration_TransmitPowerSupported, wlan_radio(constant("{100,20,5}")),       read_only)
PARAMETER(LANDevice_WLANConfiguration_TransmitPower,          wlan_radio(own_option("txpower", "100")), wlan_radio(set_transmit_power))
PARAMETER(LANDevice_WLANConfiguration_X_KOVA_Bandwidth,       wlan_radio(bandwidth),                    wlan_radio(set_bandwidth))
PARAMETER(LANDevice_WLANConfiguration_X_KOVA_FrequencyInuse,  wlan(frequency),                          read_only)
PARAMETER(LANDevice_WLANConfiguration_X_KOVA_Band,            wlan_radio(reply_band),                   read_only)

PARAMETER(LANDevice_WLANConfiguration_TotalBytesSent,       wlan(counter(COUNTER_BYTES_SENT)),       read_only)
PARAMETER(LANDevice_WLANConfiguration_TotalBytesReceived,   wlan(counter(COUNTER_BYTES_RECEIVED)),   read_only)
PARAMETER(LANDevice_WLANConfiguration_TotalPacketsSent,     wlan(counter(COUNTER_PACKETS_SENT)),     read_only)
PARAMETER(LANDevice_WLANConfiguration_TotalPacketsReceived, wlan(counter(COUNTER_PACKETS_RECEIVED)), read_only)
PARAMETER(LANDevice_WLANConfiguration_TotalErrorsSent,      wlan(counter(COUNTER_ERRORS_SENT)),      read_only)
PARAMETER(LANDevice_WLANConfiguration_TotalErrorsReceived,  wlan(counter(COUNTER_ERRORS_RECEIVED)),  read_only)

PARAMETER(LANDevice_WLANConfiguration_BeaconType,              wlan(beacon_type),           wlan(store_encryption(kBeaconTypes)))
PARAMETER(LANDevice_WLANConfiguration_BasicEncryptionModes,    wlan(basic_encryption),      wlan(store_encryption(kBasicEncryptions)))
PARAMETER(LANDevice_WLANConfiguration_BasicAuthenticationMode, wlan(wep_mode),              wlan(set_wep_mode))
PARAMETER(LANDevice_WLANConfiguration_WPAEncryptionModes,      wlan(wpa_encryption),        wlan(aes_only("AES only.\n")))
PARAMETER(LANDevice_WLANConfiguration_WPAAuthenticationMode,   wlan(wpa_authentication),    wlan(store_encryption(kWpaAuthentications)))
ALIAS(LANDevice_WLANConfiguration_IEEE11iEncryptionModes,      LANDevice_WLANConfiguration_WPAEncryptionModes)
ALIAS(LANDevice_WLANConfiguration_IEEE11iAuthenticationMode,   LANDevice_WLANConfiguration_WPAAuthenticationMode)
PARAMETER(LANDevice_WLANConfiguration_X_KOVA_Password,         wlan(own_option("key", "")), wlan(set_passphrase))

PARAMETER(LANDevice_WLANConfiguration_AssociatedDeviceNumberOfEntries,             wlan(reply_device_count),                  read_only)
PARAMETER(LANDevice_WLANConfiguration_AssociatedDevice_AssociatedDeviceMACAddress, wlan(device({2, "mac", "LE\n", "LE2\n"})), read_only)
PARAMETER(LANDevice_WLANConfiguration_AssociatedDevice_AssociatedDeviceIPAddress,  wlan(device({2, "ip", "LE\n", "LE2\n"})),  read_only)
// clang-format on

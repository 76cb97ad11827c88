// LANDevice.WLANConfiguration.WPS: one setting for both radios, whichever WLANConfiguration it is asked of.
#include <string.h>

#include "pkg-wl.h"
#include "wireless.hpp"

namespace {

using namespace kova;

constexpr Section kFirst{"wireless", "wlan00"};
constexpr Section kSecond{"wireless", "wlan10"};
constexpr Section kWps{"wireless", "wps"};

constexpr Pair kSwitch[] = {{"1", "on"}, {"0", "off"}};
constexpr std::size_t kPinLength = 8;

int store_in_both(Call& call, const char* option, const char* value) {
  for (const auto& [package, network] : {kFirst, kSecond}) {
    if (uci_raw_set_value(package, network, option, value) != 0) return FAILURE;
  }
  return call.mark(APPLY_WLAN);
}

int enabled(Call& call) {
  Text<8> stored;
  if (read_option(kFirst, "wps", stored.span()) != SUCCESS) return FAILURE;
  return call.reply(stored == "on" ? "1" : "0");
}

int set_enabled(Call& call) {
  const char* word = stored_for(kSwitch, call.value());
  return word != nullptr ? store_in_both(call, "wps", word) : FAILURE;
}

int set_pin(Call& call) {
  constexpr int kDigits = 1;
  if (strlen(call.value()) != kPinLength || validityCheck(call.value(), kDigits) != 0) return FAILURE;
  return store_in_both(call, "wps_pin", call.value());
}

}  // namespace

// clang-format off
PARAMETER(LANDevice_WLANConfiguration_WPS_Enable,         enabled,                                 set_enabled)
PARAMETER(LANDevice_WLANConfiguration_WPS_DeviceName,     text(kWps, "wps_device_name", "Router"), read_only)
PARAMETER(LANDevice_WLANConfiguration_WPS_DevicePassword, constant("0"),                           set_pin)
// clang-format on

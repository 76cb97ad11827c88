// LANDevice.WLANConfiguration.WPS: one setting for both radios, whichever WLANConfiguration it is asked of.
#include <string.h>

#include "pkg-wl.h"
#include "wireless.hpp"

namespace {

using namespace kova;

constexpr Section kWps{"wireless", "wps"};

constexpr Pair kSwitch[] = {{"1", "on"}, {"0", "off"}};
constexpr std::size_t kPinLength = 8;

bool store_in_both(Call& call, const char* option, const char* value) {
  for (const Network& network : main_networks()) {
    if (!write_option(network.section, option, value)) return false;
  }
  return call.mark(APPLY_WLAN);
}

bool enabled(Call& call) {
  const Option wps(main_networks().front().section, "wps");
  return wps && call.reply(wps == "on" ? "1" : "0");
}

bool set_enabled(Call& call) {
  const char* word = stored_for(kSwitch, call.value());
  return word != nullptr && store_in_both(call, "wps", word);
}

bool set_pin(Call& call) {
  constexpr int kDigits = 1;
  if (strlen(call.value()) != kPinLength || validityCheck(call.value(), kDigits) != 0) return false;
  return store_in_both(call, "wps_pin", call.value());
}

}  // namespace

// clang-format off
PARAMETER(LANDevice_WLANConfiguration_WPS_Enable,         enabled,                                   set_enabled)
PARAMETER(LANDevice_WLANConfiguration_WPS_DeviceName,     option(kWps, "wps_device_name", "Router"), read_only)
PARAMETER(LANDevice_WLANConfiguration_WPS_DevicePassword, constant("0"),                             set_pin)
// clang-format on

#include "wireless.hpp"

#include <string.h>

#include "channels.hpp"

namespace kova {
namespace {

constexpr const char* kModes[] = {"11b", "11g", "11n", "11bg", "11ng", "11bgn", "11bgnax"};
constexpr const char* kWideModes[] = {"11a", "11n", "11an", "11nac", "11anac", "11anacax"};

// clang-format off
constexpr Radio kRadios[] = {
    {{"wireless", "radio0"}, "wlan00", "2.4GHz", "2.4G", "Device.WiFi.Radio.1", "5",  false, "b,bg,bgn",  "b,bg,bgn,bgnax",   kModes},
    {{"wireless", "radio1"}, "wlan10", "5GHz",   "5G",   "Device.WiFi.Radio.2", "40", true,  "a,an,anac", "a,an,anac,anacax", kWideModes},
};
constexpr Network kMainNetworks[] = {
    {{"wireless", "wlan00"}, &kRadios[0], false},
    {{"wireless", "wlan10"}, &kRadios[1], false},
};
constexpr Network kExtraNetworks[] = {
    {{"wireless", "wlan02"}, &kRadios[0], true},
    {{"wireless", "wlan12"}, &kRadios[1], true},
};
// clang-format on
constexpr int32_t kRadioCount = 2;

// The place that has this number, counted from 1; nullptr when there is none.
template <typename Place>
const Place* nth(const Place (&places)[kRadioCount], int32_t number) {
  return number >= 1 && number <= kRadioCount ? &places[number - 1] : nullptr;
}

}  // namespace

std::span<const Radio> radios() { return kRadios; }
std::span<const Network> main_networks() { return kMainNetworks; }

const Network* wlan_network(const Call& call) { return nth(kMainNetworks, wlan_number(call.instances())); }
const Network* multi_ssid_network(const Call& call) { return nth(kExtraNetworks, wlan_number(call.instances())); }
const Radio* wlan_radio_of(const Call& call) { return nth(kRadios, wlan_number(call.instances())); }

const Network* access_point_network(const Call& call) {
  const int32_t number = call.instance(0);
  return number > kRadioCount ? nth(kExtraNetworks, number - kRadioCount) : nth(kMainNetworks, number);
}

const Radio* radio_of(const Call& call) { return nth(kRadios, call.instance(0)); }

void renumber_extra(const Call& call, const Network& network) {
  if (network.extra) call.instances()[0] -= kRadioCount;
}

int32_t main_or_extra(int32_t operation, va_list arguments, parameter_handler main, parameter_handler extra) {
  const auto forward = access_point(
      renumbered([=](Call& call, const Network& network) { return call.forward(network.extra ? extra : main); }));
  return serve(operation, arguments, HERE, forward, forward);
}

bool reply_band(Call& call, const Radio& radio) { return call.reply(radio.band); }

bool has_ax(const Option& hardware_modes) { return hardware_modes && strstr(hardware_modes.text(), "ax") != nullptr; }

const char* stored_for(std::span<const Pair> pairs, std::string_view text) {
  for (const Pair& pair : pairs) {
    if (text == pair.text) return pair.stored;
  }
  return nullptr;
}

const char* text_for(std::span<const Pair> pairs, std::string_view stored) {
  for (const Pair& pair : pairs) {
    if (stored == pair.stored) return pair.text;
  }
  return nullptr;
}

}  // namespace kova

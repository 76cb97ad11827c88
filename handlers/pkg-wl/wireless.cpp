#include "wireless.hpp"

#include <string.h>

#include <iterator>

namespace kova {
namespace {

constexpr const char* kModes[] = {"11b", "11g", "11n", "11bg", "11ng", "11bgn", "11bgnax"};
constexpr const char* kWideModes[] = {"11a", "11n", "11an", "11nac", "11anac", "11anacax"};

// clang-format off
constexpr Radio kRadios[] = {
    {{"wireless", "radio0"}, "wlan00", "2.4GHz", "Device.WiFi.Radio.1", "5",  false, "b,bg,bgn",  ",bgnax",  kModes},
    {{"wireless", "radio1"}, "wlan10", "5GHz",   "Device.WiFi.Radio.2", "40", true,  "a,an,anac", ",anacax", kWideModes},
};
constexpr Network kNetworks[] = {
    {{"wireless", "wlan00"}, &kRadios[0], APPLY_WLAN},
    {{"wireless", "wlan10"}, &kRadios[1], APPLY_WLAN},
    {{"wireless", "wlan02"}, &kRadios[0], APPLY_MULTI_SSID},
    {{"wireless", "wlan12"}, &kRadios[1], APPLY_MULTI_SSID},
};
// clang-format on
constexpr int32_t kMainNetworks = 2;

// The number of a WLANConfiguration among the numbers of its path or, from the other tree, the only number of a path.
// 0 for numbers that name none.
int32_t wlan_number(const Call& call) {
  const int32_t outer = call.instance(0);
  const int32_t inner = call.instance(1);
  if (outer == 1 && (inner == 0 || inner == 1)) return 1;
  if ((outer == 1 && inner == 2) || (outer == 2 && inner == 0)) return 2;
  return 0;
}

template <typename Place, std::size_t Size>
const Place* nth(const Place (&places)[Size], int32_t number, int32_t last = Size) {
  return number >= 1 && number <= last ? &places[number - 1] : nullptr;
}

}  // namespace

const Network* wlan_network(const Call& call) { return nth(kNetworks, wlan_number(call), kMainNetworks); }

const Network* multi_ssid_network(const Call& call) {
  const Network* main = wlan_network(call);
  return main != nullptr ? main + kMainNetworks : nullptr;
}

const Radio* wlan_radio_of(const Call& call) { return nth(kRadios, wlan_number(call)); }

const Network* access_point_network(const Call& call) { return nth(kNetworks, call.instance(0)); }

const Radio* radio_of(const Call& call) { return nth(kRadios, call.instance(0)); }

bool renamed_to_radio(const Call& call, const Network& network) {
  const bool extra = network.bit == APPLY_MULTI_SSID;
  if (extra) call.instances()[0] -= kMainNetworks;
  return extra;
}

namespace {

bool forward_by_network(Call& call, parameter_handler main, parameter_handler extra) {
  const Network* network = access_point_network(call);
  return network != nullptr && call.forward(renamed_to_radio(call, *network) ? extra : main);
}

}  // namespace

int32_t by_network(int32_t operation, va_list arguments, parameter_handler main, parameter_handler extra) {
  const auto forward = [=](Call& call) { return forward_by_network(call, main, extra); };
  return serve(operation, arguments, HERE, forward, forward);
}

int32_t status_by_network(int32_t operation, va_list arguments, parameter_handler main, parameter_handler extra,
                          const char* theirs, const char* ours) {
  const auto status = [=](Call& call) {
    if (!forward_by_network(call, main, extra)) return false;
    return strcmp(call.output(), theirs) != 0 || call.reply(ours);
  };
  return serve(operation, arguments, HERE, status, read_only);
}

bool read_ax(const Radio& radio, bool& has_ax) {
  Text<256> modes;
  if (!read_option(radio.section, "hwmodes", modes.span())) return false;
  has_ax = strstr(modes.c_str(), "ax") != nullptr;
  return true;
}

bool reply_band(Call& call, const Radio& radio) { return call.reply(radio.band); }

bool reply_after(Call& call, const char* marker, const char* unit) {
  const char* found = strstr(call.output(), marker);
  if (found == nullptr) return true;
  const char* rest = found + strlen(marker);
  memmove(call.output(), rest, strlen(rest) + 1);
  strcat(call.output(), unit);
  return true;
}

const char* stored_for(std::span<const Pair> pairs, const char* text) {
  for (const Pair& pair : pairs) {
    if (strcmp(pair.text, text) == 0) return pair.stored;
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

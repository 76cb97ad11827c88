// The wireless topology: two radios with a main and an extra network each, how the objects of both trees number them,
// and the words that these objects share.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <type_traits>

#include "parameter.hpp"

namespace kova {

struct Radio {
  Section section;
  const char* main_network;
  const char* band;
  const char* scanned_band;   // the band as the scan for neighbours writes it
  const char* reference;      // the radio's path in the Device tree
  const char* fixed_channel;  // what the channel becomes when automatic selection is switched off
  bool wide;                  // has channels of 80 and 160 MHz
  const char* standards;
  const char* standards_with_ax;
  std::span<const char* const> hwmodes;  // what the operating standard may be stored as
};

struct Network {
  Section section;
  const Radio* radio;
  bool extra;

  // The bit that has a change of the network applied.
  uint32_t bit() const { return extra ? APPLY_MULTI_SSID : APPLY_WLAN; }
};

// Those of the first and of the second radio.
std::span<const Radio> radios();
std::span<const Network> main_networks();

// ---- What instance numbers mean. A finder returns nullptr for numbers that mean nothing. ----

// WLANConfiguration i, given as (1, i) or as (i, 0): the main network of a radio, its extra one, the radio itself.
const Network* wlan_network(const Call& call);
const Network* multi_ssid_network(const Call& call);
const Radio* wlan_radio_of(const Call& call);

// SSID and AccessPoint: 1 and 2 are the radios' main networks, 3 and 4 their extra ones. Radio: 1 and 2.
const Network* access_point_network(const Call& call);
const Radio* radio_of(const Call& call);

// Passes the network or radio that `find` finds to `word`; fails when there is none. A word that takes the call alone
// gets the call alone.
constexpr auto at(auto find, auto word) {
  return [=](Call& call) {
    const auto* place = find(call);
    if constexpr (std::is_invocable_v<decltype(word), Call&>) {
      return place != nullptr && word(call);
    } else {
      return place != nullptr && word(call, *place);
    }
  };
}

constexpr auto wlan(auto word) { return at(wlan_network, word); }
constexpr auto multi_ssid(auto word) { return at(multi_ssid_network, word); }
constexpr auto wlan_radio(auto word) { return at(wlan_radio_of, word); }
constexpr auto access_point(auto word) { return at(access_point_network, word); }
constexpr auto radio(auto word) { return at(radio_of, word); }

// Changes the caller's array: the number of an extra network becomes that of its radio, and stays so.
void renumber_extra(const Call& call, const Network& network);

// Does what `word` does, after that change.
constexpr auto renumbered(auto word) {
  return [=](Call& call, const Network& network) {
    renumber_extra(call, network);
    return word(call, network);
  };
}

// For an ALIAS of SSID or AccessPoint: has the handler of WLANConfiguration do the call for a main network, and that of
// MultiSSID for an extra one, after that change.
int32_t main_or_extra(int32_t operation, va_list arguments, parameter_handler main, parameter_handler extra);

// ---- What the words do ----

bool reply_band(Call& call, const Radio& radio);

// Whether the radio's hardware, by its option "hwmodes", has the standard ax.
inline constexpr char kHardwareModes[] = "hwmodes";
bool has_ax(const Option& hardware_modes);

// A text of the data model and what is stored for it. Look-ups take the first that fits, nullptr for none.
struct Pair {
  const char* text;
  const char* stored;
};
const char* stored_for(std::span<const Pair> pairs, std::string_view text);
const char* text_for(std::span<const Pair> pairs, std::string_view stored);

// The channel widths, of which only wide radios have the last two.
inline constexpr Pair kWidths[] = {{"20MHz", "ht20"}, {"40MHz", "ht40"}, {"80MHz", "ht80"}, {"160MHz", "ht160"}};
inline constexpr std::size_t kNarrowWidths = 2;

// ---- Getters that read an option of the network or radio ----

// The option; the fallback when it cannot be read.
constexpr auto own_option(const char* name, const char* fallback) {
  return [=](Call& call, const auto& place) { return reply_option(call, place.section, name, fallback); };
}

// "0" while the option is "1", else "1".
constexpr auto unless(const char* option) {
  return [=](Call& call, const auto& place) { return call.reply(Option(place.section, option) == "1" ? "0" : "1"); };
}

// "1" while the option has this value, else "0".
constexpr auto when(const char* option, const char* value) {
  return [=](Call& call, const auto& place) { return call.reply(Option(place.section, option) == value ? "1" : "0"); };
}

}  // namespace kova

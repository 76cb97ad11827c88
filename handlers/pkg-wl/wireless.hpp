// The wireless topology, two radios with a main and an extra network each, how the objects of both trees number it, and
// the words that they share.
#pragma once

#include <span>

#include "parameter.hpp"
#include "text.hpp"

namespace kova {

struct Radio {
  Section section;
  const char* main_network;
  const char* band;
  const char* reference;      // as the Device tree refers to it
  const char* fixed_channel;  // where automatic selection leaves off
  bool wide;                  // has channels of 80 and 160 MHz
  const char* standards;
  const char* ax_standard;                  // follows them where the hardware has it
  std::span<const char* const> mode_texts;  // that the operating standard is stored as
};

struct Network {
  Section section;
  const Radio* radio;
  uint32_t bit;  // by which it is applied
};

// ---- What instance numbers mean. Nothing is done with numbers that mean nothing: the finders then return nullptr.
// ----

// WLANConfiguration i, given as (1, i) or as (i, 0): the main network of a radio, its extra one, the radio itself.
const Network* wlan_network(const Call& call);
const Network* multi_ssid_network(const Call& call);
const Radio* wlan_radio_of(const Call& call);

// SSID and AccessPoint: 1 and 2 are the radios' main networks, 3 and 4 their extra ones. Radio: 1 and 2.
const Network* access_point_network(const Call& call);
const Radio* radio_of(const Call& call);

// What `word` does with the network or radio that `find` finds; fails without one. A word of other families, which
// takes the call alone, does the same for each.
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

// Whether the network is its radio's extra one. Then the number in the caller's array becomes the radio's, and stays
// so.
bool renamed_to_radio(const Call& call, const Network& network);

// Targets of ALIAS for SSID and AccessPoint, whose extra networks are an object of their own in the other tree. They
// forward to the handler there, which finds the radio's number in the array.
int32_t by_network(int32_t operation, va_list arguments, parameter_handler main, parameter_handler extra);

// The same for a get alone, with `theirs` among the replies replaced by `ours`.
int32_t status_by_network(int32_t operation, va_list arguments, parameter_handler main, parameter_handler extra,
                          const char* theirs, const char* ours);

// ---- What the words do ----

// Whether the radio's hardware has the standard ax. False, `has_ax` untouched, when it cannot be read.
bool read_ax(const Radio& radio, bool& has_ax);

bool reply_band(Call& call, const Radio& radio);

// Cuts the reply to what follows `marker` and puts `unit` behind it; a reply without the marker stays as it is.
bool reply_after(Call& call, const char* marker, const char* unit);

// A text of the data model and what is stored for it. Look-ups take the first that fits, nullptr for none.
struct Pair {
  const char* text;
  const char* stored;
};
const char* stored_for(std::span<const Pair> pairs, const char* text);
const char* text_for(std::span<const Pair> pairs, std::string_view stored);

// The channel widths, of which only wide radios have the last two.
inline constexpr Pair kWidths[] = {{"20MHz", "ht20"}, {"40MHz", "ht40"}, {"80MHz", "ht80"}, {"160MHz", "ht160"}};
inline constexpr std::size_t kNarrowWidths = 2;

// ---- Words for a network or a radio ----

// An option; the fallback when it cannot be read.
constexpr auto option(const char* option, const char* fallback) {
  return [=](Call& call, const auto& place) { return reply_option(call, place.section, option, fallback); };
}

// A switch that an option turns off with "1".
constexpr auto unless(const char* option) {
  return [=](Call& call, const auto& place) { return call.reply(option_is(place.section, option, "1") ? "0" : "1"); };
}

// A switch that is on while an option has this value.
constexpr auto when(const char* option, const char* value) {
  return [=](Call& call, const auto& place) { return call.reply(option_is(place.section, option, value) ? "1" : "0"); };
}

}  // namespace kova

// The one WAN link, whatever instance numbers its objects are asked for with, and the words that they share.
#pragma once

#include "link.hpp"

namespace kova {

// The network interface; its settings stand under the same name.
inline constexpr char kWan[] = "wan";
inline constexpr Section wan{"network", kWan};

// The protocol that the WAN is configured for, as stored. FAILURE when it cannot be read.
using Protocol = Text<32>;
int read_protocol(Protocol& protocol);

// True when the number that `text` begins with lies in this range, both ends included; without a number it is 0.
bool number_between(const char* text, int lowest, int highest);

// What the texts of an interface's up flag stand for.
struct UpTexts {
  const char* up;
  const char* down;
  const char* other;
  const char* no_answer;
};

int reply_up(Call& call, const char* interface, const UpTexts& texts);

// ---- Getters ----

constexpr auto up_flag(const char* interface, UpTexts texts) {
  return [=](Call& call) { return reply_up(call, interface, texts); };
}

inline constexpr auto live_connection_status =
    up_flag(kWan, {"Connected", "Disconnected", "Unconfigured", "Unconfigured"});

}  // namespace kova

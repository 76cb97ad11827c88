// The mobile interface, and the words that the parameters of this family share.
#pragma once

#include "parameter.hpp"
#include "text.hpp"

namespace kova {

// The network interface. The section of its settings has the same name.
inline constexpr char kMobile[] = "4g";
inline constexpr Section mobile{"network", kMobile};

// An option that is on or off, and the store's words for these.
struct Switch {
  const char* option;
  const char* on;  // nullptr: nothing is written to switch it on
  const char* off;
};

// The first line that a command prints; empty when there is none.
using Answer = Text<100>;

// Whether the network daemon knows the interface, be it up or down.
bool has_Cellular_iface();

Answer answer_of(const char* command);

// Replies a command's first line. Without one the reply is empty and `nothing` is logged.
bool reply_answer(Call& call, const char* command, LogMessage nothing);

bool store_switch(Call& call, const Switch& setting, LogMessage failure);

// ---- Getters and setters ----

// What `word` does while the interface is present. Otherwise `absent` is replied, or nothing when that is nullptr.
constexpr auto if_present(auto word, const char* absent = nullptr) {
  return [=](Call& call) {
    if (has_Cellular_iface()) return word(call);
    return absent == nullptr || call.reply(absent);
  };
}

// Replies `off` when the store has the word for off, else `on`, also when the option cannot be read.
constexpr auto on_or_off(Switch setting, const char* on, const char* off) {
  return [=](Call& call) { return call.reply(Option(mobile, setting.option) == setting.off ? off : on); };
}

// Writes the word for "1" or "0" and has the interface applied. For another value nothing is written, but the interface
// is applied all the same. A failed write fails the set.
constexpr auto switch_and_apply(Switch setting, LogMessage failure) {
  return [=](Call& call) { return store_switch(call, setting, failure); };
}

}  // namespace kova

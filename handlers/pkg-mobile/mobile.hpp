// The mobile interface, and the words that the parameters of this family share.
#pragma once

#include "parameter.hpp"

namespace kova {

// The network interface; its settings stand under the same name.
inline constexpr char kMobile[] = "4g";
inline constexpr Section mobile{"network", kMobile};

// What a command or the modem answers: its first line, empty for none.
using Answer = Text<100>;

// Whether the network daemon knows the interface, be it up or down.
bool has_Cellular_iface();

Answer answer_of(const char* command);

// Replies a command's first line; without one the reply is empty and `nothing` is logged.
bool reply_answer(Call& call, const char* command, LogMessage nothing);

// Replies `then` when the option has this value, else `otherwise`, also when the option cannot be read.
bool reply_by_option(Call& call, const char* option, const char* value, const char* then, const char* otherwise);

// Writes `off` for "0" and `on` for "1", nothing for another value or where the word is nullptr. In every case the
// interface is marked to be applied, unless the write failed.
bool apply_switch(Call& call, const char* option, const char* off, const char* on, LogMessage failure);

// ---- Getters and setters ----

// What `word` does, while the interface is present; else replies `absent`, or does nothing when that is nullptr.
constexpr auto if_present(auto word, const char* absent = nullptr) {
  return [=](Call& call) {
    if (has_Cellular_iface()) return word(call);
    return absent == nullptr || call.reply(absent);
  };
}

constexpr auto by_option(const char* option, const char* value, const char* then, const char* otherwise) {
  return [=](Call& call) { return reply_by_option(call, option, value, then, otherwise); };
}

constexpr auto switch_option(const char* option, const char* off, const char* on, LogMessage failure) {
  return [=](Call& call) { return apply_switch(call, option, off, on, failure); };
}

}  // namespace kova

// The one WAN link, whatever instance numbers its objects are asked for with, and the words that they share.
#pragma once

#include <string.h>
#include <strings.h>

#include "link.hpp"
#include "store.hpp"

namespace kova {

// The network interface; its settings stand under the same name.
inline constexpr char kWan[] = "wan";
inline constexpr Section wan{"network", kWan};

// The protocol that the WAN is configured for.
struct Protocol : Option {
  Protocol() : Option(wan, "proto") {}
};

// What the texts of an interface's up flag stand for.
struct UpTexts {
  const char* up;
  const char* down;
  const char* other;
  const char* no_answer;
};
inline constexpr UpTexts kUpOrDown{"Up", "Down", "Unknown", "Unknown"};

bool reply_up(Call& call, const char* interface, const UpTexts& texts);

// ---- Tests of a text ----

constexpr auto exactly(auto... words) {
  return [=](const char* text) { return (... || (strcmp(text, words) == 0)); };
}

constexpr auto in_any_case(auto... words) {
  return [=](const char* text) { return (... || (strcasecmp(text, words) == 0)); };
}

// ---- Getters ----

// What `word` does while a protocol that passes the test is configured; else replies `otherwise`. Fails when the
// protocol cannot be read.
constexpr auto if_protocol(auto test, auto word, const char* otherwise) {
  return [=](Call& call) {
    const Protocol protocol;
    if (!protocol) return false;
    return test(protocol.text()) ? word(call) : call.reply(otherwise);
  };
}

constexpr auto up_flag(const char* interface, UpTexts texts) {
  return [=](Call& call) { return reply_up(call, interface, texts); };
}

// The DNS servers of the link, joined with ","; cut to the 4 KiB that an agent is told to have room for.
inline constexpr auto live_dns_servers = link_status<4096>(kWan, INTERFACE_DNS_SERVERS, "");

inline constexpr auto live_connection_status =
    up_flag(kWan, {"Connected", "Disconnected", "Unconfigured", "Unconfigured"});

}  // namespace kova

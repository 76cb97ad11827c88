// The one WAN link, whatever instance numbers its objects are asked for with, and the words that they share.
#pragma once

#include <string.h>

#include "link.hpp"

namespace kova {

// The network interface; its settings stand under the same name.
inline constexpr char kWan[] = "wan";
inline constexpr Section wan{"network", kWan};

// The protocol that the WAN is configured for, as stored. FAILURE when it cannot be read.
using Protocol = Text<32>;
int read_protocol(Protocol& protocol);

// What the texts of an interface's up flag stand for.
struct UpTexts {
  const char* up;
  const char* down;
  const char* other;
  const char* no_answer;
};

int reply_up(Call& call, const char* interface, const UpTexts& texts);

// Replies the DNS servers of the link, joined with ",", however many; empty when it is not known to have any.
int live_dns_servers(Call& call);

// The value when it is an IPv4 address; else nullptr, and logged.
const char* address_value(const Call& call);

// Prints a command line of a row's name, an option and a value and runs it at once. That it fails goes unnoticed, and
// without a row there is nothing to do. FAILURE, nothing run, when the line would be cut.
int write_at_once(const char* form, const uci_section* row, const char* option, const char* value);

// ---- Tests of the protocol ----

constexpr auto exactly(const char* word) {
  return [=](const Protocol& protocol) { return protocol == word; };
}

constexpr auto in_any_case(const char* word) {
  return [=](const Protocol& protocol) { return strcasecmp(protocol.c_str(), word) == 0; };
}

// ---- Getters ----

// What `word` does while a protocol that passes the test is configured; else replies `otherwise`. Fails when the
// protocol cannot be read.
constexpr auto if_protocol(auto test, auto word, const char* otherwise) {
  return [=](Call& call) IN_CODE {
    Protocol protocol;
    if (read_protocol(protocol) != SUCCESS) return FAILURE;
    return test(protocol) ? word(call) : call.reply(otherwise);
  };
}

constexpr auto up_flag(const char* interface, UpTexts texts) {
  return [=](Call& call) IN_CODE { return reply_up(call, interface, texts); };
}

inline constexpr auto live_connection_status =
    up_flag(kWan, {"Connected", "Disconnected", "Unconfigured", "Unconfigured"});

}  // namespace kova

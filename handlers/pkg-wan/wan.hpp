// The one WAN link, whatever instance numbers its objects are asked for with, and the words that they share.
#pragma once

#include <string.h>

#include "link.hpp"

namespace kova {

// The network interface; its settings stand under the same name.
inline constexpr char kWan[] = "wan";
inline constexpr Section wan{"network", kWan};

// The protocol that the WAN is configured for, as stored. False when it cannot be read.
using Protocol = Text<32>;
bool read_protocol(Protocol& protocol);

// What the texts of an interface's up flag stand for.
struct UpTexts {
  const char* up;
  const char* down;
  const char* other;
  const char* no_answer;
};

bool reply_up(Call& call, const char* interface, const UpTexts& texts);

// Replies the DNS servers of the link, joined with ",", however many; empty when it is not known to have any.
bool live_dns_servers(Call& call);

// The value when it is an IPv4 address; else nullptr, and logged.
const char* address_value(const Call& call);

// Prints a command line of a row's name, an option and a value and runs it at once. That it fails goes unnoticed, and
// without a row there is nothing to do. False, nothing run, when the line would be cut.
bool write_at_once(const char* form, const uci_section* row, const char* option, const char* value);

// The body of a worker, which serves a field of a table's rows wherever the data model shows the table. `position` is
// where the row's number stands among the instance numbers.
template <typename Field>
int32_t serve_field(int32_t operation, va_list arguments, int32_t position, Origin origin, const Field& field) {
  const auto place = static_cast<std::size_t>(position);
  return serve(
      operation, arguments, origin, [=](Call& call) { return field.get(call, call.instance(place)); },
      [=](Call& call) { return field.set(call, call.instance(place)); });
}

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
  return [=](Call& call) {
    Protocol protocol;
    if (!read_protocol(protocol)) return false;
    return test(protocol) ? word(call) : call.reply(otherwise);
  };
}

constexpr auto up_flag(const char* interface, UpTexts texts) {
  return [=](Call& call) { return reply_up(call, interface, texts); };
}

inline constexpr auto live_connection_status =
    up_flag(kWan, {"Connected", "Disconnected", "Unconfigured", "Unconfigured"});

}  // namespace kova

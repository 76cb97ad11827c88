// Words for a wireless network, which the main and the extra networks of one tree and the access points of the other
// share.
#pragma once

#include "wireless.hpp"

namespace kova {

bool reply_ssid(Call& call, const Network& network, LogMessage failure);
bool set_ssid(Call& call, const Network& network, LogMessage failure);
bool set_enabled(Call& call, const Network& network);
bool set_passphrase(Call& call, const Network& network);
bool set_advertised(Call& call, const Network& network);
bool reply_status(Call& call, const Network& network);
bool reply_counter(Call& call, const Network& network, interface_counter counter);

// The first line that a command prints about the network's interface, whose name it has a "%s" for; empty for none.
// False without an interface.
bool ask_interface(const Network& network, const char* command, std::span<char> answer);

// Replies such a line. Where there is none, `nothing` is logged and the fallback takes its place.
struct Question {
  const char* command;
  std::size_t room;  // for the line, with its end
  const char* fallback;
  const char* unit;  // behind the reply
};
bool reply_about_interface(Call& call, const Network& network, const Question& question, LogMessage nothing);

// ---- Getters and setters ----

constexpr auto ssid(LogMessage failure) {
  return [=](Call& call, const Network& network) { return reply_ssid(call, network, failure); };
}

constexpr auto store_ssid(LogMessage failure) {
  return [=](Call& call, const Network& network) { return set_ssid(call, network, failure); };
}

constexpr auto counter(interface_counter counter) {
  return [=](Call& call, const Network& network) { return reply_counter(call, network, counter); };
}

constexpr auto about_interface(Question question, LogMessage nothing) {
  return [=](Call& call, const Network& network) { return reply_about_interface(call, network, question, nothing); };
}

constexpr auto bssid(LogMessage nothing) {
  return about_interface({"iwinfo %s info | grep 'Access Point' | awk '{print $3}'", 100, "0:0:0:0:0:0", ""}, nothing);
}

}  // namespace kova

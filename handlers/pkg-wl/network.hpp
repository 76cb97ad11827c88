// Words for a wireless network, which the main and the extra networks of one tree and the access points of the other
// share.
#pragma once

#include "wireless.hpp"

namespace kova {

int reply_ssid(Call& call, const Network& network, LogMessage failure);
int set_ssid(Call& call, const Network& network, LogMessage failure);
int set_enabled(Call& call, const Network& network);
int set_passphrase(Call& call, const Network& network);
int set_advertised(Call& call, const Network& network);
int reply_status(Call& call, const Network& network);
int reply_counter(Call& call, const Network& network, interface_counter counter);

// The first line that a command prints about the network's interface, whose name it has a "%s" for; empty for none.
// FAILURE without an interface.
int ask_interface(const Network& network, const char* command, std::span<char> answer);

// Replies such a line. Where there is none, `nothing` is logged and the fallback takes its place.
struct Question {
  const char* command;
  std::size_t room;  // for the line, with its end
  const char* fallback;
  const char* unit;  // behind the reply
};
int reply_about_interface(Call& call, const Network& network, const Question& question, LogMessage nothing);

// ---- Getters and setters ----

constexpr auto ssid(LogMessage failure) {
  return [=](Call& call, const Network& network) IN_CODE { return reply_ssid(call, network, failure.copy()); };
}

constexpr auto store_ssid(LogMessage failure) {
  return [=](Call& call, const Network& network) IN_CODE { return set_ssid(call, network, failure.copy()); };
}

constexpr auto counter(interface_counter counter) {
  return [=](Call& call, const Network& network) IN_CODE { return reply_counter(call, network, counter); };
}

constexpr auto about_interface(Question question, LogMessage nothing) {
  return [=](Call& call, const Network& network)
             IN_CODE { return reply_about_interface(call, network, question, nothing.copy()); };
}

constexpr auto bssid(LogMessage nothing) {
  return about_interface({"iwinfo %s info | grep 'Access Point' | awk '{print $3}'", 100, "0:0:0:0:0:0", ""}, nothing);
}

}  // namespace kova

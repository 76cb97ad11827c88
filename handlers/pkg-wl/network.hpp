// Words for a wireless network, which the main and the extra networks of one tree and the access points of the other
// share.
#pragma once

#include "wireless.hpp"

namespace kova {

int reply_ssid(Call& call, const Network& network, const LogMessage& failure);
int set_ssid(Call& call, const Network& network, const LogMessage& failure);
int set_enabled(Call& call, const Network& network);
int set_passphrase(Call& call, const Network& network);
int set_advertised(Call& call, const Network& network);
int reply_status(Call& call, const Network& network);
int reply_counter(Call& call, const Network& network, interface_counter counter);

// Replies what a command about the network's interface, whose name it has a "%s" for, prints first, and `unit` behind
// it. Where it prints nothing, `nothing` is logged and the fallback takes its place. FAILURE without an interface.
int reply_about_interface(Call& call, const Network& network, const char* command, const char* fallback,
                          const char* unit, const LogMessage& nothing);

// The first line that such a command prints, empty for none. FAILURE when it is not run.
int ask_interface(const Network& network, const char* command, std::span<char> answer);

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

constexpr auto bssid(LogMessage nothing) {
  return [=](Call& call, const Network& network) {
    return reply_about_interface(call, network, "iwinfo %s info | grep 'Access Point' | awk '{print $3}'",
                                 "0:0:0:0:0:0", "", nothing);
  };
}

}  // namespace kova

// Words for a wireless network: the main and the extra networks of one tree, the access points of the other.
#pragma once

#include <span>

#include "wireless.hpp"

namespace kova {

bool reply_ssid(Call& call, const Network& network, LogMessage failure);
bool set_ssid(Call& call, const Network& network, LogMessage failure);
bool set_enabled(Call& call, const Network& network);
bool set_passphrase(Call& call, const Network& network);
bool set_advertised(Call& call, const Network& network);
bool reply_status(Call& call, const Network& network, const char* up, const char* down);
bool reply_counter(Call& call, const Network& network, interface_counter counter);
bool reply_bssid(Call& call, const Network& network, LogMessage nothing);

// Reads the first line that a command prints about the network's interface; empty when it prints none. The interface's
// name takes the place of "%s". False when the network has no interface.
bool ask_interface(const Network& network, const char* command, std::span<char> answer);

// ---- Getters and setters ----

constexpr auto ssid(LogMessage failure) {
  return [=](Call& call, const Network& network) { return reply_ssid(call, network, failure); };
}

constexpr auto store_ssid(LogMessage failure) {
  return [=](Call& call, const Network& network) { return set_ssid(call, network, failure); };
}

constexpr auto status(const char* up, const char* down) {
  return [=](Call& call, const Network& network) { return reply_status(call, network, up, down); };
}

constexpr auto counter(interface_counter counter) {
  return [=](Call& call, const Network& network) { return reply_counter(call, network, counter); };
}

constexpr auto bssid(LogMessage nothing) {
  return [=](Call& call, const Network& network) { return reply_bssid(call, network, nothing); };
}

}  // namespace kova

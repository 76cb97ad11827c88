// Encryption of a wireless network. The older tree sets two states alone: open, or WPA with a passphrase.
#pragma once

#include <span>

#include "wireless.hpp"

namespace kova {

// What the older tree's parameters read for a stored encryption.
struct SecurityTexts {
  const char* beacon;
  const char* basic_encryption;
  const char* wpa_encryption;
  const char* wpa_authentication;
};

bool reply_security(Call& call, const Network& network, const char* SecurityTexts::*parameter);
bool reply_encryption(Call& call, const Network& network, std::span<const Pair> modes);
bool set_encryption(Call& call, const Network& network, std::span<const Pair> modes, LogMessage unknown);
bool accept_aes(Call& call, const Network& network, LogMessage accepted);

// ---- Getters ----

constexpr auto security(const char* SecurityTexts::*parameter) {
  return [=](Call& call, const Network& network) { return reply_security(call, network, parameter); };
}

inline constexpr auto beacon_type = security(&SecurityTexts::beacon);
inline constexpr auto basic_encryption = security(&SecurityTexts::basic_encryption);
inline constexpr auto wpa_encryption = security(&SecurityTexts::wpa_encryption);
inline constexpr auto wpa_authentication = security(&SecurityTexts::wpa_authentication);

// The mode that the stored encryption stands for, empty for none.
constexpr auto encryption(std::span<const Pair> modes) {
  return [=](Call& call, const Network& network) { return reply_encryption(call, network, modes); };
}

// ---- Setters ----

// Writes the encryption that the mode stands for. A network that then needs a passphrase and has none gets the default
// one.
constexpr auto store_encryption(std::span<const Pair> modes, LogMessage unknown = {}) {
  return [=](Call& call, const Network& network) { return set_encryption(call, network, modes, unknown); };
}

// Takes AES while the network is encrypted, and changes nothing.
constexpr auto aes_only(LogMessage accepted) {
  return [=](Call& call, const Network& network) { return accept_aes(call, network, accepted); };
}

// ---- Modes ----

inline constexpr Pair kBeaconTypes[] = {{"11i", "psk-mixed"}, {"None", "none"}};
inline constexpr Pair kBasicEncryptions[] = {{"None", "none"}};
inline constexpr Pair kWpaAuthentications[] = {{"PSKAuthentication", "psk-mixed"}};

}  // namespace kova

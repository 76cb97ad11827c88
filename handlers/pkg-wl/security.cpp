#include "security.hpp"

#include <string.h>

namespace kova {
namespace {

constexpr char kEncryption[] = "encryption";
constexpr char kOpen[] = "none";
constexpr char kDefaultPassphrase[] = "24681357";

constexpr SecurityTexts kPassphraseTexts{"11i", "", "AESEncryption", "PSKAuthentication"};
constexpr SecurityTexts kOpenTexts{"None", "None", "", ""};
constexpr SecurityTexts kOtherTexts{"", "", "AESEncryption", ""};

const SecurityTexts& texts_of(const Option& encryption) {
  if (strstr(encryption.text(), "psk") != nullptr) return kPassphraseTexts;
  return encryption == kOpen ? kOpenTexts : kOtherTexts;
}

bool has_passphrase(const Network& network) { return static_cast<bool>(Option(network.section, "key")); }

}  // namespace

bool reply_security(Call& call, const Network& network, const char* SecurityTexts::*parameter) {
  const Option encryption(network.section, kEncryption);
  return encryption && call.reply(texts_of(encryption).*parameter);
}

bool reply_encryption(Call& call, const Network& network, std::span<const Pair> modes) {
  const Option encryption(network.section, kEncryption);
  if (!encryption) return false;
  const char* mode = text_for(modes, encryption.text());
  return call.reply(mode != nullptr ? mode : "");
}

bool set_encryption(Call& call, const Network& network, std::span<const Pair> modes, LogMessage unknown) {
  const char* encryption = stored_for(modes, call.value());
  if (encryption == nullptr) return call.refuse(unknown);
  if (!write_option(network.section, kEncryption, encryption)) return false;
  if (strcmp(encryption, kOpen) != 0 && !has_passphrase(network))
    write_option(network.section, "key", kDefaultPassphrase);  // the encryption is set even if this fails
  return call.mark(network.bit());
}

bool accept_aes(Call& call, const Network& network, LogMessage accepted) {
  if (!call.value_is("AESEncryption")) return false;
  const Option encryption(network.section, kEncryption);
  if (!encryption || encryption == kOpen) return false;
  accepted.print(call.origin());
  return true;
}

}  // namespace kova

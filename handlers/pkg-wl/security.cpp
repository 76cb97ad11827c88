#include "security.hpp"

#include <string.h>

namespace kova {
namespace {

constexpr char kOpen[] = "none";
constexpr char kDefaultPassphrase[] = "24681357";

constexpr SecurityTexts kPassphraseTexts{"11i", "", "AESEncryption", "PSKAuthentication"};
constexpr SecurityTexts kOpenTexts{"None", "None", "", ""};
constexpr SecurityTexts kOtherTexts{"", "", "AESEncryption", ""};

using Encryption = Text<128>;

bool read_encryption(const Network& network, Encryption& encryption) {
  return read_option(network.section, "encryption", encryption.span());
}

const SecurityTexts& texts_of(const Encryption& encryption) {
  if (strstr(encryption.c_str(), "psk") != nullptr) return kPassphraseTexts;
  return encryption == kOpen ? kOpenTexts : kOtherTexts;
}

bool has_passphrase(const Network& network) {
  Text<8> beginning;
  return read_option(network.section, "key", beginning.span());
}

}  // namespace

bool reply_security(Call& call, const Network& network, const char* SecurityTexts::*parameter) {
  Encryption encryption;
  if (!read_encryption(network, encryption)) return false;
  return call.reply(texts_of(encryption).*parameter);
}

bool reply_encryption(Call& call, const Network& network, std::span<const Pair> modes) {
  Encryption encryption;
  if (!read_encryption(network, encryption)) return false;
  const char* mode = text_for(modes, encryption.view());
  return call.reply(mode != nullptr ? mode : "");
}

bool set_encryption(Call& call, const Network& network, std::span<const Pair> modes, LogMessage unknown) {
  const char* encryption = stored_for(modes, call.value());
  if (encryption == nullptr) return call.refuse(unknown);
  if (!write_option(network.section, "encryption", encryption)) return false;
  if (strcmp(encryption, kOpen) != 0 && !has_passphrase(network))
    write_option(network.section, "key", kDefaultPassphrase);  // the encryption holds without it
  return call.mark(network.bit);
}

bool accept_aes(Call& call, const Network& network, LogMessage accepted) {
  Encryption encryption;
  if (!call.value_is("AESEncryption") || !read_encryption(network, encryption) || encryption == kOpen) return false;
  accepted.print(call.origin());
  return true;
}

}  // namespace kova

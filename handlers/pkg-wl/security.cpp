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

int read_encryption(const Network& network, Encryption& encryption) {
  return read_option(network.section, "encryption", encryption.span());
}

const SecurityTexts& texts_of(const Encryption& encryption) {
  if (strstr(encryption.c_str(), "psk") != nullptr) return kPassphraseTexts;
  return encryption == kOpen ? kOpenTexts : kOtherTexts;
}

bool has_passphrase(const Network& network) {
  Text<8> beginning;
  return read_option(network.section, "key", beginning.span()) == SUCCESS;
}

}  // namespace

int reply_security(Call& call, const Network& network, const char* SecurityTexts::*parameter) {
  Encryption encryption;
  if (read_encryption(network, encryption) != SUCCESS) return FAILURE;
  return call.reply(texts_of(encryption).*parameter);
}

int reply_encryption(Call& call, const Network& network, std::span<const Pair> modes) {
  Encryption encryption;
  if (read_encryption(network, encryption) != SUCCESS) return FAILURE;
  const char* mode = text_for(modes, encryption.view());
  return call.reply(mode != nullptr ? mode : "");
}

int set_encryption(Call& call, const Network& network, std::span<const Pair> modes, LogMessage unknown) {
  const auto& [package, name] = network.section;
  const char* encryption = stored_for(modes, call.value());
  if (encryption == nullptr) return refuse(call, unknown);
  if (uci_raw_set_value(package, name, "encryption", encryption) != 0) return FAILURE;
  if (strcmp(encryption, kOpen) != 0 && !has_passphrase(network))
    uci_raw_set_value(package, name, "key", kDefaultPassphrase);  // the encryption holds without it
  return call.mark(network.bit);
}

int accept_aes(Call& call, const Network& network, LogMessage accepted) {
  Encryption encryption;
  if (!call.value_is("AESEncryption") || read_encryption(network, encryption) != SUCCESS || encryption == kOpen)
    return FAILURE;
  accepted.print(call.origin());
  return SUCCESS;
}

}  // namespace kova

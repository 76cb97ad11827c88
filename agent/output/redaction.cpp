#include "output/redaction.hpp"

#include <algorithm>
#include <cctype>

namespace kovadm {
namespace {

constexpr std::size_t kMarkLength = sizeof kSecretMark - 1;

bool is_of_word(char character) { return std::isalnum(static_cast<unsigned char>(character)) != 0; }

bool stands_alone(const std::string& text, std::size_t at, std::size_t length) {
  const bool begins = at == 0 || !is_of_word(text[at - 1]);
  return begins && (at + length == text.size() || !is_of_word(text[at + length]));
}

bool replace_if(std::string& text, const std::string& secret,
                bool (*test)(const std::string&, std::size_t, std::size_t)) {
  bool replaced = false;
  for (std::size_t at = text.find(secret); at != std::string::npos;) {
    const bool found = test(text, at, secret.size());
    if (found) text.replace(at, secret.size(), kSecretMark);
    replaced |= found;
    at = text.find(secret, at + (found ? kMarkLength : 1));
  }
  return replaced;
}

}  // namespace

bool replace_secret(std::string& text, const std::string& secret) {
  return replace_if(text, secret, [](const std::string&, std::size_t, std::size_t) { return true; });
}

std::string Redaction::secret(const std::string& value) {
  if (off_ || value.empty()) return value;
  if (value.size() >= kTellingLength) values_.insert(value);
  return kSecretMark;
}

void Redaction::note_word(const std::string& value) {
  if (!secret(value).empty()) words_.insert(value);
}

std::string Redaction::text(std::string text) const {
  if (off_) return text;
  for (const std::string& value : values_) replace_secret(text, value);
  for (const std::string& word : words_) replace_if(text, word, stands_alone);
  return text;
}

void Redaction::apply(nlohmann::ordered_json& document) const {
  if (document.is_string()) document = text(document.get<std::string>());
  if (!document.is_structured()) return;
  for (auto& value : document) apply(value);
}

}  // namespace kovadm

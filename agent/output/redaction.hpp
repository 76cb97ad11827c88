// Passwords and keys, kept out of what is said.
#pragma once

#include <cstddef>
#include <nlohmann/json.hpp>
#include <set>
#include <string>

namespace kovadm {

// What is told in the place of a secret.
inline constexpr char kSecretMark[] = "(secret)";

// Shorter ones are words that stand for something else, too.
inline constexpr std::size_t kTellingLength = 8;

// Puts the mark in the place of `secret`, wherever it stands. Whether it stood somewhere.
bool replace_secret(std::string& text, const std::string& secret);

class Redaction {
 public:
  // With `off`, everything is told.
  explicit Redaction(bool off) : off_(off) {}

  bool off() const { return off_; }

  // What is to be told of a secret; an empty one is none. It is replaced from then on wherever it stands; one shorter
  // than kTellingLength only after note_word().
  std::string secret(const std::string& value);

  // A secret, however short, that is replaced where it stands as a word of its own: what is told is about it.
  void note_word(const std::string& value);

  // The text, and a document's texts, without what was noted.
  std::string text(std::string text) const;
  void apply(nlohmann::ordered_json& document) const;

 private:
  bool off_;
  std::set<std::string> values_;
  std::set<std::string> words_;
};

}  // namespace kovadm

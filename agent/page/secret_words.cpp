#include "page/secret_words.hpp"

namespace kovadm {
namespace {

bool is_secret_option(const std::string& path) { return is_secret_name(path.substr(path.rfind('.') + 1)); }

}  // namespace

SecretWords::SecretWords(const std::vector<WatchedReading>& readings, Redaction& redaction) : redaction_(redaction) {
  for (const WatchedReading& reading : readings) note(reading);
}

void SecretWords::note(const WatchedReading& reading) {
  const std::string value = is_secret(*reading.parameter.row) ? reading.value.value_or("") : "";
  redaction_.secret(value);
  for (const auto& look_up : reading.trace.look_ups) {
    const std::string found = look_up.value.value_or("");
    if (found.empty() || (found != value && !is_secret_option(look_up.path))) continue;
    redaction_.secret(found);
    by_source_[look_up.path].insert(found);
  }
  if (value.empty()) return;
  for (const std::string& command : reading.trace.commands) by_source_[command].insert(value);
}

Redaction SecretWords::around(const WatchedReading& reading) const {
  Redaction redaction = redaction_;
  const auto note_of = [&](const std::string& source) {
    const auto words = by_source_.find(source);
    if (words == by_source_.end()) return;
    for (const std::string& word : words->second) redaction.note_word(word);
  };
  for (const auto& look_up : reading.trace.look_ups) note_of(look_up.path);
  for (const std::string& command : reading.trace.commands) note_of(command);
  return redaction;
}

}  // namespace kovadm

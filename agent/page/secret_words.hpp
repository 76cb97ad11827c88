// What of the readings is not to be told.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "output/redaction.hpp"
#include "recording/reading.hpp"

namespace kovadm {

class SecretWords {
 public:
  SecretWords(const std::vector<WatchedReading>& readings, Redaction& redaction);

  // The redaction for what one reading tells: with the secrets, however short, that come from what it was read from.
  Redaction around(const WatchedReading& reading) const;

 private:
  void note(const WatchedReading& reading);

  Redaction& redaction_;
  std::map<std::string, std::set<std::string>> by_source_;  // an option or a command
};

}  // namespace kovadm

// The messages of sessions as they went, in a file.
#pragma once

#include <string>

#include "output/redaction.hpp"

namespace kovadm::session {

class Transcript {
 public:
  // Written to `file` as it grows, for its owner alone to read; none for an empty name. Throws what expect_to_write()
  // and write_own_file() throw.
  Transcript(std::string file, Redaction& redaction);

  void sent(const std::string& url, const std::string& message);
  void received(long status, const std::string& message);

 private:
  void add(const std::string& heading, const std::string& message);

  std::string file_;
  Redaction& redaction_;
};

// A message as it is to be told: a mark in the place of values of secret parameters, and of passwords of other
// requests.
std::string without_secrets(const std::string& message, Redaction& redaction);

}  // namespace kovadm::session

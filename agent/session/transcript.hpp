// The messages of sessions as they went, in a file.
#pragma once

#include <string>

#include "output/redaction.hpp"

namespace kovadm::session {

class Transcript {
 public:
  // Written to `file` as it grows, for its owner alone to read; none for an empty name. Throws what expect_to_write()
  // and write_own_file() throw.
  Transcript(const std::string& file, Redaction& redaction);

  void sent(const std::string& url, const std::string& message);
  void received(long status, const std::string& message);

 private:
  void add(const std::string& heading, const std::string& message);

  std::string file_;
  Redaction& redaction_;
};

// Notes what a message has of secrets: values of secret parameters, and passwords of other requests.
void note_secrets(const std::string& message, Redaction& redaction);

}  // namespace kovadm::session

// Passwords, keys and the like in a recording, and their replacement by a mark.
#pragma once

#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "model/catalogue.hpp"
#include "output/redaction.hpp"
#include "recording/recording.hpp"
#include "seam/trace.hpp"

namespace kovadm {

class Secrets {
 public:
  // Takes for secret what one get of a secret parameter has read, when that is its value.
  void note(const seam::Trace& trace, const std::string& value);

  // Replaces the values of these, and of options that have a secret's name; elsewhere such values of at least eight
  // bytes. Empty values stay. Returns what was replaced, for people.
  std::set<std::string> replace_in(Recording& recording);

 private:
  bool is_secret_option(const std::string& package, const std::string& option, const std::string& value) const;
  std::string without_secrets(const std::string& path, const std::string& text, std::set<std::string>& replaced);
  std::string without_options(const std::string& package, const std::string& text, std::set<std::string>& replaced);
  std::string without_values(std::string text, const std::string& source, std::set<std::string>& replaced) const;
  void replace_in_reply(nlohmann::ordered_json& value, const std::string& call, std::set<std::string>& replaced) const;

  std::set<std::pair<std::string, std::string>> options_;  // package and option
  std::map<std::string, std::set<std::string>> outputs_;   // by command: the secrets in its output
  std::set<std::string> values_;
};

}  // namespace kovadm

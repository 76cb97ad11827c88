// What a command says: lines for a reader as they come, or one JSON document at the end.
#pragma once

#include <cstdio>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "model/fault.hpp"
#include "output/redaction.hpp"
#include "seam/caught_output.hpp"

namespace kovadm {

using Json = nlohmann::ordered_json;

class Output {
 public:
  // From here on standard output is this output's alone: what the handlers' commands print there is told as "printed".
  // Secrets that it knows of are left out unless they are to be shown.
  explicit Output(bool json, bool show_secrets = false);

  // A line for the reader, without its end.
  void line(const std::string& text);

  // The JSON document; "printed" and "faults" are added at the end.
  Json& document() { return document_; }

  void value(const std::string& path, const std::string& value);

  // What is told and what is not to be.
  Redaction& redaction() { return redaction_; }
  void fault(const Fault& fault);
  bool has_faults() const { return !faults_.empty(); }

  // What failed without being a fault of a parameter; the document tells it elsewhere.
  void failure(const std::string& text);

  // What a recording has no answer for, and therefore failed; told once.
  void not_recorded(const std::string& what);

  // What is odd without being a failure; told once.
  void warning(const std::string& text);
  // For those who know of no output.
  auto to_warn() {
    return [this](const std::string& text) { warning(text); };
  }

  // Ends the output. Returns the exit status: 1 after a fault or a failure, else `success`. Throws std::system_error
  // when standard output did not take everything.
  int finish(int success = 0);

 private:
  struct Closer {
    void operator()(FILE* file) const;
  };

  void put(const std::string& text);             // a line, on what was standard output
  void complain(const std::string& text) const;  // a line, on standard error
  void take_printed();
  void tell_notes();

  bool json_;
  Redaction redaction_;
  bool failed_ = false;
  int lost_ = 0;  // why standard output did not take a line: an errno
  std::unique_ptr<FILE, Closer> file_;
  seam::CaughtOutput commands_;
  std::string printed_;
  Json document_ = Json::object();
  Json faults_ = Json::array();
  std::vector<std::string> not_recorded_;
  std::vector<std::string> warnings_;
  std::vector<std::string> notes_;  // lines that wait to be told
};

// Control characters as \n, \t, \x1b and a backslash as \\, so that every text takes one line and stays told apart.
std::string one_line(const std::string& text);

}  // namespace kovadm

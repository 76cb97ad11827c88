// What a command says: lines for a reader as they come, or one JSON document at the end.
#pragma once

#include <cstdio>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>

#include "fault.hpp"

namespace kovadm {

using Json = nlohmann::ordered_json;

class Output {
 public:
  // From here on standard output is this output's alone: what the handlers' commands print goes to standard error.
  explicit Output(bool json);

  // A line for the reader, without its end.
  void line(const std::string& text);

  // The JSON document; "faults" is added at the end.
  Json& document() { return document_; }

  void value(const std::string& path, const std::string& value);
  void fault(const Fault& fault);

  // Ends the output. Returns the exit status: 0, or 1 after a fault. Throws std::system_error when standard output did
  // not take everything.
  int finish();

 private:
  struct Closer {
    void operator()(FILE* file) const;
  };

  bool json_;
  std::unique_ptr<FILE, Closer> file_;
  Json document_ = Json::object();
  Json faults_ = Json::array();
};

// Control characters as \n, \t, \x1b and a backslash as \\, so that every text takes one line and stays told apart.
std::string one_line(const std::string& text);

}  // namespace kovadm

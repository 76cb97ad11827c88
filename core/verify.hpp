// The verify script: it checks a setting against the whole device configuration and applies it, either at once or when
// the agent runs the recorded commands.
#pragma once

#include "log.hpp"
#include "text.hpp"

namespace kova {

// The forms of its command line: interpreter and script, key, value. The value is placed as it is; nothing is escaped.
inline constexpr char kVerifyQuoted[] = R"(%s %s "%s")";
inline constexpr char kVerifyQuotedInBackground[] = R"(%s %s "%s" &)";
inline constexpr char kVerifyQuotedAndSpace[] = R"(%s %s "%s" )";
inline constexpr char kVerifyBare[] = "%s %s %s";

// A command line that runs the verify script; empty when it would be cut, which is then a failure to run or record.
class VerifyCommand {
 public:
  template <typename... Values>
  VerifyCommand(const char* form, const char* key, Values... values) {
    if (!line_.print(form, "lua /usr/bin/tr069/verify_pms", key, values...)) line_ = "";
  }

  // Runs it now. Whether its verdict, left in the state file "check", is exactly "1".
  bool run() const;

  // Runs it now, whatever comes of it. Whether it was run.
  bool run_unjudged() const;

  // Has the agent run it after the set request. Whether it was recorded.
  bool record() const;

 private:
  Text<1024> line_;
};

}  // namespace kova

// The verify script: it checks a setting against the whole device configuration and applies it, either at once or when
// the agent runs the recorded commands.
#pragma once

#include "command.hpp"

namespace kova {

// The forms of its command line: interpreter and script, key, value. The value is placed as it is; nothing is escaped.
inline constexpr char kVerifyQuoted[] = R"(%s %s "%s")";
inline constexpr char kVerifyQuotedInBackground[] = R"(%s %s "%s" &)";
inline constexpr char kVerifyQuotedAndSpace[] = R"(%s %s "%s" )";
inline constexpr char kVerifyBare[] = "%s %s %s";

// A command line that runs the verify script.
class VerifyCommand : public CommandLine {
 public:
  template <typename... Values>
  VerifyCommand(const char* form, const char* key, Values... values)
      : CommandLine(form, "lua /usr/bin/tr069/verify_pms", key, values...) {}

  // Runs it. Whether its verdict, left in the state file "check", is exactly "1".
  bool run() const;
};

}  // namespace kova

// Users: the login accounts but for "root", which is never shown.
#include <string.h>

#include "command.hpp"
#include "parameter.hpp"
#include "pkg-dev.h"
#include "text.hpp"

namespace {

using namespace kova;

// The accounts as one look at the package shows them.
class Accounts {
 public:
  explicit operator bool() const { return static_cast<bool>(rpcd_); }

  int32_t count() const {
    int32_t count = 0;
    while (nth(count + 1) != nullptr) ++count;
    return count;
  }

  // The name of the user with this number, counted from 1; nullptr when there is none.
  const char* nth(int32_t number) const {
    for (uci_section* login : rpcd_.sections("login")) {
      const char* name = rpcd_.string(login, "username");
      if (name != nullptr && strcmp(name, "root") != 0 && --number == 0) return name;
    }
    return nullptr;
  }

 private:
  const WalkedPackage rpcd_{"rpcd", HERE, "[ERR]uci failed to load config:rpcd\n"};
};

bool number_of_users(Call& call) {
  const Accounts accounts;
  return accounts && call.reply_number(accounts.count());
}

bool username(Call& call) {
  if (call.instance(0) == 0) return call.refuse("LE\n");
  const Accounts accounts;
  const char* name = accounts ? accounts.nth(call.instance(0)) : nullptr;
  return name != nullptr && call.reply(name);
}

// The script's command line, of at most 510 characters, in which name and password are words, unquoted. Empty when
// there is no such user.
Text<511> password_command(const Call& call) {
  Text<511> command;
  const Accounts accounts;
  const char* name = accounts ? accounts.nth(call.instance(0)) : nullptr;
  if (name != nullptr) command.print("/usr/bin/tr069/cwmp-user %s %s", name, call.value());
  return command;
}

bool set_password(Call& call) {
  const size_t length = strlen(call.value());
  if (length < 8 || length > 64) return false;
  if (call.instance(0) == 0) return call.refuse("LE\n");
  const Text<511> command = password_command(call);
  if (command.empty()) return false;
  cwmp_system(command.c_str());
  return true;
}

}  // namespace

PARAMETER(Users_UserNumberOfEntries, number_of_users, ignored)
PARAMETER(Users_User_Username, username, read_only)
PARAMETER(Users_User_Password, constant(""), set_password)

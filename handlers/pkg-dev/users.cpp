// Users: the login accounts but for "root", which is never shown.
#include <string.h>

#include "command.hpp"
#include "parameter.hpp"
#include "pkg-dev.h"
#include "text.hpp"

namespace {

using namespace kova;

constexpr LogMessage kNoAccounts = "[ERR]uci failed to load config:rpcd\n";

// The account's user name where it is one to show, else nullptr.
const char* shown_name(const WalkedPackage& accounts, uci_section* login) {
  const char* name = accounts.string(login, "username");
  return name != nullptr && strcmp(name, "root") != 0 ? name : nullptr;
}

bool number_of_users(Call& call) {
  const WalkedPackage accounts("rpcd", HERE, kNoAccounts);
  if (!accounts) return false;
  int count = 0;
  for (uci_section* login : accounts.sections("login")) count += shown_name(accounts, login) != nullptr ? 1 : 0;
  return call.reply_number(count);
}

// The name of the user with this number, counted from 1; nullptr when there is none.
const char* nth_user(const WalkedPackage& accounts, int32_t number) {
  int32_t count = 0;
  for (uci_section* login : accounts.sections("login")) {
    const char* name = shown_name(accounts, login);
    if (name != nullptr && ++count == number) return name;
  }
  return nullptr;
}

// What `action` does with the name of the user that the call's row is; false when there is none.
bool for_user(Call& call, bool (*action)(Call& call, const char* name)) {
  if (call.instance(0) == 0) {
    LOG("LE\n");
    return false;
  }
  const WalkedPackage accounts("rpcd", HERE, kNoAccounts);
  if (!accounts) return false;
  const char* name = nth_user(accounts, call.instance(0));
  return name != nullptr && action(call, name);
}

bool username(Call& call) {
  return for_user(call, [](Call& row, const char* name) { return row.reply(name); });
}

// Name and password reach the script as words of its command line, unquoted.
bool run_password_script(Call& call, const char* name) {
  Text<511> command;
  command.print("/usr/bin/tr069/cwmp-user %s %s", name, call.value());
  cwmp_system(command.c_str());
  return true;
}

bool set_password(Call& call) {
  const size_t length = strlen(call.value());
  if (length < 8 || length > 64) return false;
  return for_user(call, run_password_script);
}

}  // namespace

PARAMETER(Users_UserNumberOfEntries, number_of_users, ignored)
PARAMETER(Users_User_Username, username, read_only)
PARAMETER(Users_User_Password, constant(""), set_password)

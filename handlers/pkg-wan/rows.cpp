#include "rows.hpp"

#include <string.h>

#include <cstdint>

#include "command.hpp"
#include "room.hpp"

namespace kova {
namespace {

// Whether the option has the value already, and the command commits nothing else of the package.
bool changes_nothing(const WalkedPackage& package, uci_section* row, const char* option, const char* value) {
  const char* stored = package.string(row, option);
  return stored != nullptr && strcmp(stored, value) == 0 && !others_wait(row->package->e.name);
}

// A command empties the package when its file has no room, as the plug-in's own writes would.
bool has_room_for(const uci_section& row, const char* option, const char* value) {
  constexpr uint64_t kRest = 16;  // at least what stands between the names and around the value
  const uint64_t change =
      strlen(row.package->e.name) + strlen(row.e.name) + strlen(option) + quoted_size(value) + kRest;
  return has_room(kMainDirectory, file_size(*row.package) + change, change);
}

}  // namespace

bool no_row(Call& call, int32_t number) { return number == 0 && call.refuse("LE\n"); }

const char* address_value(const Call& call) { return is_address(call) ? call.value() : nullptr; }

bool write_at_once(const char* form, const WalkedPackage& package, uci_section* row, const char* option,
                   const char* value) {
  if (row == nullptr) return true;
  if (!changes_nothing(package, row, option, value) && !has_room_for(*row, option, value)) return false;
  return CommandLine(form, row->e.name, option, value).run_unjudged();
}

}  // namespace kova

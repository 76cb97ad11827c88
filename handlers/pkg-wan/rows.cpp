#include "rows.hpp"

#include <string.h>

#include <cstdint>

#include "command.hpp"

namespace kova {

bool no_row(Call& call, int32_t number) { return number == 0 && call.refuse("LE\n"); }

const char* address_value(const Call& call) { return is_address(call) ? call.value() : nullptr; }

bool write_at_once(const char* form, const WalkedPackage& /*package*/, uci_section* row, const char* option,
                   const char* value) {
  if (row == nullptr) return true;
  return CommandLine(form, row->e.name, option, value).run_unjudged();
}

}  // namespace kova

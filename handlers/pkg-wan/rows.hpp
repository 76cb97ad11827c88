// Rows of tables that the data model numbers. Port mappings and static routes are sections of one type each, numbered
// from 1 in file order. A change of one of their options is written at once, by a command.
#pragma once

#include <cstddef>

#include "parameter.hpp"
#include "store.hpp"

namespace kova {

// Fails a call for a row that does not exist. The number 0 is logged: the agent has not located its row.
bool no_row(Call& call, int32_t number);

// The value when it is an IPv4 address; else nullptr, and logged.
const char* address_value(const Call& call);

// Runs the command line that `form` makes of a row's section, an option and a value. That the command fails goes
// unnoticed, and without a row there is nothing to run. False, and nothing is run, when the store has no room for the
// change or the line is too long.
bool write_at_once(const char* form, const WalkedPackage& package, uci_section* row, const char* option,
                   const char* value);

// The body of a worker, which serves a field of a table's rows at every path that shows the table. `position` is the
// place of the row's number among the instance numbers.
template <typename Field>
int32_t serve_field(int32_t operation, va_list arguments, int32_t position, Origin origin, const Field& field) {
  const auto place = static_cast<std::size_t>(position);
  return serve(
      operation, arguments, origin, [=](Call& call) { return field.get(call, call.instance(place)); },
      [=](Call& call) { return field.set(call, call.instance(place)); });
}

}  // namespace kova

// The modem's answers to AT commands, which it takes through the bus.
#pragma once

#include "mobile.hpp"

namespace kova {

// The access technology in use.
enum NetMode { NR5G_SA, NR5G_NSA, LTE, UNKNOWN, NET_MODES };
inline constexpr char kNetModeNames[NET_MODES][16] = {"NR5G-SA", "NR5G-NSA", "LTE", "UNKNOWN"};

// ---- Getters: without a configured modem they reply "0", and all but the access technology fail ----

bool access_technology(Call& call);
bool signal_strength(Call& call);

// Where a value is in the serving cell's line: its field, counted from 1, for each mode but UNKNOWN.
struct CellField {
  int in_mode[UNKNOWN];
};

bool reply_cell_value(Call& call, const CellField& field, LogMessage nothing);

constexpr auto serving_cell(CellField field, LogMessage nothing) {
  return [=](Call& call) { return reply_cell_value(call, field, nothing); };
}

}  // namespace kova

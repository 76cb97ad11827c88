// What the modem says of the radio link in answer to AT commands, which it takes through the bus.
#pragma once

#include "mobile.hpp"

namespace kova {

// The access technology in use.
enum NetMode { NR5G_SA, NR5G_NSA, LTE, UNKNOWN, NET_MODES };
inline constexpr char kNetModeNames[NET_MODES][16] = {"NR5G-SA", "NR5G-NSA", "LTE", "UNKNOWN"};

// Asks the modem for it; UNKNOWN, and logged, when there is no modem, no answer or none that is understood.
NetMode cellular_net_mode();

// ---- Getters. Without a modem they reply "0"; all but the access technology then fail. ----

bool access_technology(Call& call);
bool signal_strength(Call& call);

// The field of the serving cell's line, counted from 1, that holds a value in each mode but UNKNOWN.
struct CellField {
  int in_mode[UNKNOWN];
};

bool reply_cell_value(Call& call, const CellField& field, LogMessage nothing);

constexpr auto serving_cell(CellField field, LogMessage nothing) {
  return [=](Call& call) { return reply_cell_value(call, field, nothing); };
}

}  // namespace kova

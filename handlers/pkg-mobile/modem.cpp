#include "modem.hpp"

#include <string.h>

#include "text.hpp"

namespace kova {
namespace {

using Command = Text<511>;  // what does not fit is cut off

// clang-format off
constexpr char kSignalStrength[] = R"(ubus call network.gcom at '{"device":"%s","cmd":"AT+CSQ"}' | grep '+CSQ:' | awk '{print $3 }' | awk -F, '{ print $1 }')";
constexpr char kServingCell[]    = R"(ubus call network.gcom at '{"device":"%s","cmd":"AT+QENG=\"servingcell\""}' | grep '+QENG:')";
// clang-format on

// Picks the line that has the values, for each mode. In NR5G-NSA it is the one before the last: the LTE cell's.
constexpr const char* kCellLine[UNKNOWN] = {"tail -n 1", "tail -n 2 | head -n 1", "tail -n 1"};

// For want of the device that AT commands are for.
void reply_no_device(Call& call, LogMessage missing) {
  missing.print(call.origin(), mobile.name);
  call.reply("0");
}
bool fail_without_device(Call& call, LogMessage missing) {
  reply_no_device(call, missing);
  return false;
}

Command serving_cell_query(const Option& device) {
  Command query;
  query.print(kServingCell, device.text());
  return query;
}

// Asks the modem for the access technology. UNKNOWN, and logged, when its answer names none.
NetMode cellular_net_mode(const Option& device) {
  const Answer answer = answer_of(serving_cell_query(device).c_str());
  if (answer.empty()) {
    LOG("GAQSF.. \n");
    return UNKNOWN;
  }
  for (const NetMode mode : {NR5G_SA, NR5G_NSA, LTE}) {
    if (strstr(answer.c_str(), kNetModeNames[mode]) != nullptr) return mode;
  }
  LOG("GCNMF.\n");
  return UNKNOWN;
}

}  // namespace

bool access_technology(Call& call) {
  const Option device(mobile, "cdevice");
  if (device) return call.reply(kNetModeNames[cellular_net_mode(device)]);
  reply_no_device(call, "GCDE %s \n\n");
  return true;
}

bool signal_strength(Call& call) {
  const Option device(mobile, "cdevice");
  if (!device) return fail_without_device(call, "GCDE %s\n\n");
  Command command;
  command.print(kSignalStrength, device.text());
  return reply_answer(call, command.c_str(), "failed to get RSSI. \n");
}

bool reply_cell_value(Call& call, const CellField& field, LogMessage nothing) {
  const Option device(mobile, "cdevice");
  if (!device) return fail_without_device(call, " GCDE %s \n\n");
  const NetMode mode = cellular_net_mode(device);
  if (mode == UNKNOWN) return call.reply("");
  Command command;
  command.print("%s | %s | awk -F, '{ print $%d }'", serving_cell_query(device).c_str(), kCellLine[mode],
                field.in_mode[mode]);
  return reply_answer(call, command.c_str(), nothing);
}

}  // namespace kova

#include "modem.hpp"

#include <string.h>

#include "text.hpp"

namespace kova {
namespace {

using Command = Text<511>;
using Device = Text<Command::capacity()>;

// clang-format off
constexpr char kSignalStrength[] = R"(ubus call network.gcom at '{"device":"%s","cmd":"AT+CSQ"}' | grep '+CSQ:' | awk '{print $3 }' | awk -F, '{ print $1 }')";
constexpr char kServingCell[]    = R"(ubus call network.gcom at '{"device":"%s","cmd":"AT+QENG=\"servingcell\""}' | grep '+QENG:')";
// clang-format on

// Takes the line that has the values; on a 5G cell beside an LTE one that is the LTE cell's, which comes before.
constexpr const char* kCellLine[UNKNOWN] = {"tail -n 1", "tail -n 2 | head -n 1", "tail -n 1"};

// The device that AT commands are for. False, and `missing` logged, when none is configured.
bool read_device(Device& device, Origin origin, LogMessage missing) {
  if (read_option(mobile, "cdevice", device.span())) return true;
  missing.print(origin, mobile.name);
  return false;
}

bool reply_no_device(Call& call) {
  call.reply("0");
  return false;
}

Command serving_cell_query(const Device& device) {
  Command query;
  query.print(kServingCell, device.c_str());
  return query;
}

}  // namespace

NetMode cellular_net_mode() {
  Device device;
  if (!read_device(device, HERE, "GCDE %s \n\n")) return UNKNOWN;
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

bool access_technology(Call& call) {
  Device device;
  if (!read_device(device, call.origin(), "GCDE %s \n\n")) return call.reply("0");
  return call.reply(kNetModeNames[cellular_net_mode()]);
}

bool signal_strength(Call& call) {
  Device device;
  if (!read_device(device, call.origin(), "GCDE %s\n\n")) return reply_no_device(call);
  Command command;
  command.print(kSignalStrength, device.c_str());
  return reply_answer(call, command.c_str(), "failed to get RSSI. \n");
}

bool reply_cell_value(Call& call, const CellField& field, LogMessage nothing) {
  Device device;
  if (!read_device(device, call.origin(), " GCDE %s \n\n")) return reply_no_device(call);
  const NetMode mode = cellular_net_mode();
  if (mode == UNKNOWN) return call.reply("");
  Command command;
  command.print("%s | %s | awk -F, '{ print $%d }'", serving_cell_query(device).c_str(), kCellLine[mode],
                field.in_mode[mode]);
  return reply_answer(call, command.c_str(), nothing);
}

}  // namespace kova

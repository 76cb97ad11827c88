// Cellular.Interface: the mobile interface, its modem and its SIM. There is one, whatever the instance number.
#include "link.hpp"
#include "mobile.hpp"
#include "modem.hpp"
#include "pkg-mobile.h"

namespace {

using namespace kova;

constexpr Switch enabled{.option = "disabled", .on = "0", .off = "1"};

bool status(Call& call) {
  const Text<100> up = interface_status<100>(kMobile, INTERFACE_UP);
  if (up.empty() || up == "0") return call.reply("Down");
  return call.reply(up == "1" ? "Up" : "Error");
}

// The first line of a file that the modem's service keeps.
constexpr auto service_line(const char* command, LogMessage nothing) {
  return [=](Call& call) { return reply_answer(call, command, nothing); };
}

}  // namespace

// clang-format off
PARAMETER(Cellular_Interface_Enable,         if_present(on_or_off(enabled, "1", "0"), "0"),      switch_and_apply(enabled, "CEDSE. \n"))
PARAMETER(Cellular_Interface_Status,         status,                                             read_only)
PARAMETER(Cellular_Interface_IPAddress,      link_status(kMobile, INTERFACE_ADDRESS, "0.0.0.0"), read_only)
PARAMETER(Cellular_Interface_SubnetMask,     link_status(kMobile, INTERFACE_MASK, "0.0.0.0"),    read_only)
PARAMETER(Cellular_Interface_AddressingType, if_present(constant("DHCP"), ""),                   read_only)

PARAMETER(Cellular_Interface_IMEI,       if_present(service_line("cat /var/run/4g/getimei", "failed to get IMEI. \n")), read_only)
PARAMETER(Cellular_Interface_USIM_IMSI,  if_present(service_line("cat /var/run/4g/getimsi", "FTGIMSI. \n")),            read_only)
PARAMETER(Cellular_Interface_USIM_ICCID, if_present(service_line("cat /var/run/4g/geticcid", "FTGICCID.\n")),           read_only)

PARAMETER(Cellular_Interface_CurrentAccessTechnology, if_present(access_technology),                         read_only)
PARAMETER(Cellular_Interface_RSSI,                    if_present(signal_strength),                           read_only)
PARAMETER(Cellular_Interface_RSRP,                    if_present(serving_cell({13, 12, 14}, "FTGRPR. \n")),  read_only)
PARAMETER(Cellular_Interface_RSRQ,                    if_present(serving_cell({14, 13, 15}, "FTGRQ. \n")),   read_only)
PARAMETER(Cellular_Interface_SINR,                    if_present(serving_cell({15, 15, 17}, "FTGSINR. \n")), read_only)
PARAMETER(Cellular_Interface_CELLID,                  if_present(serving_cell({7, 5, 7}, "FTGCID. \n")),     read_only)

PARAMETER(Cellular_Interface_Stats_BytesSent,       link_counter(kMobile, COUNTER_BYTES_SENT),       read_only)
PARAMETER(Cellular_Interface_Stats_BytesReceived,   link_counter(kMobile, COUNTER_BYTES_RECEIVED),   read_only)
PARAMETER(Cellular_Interface_Stats_PacketsSent,     link_counter(kMobile, COUNTER_PACKETS_SENT),     read_only)
PARAMETER(Cellular_Interface_Stats_PacketsReceived, link_counter(kMobile, COUNTER_PACKETS_RECEIVED), read_only)
PARAMETER(Cellular_Interface_Stats_ErrorsSent,      link_counter(kMobile, COUNTER_ERRORS_SENT),      read_only)
PARAMETER(Cellular_Interface_Stats_ErrorsReceived,  link_counter(kMobile, COUNTER_ERRORS_RECEIVED),  read_only)
// clang-format on

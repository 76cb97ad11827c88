// WiFi.SSID: the four networks, as the other tree has them.
#include "network.hpp"
#include "pkg-wl.h"
#include "wireless.hpp"

namespace {

using namespace kova;

// Nothing is written for a network that does not exist.
bool lower_layers(Call& call) {
  const Network* network = access_point_network(call);
  return network == nullptr || call.reply(network->radio->reference);
}

}  // namespace

// clang-format off
PARAMETER(WiFi_SSIDNumberOfEntries, constant("4"), read_only)

ALIAS(WiFi_SSID_Enable,                main_or_extra,                                  LANDevice_WLANConfiguration_Enable,               LANDevice_WLANConfiguration_MultiSSID_Enable)
PARAMETER(WiFi_SSID_Status,            access_point(renumbered(status("Up", "Down"))), read_only)
PARAMETER(WiFi_SSID_LowerLayers,       lower_layers,                                   read_only)
ALIAS(WiFi_SSID_BSSID,                 main_or_extra,                                  LANDevice_WLANConfiguration_BSSID,                LANDevice_WLANConfiguration_MultiSSID_BSSID)
ALIAS(WiFi_SSID_MACAddress,            WiFi_SSID_BSSID)
ALIAS(WiFi_SSID_SSID,                  main_or_extra,                                  LANDevice_WLANConfiguration_SSID,                 LANDevice_WLANConfiguration_MultiSSID_SSID)
ALIAS(WiFi_SSID_Stats_BytesSent,       main_or_extra,                                  LANDevice_WLANConfiguration_TotalBytesSent,       LANDevice_WLANConfiguration_MultiSSID_TotalBytesSent)
ALIAS(WiFi_SSID_Stats_BytesReceived,   main_or_extra,                                  LANDevice_WLANConfiguration_TotalBytesReceived,   LANDevice_WLANConfiguration_MultiSSID_TotalBytesReceived)
ALIAS(WiFi_SSID_Stats_PacketsSent,     main_or_extra,                                  LANDevice_WLANConfiguration_TotalPacketsSent,     LANDevice_WLANConfiguration_MultiSSID_TotalPacketsSent)
ALIAS(WiFi_SSID_Stats_PacketsReceived, main_or_extra,                                  LANDevice_WLANConfiguration_TotalPacketsReceived, LANDevice_WLANConfiguration_MultiSSID_TotalPacketsReceived)
ALIAS(WiFi_SSID_Stats_ErrorsSent,      main_or_extra,                                  LANDevice_WLANConfiguration_TotalErrorsSent,      LANDevice_WLANConfiguration_MultiSSID_TotalErrorsSent)
ALIAS(WiFi_SSID_Stats_ErrorsReceived,  main_or_extra,                                  LANDevice_WLANConfiguration_TotalErrorsReceived,  LANDevice_WLANConfiguration_MultiSSID_TotalErrorsReceived)
// clang-format on

// WiFi.SSID: the four networks, as the other tree has them.
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

ALIAS(WiFi_SSID_Enable,                by_network,        LANDevice_WLANConfiguration_Enable,               LANDevice_WLANConfiguration_MultiSSID_Enable)
ALIAS(WiFi_SSID_Status,                status_by_network, LANDevice_WLANConfiguration_Status,               LANDevice_WLANConfiguration_MultiSSID_Status, "Disabled", "Down")
PARAMETER(WiFi_SSID_LowerLayers,       lower_layers,      read_only)
ALIAS(WiFi_SSID_BSSID,                 by_network,        LANDevice_WLANConfiguration_BSSID,                LANDevice_WLANConfiguration_MultiSSID_BSSID)
ALIAS(WiFi_SSID_MACAddress,            WiFi_SSID_BSSID)
ALIAS(WiFi_SSID_SSID,                  by_network,        LANDevice_WLANConfiguration_SSID,                 LANDevice_WLANConfiguration_MultiSSID_SSID)
ALIAS(WiFi_SSID_Stats_BytesSent,       by_network,        LANDevice_WLANConfiguration_TotalBytesSent,       LANDevice_WLANConfiguration_MultiSSID_TotalBytesSent)
ALIAS(WiFi_SSID_Stats_BytesReceived,   by_network,        LANDevice_WLANConfiguration_TotalBytesReceived,   LANDevice_WLANConfiguration_MultiSSID_TotalBytesReceived)
ALIAS(WiFi_SSID_Stats_PacketsSent,     by_network,        LANDevice_WLANConfiguration_TotalPacketsSent,     LANDevice_WLANConfiguration_MultiSSID_TotalPacketsSent)
ALIAS(WiFi_SSID_Stats_PacketsReceived, by_network,        LANDevice_WLANConfiguration_TotalPacketsReceived, LANDevice_WLANConfiguration_MultiSSID_TotalPacketsReceived)
ALIAS(WiFi_SSID_Stats_ErrorsSent,      by_network,        LANDevice_WLANConfiguration_TotalErrorsSent,      LANDevice_WLANConfiguration_MultiSSID_TotalErrorsSent)
ALIAS(WiFi_SSID_Stats_ErrorsReceived,  by_network,        LANDevice_WLANConfiguration_TotalErrorsReceived,  LANDevice_WLANConfiguration_MultiSSID_TotalErrorsReceived)
// clang-format on

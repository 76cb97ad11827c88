// LANDevice.WLANConfiguration.MultiSSID: the extra network of each radio.
#include "associated_devices.hpp"
#include "network.hpp"
#include "pkg-wl.h"
#include "security.hpp"
#include "wireless.hpp"

namespace {

using namespace kova;

// Switching off has the bit set even if it could not be stored.
bool set_extra_enabled(Call& call, const Network& network) {
  if (!call.value_is("0")) return set_enabled(call, network);
  write_option(network.section, "disabled", "1");
  return call.mark(network.bit());
}

}  // namespace

// clang-format off
PARAMETER(LANDevice_WLANConfiguration_MultiSSID_SSID,                     multi_ssid(ssid("failed to set SSID.\n\n")), multi_ssid(store_ssid("failed to set SSID.\n\n")))
PARAMETER(LANDevice_WLANConfiguration_MultiSSID_Enable,                   multi_ssid(unless("disabled")),              multi_ssid(set_extra_enabled))
PARAMETER(LANDevice_WLANConfiguration_MultiSSID_Status,                   multi_ssid(status("Up", "Disabled")),        read_only)
PARAMETER(LANDevice_WLANConfiguration_MultiSSID_BSSID,                    multi_ssid(bssid("failed to get BSSID\n")),  read_only)
PARAMETER(LANDevice_WLANConfiguration_MultiSSID_SSIDAdvertisementEnabled, multi_ssid(unless("hidden")),                multi_ssid(set_advertised))

PARAMETER(LANDevice_WLANConfiguration_MultiSSID_TotalBytesSent,       multi_ssid(counter(COUNTER_BYTES_SENT)),       read_only)
PARAMETER(LANDevice_WLANConfiguration_MultiSSID_TotalBytesReceived,   multi_ssid(counter(COUNTER_BYTES_RECEIVED)),   read_only)
PARAMETER(LANDevice_WLANConfiguration_MultiSSID_TotalPacketsSent,     multi_ssid(counter(COUNTER_PACKETS_SENT)),     read_only)
PARAMETER(LANDevice_WLANConfiguration_MultiSSID_TotalPacketsReceived, multi_ssid(counter(COUNTER_PACKETS_RECEIVED)), read_only)
PARAMETER(LANDevice_WLANConfiguration_MultiSSID_TotalErrorsSent,      multi_ssid(counter(COUNTER_ERRORS_SENT)),      read_only)
PARAMETER(LANDevice_WLANConfiguration_MultiSSID_TotalErrorsReceived,  multi_ssid(counter(COUNTER_ERRORS_RECEIVED)),  read_only)

PARAMETER(LANDevice_WLANConfiguration_MultiSSID_BeaconType,            multi_ssid(beacon_type),           multi_ssid(store_encryption(kBeaconTypes)))
PARAMETER(LANDevice_WLANConfiguration_MultiSSID_WPAEncryptionModes,    multi_ssid(wpa_encryption),        multi_ssid(aes_only("AES only\n")))
PARAMETER(LANDevice_WLANConfiguration_MultiSSID_WPAAuthenticationMode, multi_ssid(wpa_authentication),    multi_ssid(store_encryption(kWpaAuthentications)))
ALIAS(LANDevice_WLANConfiguration_MultiSSID_IEEE11iEncryptionModes,    LANDevice_WLANConfiguration_MultiSSID_WPAEncryptionModes)
ALIAS(LANDevice_WLANConfiguration_MultiSSID_IEEE11iAuthenticationMode, LANDevice_WLANConfiguration_MultiSSID_WPAAuthenticationMode)
PARAMETER(LANDevice_WLANConfiguration_MultiSSID_X_KOVA_Password,       multi_ssid(own_option("key", "")), multi_ssid(set_passphrase))

PARAMETER(LANDevice_WLANConfiguration_MultiSSID_AssociatedDeviceNumberOfEntries,             multi_ssid(reply_device_count),                   read_only)
PARAMETER(LANDevice_WLANConfiguration_MultiSSID_AssociatedDevice_AssociatedDeviceMACAddress, multi_ssid(device({2, "mac", "LE\n", "LE2.\n"})), read_only)
PARAMETER(LANDevice_WLANConfiguration_MultiSSID_AssociatedDevice_AssociatedDeviceIPAddress,  multi_ssid(device({2, "ip", "LE\n", "LE2\n"})),   read_only)
// clang-format on

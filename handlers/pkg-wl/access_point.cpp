// WiFi.AccessPoint: access, security and devices of the four networks.
#include "associated_devices.hpp"
#include "network.hpp"
#include "pkg-wl.h"
#include "security.hpp"
#include "wireless.hpp"

namespace {

using namespace kova;

// clang-format off
constexpr Pair kModes[] = {
    {"None",               "none"},
    {"WPA-PSK",            "psk"},
    {"WPA2-PSK",           "psk2"},
    {"WPA-PSK/WPA2-PSK",   "psk-mixed"},
    {"WPA2-PSK/WPA3-SAE",  "psk2psk3"},
    {"WPA3-SAE",           "psk3"},
};
// clang-format on

bool reference(Call& call, const Network& /*network*/) {
  Text<32> path;
  path.print("Device.WiFi.SSID.%d", call.instance(0));
  return call.reply(path.c_str());
}

bool modes_supported(Call& call, const Network& network) {
  const bool has_wpa3 = has_ax(Option(network.radio->section, kHardwareModes));
  return call.reply(has_wpa3 ? "None,WPA-PSK,WPA2-PSK,WPA-PSK/WPA2-PSK,WPA2-PSK/WPA3-SAE,WPA3-SAE"
                             : "None,WPA-PSK,WPA2-PSK,WPA-PSK/WPA2-PSK");
}

}  // namespace

// clang-format off
PARAMETER(WiFi_AccessPointNumberOfEntries, constant("4"), read_only)

ALIAS(WiFi_AccessPoint_Enable,                          WiFi_SSID_Enable)
PARAMETER(WiFi_AccessPoint_Status,                      access_point(renumbered(status("Enabled", "Disabled"))), read_only)
PARAMETER(WiFi_AccessPoint_SSIDReference,               access_point(reference),                                 read_only)
ALIAS(WiFi_AccessPoint_SSIDAdvertisementEnabled,        main_or_extra,                                           LANDevice_WLANConfiguration_SSIDAdvertisementEnabled,        LANDevice_WLANConfiguration_MultiSSID_SSIDAdvertisementEnabled)
ALIAS(WiFi_AccessPoint_AssociatedDeviceNumberOfEntries, main_or_extra,                                           LANDevice_WLANConfiguration_AssociatedDeviceNumberOfEntries, LANDevice_WLANConfiguration_MultiSSID_AssociatedDeviceNumberOfEntries)

PARAMETER(WiFi_AccessPoint_AssociatedDevice_MACAddress,     access_point(device({1, "mac", "LE1\n", "LE\n"})),            read_only)
PARAMETER(WiFi_AccessPoint_AssociatedDevice_SignalStrength, access_point(device({1, "SignalStrength", "LE1\n", "LE\n"})), read_only)

PARAMETER(WiFi_AccessPoint_Security_ModesSupported, access_point(renumbered(modes_supported)), read_only)
PARAMETER(WiFi_AccessPoint_Security_ModeEnabled,    access_point(encryption(kModes)),          access_point(store_encryption(kModes, "failed to set encry.\n")))
PARAMETER(WiFi_AccessPoint_Security_KeyPassphrase,  access_point(own_option("key", "")),       access_point(set_passphrase))
PARAMETER(WiFi_AccessPoint_Security_EncryptionMode, access_point(constant("AES")),             read_only)
// clang-format on

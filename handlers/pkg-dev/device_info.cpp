// DeviceInfo: what the device is, from its board data, its firmware and the kernel.
#include "board.hpp"
#include "command.hpp"
#include "parameter.hpp"
#include "pkg-dev.h"
#include "text.hpp"

namespace {

using namespace kova;

constexpr Section board{"system", "board"};
constexpr Section agent{"cwmp", "info"};

constexpr int kOuiDigits = 6;

bool manufacturer_oui(Call& call) {
  Text<100> mac;
  if (!first_line("bdinfo mac", mac.span())) return call.refuse("FTGM.\n");
  Text<kOuiDigits + 1> oui;
  copy_mac_digits(mac.c_str(), oui.data(), kOuiDigits);
  return call.reply(oui.c_str());
}

bool oui(Call& call) {
  Text<99> text;
  if (get_oui(text.data(), Text<99>::capacity()) < 1) return call.reply("02a4f1");
  return call.reply(text.c_str());
}

bool serial_number(Call& call) {
  Text<256> number;
  get_device_sn(number.data(), Text<256>::capacity());
  if (number.empty()) {
    LOG("NASNFUD.\n\n");
    return call.reply("01234567890");
  }
  return call.reply(Text<64>(number.view()).c_str());
}

}  // namespace

// clang-format off
PARAMETER(DeviceInfo_Manufacturer,     option(board, "manufacturer", "Kova"),                                  read_only)
PARAMETER(DeviceInfo_ManufacturerOUI,  manufacturer_oui,                                                       read_only)
PARAMETER(DeviceInfo_OUI,              oui,                                                                    read_only)
PARAMETER(DeviceInfo_ProductClass,     option(board, "model", "IGD"),                                          read_only)
PARAMETER(DeviceInfo_SpecVersion,      constant("1.0"),                                                        read_only)
PARAMETER(DeviceInfo_SerialNumber,     serial_number,                                                          read_only)
PARAMETER(DeviceInfo_FirstUseDate,     constant("None"),                                                       refused("GFUDE.\n"))
PARAMETER(DeviceInfo_ProvisioningCode, option(agent, "provisioningcode"),                                      store(agent, "provisioningcode", 0, "FTSPSC.\n"))
PARAMETER(DeviceInfo_DeviceLog,        constant(""),                                                           refused("FTGDL.\n"))
PARAMETER(DeviceInfo_UpTime,           command_line("cat /proc/uptime | awk -F '.' '{print $1}' ", "FTGU.\n"), read_only)
// clang-format on

ALIAS(DeviceInfo_ModelName, DeviceInfo_ProductClass)
ALIAS(DeviceInfo_Description, DeviceInfo_ProductClass)
ALIAS(DeviceInfo_HardwareVersion, DeviceInfo_ProductClass)

ALIAS(DeviceInfo_SoftwareVersion, GetFirmDeviceInfo, "cat /etc/rom_version")
ALIAS(DeviceInfo_ModemFirmwareVersion, DeviceInfo_SoftwareVersion)

#include "device/apply_mask.hpp"

#include <cctype>
#include <cstdio>
#include <string_view>

#include "pkg-tool.h"

namespace kovadm {
namespace {

#define BIT(name, work) \
  { name, #name, work }

const ApplyBit kBits[] = {BIT(APPLY_TASK_COMMANDS, "runs the recorded command lines"),
                          BIT(APPLY_WLAN, "reloads the wireless settings"),
                          BIT(APPLY_MANAGEMENT, "reloads its own settings"),
                          BIT(APPLY_ROUTES, "reloads the routes"),
                          BIT(APPLY_IPPING_DIAG, "starts the ping test"),
                          BIT(APPLY_TRACEROUTE_DIAG, "starts the route trace"),
                          BIT(APPLY_DDNS, "restarts dynamic DNS"),
                          BIT(APPLY_REMOTE_ACCESS, "opens remote access"),
                          BIT(APPLY_REMOTE_ACCESS_OFF, "closes remote access"),
                          BIT(APPLY_VLAN, "reloads the VLANs"),
                          BIT(APPLY_QOS, "reloads QoS"),
                          BIT(APPLY_CELLULAR, "reloads the cellular settings"),
                          BIT(APPLY_MULTI_SSID, "reloads the extra wireless networks"),
                          BIT(APPLY_UPLOAD_DIAG, "starts the upload test"),
                          BIT(APPLY_DOWNLOAD_DIAG, "starts the download test"),
                          BIT(APPLY_UDP_ECHO, "restarts the UDP echo service"),
                          BIT(APPLY_NSLOOKUP_DIAG, "starts the name lookup test"),
                          BIT(APPLY_NEIGHBOR_WIFI_DIAG, "starts the scan for neighbouring networks"),
                          BIT(APPLY_LEDS, "switches the LEDs"),
                          BIT(APPLY_IGMP_PROXY, "restarts the IGMP proxy")};

// Named for the bits: APPLY_IPPING_DIAG starts ipping-diag.
constexpr char kServices[] = "/usr/bin/tr069/apply/";
constexpr std::string_view kPrefix = "APPLY_";

}  // namespace

std::string ApplyBit::service() const {
  std::string file = kServices;
  for (const char letter : name.substr(name.starts_with(kPrefix) ? kPrefix.size() : 0))
    file += letter == '_' ? '-' : static_cast<char>(std::tolower(letter));
  return file;
}

std::string hexadecimal(uint32_t number) {
  char text[16] = {};
  std::snprintf(text, sizeof text, "0x%x", number);
  return text;
}

std::vector<ApplyBit> raised_bits(uint32_t mask) {
  std::vector<ApplyBit> raised;
  for (const ApplyBit& bit : kBits) {
    if ((mask & bit.bit) != 0) raised.push_back(bit);
    mask &= ~bit.bit;
  }
  if (mask != 0) raised.push_back({mask, hexadecimal(mask), "does not know this bit"});
  return raised;
}

}  // namespace kovadm

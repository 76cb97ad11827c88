// Who the board is: MAC address and serial numbers.
#include "board.hpp"

#include <string.h>

#include "text.hpp"

namespace {

// The board tool separates the groups of the address with either.
constexpr char kSeparators[] = "-:";

kova::Text<21> board_mac() {
  kova::Text<21> mac;
  get_mac(mac.data(), kova::Text<21>::capacity());
  return mac;
}

}  // namespace

int32_t kova::copy_mac_digits(const char* mac, char* output, int32_t limit) {
  int32_t count = 0;
  for (; *mac != '\0' && count < limit; ++mac) {
    if (strchr(kSeparators, *mac) == nullptr) output[count++] = *mac;
  }
  return count;
}

int32_t get_mac(char* output, int32_t length) { return util_exec("bdinfo mac", output, length); }

int32_t get_cloud_sn(char* output, int32_t length) {
  return util_exec("uci get cloud_config.device_status.serial_number", output, length);
}

int32_t get_device_sn(char* output, int32_t length) { return util_exec("bdinfo sn", output, length); }

int32_t get_oui(char* output, int32_t length) {
  constexpr int32_t kDigits = 6;
  if (length < kDigits) return -1;
  const int32_t count = kova::copy_mac_digits(board_mac().c_str(), output, kDigits);
  if (count < length) output[count] = '\0';
  return count;
}

int32_t get_mac_last(char* output, int32_t length) {
  constexpr int32_t kSmallest = 20;
  if (length < kSmallest) return -1;
  const int32_t count = kova::copy_mac_digits(board_mac().c_str(), output, length - 1);
  output[count] = '\0';
  return count;
}

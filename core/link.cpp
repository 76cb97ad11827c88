#include "link.hpp"

namespace kova {

bool reply_device_mac(Call& call, const char* device) {
  return reply_or(call, device_status(device, DEVICE_MAC).c_str(), "0:0:0:0:0:0");
}

bool reply_link_counter(Call& call, const char* interface, interface_counter counter) {
  const Text<32> device = interface_status<32>(interface, INTERFACE_L3_DEVICE);
  Text<128> count;
  if (!device.empty()) get_TotalBytesAndPackets_by_name(device.c_str(), counter, count.data(), count.capacity());
  return reply_or(call, count.c_str(), "0");
}

}  // namespace kova

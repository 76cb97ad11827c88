#include "link.hpp"

namespace kova {
namespace {

Text<32> layer3_device(const char* interface) { return interface_status<32>(interface, INTERFACE_L3_DEVICE); }

}  // namespace

bool reply_link_counter(Call& call, const char* interface, interface_counter counter) {
  const Text<32> device = layer3_device(interface);
  using Count = Text<128>;
  Count count;
  if (!device.empty()) get_TotalBytesAndPackets_by_name(device.c_str(), counter, count.data(), Count::capacity());
  return reply_or(call, count.c_str(), "0");
}

bool reply_link_counter(Call& call, const char* interface, bus_status_query counter) {
  return reply_or(call, device_status(layer3_device(interface).c_str(), counter).c_str(), "0");
}

}  // namespace kova

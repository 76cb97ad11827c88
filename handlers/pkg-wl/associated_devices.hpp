// The hosts of the LAN that a wireless network has seen, in the order of the hosts table.
#pragma once

#include "wireless.hpp"

namespace kova {

bool reply_device_count(Call& call, const Network& network);

// A parameter of an AssociatedDevice.
struct DeviceField {
  std::size_t position;  // of its instance number in the path
  const char* option;    // in the hosts table
  LogMessage no_device;
  LogMessage no_option;
};
bool reply_device_field(Call& call, const Network& network, const DeviceField& field);

constexpr auto device(DeviceField field) {
  return [=](Call& call, const Network& network) { return reply_device_field(call, network, field); };
}

}  // namespace kova

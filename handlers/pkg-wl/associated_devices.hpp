// The devices of a wireless network: the hosts of the LAN that were seen on it, in the order of their numbers in the
// hosts table.
#pragma once

#include "wireless.hpp"

namespace kova {

bool reply_device_count(Call& call, const Network& network);

// A parameter of an AssociatedDevice.
struct DeviceField {
  std::size_t position;  // of the device's instance number in the path
  const char* option;    // in the hosts table
  LogMessage no_device;
  LogMessage no_option;
};
bool reply_device_field(Call& call, const Network& network, const DeviceField& field);

constexpr auto device(DeviceField field) {
  return [=](Call& call, const Network& network) { return reply_device_field(call, network, field); };
}

}  // namespace kova

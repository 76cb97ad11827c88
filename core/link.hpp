// Network interfaces as the network daemon sees them: words for parameters that report a link's state.
#pragma once

#include <strings.h>

#include <cstddef>

#include "parameter.hpp"
#include "text.hpp"

namespace kova {

// One field of a network interface's status, cut to Size - 1 characters; empty when the bus has no answer.
template <std::size_t Size = 128>
Text<Size> interface_status(const char* interface, bus_status_query query) {
  Text<Size> status;
  if (netif_get_interface_status(interface, query, status.data(), Size) != 0) return {};
  return status;
}

// One field of a network device's status, cut alike; empty when there is no device or the bus has no answer.
template <std::size_t Size = 128>
Text<Size> device_status(const char* device, bus_status_query query) {
  Text<Size> status;
  if (device == nullptr || device[0] == '\0' || netif_get_device_status(device, query, status.data(), Size) != 0)
    return {};
  return status;
}

// Prints "UP" for a kernel interface that is up, whose name takes the place of "%s".
inline constexpr char kUpCommand[] = "ifconfig %s | sed '1d' | grep UP | awk '{print $1}'";
inline bool is_up(const char* printed) { return strcasecmp(printed, "UP") == 0; }

// Replies the MAC address of a network device; "0:0:0:0:0:0" when there is no device or the bus has no answer.
template <std::size_t Size = 128>
bool reply_device_mac(Call& call, const char* device) {
  return reply_or(call, device_status<Size>(device, DEVICE_MAC).c_str(), "0:0:0:0:0:0");
}

// Replies a counter of the interface's layer-3 device, as the kernel or the network daemon has it; "0" when there is
// none.
bool reply_link_counter(Call& call, const char* interface, interface_counter counter);
bool reply_link_counter(Call& call, const char* interface, bus_status_query counter);

// ---- Getters ----

template <std::size_t Size = 128>
constexpr auto link_status(const char* interface, bus_status_query query, const char* fallback) {
  return [=](Call& call) { return reply_or(call, interface_status<Size>(interface, query).c_str(), fallback); };
}

// The MAC address of the interface's device.
template <std::size_t Size = 128>
constexpr auto link_mac(const char* interface) {
  return [=](Call& call) {
    return reply_device_mac<Size>(call, interface_status<32>(interface, INTERFACE_DEVICE).c_str());
  };
}

// `counter` is an interface_counter for the kernel's, or a bus_status_query for the network daemon's.
constexpr auto link_counter(const char* interface, auto counter) {
  return [=](Call& call) { return reply_link_counter(call, interface, counter); };
}

}  // namespace kova

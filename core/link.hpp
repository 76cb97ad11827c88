// Network interfaces as the network daemon sees them: words for parameters that report a link's state.
#pragma once

#include <strings.h>

#include "parameter.hpp"
#include "text.hpp"

namespace kova {

// One field of a network interface's status; empty when the bus has no answer.
template <std::size_t Size = 128>
Text<Size> interface_status(const char* interface, bus_status_query query) {
  Text<Size> status;
  if (netif_get_interface_status(interface, query, status.data(), Size) != 0) return {};
  return status;
}

// One field of a network device's status; empty when there is no device or the bus has no answer.
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
bool reply_device_mac(Call& call, const char* device);

// Replies a kernel counter of the interface's layer-3 device; "0" when there is none.
bool reply_link_counter(Call& call, const char* interface, interface_counter counter);

// ---- Getters ----

constexpr auto link_status(const char* interface, bus_status_query query, const char* fallback) {
  return [=](Call& call) { return reply_or(call, interface_status(interface, query).c_str(), fallback); };
}

constexpr auto link_counter(const char* interface, interface_counter counter) {
  return [=](Call& call) { return reply_link_counter(call, interface, counter); };
}

}  // namespace kova

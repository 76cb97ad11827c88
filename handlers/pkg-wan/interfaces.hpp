// The router's three network interfaces, numbered alike by Device.IP.Interface, Device.Ethernet.Link and
// Device.Ethernet.Interface, and the words that choose by that number.
#pragma once

#include <span>

#include "parameter.hpp"
#include "rows.hpp"

namespace kova {

struct NetworkInterface {
  const char* name;                                         // on the bus, and of its section in package "network"
  const char* reference;                                    // how a route refers to it
  const char* title;                                        // of the WAN: while it does not run PPPoE
  const char* lower_layers;                                 // of the WAN: likewise
  const char* addresses;                                    // the number of its address entries
  parameter_handler counters[COUNTER_ERRORS_RECEIVED + 1];  // of its traffic, by interface_counter
};

enum InterfaceNumber { WAN = 1, LAN, MOBILE };

// All of them, in the order of their numbers.
std::span<const NetworkInterface> network_interfaces();

// The interface that the call's first instance number stands for; nullptr when there is none.
const NetworkInterface* interface_of(const Call& call);

// ---- Getters and setters ----

// Fails a call for none of the interfaces.
inline constexpr auto no_interface = [](Call& call) { return no_row(call, call.instance(0)); };

// What `work` does for the interface that the call is for. Fails when there is none.
constexpr auto of_interface(auto work) {
  return [=](Call& call) {
    const NetworkInterface* interface = interface_of(call);
    return interface != nullptr ? work(call, *interface) : no_interface(call);
  };
}

// A word for each interface, and one for all other numbers.
constexpr auto by_interface(auto wan_word, auto lan_word, auto mobile_word, auto other) {
  return [=](Call& call) {
    switch (call.instance(0)) {
      case WAN:
        return wan_word(call);
      case LAN:
        return lan_word(call);
      case MOBILE:
        return mobile_word(call);
      default:
        return other(call);
    }
  };
}

constexpr auto by_interface(auto wan_word, auto lan_word, auto mobile_word) {
  return by_interface(wan_word, lan_word, mobile_word, no_interface);
}

// Forwards to the interface's own counter.
constexpr auto counter(interface_counter counter) {
  return of_interface(
      [=](Call& call, const NetworkInterface& interface) { return call.forward(interface.counters[counter]); });
}

}  // namespace kova

// The router's three network interfaces, numbered alike by Device.IP.Interface, Device.Ethernet.Link and
// Device.Ethernet.Interface, and the words that choose by that number.
#pragma once

#include <span>

#include "parameter.hpp"

namespace kova {

// The handlers that count an interface's traffic.
struct Counters {
  parameter_handler bytes_sent, bytes_received;
  parameter_handler packets_sent, packets_received;
  parameter_handler errors_sent, errors_received;
};

struct NetworkInterface {
  const char* name;          // on the bus, and of its section in package "network"
  const char* reference;     // what routes call it
  const char* title;         // the wan's while it does not run PPPoE
  const char* lower_layers;  // the same
  const char* addresses;     // number of its address entries
  Counters counters;
};

enum InterfaceNumber { WAN = 1, LAN, MOBILE };

// All of them, in the order of their numbers.
std::span<const NetworkInterface> network_interfaces();

// The interface that the call's first instance number stands for; nullptr when there is none.
const NetworkInterface* interface_of(const Call& call);

// Passes the call on to the interface's own counter.
bool forward_counter(Call& call, parameter_handler Counters::*counter);

// ---- Getters and setters ----

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
  return by_interface(wan_word, lan_word, mobile_word, refused());
}

constexpr auto counter(parameter_handler Counters::*counter) {
  return [=](Call& call) { return forward_counter(call, counter); };
}

}  // namespace kova

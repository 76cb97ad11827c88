// IPv4 addresses as the DHCP pool counts them.
#pragma once

#include <arpa/inet.h>

#include <cstdint>

namespace kova {

// An address whose octets count from left to right: the first is the least significant. Adding a number carries
// rightwards out of each octet and is dropped after the fourth, and comparisons look at the fourth octet first. Within
// one last octet this is ordinary arithmetic; beyond it is what the DHCP configuration of fielded devices expects
// (192.168.1.100 + 199 is 192.168.1.43).
class PoolAddress {
 public:
  // Reads an address in dotted form; false, unchanged, when it is malformed.
  bool parse(const char* text) {
    in_addr address = {};
    if (inet_aton(text, &address) == 0) return false;
    const uint32_t host_order = ntohl(address.s_addr);
    octets_ = __builtin_bswap32(host_order);
    return true;
  }

  // Writes dotted quad into a text of at least 16 bytes; false when that fails.
  bool print(char* text) const {
    in_addr address = {};
    address.s_addr = htonl(__builtin_bswap32(octets_));
    return inet_ntop(AF_INET, &address, text, INET_ADDRSTRLEN) != nullptr;
  }

  friend PoolAddress operator&(PoolAddress address, PoolAddress mask) {
    return PoolAddress(address.octets_ & mask.octets_);
  }
  friend PoolAddress operator+(PoolAddress address, uint32_t number) {
    return PoolAddress(address.octets_ + __builtin_bswap32(number));
  }
  friend bool operator==(PoolAddress a, PoolAddress b) { return a.octets_ == b.octets_; }
  friend bool operator<(PoolAddress a, PoolAddress b) { return a.octets_ < b.octets_; }

  PoolAddress() = default;

 private:
  explicit PoolAddress(uint32_t octets) : octets_(octets) {}

  uint32_t octets_ = 0;  // first octet in the lowest byte, whatever the processor's byte order
};

}  // namespace kova

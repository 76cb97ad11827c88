// The DHCP server's address pool.
#include <algorithm>

#include "log.hpp"
#include "pool_address.hpp"
#include "store.hpp"
#include "text.hpp"

namespace {

using namespace kova;

// The LAN and the pool as configured.
struct Lan {
  PoolAddress address;
  PoolAddress mask;
  PoolAddress first;
  PoolAddress last;

  bool has(PoolAddress other) const { return (other & mask) == (address & mask); }
};

uint32_t number(const char* text) { return static_cast<uint32_t>(leading_number(text)); }

bool is_unknown() {
  LOG("GDIE.\n\n");
  return false;
}

// False, logged, when it cannot be told.
bool read_lan(Lan& lan) {
  const Option address({"network", "lan"}, "ipaddr");
  if (!address) return is_unknown();
  const Option mask({"network", "lan"}, "netmask");
  if (!mask) return is_unknown();
  const Option start({"dhcp", "lan"}, "start");
  if (!start) return is_unknown();
  const Option limit({"dhcp", "lan"}, "limit");
  if (!limit) return is_unknown();
  if (!lan.address.parse(address.text()) || !lan.mask.parse(mask.text())) {
    LOG("invalid ip\n\n");
    return false;
  }
  lan.first = (lan.address & lan.mask) + number(start.text());
  lan.last = lan.first + (number(limit.text()) - 1);
  return true;
}

// Reads an end of the range that must lie in the LAN. False, logged, when it does not.
bool read_end(const Lan& lan, const char* text, PoolAddress& end) {
  if (!end.parse(text)) {
    LOG("invalid ip\n\n");
    return false;
  }
  if (!lan.has(end)) {
    LOG("invalid ip pool\n\n");
    return false;
  }
  return true;
}

bool complete_first(const Lan& lan, char* first, const char* last) {
  PoolAddress end;
  if (!read_end(lan, last, end)) return false;
  if (std::min(lan.first, end).print(first)) return true;
  LOG("convert ip failed\n\n");
  return false;
}

bool complete_last(const Lan& lan, const char* first, char* last) {
  PoolAddress begin;
  if (!read_end(lan, first, begin)) return false;
  if (std::max(lan.last, begin).print(last)) return true;
  LOG("convert ip faild\n\n");
  return false;
}

bool check_both(const Lan& lan, const char* first, const char* last) {
  PoolAddress begin;
  PoolAddress end;
  if (!begin.parse(first) || !end.parse(last)) {
    LOG("invalid ip\n\n");
    return false;
  }
  if (!lan.has(begin) || !lan.has(end) || end < begin) {
    LOG("invalid ip pool\n\n");
    return false;
  }
  return true;
}

}  // namespace

int32_t dhcp_calc_ipaddr_pool(char* first, char* last) {
  if (first == nullptr || last == nullptr) {
    LOG("NP\n\n");
    return -1;
  }
  Lan lan;
  if (!read_lan(lan)) return -1;
  return lan.first.print(first) && lan.last.print(last) ? 0 : -1;
}

int32_t dhcp_calc_pool_range(char* first, char* last) {
  if (first == nullptr || last == nullptr) {
    LOG("NP\n\n");
    return -1;
  }
  Lan lan;
  if (!read_lan(lan)) return -1;
  const bool has_first = first[0] != '\0';
  const bool has_last = last[0] != '\0';
  if (has_first && has_last) return check_both(lan, first, last) ? 0 : -1;
  if (has_first) return complete_last(lan, first, last) ? 0 : -1;
  if (has_last) return complete_first(lan, first, last) ? 0 : -1;
  LOG("invalid ip\n\n");
  return -1;
}

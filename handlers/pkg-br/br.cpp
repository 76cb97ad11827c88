#include "br.hpp"

namespace kova {

bool located(const Call& call, std::size_t position) {
  static constexpr LogMessage kNoRow = "LE\n";
  if (call.instance(position) != 0) return true;
  kNoRow.print(call.origin());
  return false;
}

int write_iptv(const char* option, const char* value) {
  return uci_raw_set_value(iptv.package, iptv.name, option, value);
}

int store_iptv(Call& call, const char* option, const char* value) {
  return write_iptv(option, value) == SUCCESS ? SUCCESS : refuse(call, kNotStored);
}

}  // namespace kova

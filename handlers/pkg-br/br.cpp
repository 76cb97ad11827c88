#include "br.hpp"

namespace kova {

bool located(const Call& call, std::size_t position) {
  static constexpr LogMessage kNoRow = "LE\n";
  if (call.instance(position) != 0) return true;
  kNoRow.print(call.origin());
  return false;
}

bool store_iptv(Call& call, const char* option, const char* value) {
  return store_option(call, iptv, option, value, 0, " uci set error\n\n");
}

}  // namespace kova

// The channels that a radio supports.
#include <ctype.h>
#include <string.h>

#include "command.hpp"
#include "log.hpp"
#include "store.hpp"
#include "text.hpp"

namespace {

using namespace kova;

constexpr int kMostChannels = 256;

// The wireless section that the instance numbers and the variant name; nullptr for none.
const char* network_of(const int32_t* instances, int32_t variant) {
  if (variant != 0 && variant != 1) return nullptr;
  const int32_t outer = instances[0];
  const int32_t inner = instances[1];
  if (outer == 1 && (inner == 0 || inner == 1)) return variant == 0 ? "wlan00" : "wlan02";
  if ((outer == 1 && inner == 2) || (outer == 2 && inner == 0)) return variant == 0 ? "wlan10" : "wlan12";
  return nullptr;
}

}  // namespace

int32_t GetChannelPoll(int32_t mode, const void* /*unused*/, char* channel, const int32_t* instances, int32_t variant) {
  const char* network = network_of(instances, variant);
  if (network == nullptr) return -1;
  Text<256> interface;
  if (!read_option({"wireless", network}, "ifname", interface.span())) return -1;

  Text<512> command;
  command.print("iwinfo %.255s freqlist | sed -e 's/*//g' -e 's/)//g' | awk '{print $4}' |tr '\n' ' ' ",
                interface.c_str());
  CommandOutput pipe(command.c_str());
  if (!pipe) {
    LOG("popen failed.\n");
    return -1;
  }
  Text<256> line;
  pipe.read_line(line.span());

  const int32_t wanted = mode != 0 ? leading_number(channel) : 0;
  Text<512> list;
  char* end = list.data();
  char* rest = nullptr;
  const char* token = strtok_r(line.data(), " ", &rest);
  for (int count = 0; token != nullptr && count < kMostChannels; ++count, token = strtok_r(nullptr, " ", &rest)) {
    const int32_t number = leading_number(token);
    if (mode != 0 && number == wanted && number != 0) return mode;
    for (; isdigit(static_cast<unsigned char>(*token)) != 0; ++token) *end++ = *token;
    *end++ = ' ';
  }
  if (mode == 0) strcpy(channel, list.c_str());
  return 0;
}

#include "channels.hpp"

#include <string.h>

#include <string_view>

#include "command.hpp"
#include "log.hpp"
#include "text.hpp"

namespace kova {
namespace {

// The main and the extra network of each radio.
constexpr const char* kNetworks[][2] = {{"wlan00", "wlan02"}, {"wlan10", "wlan12"}};

using Line = Text<256>;
using List = Text<Line::capacity() + 1>;  // has a space behind its last number, which a line may lack

void append(List& list, std::string_view text) { copy_text(list.span().subspan(list.view().size()), text); }

// The digits that each word of a line begins with, and a space behind each.
List numbers_of(Line line) {
  List list;
  char* rest = nullptr;
  for (const char* word = strtok_r(line.data(), " ", &rest); word != nullptr; word = strtok_r(nullptr, " ", &rest)) {
    append(list, {word, strspn(word, "0123456789")});
    append(list, " ");
  }
  return list;
}

// Reads the channels that the radio of a network supports. False when it cannot be asked.
bool read_channels(Section network, List& channels) {
  const Option interface(network, "ifname");
  if (!interface) return false;
  const CommandLine command("iwinfo %.255s freqlist | sed -e 's/*//g' -e 's/)//g' | awk '{print $4}' |tr '\n' ' ' ",
                            interface.text());
  CommandOutput pipe(command.c_str());
  if (!pipe) {
    LOG("popen failed.\n");
    return false;
  }
  Line line;
  pipe.read_line(line.span());
  channels = numbers_of(line);
  return true;
}

bool has_channel(const List& channels, const char* channel) {
  const int32_t wanted = leading_number(channel);
  if (wanted == 0) return false;
  for (const char* listed = channels.c_str(); *listed != '\0'; listed = strchr(listed, ' ') + 1) {
    if (leading_number(listed) == wanted) return true;
  }
  return false;
}

}  // namespace

int32_t wlan_number(const int32_t* instances) {
  const int32_t outer = instances[0];
  const int32_t inner = instances[1];
  if (outer == 1 && (inner == 0 || inner == 1)) return 1;
  if ((outer == 1 && inner == 2) || (outer == 2 && inner == 0)) return 2;
  return 0;
}

bool supports_channel(Section network, const char* channel) {
  List channels;
  return read_channels(network, channels) && has_channel(channels, channel);
}

}  // namespace kova

using namespace kova;

int32_t GetChannelPoll(int32_t mode, const void* /*unused*/, char* channel, const int32_t* instances, int32_t variant) {
  const int32_t number = wlan_number(instances);
  if (number == 0 || (variant != 0 && variant != 1)) return -1;
  List channels;
  if (!read_channels({"wireless", kNetworks[number - 1][variant]}, channels)) return -1;
  if (mode != 0) return has_channel(channels, channel) ? mode : 0;
  strcpy(channel, channels.c_str());
  return 0;
}

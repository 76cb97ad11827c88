#include "wan.hpp"

#include <stdlib.h>

namespace kova {

int read_protocol(Protocol& protocol) { return read_option(wan, "proto", protocol.span()); }

bool number_between(const char* text, int lowest, int highest) {
  const long number = strtol(text, nullptr, 10);
  return number >= lowest && number <= highest;
}

int reply_up(Call& call, const char* interface, const UpTexts& texts) {
  const Text<30> flag = interface_status<30>(interface, INTERFACE_UP);
  if (flag.empty()) return call.reply(texts.no_answer);
  if (flag == "1") return call.reply(texts.up);
  return call.reply(flag == "0" ? texts.down : texts.other);
}

}  // namespace kova

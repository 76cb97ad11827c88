#include "wan.hpp"

namespace kova {

bool reply_up(Call& call, const char* interface, const UpTexts& texts) {
  const Text<30> flag = interface_status<30>(interface, INTERFACE_UP);
  if (flag.empty()) return call.reply(texts.no_answer);
  if (flag == "1") return call.reply(texts.up);
  return call.reply(flag == "0" ? texts.down : texts.other);
}

}  // namespace kova

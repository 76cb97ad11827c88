#include "mobile.hpp"

#include "command.hpp"
#include "link.hpp"

namespace kova {

bool has_Cellular_iface() { return !interface_status<100>(kMobile, INTERFACE_UP).empty(); }

Answer answer_of(const char* command) { return logged_first_line<Answer::capacity()>(command); }

bool reply_answer(Call& call, const char* command, LogMessage nothing) {
  const Answer answer = answer_of(command);
  if (answer.empty()) nothing.print(call.origin());
  return call.reply(answer.c_str());
}

bool store_switch(Call& call, const Switch& setting, LogMessage failure) {
  const char* word = nullptr;
  if (call.value_is("1")) word = setting.on;
  if (call.value_is("0")) word = setting.off;
  if (word != nullptr && !write_option(mobile, setting.option, word)) return call.refuse(failure);
  return call.mark(APPLY_CELLULAR | APPLY_MANAGEMENT);
}

}  // namespace kova

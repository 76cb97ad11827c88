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

bool reply_by_option(Call& call, const char* option, const char* value, const char* then, const char* otherwise) {
  return call.reply(option_is(mobile, option, value) ? then : otherwise);
}

bool apply_switch(Call& call, const char* option, const char* off, const char* on, LogMessage failure) {
  const char* word = nullptr;
  if (call.value_is("0")) word = off;
  if (call.value_is("1")) word = on;
  if (word != nullptr && !write_option(mobile, option, word)) return call.refuse(failure);
  return call.mark(APPLY_CELLULAR | APPLY_MANAGEMENT);
}

}  // namespace kova

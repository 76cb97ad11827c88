#include "parameter.hpp"

#include <stdio.h>
#include <string.h>

#include "command.hpp"
#include "text.hpp"

namespace kova {

void copy_list(va_list& copy, ListPlace place) { va_copy(copy, *static_cast<va_list*>(place)); }

int32_t serve(int32_t operation, ListPlace arguments, Origin origin, Word get, Word set) {
  Call call(operation, arguments, origin);
  return call.is_get() ? get(call) : set(call);
}

int32_t pass_on(int32_t operation, ListPlace arguments, parameter_handler target) {
  return pass_on<int32_t(int32_t, va_list)>(operation, arguments, target);
}

Call::Call(int32_t operation, ListPlace arguments, Origin origin) : operation_(operation), origin_(origin) {
  copy_list(as_given_, arguments);
  copy_list(arguments_, arguments);
  instances_ = va_arg(arguments_, int32_t*);
  text_ = va_arg(arguments_, char*);
}

int Call::reply(const char* text) {
  strcpy(text_, text);  // the agent's buffer holds any value of the parameter, by agreement
  return SUCCESS;
}

int Call::reply_number(long long number) {
  Text<24> text;
  text.print("%lld", number);
  return reply(text.c_str());
}

int Call::mark(uint32_t bits) {
  *static_cast<uint32_t*>(third()) |= bits;
  return SUCCESS;
}

int Call::forward(parameter_handler handler) { return pass_on(operation_, &as_given_, handler); }

void* Call::third() {
  if (third_ == nullptr) third_ = va_arg(arguments_, void*);
  return third_;
}

int reply_option(Call& call, Section section, const char* option, const char* fallback) {
  if (uci_raw_extract_value(section.package, section.name, option, call.output()) == 0) return SUCCESS;
  return call.reply(fallback);
}

int reply_first_line(Call& call, const char* command, LogMessage failure) {
  Text<100> line;
  if (first_line(command, line.span()) != 0) {
    failure.print(call.origin());
    return FAILURE;
  }
  return call.reply(line.c_str());
}

int store_option(Call& call, Section section, const char* option, uint32_t bits, LogMessage failure) {
  if (uci_raw_set_value(section.package, section.name, option, call.value()) != 0) {
    failure.print(call.origin());
    return FAILURE;
  }
  return bits != 0 ? call.mark(bits) : SUCCESS;
}

int reply_or(Call& call, const char* text, const char* fallback) {
  return call.reply(text[0] != '\0' ? text : fallback);
}

int refuse(Call& call, LogMessage message) {
  message.print(call.origin());
  return FAILURE;
}

bool is_address(const Call& call) {
  if (checkValidIP(call.value()) == 1) return true;
  constexpr LogMessage kMalformed = "mal format ip\n";
  kMalformed.print(call.origin());
  return false;
}

int run_verify(Call& call, const VerifyCommand& command, LogMessage failure) {
  return command.run() == SUCCESS ? SUCCESS : refuse(call, failure);
}

int record_verify(Call& call, const VerifyCommand& command, LogMessage failure) {
  return command.record() == SUCCESS ? call.mark(APPLY_TASK_COMMANDS) : refuse(call, failure);
}

}  // namespace kova

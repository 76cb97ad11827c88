#include "parameter.hpp"

#include <stdio.h>
#include <string.h>

#include "command.hpp"
#include "text.hpp"

namespace kova {

Call::Call(int32_t operation, va_list arguments, Origin origin) : operation_(operation), origin_(origin) {
  va_copy(as_given_, arguments);
  va_copy(arguments_, arguments);
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

int Call::forward(parameter_handler handler) {
  va_list copy;
  va_copy(copy, as_given_);
  const int result = handler(operation_, copy);
  va_end(copy);
  return result;
}

void* Call::third() {
  if (third_ == nullptr) third_ = va_arg(arguments_, void*);
  return third_;
}

int reply_option(Call& call, Section section, const char* option, const char* fallback) {
  if (uci_raw_extract_value(section.package, section.name, option, call.output()) == 0) return SUCCESS;
  return call.reply(fallback);
}

int reply_first_line(Call& call, const char* command, const LogMessage& failure) {
  Text<100> line;
  if (first_line(command, line.span()) != 0) {
    failure.print(call.origin());
    return FAILURE;
  }
  return call.reply(line.c_str());
}

int store_option(Call& call, Section section, const char* option, uint32_t bits, const LogMessage& failure) {
  if (uci_raw_set_value(section.package, section.name, option, call.value()) != 0) {
    failure.print(call.origin());
    return FAILURE;
  }
  return bits != 0 ? call.mark(bits) : SUCCESS;
}

int reply_or(Call& call, const char* text, const char* fallback) {
  return call.reply(text[0] != '\0' ? text : fallback);
}

int refuse(Call& call, const LogMessage& message) {
  message.print(call.origin());
  return FAILURE;
}

bool is_address(const Call& call) {
  if (checkValidIP(call.value()) == 1) return true;
  constexpr LogMessage kMalformed = "mal format ip\n";
  kMalformed.print(call.origin());
  return false;
}

int run_verify(Call& call, const VerifyCommand& command, const LogMessage& failure) {
  return command.run() == SUCCESS ? SUCCESS : refuse(call, failure);
}

int record_verify(Call& call, const VerifyCommand& command, const LogMessage& failure) {
  return command.record() == SUCCESS ? call.mark(APPLY_TASK_COMMANDS) : refuse(call, failure);
}

}  // namespace kova

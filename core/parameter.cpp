#include "parameter.hpp"

#include <stdio.h>
#include <string.h>

#include "command.hpp"
#include "text.hpp"

namespace kova {

Call::Call(int32_t operation, va_list arguments, Origin origin)
    : operation_(operation), origin_(origin), getting_(operation == 0), effect_(operation != 0) {
  va_copy(arguments_, arguments);
  va_list list;
  va_copy(list, arguments);
  instances_ = va_arg(list, int32_t*);
  text_ = va_arg(list, char*);
  va_end(list);
}

Call::~Call() { va_end(arguments_); }

void* Call::third_argument() {
  va_list list;
  va_copy(list, arguments_);
  va_arg(list, int32_t*);
  va_arg(list, char*);
  void* third = va_arg(list, void*);
  va_end(list);
  return third;
}

bool Call::reply(const char* text) {
  strcpy(text_, text);  // the agent's buffer holds any value of the parameter, by agreement
  return true;
}

bool Call::reply_joined(std::initializer_list<const char*> parts) {
  char* end = text_;
  *end = '\0';
  for (const char* part : parts) end = stpcpy(end, part);
  return true;
}

bool Call::reply_number(long long number) {
  Text<24> text;
  text.print("%lld", number);
  return reply(text.c_str());
}

bool Call::mark(uint32_t bits) {
  *static_cast<uint32_t*>(third_argument()) |= bits;
  return true;
}

bool Call::forward(parameter_handler handler) { return pass_on(operation_, arguments_, handler) == 0; }

bool Call::refuse(LogMessage message) {
  message.print(origin_);
  return false;
}

bool reply_option(Call& call, Section section, const char* option) {
  return uci_raw_extract_value(section.package, section.name, option, call.output()) == 0;
}

bool reply_option(Call& call, Section section, const char* option, const char* fallback) {
  return reply_option(call, section, option) || call.reply(fallback);
}

bool reply_or(Call& call, const char* text, const char* fallback) {
  return call.reply(text[0] != '\0' ? text : fallback);
}

bool reply_first_line(Call& call, const char* command, LogMessage failure) {
  Text<100> line;
  return first_line(command, line.span()) ? call.reply(line.c_str()) : call.refuse(failure);
}

bool store_option(Call& call, Section section, const char* option, const char* value, uint32_t bits,
                  LogMessage failure) {
  if (!write_option(section, option, value)) return call.refuse(failure);
  return bits == 0 || call.mark(bits);
}

bool is_address(const Call& call) {
  if (checkValidIP(call.value()) == 1) return true;
  constexpr LogMessage kMalformed = "mal format ip\n";
  kMalformed.print(call.origin());
  return false;
}

bool run_verify(Call& call, const VerifyCommand& command, LogMessage failure) {
  return command.run() || call.refuse(failure);
}

bool record_verify(Call& call, const VerifyCommand& command, LogMessage failure) {
  return command.record() ? call.mark(APPLY_TASK_COMMANDS) : call.refuse(failure);
}

}  // namespace kova

int32_t GetFirmDeviceInfo(int32_t operation, va_list arguments, const char* command) {
  return kova::serve(operation, arguments, HERE, kova::command_line(command, "FTGDI.\n"), kova::read_only);
}

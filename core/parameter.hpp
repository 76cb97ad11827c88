// The vocabulary that handlers are written in: one line says what a parameter does on a get and on a set.
//
//   PARAMETER(DeviceInfo_SpecVersion, constant("1.0"), read_only)
//   ALIAS(DHCPv4_Server_Enable, LANDevice_LANHostConfigManagement_DHCPServerEnable)
//
// A getter or setter is a constexpr object or a function that takes one Call and returns SUCCESS or FAILURE. The words
// below are those that several families use; a family's own stand at the top of its file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "log.hpp"
#include "store.hpp"
#include "verify.hpp"

namespace kova {

inline constexpr int SUCCESS = 0;
inline constexpr int FAILURE = -1;

// One call of a handler: what it was asked, and what it may answer through.
class Call {
 public:
  // `arguments` is copied, never shared; `origin` is the parameter's line, under which its words log.
  Call(int32_t operation, va_list arguments, Origin origin);
  ~Call() {
    va_end(arguments_);
    va_end(as_given_);
  }
  Call(const Call&) = delete;
  Call& operator=(const Call&) = delete;

  bool is_get() const { return operation_ == 0; }
  Origin origin() const { return origin_; }

  // The instance number at `position` of the path's placeholders, outermost 0.
  int32_t instance(std::size_t position) const { return instances_[position]; }
  int32_t* instances() const { return instances_; }

  // Set: the new value.
  const char* value() const { return text_; }
  bool value_is(std::string_view text) const { return text == text_; }

  // Get: the agent's output buffer, and the ways to fill it; all return SUCCESS.
  char* output() { return text_; }
  int reply(const char* text);
  int reply_number(long long number);

  // Get: the agent's record. The list's third argument is taken only by those that ask for it.
  const agent_state& agent() { return *static_cast<const agent_state*>(third()); }

  // Set: ORs bits into the agent's apply mask. Returns SUCCESS.
  int mark(uint32_t bits);

  // Has another handler do the call, with the operation and a copy of the arguments as they were given. Returns its
  // result.
  int forward(parameter_handler handler);

 private:
  void* third();

  int32_t operation_;
  va_list as_given_;
  va_list arguments_;
  Origin origin_;
  int32_t* instances_;
  char* text_;
  void* third_ = nullptr;
};

// Defines the exported handler.
#define PARAMETER(handler, getter, setter)                \
  int32_t handler(int32_t operation, va_list arguments) { \
    static constexpr auto get = getter;                   \
    static constexpr auto set = setter;                   \
    kova::Call call(operation, arguments, HERE);          \
    return call.is_get() ? get(call) : set(call);         \
  }

// Defines a handler that passes its operation and a copy of its arguments, untouched, to another, and behind them what
// else that one takes.
#define ALIAS(alias, target, ...)                                              \
  int32_t alias(int32_t operation, va_list arguments) {                        \
    va_list copy;                                                              \
    va_copy(copy, arguments);                                                  \
    const int32_t result = target(operation, copy __VA_OPT__(, ) __VA_ARGS__); \
    va_end(copy);                                                              \
    return result;                                                             \
  }

// ---- What the words do; ordinary functions, so that a debugger can stop in them ----

int reply_option(Call& call, Section section, const char* option, const char* fallback);
int reply_first_line(Call& call, const char* command, const LogMessage& failure);
int store_option(Call& call, Section section, const char* option, uint32_t bits, const LogMessage& failure);
int reply_or(Call& call, const char* text, const char* fallback);  // the fallback for an empty text
int refuse(Call& call, const LogMessage& message);
bool is_address(const Call& call);  // the value, an IPv4 address; logged when it is none
int run_verify(Call& call, const VerifyCommand& command, const LogMessage& failure);
int record_verify(Call& call, const VerifyCommand& command, const LogMessage& failure);

// ---- Getters ----

// A fixed text.
constexpr auto constant(const char* text) {
  return [=](Call& call) { return call.reply(text); };
}

// An option of the main store; the fallback when it cannot be read.
constexpr auto text(Section section, const char* option, const char* fallback = "") {
  return [=](Call& call) { return reply_option(call, section, option, fallback); };
}

// The first line of a command's output, empty when it prints nothing; fails only when the command cannot be started.
constexpr auto command_line(const char* command, LogMessage failure) {
  return [=](Call& call) { return reply_first_line(call, command, failure); };
}

// ---- Setters ----

// Writes the value as given to an option of the main store and marks `bits`; a failed write fails the set.
constexpr auto store(Section section, const char* option, uint32_t bits = 0, LogMessage failure = {}) {
  return [=](Call& call) { return store_option(call, section, option, bits, failure); };
}

// Has the verify script check and apply the value at once.
constexpr auto verify_now(const char* key, LogMessage failure) {
  return [=](Call& call) { return run_verify(call, {kVerifyQuoted, key, call.value()}, failure); };
}

// Has the agent run the verify script with the value, unchecked, after the set request.
constexpr auto verify_later(const char* form, const char* key, LogMessage failure = {}) {
  return [=](Call& call) { return record_verify(call, {form, key, call.value()}, failure); };
}

// Fails every set, with a message or silently.
constexpr auto refused(LogMessage message = {}) {
  return [=](Call& call) { return refuse(call, message); };
}
inline constexpr auto read_only = refused();

// Accepts every value and does nothing.
inline constexpr auto ignored = [](Call&) { return SUCCESS; };

// ---- Getters and setters ----

// What another handler does; for words that choose one. Where there is no choice an ALIAS forwards.
constexpr auto forward_to(parameter_handler handler) {
  return [=](Call& call) { return call.forward(handler); };
}

}  // namespace kova

// The vocabulary that handlers are written in. One line says what a parameter does on a get and on a set:
//
//   PARAMETER(DeviceInfo_SpecVersion, constant("1.0"), read_only)
//   ALIAS(DHCPv4_Server_Enable, LANDevice_LANHostConfigManagement_DHCPServerEnable)
//
// A word is a function or a constexpr object that takes a Call and returns whether it succeeded. To write one, write
// the work as an ordinary function, `bool reply_color(Call& call, const char* name)`, and beside it the word that holds
// the function's further arguments:
//
//   constexpr auto color(const char* name) {
//     return [=](Call& call) { return reply_color(call, name); };
//   }
//
// The words below are those that several families use. A family's own stand at the top of its file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string_view>
#include <type_traits>

#include "log.hpp"
#include "look.hpp"
#include "store.hpp"
#include "verify.hpp"

namespace kova {

// One call of a handler: what it was asked, and what it may answer through.
class Call {
 public:
  // `arguments` is copied, never shared. `origin` is the parameter's line, under which its words log.
  Call(int32_t operation, va_list arguments, Origin origin);
  ~Call();
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

  // Get: the agent's output buffer, and the ways to fill it. All return true.
  char* output() { return text_; }
  bool reply(const char* text);
  bool reply_joined(std::initializer_list<const char*> parts);
  bool reply_number(long long number);

  // Get: the agent's record.
  const agent_state& agent() { return *static_cast<const agent_state*>(third_argument()); }

  // Set: ORs bits into the agent's apply mask. Returns true.
  bool mark(uint32_t bits);

  // Has another handler do the call. Returns whether it succeeded.
  bool forward(parameter_handler handler);

  // Logs the message, if there is one. Returns false.
  bool refuse(LogMessage message);

 private:
  // What only a set that marks and a get that reads the agent's record may take from the list.
  void* third_argument();

  int32_t operation_;
  va_list arguments_;
  Origin origin_;
  int32_t* instances_;
  char* text_;
  Getting getting_;
  Effect effect_;  // of a set
};

// The body of every handler: has `get` or `set` do the call. Returns 0 when it succeeded, else -1.
template <typename Getter, typename Setter>
int32_t serve(int32_t operation, va_list arguments, Origin origin, Getter get, Setter set) {
  Call call(operation, arguments, origin);
  return (call.is_get() ? get(call) : set(call)) ? 0 : -1;
}

// Passes the operation and a copy of the arguments, untouched, to a handler, or to a worker that takes more behind
// them. Returns its result.
template <typename... More>
int32_t pass_on(int32_t operation, va_list arguments, int32_t (*target)(int32_t, va_list, More...),
                std::type_identity_t<More>... more) {
  va_list copy;
  va_copy(copy, arguments);
  const int32_t result = target(operation, copy, more...);
  va_end(copy);
  return result;
}

// Defines the exported handler. What no catalogue declares, nobody could call: it does not compile.
// NOLINTBEGIN(bugprone-macro-parentheses): the name of what is defined
#define PARAMETER(handler, getter, setter)                              \
  static_assert(std::is_same_v<decltype(&handler), parameter_handler>); \
  int32_t handler(int32_t operation, va_list arguments) {               \
    return kova::serve(operation, arguments, HERE, getter, setter);     \
  }

// Defines a handler that has another one, or a worker that takes more arguments, do its calls.
#define ALIAS(alias, target, ...)                                                  \
  static_assert(std::is_same_v<decltype(&alias), parameter_handler>);              \
  int32_t alias(int32_t operation, va_list arguments) {                            \
    return kova::pass_on(operation, arguments, target __VA_OPT__(, ) __VA_ARGS__); \
  }
// NOLINTEND(bugprone-macro-parentheses)

// ---- What the words do. Ordinary functions, so that a debugger can stop in them. ----

bool reply_option(Call& call, Section section, const char* option);  // false, nothing replied, when it cannot be read
bool reply_option(Call& call, Section section, const char* option, const char* fallback);
bool reply_or(Call& call, const char* text, const char* fallback);  // the fallback for an empty text
bool reply_first_line(Call& call, const char* command, LogMessage failure);
bool is_address(const Call& call);  // the value, an IPv4 address; logged when it is none
bool run_verify(Call& call, const VerifyCommand& command, LogMessage failure);
bool record_verify(Call& call, const VerifyCommand& command, LogMessage failure = {});

// Writes an option of the main store and marks `bits`. A failed write fails the set.
bool store_option(Call& call, Section section, const char* option, const char* value, uint32_t bits = 0,
                  LogMessage failure = {});

// ---- Getters ----

// A fixed text.
constexpr auto constant(const char* text) {
  return [=](Call& call) { return call.reply(text); };
}

// An option of the main store; the fallback when it cannot be read.
constexpr auto option(Section section, const char* name, const char* fallback = "") {
  return [=](Call& call) { return reply_option(call, section, name, fallback); };
}

// An option of the main store; fails when it cannot be read.
constexpr auto required(Section section, const char* name, LogMessage failure = {}) {
  return [=](Call& call) { return reply_option(call, section, name) || call.refuse(failure); };
}

// The first line of a command's output, empty when it prints nothing; fails only when the command cannot be started.
constexpr auto command_line(const char* command, LogMessage failure) {
  return [=](Call& call) { return reply_first_line(call, command, failure); };
}

// ---- Setters ----

// Writes the value as given to an option of the main store and marks `bits`; a failed write fails the set.
constexpr auto store(Section section, const char* option, uint32_t bits = 0, LogMessage failure = {}) {
  return [=](Call& call) { return store_option(call, section, option, call.value(), bits, failure); };
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
  return [=](Call& call) { return call.refuse(message); };
}
inline constexpr auto read_only = refused();

// ---- Getters and setters ----

// Succeeds and does nothing: a set takes every value, a get leaves the agent's buffer as it is.
inline constexpr auto ignored = [](Call&) { return true; };

// What another handler does; for words that choose one. Where there is no choice an ALIAS forwards.
constexpr auto forward_to(parameter_handler handler) {
  return [=](Call& call) { return call.forward(handler); };
}

}  // namespace kova

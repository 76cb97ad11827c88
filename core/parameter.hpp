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
#include <type_traits>

#include "log.hpp"
#include "store.hpp"
#include "verify.hpp"

namespace kova {

inline constexpr int SUCCESS = 0;
inline constexpr int FAILURE = -1;

// A handler's argument list, where it is. On some machines it is an array, which arrives as a pointer, on others a
// structure; passed on by its place it is copied once only.
using ListPlace = void*;

template <typename List>
ListPlace place_of(List& arguments) {
  if constexpr (std::is_array_v<va_list>) {
    return arguments;
  } else {
    return &arguments;
  }
}

// One call of a handler: what it was asked, and what it may answer through.
class Call {
 public:
  // `arguments` is copied, never shared; `origin` is the parameter's line, under which its words log.
  Call(int32_t operation, ListPlace arguments, Origin origin);
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

// Of words that are objects: what they hold becomes part of the code, where a pointer costs less than one in an object,
// which has to be relocated.
#define IN_CODE __attribute__((always_inline))

// What a parameter does on a get or on a set.
using Word = int (*)(Call& call);

template <const auto& object>
int call_object(Call& call) {
  return object(call);
}

template <const auto& object>
constexpr Word word() {
  if constexpr (std::is_convertible_v<decltype(object), Word>) {
    return object;
  } else {
    return call_object<object>;
  }
}

// The body of every handler, written once to keep them small.
int32_t serve(int32_t operation, ListPlace arguments, Origin origin, Word get, Word set);

// The list at a place, copied.
void copy_list(va_list& copy, ListPlace place);

// Passes the operation and a copy of the arguments, untouched, to another handler. Returns its result.
int32_t pass_on(int32_t operation, ListPlace arguments, parameter_handler target);

// The same for a handler defined in the same file, which makes its own copy.
inline int32_t pass_on(int32_t operation, ListPlace arguments, int32_t (*target)(int32_t, ListPlace)) {
  return target(operation, arguments);
}

// The same for a worker, that takes more behind the arguments.
template <typename Target, typename... More>
int32_t pass_on(int32_t operation, ListPlace arguments, Target* target, More... more) {
  va_list copy;
  copy_list(copy, arguments);
  const int32_t result = target(operation, copy, more...);
  va_end(copy);
  return result;
}

// Begins the definition of an exported handler. A va_list reaches it by its place, as an array or as a structure too
// large for registers: taken as the pointer that it is, the handler ends in a jump and needs no frame of its own.
// Clang's check of calls through pointers compares the languages' types, of which these are two.
static_assert(std::is_array_v<va_list> || sizeof(va_list) > 2 * sizeof(void*), "a va_list must be passed by its place");
#ifdef __clang__
#define KOVA_BY_PLACE visibility(KOVA_VISIBILITY), no_sanitize("function")
#else
#define KOVA_BY_PLACE visibility(KOVA_VISIBILITY)
#endif
// NOLINTBEGIN(bugprone-macro-parentheses): the name of what is defined
#define KOVA_HANDLER(handler)                                                                           \
  static_assert(std::is_same_v<decltype(&handler), parameter_handler>);                                 \
  namespace kova::entry {                                                                               \
  __attribute__((KOVA_BY_PLACE)) int32_t handler(int32_t operation, ListPlace arguments) asm(#handler); \
  }                                                                                                     \
  int32_t kova::entry::handler(int32_t operation, ListPlace arguments)
// NOLINTEND(bugprone-macro-parentheses)

// Defines the exported handler.
#define PARAMETER(handler, getter, setter)                                                \
  KOVA_HANDLER(handler) {                                                                 \
    static constexpr auto get = getter;                                                   \
    static constexpr auto set = setter;                                                   \
    return kova::serve(operation, arguments, HERE, kova::word<get>(), kova::word<set>()); \
  }

// Defines a handler that has another one, or a worker that takes more arguments, do its calls.
#define ALIAS(alias, target, ...) \
  KOVA_HANDLER(alias) { return kova::pass_on(operation, arguments, target __VA_OPT__(, ) __VA_ARGS__); }

// ---- What the words do; ordinary functions, so that a debugger can stop in them ----

int reply_option(Call& call, Section section, const char* option, const char* fallback);
int reply_first_line(Call& call, const char* command, LogMessage failure);
int store_option(Call& call, Section section, const char* option, uint32_t bits, LogMessage failure);
int reply_or(Call& call, const char* text, const char* fallback);  // the fallback for an empty text
int refuse(Call& call, LogMessage message);
bool is_address(const Call& call);  // the value, an IPv4 address; logged when it is none
int run_verify(Call& call, const VerifyCommand& command, LogMessage failure);
int record_verify(Call& call, const VerifyCommand& command, LogMessage failure);

// ---- Getters ----

// A fixed text.
constexpr auto constant(const char* text) {
  return [=](Call& call) IN_CODE { return call.reply(text); };
}

// An option of the main store; the fallback when it cannot be read.
constexpr auto text(Section section, const char* option, const char* fallback = "") {
  return [=](Call& call) IN_CODE { return reply_option(call, section.copy(), option, fallback); };
}

// The first line of a command's output, empty when it prints nothing; fails only when the command cannot be started.
constexpr auto command_line(const char* command, LogMessage failure) {
  return [=](Call& call) IN_CODE { return reply_first_line(call, command, failure.copy()); };
}

// ---- Setters ----

// Writes the value as given to an option of the main store and marks `bits`; a failed write fails the set.
constexpr auto store(Section section, const char* option, uint32_t bits = 0, LogMessage failure = {}) {
  return [=](Call& call) IN_CODE { return store_option(call, section.copy(), option, bits, failure.copy()); };
}

// Has the verify script check and apply the value at once.
constexpr auto verify_now(const char* key, LogMessage failure) {
  return [=](Call& call) IN_CODE { return run_verify(call, {kVerifyQuoted, key, call.value()}, failure); };
}

// Has the agent run the verify script with the value, unchecked, after the set request.
constexpr auto verify_later(const char* form, const char* key, LogMessage failure = {}) {
  return [=](Call& call) IN_CODE { return record_verify(call, {form, key, call.value()}, failure); };
}

// Fails every set, with a message or silently.
constexpr auto refused(LogMessage message = {}) {
  return [=](Call& call) IN_CODE { return refuse(call, message.copy()); };
}
inline constexpr auto read_only = [](Call&) { return FAILURE; };

// Accepts every value and does nothing.
inline constexpr auto ignored = [](Call&) { return SUCCESS; };

// ---- Getters and setters ----

// What another handler does; for words that choose one. Where there is no choice an ALIAS forwards.
constexpr auto forward_to(parameter_handler handler) {
  return [=](Call& call) IN_CODE { return call.forward(handler); };
}

}  // namespace kova

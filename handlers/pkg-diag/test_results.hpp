// The tests that the server asks for: their inputs are in the store, and the program that runs a test leaves the
// results in a file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "diagnostics.hpp"
#include "parameter.hpp"
#include "text.hpp"

namespace kova {

// The inputs of all tests. Ping and traceroute share the host and the count.
inline constexpr Section params{"cwmp", "params"};

// A line of a result file; a longer one counts as several.
using ResultLine = Text<100>;

// Where a test leaves its results, and what is logged and replied while there is no such file.
struct ResultFile {
  const char* path;
  LogMessage missing;
  const char* fallback;
};

// The kinds of validityCheck.
enum Digits { ANY_DIGITS = 1, AT_MOST_SIX_DIGITS = 2, FROM_1_TO_65535 = 3 };

// The numbers, both ends included, that a text may begin with. What follows the number does not count.
struct LeadingNumber {
  int32_t from;
  int32_t to;
  std::size_t longest_text = SIZE_MAX;

  bool begins(const char* text) const;
};

bool no_value(Call& call);
bool reply_url(Call& call, const char* option);
bool reply_no_results(Call& call, const ResultFile& results, const char* fallback);
bool reply_keyed(Call& call, const ResultFile& results, std::string_view key, bool (*absent)(Call&));
bool reply_prefixed(Call& call, const ResultFile& results, std::string_view key);
bool store_host(Call& call, const char* option);
bool store_digits(Call& call, const char* option, Digits digits);

// ---- Getters ----

// The URL of a test's server; without it that of the management server.
constexpr auto url(const char* option) {
  return [=](Call& call) { return reply_url(call, option); };
}

// The value of the first line "key=value". Without such a line `absent` replies.
constexpr auto keyed(ResultFile results, const char* key, bool (*absent)(Call&) = no_value) {
  return [=](Call& call) { return reply_keyed(call, results, key, absent); };
}

// The rest of the first line that begins with the key, after one more character. The line end is part of it.
constexpr auto prefixed(ResultFile results, const char* key) {
  return [=](Call& call) { return reply_prefixed(call, results, key); };
}

// ---- Setters ----

constexpr auto host(const char* option) {
  return [=](Call& call) { return store_host(call, option); };
}

constexpr auto digits(const char* option, Digits kind) {
  return [=](Call& call) { return store_digits(call, option, kind); };
}

constexpr auto number(const char* option, LeadingNumber range, uint32_t bits = 0) {
  return
      [=](Call& call) { return range.begins(call.value()) && store_option(call, params, option, call.value(), bits); };
}

}  // namespace kova

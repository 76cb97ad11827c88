#include "model/value_type.hpp"

#include <arpa/inet.h>
#include <regex.h>

#include <charconv>
#include <cstdint>
#include <string_view>

namespace kovadm {
namespace {

constexpr char kBoolean[] = "^(0|1|false|true)$";
constexpr char kDateTime[] =
    "^-?[0-9]{4,}-[0-9]{2}-[0-9]{2}T[0-9]{2}:[0-9]{2}:[0-9]{2}([.][0-9]+)?(Z|[-+][0-9]{2}:[0-9]{2})?$";
// The published models let it have zeros in front.
#define OCTET "(25[0-5]|2[0-4][0-9]|[01]?[0-9]?[0-9])"
constexpr char kIpv4[] = "^" OCTET "[.]" OCTET "[.]" OCTET "[.]" OCTET "$";

bool matches(const std::string& text, const char* pattern) {
  regex_t expression = {};
  if (regcomp(&expression, pattern, REG_EXTENDED | REG_NOSUB) != 0) return false;
  const bool matched = regexec(&expression, text.c_str(), 0, nullptr, 0) == 0;
  regfree(&expression);
  return matched;
}

template <typename Number>
std::string number_error(std::string_view text) {
  if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
  Number number = 0;
  const auto [end, error] = std::from_chars(text.begin(), text.end(), number);
  if (error == std::errc::result_out_of_range) return "out of range";
  if (error != std::errc()) return "not a number";
  return end == text.end() ? "" : "more than a number";
}

bool is_ip_address(const std::string& text) {
  in6_addr address = {};
  return text.empty() || matches(text, kIpv4) || inet_pton(AF_INET6, text.c_str(), &address) == 1;
}

bool is_never_empty(Type type) {
  return type == Type::BOOLEAN || type == Type::UNSIGNED_INT || type == Type::INT || type == Type::UNSIGNED_LONG ||
         type == Type::DATE_TIME;
}

}  // namespace

bool is_of_type(const std::string& value, Type type) { return type_error(value, type).empty(); }

std::string type_error(const std::string& value, Type type) {
  if (value.empty() && is_never_empty(type)) return "empty";
  switch (type) {
    case Type::BOOLEAN:
      return matches(value, kBoolean) ? "" : "neither 0, 1, false nor true";
    case Type::UNSIGNED_INT:
      return number_error<uint32_t>(value);
    case Type::INT:
      return number_error<int32_t>(value);
    case Type::UNSIGNED_LONG:
      return number_error<uint64_t>(value);
    case Type::DATE_TIME:
      return matches(value, kDateTime) ? "" : "not like 2026-01-31T12:00:00Z";
    case Type::IP_ADDRESS:
      return is_ip_address(value) ? "" : "not an address";
    default:
      return "";
  }
}

std::string as_handlers_know(const std::string& value, Type type) {
  if (type != Type::BOOLEAN) return value;
  return value == "true" ? "1" : value == "false" ? "0" : value;
}

}  // namespace kovadm

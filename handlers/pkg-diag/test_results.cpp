#include "test_results.hpp"

#include <string.h>

#include <algorithm>

#include "file.hpp"

namespace kova {

bool LeadingNumber::begins(const char* text) const {
  return strlen(text) <= longest_text && number_between(text, from, to);
}

bool no_value(Call& call) { return call.reply(""); }

bool reply_url(Call& call, const char* option) {
  if (reply_option(call, params, option)) return true;
  return reply_option(call, {"cwmp", "info"}, "url", "");
}

bool reply_no_results(Call& call, const ResultFile& results, const char* fallback) {
  results.missing.print(call.origin());
  return call.reply(fallback);
}

bool reply_keyed(Call& call, const ResultFile& results, std::string_view key, bool (*absent)(Call&)) {
  File file(results.path, "r");
  if (!file) return reply_no_results(call, results, results.fallback);
  for (ResultLine line; file.read_line(line.span());) {
    std::string_view rest = line.view();
    const std::string_view line_key = up_to('=', rest);
    if (line_key != key) continue;
    rest.remove_prefix(std::min(line_key.size() + 1, rest.size()));
    return call.reply(ResultLine(up_to('\n', rest)).c_str());
  }
  return absent(call);
}

bool reply_prefixed(Call& call, const ResultFile& results, std::string_view key) {
  File file(results.path, "r");
  if (!file) return reply_no_results(call, results, results.fallback);
  for (ResultLine line; file.read_line(line.span());) {
    if (!begins_with(key, line.view())) continue;
    return call.reply(line.view().size() > key.size() ? line.c_str() + key.size() + 1 : "");
  }
  return no_value(call);
}

bool store_host(Call& call, const char* option) {
  if (validityHost(call.value()) != 0) return call.refuse("Host check failed.\n");
  return store_option(call, params, option, call.value());
}

bool store_digits(Call& call, const char* option, Digits digits) {
  return validityCheck(call.value(), digits) == 0 && store_option(call, params, option, call.value());
}

}  // namespace kova

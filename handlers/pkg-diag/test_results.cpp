#include "test_results.hpp"

#include <string.h>

#include "file.hpp"

namespace kova {

bool LeadingNumber::begins(const char* text) const {
  return strlen(text) <= longest_text && number_between(text, from, to);
}

int no_value(Call& call) { return call.reply(""); }

int reply_url(Call& call, const char* option) {
  if (uci_raw_extract_value(params.package, params.name, option, call.output()) == 0) return SUCCESS;
  return reply_option(call, {"cwmp", "info"}, "url", "");
}

int reply_no_results(Call& call, const ResultFile& results) {
  results.missing.print(call.origin());
  return call.reply(results.fallback);
}

int reply_keyed(Call& call, const ResultFile& results, std::string_view key, int (*absent)(Call&)) {
  File file(results.path, "r");
  if (!file) return reply_no_results(call, results);
  for (ResultLine line; file.read_line(line.span());) {
    std::string_view rest = line.view();
    const std::string_view line_key = up_to('=', rest);
    if (line_key != key) continue;
    rest.remove_prefix(std::min(line_key.size() + 1, rest.size()));
    return call.reply(ResultLine(up_to('\n', rest)).c_str());
  }
  return absent(call);
}

int reply_prefixed(Call& call, const ResultFile& results, std::string_view key) {
  File file(results.path, "r");
  if (!file) return reply_no_results(call, results);
  for (ResultLine line; file.read_line(line.span());) {
    if (!begins_with(key, line.view())) continue;
    return call.reply(line.view().size() > key.size() ? line.c_str() + key.size() + 1 : "");
  }
  return no_value(call);
}

int store_host(Call& call, const char* option) {
  if (validityHost(call.value()) != 0) return refuse(call, "Host check failed.\n");
  return store_option(call, params, option, 0, {});
}

int store_digits(Call& call, const char* option, Digits digits) {
  return validityCheck(call.value(), digits) == 0 ? store_option(call, params, option, 0, {}) : FAILURE;
}

}  // namespace kova

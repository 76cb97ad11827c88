#include "wan.hpp"

#include "command.hpp"

namespace kova {

bool read_protocol(Protocol& protocol) { return read_option(wan, "proto", protocol.span()); }

bool reply_up(Call& call, const char* interface, const UpTexts& texts) {
  const Text<30> flag = interface_status<30>(interface, INTERFACE_UP);
  if (flag.empty()) return call.reply(texts.no_answer);
  if (flag == "1") return call.reply(texts.up);
  return call.reply(flag == "0" ? texts.down : texts.other);
}

bool live_dns_servers(Call& call) {
  call.reply("");
  // Read where it is to go, as no buffer of one's own is large enough for any number of servers.
  if (netif_get_interface_status(kWan, INTERFACE_DNS_SERVERS, call.output(), INT32_MAX) != 0) call.reply("");
  return true;
}

const char* address_value(const Call& call) { return is_address(call) ? call.value() : nullptr; }

bool write_at_once(const char* form, const uci_section* row, const char* option, const char* value) {
  if (row == nullptr) return true;
  return CommandLine(form, row->e.name, option, value).run_unjudged();
}

}  // namespace kova

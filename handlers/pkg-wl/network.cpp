#include "network.hpp"

#include <string.h>

#include "link.hpp"

namespace kova {
namespace {

constexpr std::size_t kLongestSsid = 32;
constexpr std::size_t kShortestPassphrase = 8;
constexpr std::size_t kLongestPassphrase = 64;

using Interface = Text<256>;

// The kernel's interface of the network. False when it has none.
bool read_interface(const Network& network, Interface& interface) {
  return read_option(network.section, "ifname", interface.span());
}

}  // namespace

bool ask_interface(const Network& network, const char* command, std::span<char> answer) {
  Interface interface;
  if (!read_interface(network, interface)) return false;
  Text<Interface::capacity()> line;  // so a name that was cut does not fit
  if (!line.print(command, interface.c_str())) return false;
  util_exec(line.c_str(), answer.data(), static_cast<int32_t>(answer.size()));
  return true;
}

bool reply_ssid(Call& call, const Network& network, LogMessage failure) {
  const Section& section = network.section;
  if (reply_option(call, section, "ssid")) return true;
  return call.refuse(failure);
}

bool set_ssid(Call& call, const Network& network, LogMessage failure) {
  const std::size_t length = strlen(call.value());
  if (length > kLongestSsid || length == 0) return false;
  return store_option(call, network.section, "ssid", call.value(), network.bit, failure);
}

bool set_enabled(Call& call, const Network& network) {
  if (call.value_is("1")) return store_option(call, network.section, "disabled", "0", network.bit);
  if (call.value_is("0")) return store_option(call, network.section, "disabled", "1", network.bit);
  return false;
}

bool set_passphrase(Call& call, const Network& network) {
  const std::size_t length = strlen(call.value());
  if (length < kShortestPassphrase || length > kLongestPassphrase) return call.refuse("pw len error.\n");
  return store_option(call, network.section, "key", call.value(), network.bit, "failed to set pw\n\n");
}

bool set_advertised(Call& call, const Network& network) {
  const char* hidden = call.value_is("1") ? "" : "1";
  return store_option(call, network.section, "hidden", hidden, network.bit, "failed to set HD conf.\n\n");
}

bool reply_status(Call& call, const Network& network) {
  Text<100> flag;
  if (!ask_interface(network, kUpCommand, flag.span())) return false;
  return call.reply(is_up(flag.c_str()) ? "Up" : "Disabled");
}

bool reply_counter(Call& call, const Network& network, interface_counter counter) {
  Interface interface;
  if (!read_interface(network, interface)) return false;
  Text<128> count;
  get_TotalBytesAndPackets_by_name(interface.c_str(), counter, count.data(), count.capacity());
  return reply_or(call, count.c_str(), "0");
}

bool reply_about_interface(Call& call, const Network& network, const Question& question, LogMessage nothing) {
  Text<128> answer;
  if (!ask_interface(network, question.command, answer.span().first(question.room))) return false;
  if (answer.empty()) nothing.print(call.origin());
  reply_or(call, answer.c_str(), question.fallback);
  strcat(call.output(), question.unit);
  return true;
}

}  // namespace kova

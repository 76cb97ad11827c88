#include "network.hpp"

#include <string.h>

#include "command.hpp"
#include "link.hpp"
#include "text.hpp"

namespace kova {
namespace {

constexpr std::size_t kLongestSsid = 32;
constexpr std::size_t kShortestPassphrase = 8;
constexpr std::size_t kLongestPassphrase = 64;

constexpr char kInterface[] = "ifname";

}  // namespace

bool ask_interface(const Network& network, const char* command, std::span<char> answer) {
  const Option interface(network.section, kInterface);
  if (!interface) return false;
  const CommandLine line(command, interface.text());
  if (!line) return false;
  util_exec(line.c_str(), answer.data(), static_cast<int32_t>(answer.size()));
  return true;
}

bool reply_ssid(Call& call, const Network& network, LogMessage failure) {
  return reply_option(call, network.section, "ssid") || call.refuse(failure);
}

bool set_ssid(Call& call, const Network& network, LogMessage failure) {
  const std::size_t length = strlen(call.value());
  if (length > kLongestSsid || length == 0) return false;
  return store_option(call, network.section, "ssid", call.value(), network.bit(), failure);
}

bool set_enabled(Call& call, const Network& network) {
  if (call.value_is("1")) return store_option(call, network.section, "disabled", "0", network.bit());
  if (call.value_is("0")) return store_option(call, network.section, "disabled", "1", network.bit());
  return false;
}

bool set_passphrase(Call& call, const Network& network) {
  const std::size_t length = strlen(call.value());
  if (length < kShortestPassphrase || length > kLongestPassphrase) return call.refuse("pw len error.\n");
  return store_option(call, network.section, "key", call.value(), network.bit(), "failed to set pw\n\n");
}

bool set_advertised(Call& call, const Network& network) {
  const char* hidden = call.value_is("1") ? "" : "1";
  return store_option(call, network.section, "hidden", hidden, network.bit(), "failed to set HD conf.\n\n");
}

bool reply_status(Call& call, const Network& network, const char* up, const char* down) {
  Text<100> flag;
  if (!ask_interface(network, kUpCommand, flag.span())) return false;
  return call.reply(is_up(flag.c_str()) ? up : down);
}

bool reply_counter(Call& call, const Network& network, interface_counter counter) {
  const Option interface(network.section, kInterface);
  if (!interface) return false;
  Text<128> count;
  get_TotalBytesAndPackets_by_name(interface.text(), counter, count.data(), Text<128>::capacity());
  return reply_or(call, count.c_str(), "0");
}

bool reply_bssid(Call& call, const Network& network, LogMessage nothing) {
  Text<100> address;
  if (!ask_interface(network, "iwinfo %s info | grep 'Access Point' | awk '{print $3}'", address.span())) return false;
  if (address.empty()) nothing.print(call.origin());
  return reply_or(call, address.c_str(), "0:0:0:0:0:0");
}

}  // namespace kova

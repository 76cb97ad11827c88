#include "associated_devices.hpp"

namespace kova {
namespace {

using Row = Text<12>;  // a host's section in the table

// The number of hosts, of a table made now if there is none. False when it cannot be read.
bool read_host_count(Origin origin, int32_t& count) {
  generate_host_info();
  Text<16> text;
  if (!read_state_option({"hosts", "info"}, "count", text.span())) {
    constexpr LogMessage kNoCount = "failed to get HINFO.\n";
    kNoCount.print(origin);
    return false;
  }
  count = leading_number(text.c_str());
  return true;
}

// The host's row when the network has seen it, else empty.
Row row_on(const Network& network, int32_t host) {
  Row row;
  row.print("%d", host);
  Text<32> interface;
  const bool seen =
      read_state_option({"hosts", row.c_str()}, "lay2if", interface.span()) && interface == network.section.name;
  return seen ? row : Row();
}

}  // namespace

bool reply_device_count(Call& call, const Network& network) {
  int32_t hosts = 0;
  if (!read_host_count(call.origin(), hosts)) return false;
  int32_t devices = 0;
  for (int32_t before = 0; before < hosts; ++before) devices += row_on(network, before + 1).empty() ? 0 : 1;
  return call.reply_number(devices);
}

bool reply_device_field(Call& call, const Network& network, const DeviceField& field) {
  int32_t hosts = 0;
  if (!read_host_count(call.origin(), hosts)) return false;
  int32_t rank = 0;
  for (int32_t before = 0; before < hosts; ++before) {
    const Row row = row_on(network, before + 1);
    if (row.empty() || ++rank != call.instance(field.position)) continue;
    if (uci_raw_extract_value_By_path("hosts", row.c_str(), field.option, call.output()) == 0) return true;
    return call.refuse(field.no_option);
  }
  return call.refuse(field.no_device);
}

}  // namespace kova

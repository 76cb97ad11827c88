#include "associated_devices.hpp"

#include <string_view>

#include "text.hpp"

namespace kova {
namespace {

constexpr LogMessage kNoHosts = "failed to get HINFO.\n";

// The hosts table, held open while a call looks at it. Its rows are sections that have numbers for names, from 1 to the
// number of hosts, in any order and perhaps with gaps. As a text it is the number of hosts.
class HostsTable : public StateOption {
 public:
  HostsTable() : StateOption({"hosts", "info"}, "count") {
    if (*this) package_ = uci_lookup_package(context_.get(), "hosts");
  }

  int32_t count() const { return leading_number(text()); }

  // The network's devices among the rows up to this number.
  int32_t devices(const Network& network, int32_t last) const {
    int32_t devices = 0;
    uci_element* section = nullptr;
    uci_foreach_element(&package_->sections, section) {
      if (is_row(section->name, last) && was_seen_on(network, uci_to_section(section))) ++devices;
    }
    return devices;
  }

  // The row of the device with this number in the network; nullptr when there is none.
  uci_section* device(const Network& network, int32_t number) const {
    int32_t last = count();
    if (number < 1 || devices(network, last) < number) return nullptr;
    for (int32_t first = 1; first < last;) {
      const int32_t middle = first + (last - first) / 2;
      if (devices(network, middle) < number) {
        first = middle + 1;
      } else {
        last = middle;
      }
    }
    Text<12> row;
    row.print("%d", last);
    return uci_lookup_section(context_.get(), package_, row.c_str());
  }

  // A string option of a row; nullptr when it is absent or a list.
  const char* string(uci_section* row, const char* option) const {
    return uci_lookup_option_string(context_.get(), row, option);
  }

 private:
  static bool is_row(const char* name, int32_t last) {
    if (!number_between(name, 1, last)) return false;
    Text<12> row;
    row.print("%d", leading_number(name));
    return row == name;
  }

  bool was_seen_on(const Network& network, uci_section* row) const {
    const char* interface = string(row, "lay2if");
    return interface != nullptr && std::string_view(interface) == network.section.name;
  }

  uci_package* package_ = nullptr;
};

}  // namespace

bool reply_device_count(Call& call, const Network& network) {
  generate_host_info();
  const HostsTable hosts;
  return hosts ? call.reply_number(hosts.devices(network, hosts.count())) : call.refuse(kNoHosts);
}

bool reply_device_field(Call& call, const Network& network, const DeviceField& field) {
  generate_host_info();
  const HostsTable hosts;
  if (!hosts) return call.refuse(kNoHosts);
  uci_section* device = hosts.device(network, call.instance(field.position));
  if (device == nullptr) return call.refuse(field.no_device);
  const char* text = hosts.string(device, field.option);
  return text != nullptr ? call.reply(text) : call.refuse(field.no_option);
}

}  // namespace kova

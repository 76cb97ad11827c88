#include "figures.hpp"

#include <stdlib.h>

#include <fstream>

#include "call.hpp"
#include "families.h"
#include "platform.hpp"
#include "seam/paths.hpp"
#include "walk.hpp"

namespace kova::bench {
namespace {

char output[1 << 16];

constexpr const char* kPath = "cwmp.info.provisioningcode";
constexpr const char* kUpTime = "cat /proc/uptime | awk -F '.' '{print $1}' ";

auto get(parameter_handler handler) {
  return [=] {
    if (get_first_row(handler, output) != 0) abort();
  };
}

// Another value each time, so that there is something to write.
const char* next_value() {
  static bool other = false;
  other = !other;
  return other ? "one" : "two";
}

void set_option() {
  int32_t instances[] = {0};
  uint32_t mask = 0;
  if (seam::set(DeviceInfo_ProvisioningCode, instances, next_value(), &mask) != 0) abort();
}

// A set is a write to the store and one to the mirror of changes.
void set_option_bare() {
  const char* value = next_value();
  write_option(nullptr, kPath, value);
  write_option(seam::kMirror, kPath, value);
}

// A get of the last option of a package of `sections` sections.
Figure get_from_package(int sections) {
  const std::string package = "sections" + std::to_string(sections);
  std::ofstream file(seam::kMainStore + ("/" + package));
  for (int i = 1; i <= sections; ++i) file << "config host 'h" << i << "'\n\toption address '192.168.1.10'\n";
  const auto size = static_cast<long>(file.tellp());
  const std::string section = "h" + std::to_string(sections);
  return {"option get, package of " + std::to_string(size) + " bytes",
          [=] { uci_raw_extract_value(package.c_str(), section.c_str(), "address", output); },
          [=] { read_option(nullptr, package.c_str(), section.c_str(), "address", output); }};
}

}  // namespace

std::vector<Figure> figures() {
  set_option();  // so that there is something to get
  const auto get_code = get(DeviceInfo_ProvisioningCode);
  std::vector<Figure> all = {
      {"option get", get_code, [] { read_option(nullptr, "cwmp", "info", "provisioningcode", output); }},
      {"option set", set_option, set_option_bare},
      {"option get, beside the uci tool", get_code, [] { read_command("uci -q get cwmp.info.provisioningcode"); }},
      {"option set, beside the uci tool", set_option,
       [] { read_command("uci set cwmp.info.provisioningcode=x && uci commit cwmp"); }},
      {"status get", [] { netif_get_interface_status("lan", INTERFACE_UPTIME, output, sizeof output); },
       [] { call_bus("network.interface.lan", "status", nullptr, "uptime"); }},
      {"command get", get(DeviceInfo_UpTime), [] { read_command(kUpTime); }},
      {"counter", [] { get_TotalBytesAndPackets_by_name("lo", COUNTER_BYTES_SENT, output, sizeof output); },
       [] { read_command("cat /proc/net/dev|grep -w lo"); }},
      {"host", get(Hosts_Host_HostName), [] { read_option(seam::kStateFiles, "hosts", "1", "hostname", output); }},
      walk_of_everything(),
      walk_in_one_look(),
      walk_of_household(50, 150),
      walk_of_household(200, 600),
  };
  for (const int sections : {10, 100, 1000}) all.push_back(get_from_package(sections));
  return all;
}

}  // namespace kova::bench

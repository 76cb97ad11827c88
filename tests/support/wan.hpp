// Tests on the router's one WAN link.
#pragma once

#include "support/tables.hpp"

namespace kova::test {

// What is configured; an empty value leaves no such option.
inline Source wan_option(const std::string& name, const std::string& value) {
  return option("network.wan." + name, value);
}

// What the network daemon says of the link.
inline Source wan_link(const std::string& answer) { return status("network.interface.wan", answer); }

// Starts each test with a WAN of which nothing is configured and nothing is known.
class WanTest : public TableTest {
 protected:
  void SetUp() override {
    DeviceTest::SetUp();
    write_file("/etc/config/network", "config interface 'wan'\n");
    run("rm -rf /etc/lab/bus/network.interface.wan /etc/lab/bus/network.device");
  }
};

}  // namespace kova::test

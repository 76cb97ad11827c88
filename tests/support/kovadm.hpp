// Runs kovadm as its user does.
#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "support/device.hpp"

#define LAN "InternetGatewayDevice.LANDevice.1.LANHostConfigManagement."
#define SERVER "InternetGatewayDevice.ManagementServer."
// The parameter whose handler runs cwmp-ntp, which a test can replace.
#define ZONE "Device.Time.LocalTimeZone"

namespace kova::test {

using nlohmann::json;

struct Finished {
  int status;
  std::string out;
  std::string error;

  json document() const { return json::parse(out); }
  std::vector<std::string> lines() const;
};

// The program, with these arguments in the shell's form.
Finished kovadm(const std::string& arguments);

// Puts a script of the shell in a program's place.
void script_is(const std::string& path, const std::string& text);

// Runs the examples of a page, at least so many, each on a router in factory state, and expects what it shows.
void expect_examples_of(const std::string& file, int least = 6);

class Kovadm : public DeviceTest {
 protected:
  void SetUp() override;
};

}  // namespace kova::test

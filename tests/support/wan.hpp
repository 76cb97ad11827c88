// Tests on the router's one WAN link.
#pragma once

#include "support/device.hpp"

namespace kova::test {

// A set that is carried out by the verify script when the agent runs the recorded commands.
struct Change {
  parameter_handler handler;
  Instances instances;
  const char* value;
  std::string arguments;  // of the script
  const char* failure;    // logged when it cannot be recorded; nullptr for nothing
};

// A set that is refused.
struct Refusal {
  parameter_handler handler;
  Instances instances;
  const char* value;
  const char* message;  // nullptr for none
};

// Starts each test with a WAN of which nothing is configured and nothing is known.
class WanTest : public DeviceTest {
 protected:
  void SetUp() override {
    DeviceTest::SetUp();
    write_file("/etc/config/network", "config interface 'wan'\n");
    no_link();
    run("rm -rf /etc/lab/bus/network.device");
  }

  // What is configured; an empty value leaves no such option.
  static void option_is(const std::string& option, const std::string& value) {
    configure("network.wan." + option, value);
  }

  // What the network daemon says of the link, and of its devices.
  static void link_is(const std::string& status) { answer_on_bus("network.interface.wan", status); }
  static void no_link() { run("rm -rf /etc/lab/bus/network.interface.wan"); }
  static void devices_are(const std::string& cases) { answer_on_bus("network.device", cases); }

  // A line of the task record.
  static std::string verify(const std::string& arguments) {
    return "lua /usr/bin/tr069/verify_pms " + arguments + "\n";
  }

  template <typename Changes>
  static void expect_recorded(const Changes& changes) {
    const std::string before = *contents("/etc/config/network");
    std::string record;
    for (const Change& change : changes) {
      EXPECT_EQ(set(change.handler, change.value, change.instances), accepted(APPLY_TASK_COMMANDS));
      EXPECT_EQ(task_record(), record += verify(change.arguments));
    }
    EXPECT_EQ(contents("/etc/config/network"), before);
    EXPECT_TRUE(commands().empty());

    run("rm -r /tmp/tr069");
    for (const Change& change : changes) {
      seams().syslog.clear();
      EXPECT_EQ(set(change.handler, change.value, change.instances), kRefused) << change.arguments;
      EXPECT_EQ(messages().back(), change.failure != nullptr ? change.failure : "fopen error\n");
    }
  }

  template <typename Refusals>
  static void expect_refused(const Refusals& refusals) {
    for (const auto& [handler, instances, value, message] : refusals) {
      seams().syslog.clear();
      EXPECT_EQ(set(handler, value, instances), kRefused) << value;
      EXPECT_EQ(messages(), message != nullptr ? std::vector<std::string>{message} : std::vector<std::string>{});
    }
    EXPECT_EQ(task_record(), "");
  }

 private:
  static void answer_on_bus(const std::string& object, const std::string& status) {
    run("mkdir -p /etc/lab/bus/" + object);
    write_file("/etc/lab/bus/" + object + "/status.json", status);
  }
};

}  // namespace kova::test

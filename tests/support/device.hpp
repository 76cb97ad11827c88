// A test on a clean simulated router.
#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "seam/paths.hpp"
#include "seam/snapshot.hpp"
#include "support/handler.hpp"
#include "support/seams.hpp"

namespace kova::test {

// One option as a file of a store holds it, "package.section.option"; nullopt when it is not there.
std::optional<std::string> stored(const std::string& directory, const std::string& path);

// Changes the main store behind the plug-in's back; an empty value removes the option. "package.section.option".
void configure(const std::string& path, const std::string& value);

std::optional<std::string> contents(const std::string& path);
using seam::write_file;

// Starts each test from the factory state, with the debug log on and nothing recorded.
class DeviceTest : public testing::Test {
 protected:
  void SetUp() override;

  // Options of the main store, of the change mirror, and of the forced-change mirror; "package.section.option".
  static auto config(const std::string& path) { return stored(seam::kMainStore, path); }
  static auto mirror(const std::string& path) { return stored(seam::kMirror, path); }
  static auto forced_mirror(const std::string& path) { return stored(seam::kForcedMirror, path); }

  // The task records; empty when there is none.
  static std::string task_record();
  static std::string task_record_once();

  // The messages logged since the test began, without module and line.
  static std::vector<std::string> messages();
  static bool logged(const std::string& message);
  // All of them, which are gone then.
  static std::string take_log();
  static std::vector<std::string>& commands() { return seams().commands; }

  // Whether the lab could give the router its LEDs and its interfaces: that depends on the sandbox.
  static bool has_network() { return run("grep -q br-lan: /proc/net/dev") == 0; }
  static bool has_leds() { return contents("/sys/class/leds/power/brightness").has_value(); }
};

}  // namespace kova::test

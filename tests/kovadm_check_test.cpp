// kovadm check: what a device lacks is told as itself, and nothing else.
#include <set>

#include "support/kovadm.hpp"

namespace kova::test {
namespace {

#define RECORDING "/root/recording.json"

// The causes that a check tells to be missing: "program iwinfo".
std::vector<std::string> missing_in(const std::string& arguments) {
  const Finished check = kovadm(arguments + " --json check");
  const json document = check.document();
  std::vector<std::string> causes;
  for (const json& cause : document["missing"])
    causes.push_back(cause["cause"].get<std::string>() + " " + cause["name"].get<std::string>());
  EXPECT_EQ(check.status, causes.empty() ? 0 : 1) << check.error;
  return causes;
}

using Causes = std::vector<std::string>;

// A recording of a router that is as this one but for what `remove` changes.
Causes missing_without(json recording, const std::function<void(json&)>& remove) {
  remove(recording);
  write_file(RECORDING, recording.dump());
  return missing_in("--replay " RECORDING);
}

// What the command lines with this word do then.
void fail_commands(json& recording, const std::string& word, const std::string& errors, int status) {
  for (auto& [line, answer] : recording["commands"].items()) {
    if ((" " + line + " ").find(" " + word + " ") == std::string::npos || line.starts_with("command -v")) continue;
    answer = {{"status", status}, {"output", ""}, {"errors", errors}};
  }
}

TEST_F(Kovadm, WhatIsTakenAwayFromARouterIsToldAsItself) {
  const std::pair<const char*, const char*> removals[] = {
      {"/usr/bin/iwinfo", "program iwinfo"},
      {"/usr/bin/tr069/verify_pms", "file /usr/bin/tr069/verify_pms"},
      {"/etc/config/system", "package system"},
      {"/etc/lab/bus/network.gcom", "bus network.gcom"}};
  EXPECT_EQ(missing_in(""), Causes());
  for (const auto& [file, cause] : removals) {
    ASSERT_EQ(run("/sbin/lab-reset; mv " + std::string(file) + " /root/away"), 0);
    EXPECT_EQ(missing_in(""), Causes{cause});
    run("mv /root/away " + std::string(file));
  }
}

TEST_F(Kovadm, EachProgramPackageFileAndObjectIsToldAsItself) {
  // The other tree has what this one has, and takes as long again.
  ASSERT_EQ(kovadm("record " RECORDING " Device. InternetGatewayDevice.X_KOVA_").status, 0);
  const json whole = json::parse(*contents(RECORDING));
  EXPECT_EQ(missing_without(whole, [](json&) {}), Causes());
  std::set<std::string> removed;
  for (const auto& [line, answer] : whole["commands"].items()) {
    if (!line.starts_with("command -v ")) continue;
    const std::string program = line.substr(11);
    removed.insert(program);
    EXPECT_EQ(missing_without(whole,
                              [&, &line = line](json& recording) {
                                recording["commands"][line]["status"] = 127;
                                fail_commands(recording, program, "sh: " + program + ": not found\n", 127);
                              }),
              Causes{"program " + program});
  }
  for (const char* program : {"awk", "cat", "ddns", "iwinfo", "lua", "ubus", "/usr/bin/tr069/cwmp-user"})
    EXPECT_TRUE(removed.contains(program)) << program;
  const std::set<std::string> unused = {"cloud_config"};
  for (const auto& [package, text] : whole["directories"]["/etc/config"].items()) {
    const Causes missing = missing_without(whole, [&, &package = package](json& recording) {
      recording["directories"]["/etc/config"].erase(package);
      fail_commands(recording, "uci", "uci: Entry not found\n", 1);
    });
    EXPECT_EQ(missing, unused.contains(package) ? Causes() : Causes{"package " + package});
  }
  for (const auto& [path, there] : whole["tested"].items()) {
    if (!there) continue;
    EXPECT_EQ(missing_without(whole, [&path = path](json& recording) { recording["tested"][path] = false; }),
              Causes{"file " + path});
  }
  for (const auto& [object, answer] : whole["bus"].items()) {
    if (object.find_first_of(" (") != std::string::npos) continue;
    EXPECT_EQ(missing_without(whole,
                              [&object = object](json& recording) {
                                recording["bus"][object] = {{"status", 4}};
                              }),
              Causes{"bus " + object});
  }
}

TEST_F(Kovadm, ACheckTellsWhyParametersFail) {
  script_is("/usr/bin/tr069/cwmp-ntp", "nothing-like-this --now; exit 3");
  EXPECT_EQ(kovadm("check " ZONE).lines().at(0), "program nothing-like-this: not found: 1 parameter");
  script_is("/usr/bin/tr069/cwmp-ntp", "exit 3");
  EXPECT_EQ(kovadm("check " ZONE).lines().at(0),
            "failed: /usr/bin/tr069/cwmp-ntp timezoneinfo get (status 3): 1 parameter");
  write_file("/etc/config/system", "config 'oops");
  run("uci delete network.wan.proto");
  const Finished check = kovadm("check Device.WiFi.Radio.1. Device.LEDs. Device.IP.Interface.1. Device.PPP.");
  EXPECT_NE(check.out.find("package system: cannot be read"), std::string::npos) << check.out;
  EXPECT_NE(check.out.find("option network.wan.proto: not there"), std::string::npos) << check.out;
  EXPECT_EQ(check.status, 1);
}

}  // namespace
}  // namespace kova::test

// kovadm, run as its user does.
#include <csignal>
#include <nlohmann/json.hpp>
#include <regex>
#include <set>
#include <sstream>

#include "support/catalogue.hpp"
#include "support/device.hpp"

#define LAN "InternetGatewayDevice.LANDevice.1.LANHostConfigManagement."
#define SERVER "InternetGatewayDevice.ManagementServer."

namespace kova::test {
namespace {

using nlohmann::json;

struct Finished {
  int status;
  std::string out;
  std::string error;

  json document() const { return json::parse(out); }
  std::vector<std::string> lines() const {
    std::vector<std::string> lines;
    std::istringstream stream(out);
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
  }
};

Finished kovadm(const std::string& arguments) {
  const int status = run("kovadm " + arguments + " >/root/out 2>/root/error </dev/null");
  return {WEXITSTATUS(status), contents("/root/out").value_or(""), contents("/root/error").value_or("")};
}

// Paths in the order of an output's values.
std::vector<std::string> paths_of(const json& document) {
  std::vector<std::string> paths;
  for (const json& value : document["values"]) paths.push_back(value["path"]);
  return paths;
}

std::string with_placeholders(const std::string& path) {
  static const std::regex number(R"(\.[0-9]+(?=\.))");
  return std::regex_replace(path, number, ".{i}");
}

class Kovadm : public DeviceTest {
 protected:
  void SetUp() override {
    DeviceTest::SetUp();
    run("rm /tmp/cwmp_debug");
  }
};

// The text without blanks at the ends of its lines, which documents do without.
std::string trimmed(const std::string& text) {
  static const std::regex blanks(" +\n");
  return std::regex_replace(text, blanks, "\n");
}

TEST_F(Kovadm, DoesWhatItsPageShows) {
  std::istringstream page(*contents(KOVADM_PAGE));
  const std::string indent = "    ";
  const std::string prompt = indent + "$ ";
  int examples = 0;
  for (std::string line; std::getline(page, line);) {
    if (!line.starts_with(prompt)) continue;
    ASSERT_EQ(run("/sbin/lab-reset"), 0);
    const std::string command = line.substr(prompt.size());
    std::string shown;
    while (std::getline(page, line) && line.starts_with(indent)) shown += line.substr(indent.size()) + "\n";
    run(command + " >/root/out 2>&1");
    EXPECT_EQ(trimmed(*contents("/root/out")), trimmed(shown)) << command;
    ++examples;
  }
  EXPECT_GE(examples, 10);
}

// ---- Reading ----

TEST_F(Kovadm, ListsTheCatalogueBelowABeginningOfPaths) {
  const Finished all = kovadm("list --json");
  EXPECT_EQ(all.status, 0);
  std::set<std::string> handlers;
  const json document = all.document();
  for (const json& parameter : document["parameters"]) handlers.insert(parameter["handler"]);
  EXPECT_EQ(handlers.size(), std::size(kCatalogue));

  EXPECT_EQ(kovadm("list Device.LEDs.LED").out, R"(Device.LEDs.LEDNumberOfEntries  read-only   unsignedInt
Device.LEDs.LED.{i}.Name        read-only   string
Device.LEDs.LED.{i}.Status      read-only   string
)");
  EXPECT_EQ(kovadm("list Device.LEDs.LED.3.").lines().size(), 2U);
  const Finished unknown = kovadm("list Device.LED.");
  EXPECT_EQ(unknown.status, 1);
  EXPECT_EQ(unknown.error, "9005 Invalid parameter name: Device.LED.\n     nearest: Device.LEDs.\n");
}

TEST_F(Kovadm, GetsParametersAndObjects) {
  const Finished both = kovadm("get " SERVER "Username Device.Users.");
  EXPECT_EQ(both.status, 0);
  EXPECT_EQ(both.out, R"(InternetGatewayDevice.ManagementServer.Username = kova-cpe
Device.Users.UserNumberOfEntries = 2
Device.Users.User.1.Username = admin
Device.Users.User.1.Password = 
Device.Users.User.2.Username = guest
Device.Users.User.2.Password = 
)");
  EXPECT_EQ(both.error, "");
}

TEST_F(Kovadm, ValuesTakeOneLineAndAnyBytes) {
  configure("cwmp.info.username", "two\nlines\t\x1b \\n \xff");
  EXPECT_EQ(kovadm("get " SERVER "Username").out, SERVER "Username = two\\nlines\\t\\x1b \\\\n \xff\n");
  EXPECT_EQ(kovadm("get --json " SERVER "Username").document()["values"][0]["value"],
            "two\nlines\t\x1b \\n \xef\xbf\xbd");
  EXPECT_EQ(kovadm("get \"$(printf 'Device.\\033\\n')\"").error, "9005 Invalid parameter name: Device.\\x1b\n");
}

TEST_F(Kovadm, ValuesAreOfAnyLength) {
  const std::string longest(200000, 'x');
  configure("cwmp.info.username", longest);
  EXPECT_EQ(kovadm("get " SERVER "Username").out, SERVER "Username = " + longest + "\n");
}

TEST_F(Kovadm, AFaultOnStandardOutputIsNoSuccess) {
  for (const char* format : {"", "--json "}) {
    EXPECT_EQ(WEXITSTATUS(run(std::string("kovadm ") + format + "get " SERVER "URL >/dev/full 2>/root/error")), 2);
    EXPECT_EQ(contents("/root/error"), "kovadm: standard output: No space left on device\n");
  }
  // A closed standard error is not mixed up with standard output.
  run("kovadm --json --debug get Device.DeviceInfo.SerialNumber >/root/out 2>&-");
  EXPECT_TRUE(json::accept(*contents("/root/out")));
}

TEST_F(Kovadm, FaultsCarryTheProtocolsNumbersAndTheRestIsAnswered) {
  const Finished get = kovadm(
      "get Device.Users.User.2.Usernam Device.Users.User.9.Username Device.Users.User.1.Username "
      "Device.Users.User.{i}.Username Device.Users.User.1");
  EXPECT_EQ(get.status, 1);
  EXPECT_EQ(get.out, "Device.Users.User.1.Username = admin\n");
  EXPECT_EQ(get.error,
            "9005 Invalid parameter name: Device.Users.User.2.Usernam\n     nearest: Device.Users.User.2.Username\n"
            "9005 Invalid parameter name: Device.Users.User.9.Username (no such instance)\n"
            "9005 Invalid parameter name: Device.Users.User.{i}.Username ({i} stands for an instance number)\n"
            "9005 Invalid parameter name: Device.Users.User.1 (an object, not a parameter)\n");
  const json faults = kovadm("get --json Device.Users.User.9.Username").document()["faults"];
  EXPECT_EQ(faults[0]["code"], 9005);
  EXPECT_EQ(faults[0]["path"], "Device.Users.User.9.Username");
}

TEST_F(Kovadm, WalksEveryParameterOfTheDevice) {
  run("printf Requested >/tmp/diag/neighboringwifi_state; /usr/bin/tr069/apply/neighbor-wifi-diag >/dev/null");
  write_file("/tmp/diag/trace_result", "Hops=1\n1 4 5 6 gw.example 192.0.2.1\n");
  const Finished walk = kovadm("walk --json");
  EXPECT_EQ(walk.status, 0) << walk.error;
  const std::vector<std::string> paths = paths_of(walk.document());
  std::set<std::string> walked;
  for (const std::string& path : paths) walked.insert(with_placeholders(path));
  EXPECT_EQ(std::set<std::string>(paths.begin(), paths.end()).size(), paths.size());
  std::set<std::string> listed;
  const json list = kovadm("list --json").document();
  for (const json& parameter : list["parameters"]) listed.insert(parameter["path"]);
  if (!has_leds()) std::erase_if(listed, [](const std::string& path) { return path.starts_with("Device.LEDs.LED."); });
  EXPECT_EQ(walked, listed);
}

TEST_F(Kovadm, WalksTheInstancesThatThereAre) {
  const auto count = [](const std::string& prefix) { return kovadm("walk " + prefix).lines().size(); };
  EXPECT_EQ(count("Device.Hosts.Host."), 4 * 9U);
  EXPECT_EQ(count("Device.Hosts.Host.2."), 9U);
  EXPECT_EQ(count("Device.NAT.PortMapping."), 3 * 5U);
  EXPECT_EQ(count("Device.NAT.PortMapping"), 1 + 3 * 5U);
  write_file("/tmp/diag/trace_result", "Hops=2\n");
  EXPECT_EQ(count("Device.IP.Diagnostics.TraceRoute.RouteHops."), 2 * 4U);
  // Without a counter of their own, connections are felt for.
  EXPECT_EQ(count("InternetGatewayDevice.WANDevice.1.WANConnectionDevice.1.WANIPConnection.2.PortMapping."), 3 * 5U);
  const std::vector<std::string> names =
      kovadm("walk InternetGatewayDevice.WANDevice.1.WANConnectionDevice.1.WANIPConnection.").lines();
  EXPECT_EQ(std::count_if(names.begin(), names.end(), [](const auto& line) { return line.ends_with("wan_ip_s"); }), 1);
  EXPECT_EQ(std::count_if(names.begin(), names.end(), [](const auto& line) { return line.ends_with("wan_ip_d"); }), 1);
  EXPECT_EQ(kovadm("walk Device.Nowhere.").status, 1);
}

// ---- Setting ----

TEST_F(Kovadm, ASetTellsWhatItRaisedAndChanged) {
  const Finished set = kovadm("set " SERVER "PeriodicInformInterval=600 Device.UserInterface.RemoteAccess.Enable=1");
  EXPECT_EQ(set.status, 0) << set.error;
  EXPECT_EQ(set.out, R"(InternetGatewayDevice.ManagementServer.PeriodicInformInterval = 600
Device.UserInterface.RemoteAccess.Enable = 1
apply: APPLY_MANAGEMENT (0x4)
apply: APPLY_REMOTE_ACCESS (0x200)
store: cwmp.info.inform_interval: "3600" -> "600"
store: filter.remoteweb.enabled: (none) -> "1"
mirror: cwmp.info: (none) -> "info"
mirror: cwmp.info.inform_interval: (none) -> "600"
mirror: filter.remoteweb: (none) -> "remoteweb"
mirror: filter.remoteweb.enabled: (none) -> "1"
)");
  const json document = kovadm("set --json Device.Cellular.RoamingEnabled=1").document();
  EXPECT_EQ(document["mask"], 0x2004);
  EXPECT_EQ(document["bits"], (json{"APPLY_MANAGEMENT", "APPLY_CELLULAR"}));
  EXPECT_EQ(document["changes"][0],
            (json{{"store", "store"}, {"path", "network.4g.roaming"}, {"before", "0"}, {"after", "1"}}));
}

TEST_F(Kovadm, ARequestWithABadPathChangesNothing) {
  const Finished set = kovadm("set " SERVER "Username=new Device.DeviceInfo.UpTime=0 " SERVER "Usrname=new");
  EXPECT_EQ(set.status, 1);
  EXPECT_EQ(set.error,
            "9008 Attempt to set a non-writable parameter: Device.DeviceInfo.UpTime\n"
            "9005 Invalid parameter name: " SERVER "Usrname\n     nearest: " SERVER "Username\n");
  EXPECT_EQ(set.out, "");
  EXPECT_EQ(config("cwmp.info.username"), "kova-cpe");
}

TEST_F(Kovadm, ARefusedValueIsAFaultAndNothingIsApplied) {
  const Finished set = kovadm("set --apply " SERVER "EnableCWMP=maybe " LAN "IPRouters=192.168.1.2");
  EXPECT_EQ(set.status, 1);
  EXPECT_EQ(set.error, "9007 Invalid parameter value: " SERVER "EnableCWMP (refused \"maybe\")\n");
  EXPECT_EQ(set.out, R"(InternetGatewayDevice.LANDevice.1.LANHostConfigManagement.IPRouters = 192.168.1.2
apply: APPLY_TASK_COMMANDS (0x1)
recorded: lua /usr/bin/tr069/verify_pms lan_ip "192.168.1.2" &
)");
  EXPECT_EQ(config("network.lan.ipaddr"), "192.168.1.1");
}

TEST_F(Kovadm, ApplyDoesTheAgentsPart) {
  const Finished set =
      kovadm("set --apply --json " LAN "IPRouters=192.168.1.2 Device.NAT.PortMapping.1.ExternalPort=8081 " SERVER
             "Username='=a value='");
  EXPECT_EQ(set.status, 0) << set.error;
  const json document = set.document();
  const std::vector<std::string> recorded = {R"(lua /usr/bin/tr069/verify_pms lan_ip "192.168.1.2" &)",
                                             "/usr/bin/tr069/cwmp-nat &"};
  EXPECT_EQ(document["recorded"], recorded);
  for (size_t i = 0; i < recorded.size(); ++i)
    EXPECT_EQ(document["ran"][i], (json{{"command", recorded[i]}, {"status", 0}}));
  EXPECT_EQ(document["left"], (json{{{"bit", "APPLY_MANAGEMENT"}, {"work", "reloads its own settings"}}}));
  EXPECT_EQ(document["applied"][0]["path"], "network.lan.ipaddr");
  EXPECT_EQ(config("network.lan.ipaddr"), "192.168.1.2");
  EXPECT_EQ(config("cwmp.info.username"), "=a value=");
  EXPECT_EQ(contents("/tmp/firewall.log"), "firewall: 3 redirects loaded\n");
  EXPECT_EQ(task_record() + task_record_once(), "");
}

TEST_F(Kovadm, OnlyWhatTheRequestRecordedIsTold) {
  write_file("/tmp/tr069/cmd_record", "echo from an earlier request\n");
  const json set = kovadm("set --json " LAN "IPInterface.1.IPInterfaceSubnetMask=255.255.0.0").document();
  EXPECT_EQ(set["recorded"], json{R"(lua /usr/bin/tr069/verify_pms lan_mask "255.255.0.0" &)"});
}

// ---- Looking closer ----

TEST_F(Kovadm, ExplainTellsWhatOneGetDid) {
  run("echo lte > /etc/lab/modem");
  const json cell = kovadm("explain --json Device.Cellular.Interface.1.RSRP").document();
  EXPECT_EQ(cell["handler"], "Cellular_Interface_RSRP");
  EXPECT_EQ(cell["value"], "-101");
  EXPECT_EQ(cell["commands"].size(), 2U);
  EXPECT_EQ(cell["bus"], json{"network.interface.4g status"});

  const Finished url = kovadm("explain " SERVER "URL");
  EXPECT_NE(url.out.find("options    cwmp.info.url = http://acs.example.net:7547/acs\n"), std::string::npos);
  EXPECT_NE(url.out.find("instances  [0, 0, 0, 0]\n"), std::string::npos);

  const json servers = kovadm(
                           "explain --json InternetGatewayDevice.WANDevice.1.WANConnectionDevice.1.WANIPConnection.2."
                           "DNSServers")
                           .document();
  EXPECT_EQ(servers["value"], "192.0.2.53,198.51.100.53");
  EXPECT_EQ(kovadm("explain Device.DeviceInfo.Uptime").error,
            "9005 Invalid parameter name: Device.DeviceInfo.Uptime\n     nearest: Device.DeviceInfo.UpTime\n");

  configure("cwmp.info.enable", "");
  const Finished missing = kovadm("explain " SERVER "EnableCWMP");
  EXPECT_EQ(missing.status, 1);
  EXPECT_NE(missing.out.find("cwmp.info.enable (not there)"), std::string::npos);
  EXPECT_NE(missing.out.find("FTGACSE."), std::string::npos);
  EXPECT_EQ(contents("/tmp/cwmp_debug"), std::nullopt);
}

TEST_F(Kovadm, DebugSwitchesTheLogOnForTheRun) {
  const Finished get = kovadm("--debug get Device.DeviceInfo.SerialNumber");
  EXPECT_EQ(get.out, "Device.DeviceInfo.SerialNumber = KV4G226010042\n");
  EXPECT_NE(get.error.find("pkg-tool.c, "), std::string::npos);
  EXPECT_NE(get.error.find("cmd: bdinfo sn--KV4G226010042\n"), std::string::npos);
  EXPECT_EQ(contents("/tmp/cwmp_debug"), std::nullopt);
  EXPECT_EQ(kovadm("get Device.DeviceInfo.SerialNumber").error, "");
}

TEST_F(Kovadm, ABrokenOffRunLeavesNoLogSwitchedOn) {
  run("echo 'sleep 2' >/usr/bin/bdinfo");
  const auto end_status = [](const std::string& start, const std::string& kill) {
    return WEXITSTATUS(run(start +
                           "kovadm --debug get Device.DeviceInfo.SerialNumber 2>/dev/null & "
                           "while ! [ -e /tmp/cwmp_debug ]; do :; done; " +
                           kill + "; wait $!"));
  };
  EXPECT_EQ(end_status("", "kill -HUP $!"), 128 + SIGHUP);
  EXPECT_EQ(contents("/tmp/cwmp_debug"), std::nullopt);
  EXPECT_EQ(end_status("trap '' HUP; ", "kill -HUP $!; sleep 0.1; kill -TERM $!"),
            128 + SIGTERM);  // what its caller ignores, it ignores
  EXPECT_EQ(contents("/tmp/cwmp_debug"), std::nullopt);
}

TEST_F(Kovadm, TheAgentsRecordIsTheUsersToGive) {
  write_file("/root/agent.json", R"({"connection_request_host": "198.51.100.7", "connection_request_port": 8080,
                                     "connection_request_path": "/kova", "stun_enabled": 1})");
  EXPECT_EQ(kovadm("--agent-state /root/agent.json get " SERVER "ConnectionRequestURL " SERVER "STUNEnable").out,
            R"(InternetGatewayDevice.ManagementServer.ConnectionRequestURL = http://198.51.100.7:8080/kova
InternetGatewayDevice.ManagementServer.STUNEnable = 1
)");
  const std::pair<const char*, const char*> faults[] = {
      {R"({"stun_port": 1})", "kovadm: agent state: unknown field stun_port\n"},
      {R"({"stun_server_port": 65536})",
       "kovadm: agent state: stun_server_port must be a number from 0 to 65535, not 65536\n"},
      {R"({"connection_request_path": "kova"})",
       "kovadm: agent state: connection_request_path must be a text that begins with /, not \"kova\"\n"},
      {"[]", "kovadm: agent state: /root/agent.json is no JSON object\n"},
  };
  for (const auto& [text, message] : faults) {
    write_file("/root/agent.json", text);
    const Finished get = kovadm("--agent-state /root/agent.json get " SERVER "URL");
    EXPECT_EQ(get.status, 2);
    EXPECT_EQ(get.error, message);
  }
}

TEST_F(Kovadm, MisuseEndsWithTwoAndSaysWhatIsWrong) {
  const std::pair<const char*, const char*> misuses[] = {{"", "subcommand is required"},
                                                         {"frobnicate", "no command \"frobnicate\""},
                                                         {"get", "PATH is required"},
                                                         {"set Device.Name", "not PATH=VALUE: Device.Name"},
                                                         {"set =value", "not PATH=VALUE: =value"},
                                                         {"--plugin /nowhere.so walk", "cannot load the plug-in"},
                                                         {"--agent-state /nowhere walk", "cannot read /nowhere"},
                                                         {"--agent-state / walk", "cannot read /\n"}};
  for (const auto& [arguments, message] : misuses) {
    const Finished misuse = kovadm(arguments);
    EXPECT_EQ(misuse.status, 2) << arguments;
    EXPECT_NE(misuse.error.find(message), std::string::npos) << misuse.error;
    EXPECT_EQ(misuse.out, "");
  }
  EXPECT_EQ(kovadm("--help").status, 0);
}

}  // namespace
}  // namespace kova::test

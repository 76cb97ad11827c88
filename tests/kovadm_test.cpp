// kovadm, run as its user does.
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <nlohmann/json.hpp>
#include <regex>
#include <set>
#include <sstream>
#include <tuple>

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

// The parameter whose handler runs cwmp-ntp, which a test can replace.
#define ZONE "Device.Time.LocalTimeZone"

void script_is(const std::string& path, const std::string& text) {
  write_file(path, "#!/bin/sh\n" + text + "\n");
  run("chmod 755 " + path);
}

// What the command writes to a terminal of this kind.
std::string on_terminal(const char* kind, const char* command) {
  int terminal = -1;
  const pid_t child = forkpty(&terminal, nullptr, nullptr, nullptr);
  if (child == 0) {
    setenv("TERM", kind, 1);
    execl("/bin/sh", "sh", "-c", command, nullptr);
    _exit(127);
  }
  std::string text;
  char part[4096];
  for (ssize_t length = 0; (length = read(terminal, part, sizeof part)) > 0;)
    text.append(part, static_cast<size_t>(length));
  waitpid(child, nullptr, 0);
  close(terminal);
  return text;
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

void expect_examples_of(const char* file) {
  std::istringstream page(*contents(file));
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
  EXPECT_GE(examples, 6) << file;
}

TEST_F(Kovadm, DoesWhatItsPagesShow) {
  expect_examples_of(KOVADM_PAGE);
  expect_examples_of(RECORDINGS_PAGE);
}

// ---- Reading ----

TEST_F(Kovadm, ListsTheCatalogueBelowABeginningOfPaths) {
  const Finished all = kovadm("list --json");
  EXPECT_EQ(all.status, 0);
  std::set<std::string> handlers;
  const json document = all.document();
  for (const json& parameter : document["parameters"]) handlers.insert(parameter["handler"]);
  EXPECT_EQ(handlers.size(), std::size(kCatalogue));

  EXPECT_EQ(kovadm("list Device.LEDs.LED").out, R"(Device.LEDs.LEDNumberOfEntries  read-only  unsignedInt
Device.LEDs.LED.{i}.Name        read-only  string
Device.LEDs.LED.{i}.Status      read-only  string
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
            "9005 Invalid parameter name: Device.Users.User.9.Username (no such instance: Device.Users.User has 2)\n"
            "9005 Invalid parameter name: Device.Users.User.{i}.Username ({i} stands for an instance number)\n"
            "9005 Invalid parameter name: Device.Users.User.1 (an object, not a parameter)\n");
  const json faults = kovadm("get --json Device.Users.User.9.Username").document()["faults"];
  EXPECT_EQ(faults[0]["code"], 9005);
  EXPECT_EQ(faults[0]["path"], "Device.Users.User.9.Username");
}

TEST_F(Kovadm, InstancesThatDoNotExistHaveNoValues) {
  const std::pair<const char*, const char*> paths[] = {
      {"InternetGatewayDevice.LANDevice.7.LANHostConfigManagement.DHCPServerEnable",  // the handler looks at no number
       "InternetGatewayDevice.LANDevice has 1"},
      {"InternetGatewayDevice.LANDevice.1.Hosts.Host.99.IPAddress",
       "InternetGatewayDevice.LANDevice.1.Hosts.Host has 4"},
      {"Device.DHCPv4.Server.Pool.0.", "Device.DHCPv4.Server.Pool has 1"},
      {"InternetGatewayDevice.WANDevice.1.WANConnectionDevice.1.WANIPConnection.3.Name",
       "InternetGatewayDevice.WANDevice.1.WANConnectionDevice.1.WANIPConnection has 2"},
  };
  for (const auto& [path, has] : paths) {
    const std::string fault =
        std::string("9005 Invalid parameter name: ") + path + " (no such instance: " + has + ")\n";
    EXPECT_EQ(kovadm(std::string("get ") + path).error, fault);
    EXPECT_EQ(kovadm(std::string("walk ") + path).error, fault);
  }
  const Finished set = kovadm("set " SERVER "Username=new Device.NAT.PortMapping.99.ExternalPort=80");
  EXPECT_EQ(set.status, 1);
  EXPECT_EQ(config("cwmp.info.username"), "kova-cpe");
  // A closer look shows the handler's answer all the same.
  const Finished explained = kovadm("explain Device.LEDs.LED.77.Name");
  EXPECT_EQ(explained.lines().back(), "value      led");
  EXPECT_EQ(explained.status, 1);
}

TEST_F(Kovadm, KnowsWhatIsMeantWithAPath) {
  const std::pair<const char*, const char*> paths[] = {
      {"Device.DHCPv4.Serv.Pool.1.Enable", "Device.DHCPv4.Server.Pool.1.Enable"},
      {"Device.Cell.Int.1.CurrentAcc", "Device.Cellular.Interface.1.CurrentAccessTechnology"},
      {"device.deviceinfo.uptime", "Device.DeviceInfo.UpTime"},
      {"PeriodicInformInterval", "InternetGatewayDevice.ManagementServer.PeriodicInformInterval"},
      {"PortMapping.2.InternalClient",
       "InternetGatewayDevice.WANDevice.{i}.WANConnectionDevice.{i}.WANIPConnection.{i}.PortMapping.2.InternalClient"},
  };
  for (const auto& [path, meant] : paths)
    EXPECT_EQ(kovadm(std::string("get --json ") + path).document()["faults"][0]["nearest"], meant);
  EXPECT_EQ(kovadm("get Xyz").error, "9005 Invalid parameter name: Xyz\n");
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

// ---- Recordings ----

#define RECORDING "/root/recording.json"

#ifdef __SANITIZE_ADDRESS__
constexpr bool kSanitized = true;
#else
constexpr bool kSanitized = false;
#endif

// Without the parameters that do not stand still.
std::vector<std::string> steady(const Finished& walk) {
  static const std::regex moving("(UpTime|CurrentLocalTime|Bytes|Packets|CPUUsage|ProcessNumberOf|Memory)[^ ]* = ");
  std::vector<std::string> lines = walk.lines();
  std::erase_if(lines, [](const std::string& line) { return std::regex_search(line, moving); });
  return lines;
}

// Leaves nothing that a replay could ask instead of its recording.
void leave_no_router() { run("rm -rf /etc/config /etc/profile.d /etc/lab /usr/bin/tr069 /var/run/4g /tmp/*"); }

TEST_F(Kovadm, AReplayGivesTheTextsOfTheRouterWhereThereIsNone) {
  // All parameters once, which takes a thousand processes; then those that the modes make a difference for.
  const std::string wan =
      " InternetGatewayDevice.Layer3Forwarding. Device.IP.Interface. Device.PPP. Device.Ethernet.Link."
      " Device.DHCPv4.Client. Device.Cellular.";
  const std::tuple<const char*, const char*, std::string> modes[] = {{"dhcp", "nr5g-sa", kSanitized ? wan : ""},
                                                                     {"static", "nr5g-nsa", wan},
                                                                     {"pppoe", "lte", wan},
                                                                     {"l2tp", "none", wan}};
  for (const auto& [protocol, modem, below] : modes) {
    ASSERT_EQ(run("/sbin/lab-reset"), 0);
    configure("network.wan.proto", protocol);
    write_file("/etc/lab/modem", std::string(modem) + "\n");
    const std::vector<std::string> live = steady(kovadm("walk" + below));
    EXPECT_EQ(kovadm("record --with-secrets " RECORDING + below).status, 0);
    leave_no_router();
    const Finished replay = kovadm("--replay " RECORDING " walk" + below);
    EXPECT_EQ(replay.status, 0) << replay.error;
    EXPECT_EQ(steady(replay), live) << protocol << " " << modem;
    EXPECT_EQ(run("test -z \"$(ls -d /etc/config /tmp/* 2>/dev/null)\""), 0);
  }
}

TEST_F(Kovadm, AReplayOfARequestToldWhatTheRouterTells) {
  const char* const commands[] = {
      "set --json " SERVER "PeriodicInformInterval=600 Device.UserInterface.RemoteAccess.Enable=1 " LAN
      "IPRouters=192.168.1.2 Device.Users.User.1.Password=new",
      "set --json " SERVER "Username=",
      "explain --json Device.Hosts.Host.1.PhysAddress",
      "explain --json Device.IP.Interface.1.IPv4Address.1.IPAddress",
  };
  EXPECT_EQ(kovadm("record --with-secrets " RECORDING).status, 0);
  for (const char* command : commands) {
    ASSERT_EQ(run("/sbin/lab-reset"), 0);
    const Finished live = kovadm(command);
    leave_no_router();
    const Finished replay = kovadm(std::string("--replay " RECORDING " ") + command);
    EXPECT_EQ(replay.out + replay.error, live.out + live.error);
    EXPECT_EQ(replay.status, live.status) << command;
    EXPECT_EQ(run("test -z \"$(ls -d /etc/config /tmp/* 2>/dev/null)\""), 0);
  }
}

TEST_F(Kovadm, ARecordingHasNoSecretsUnlessAskedFor) {
  write_file("/etc/config/extra", R"(config x 'y' # option psk unset
	option "psk" "two\"lines
and-a-tail"; option name 'kept  '
	list wepkey 'it'\''s-hidden'
	option copy 'correct horse'
	option empty_password ''
)");
  run("mkdir -p /tmp/.uci && echo \"network.wan.password='pending-secret'\" >/tmp/.uci/network");
  run("echo 'lua verify_pms user_pw recorded-secret' >/tmp/tr069/cmd_record");
  script_is("/usr/bin/tr069/cwmp-ntp", "echo 'correct horse' >/tmp/tr069/curtimezone");
  write_file("/root/agent", R"({"stun_password": "stun-secret"})");
  const Finished record = kovadm("record --agent-state /root/agent " RECORDING);
  EXPECT_EQ(record.status, 0);
  for (const char* line : {"replaced: option psk of extra", "replaced: option password of /tmp/.uci/network",
                           "replaced: field stun_password of the agent's record"})
    EXPECT_NE(record.out.find(line), std::string::npos) << line;
  const std::string text = *contents(RECORDING);
  for (const char* secret :
       {"cpe-secret", "acs-secret", "admin-secret", "guest-secret", "ppp-secret", "mobile-secret", "ddns-secret",
        "noip-secret", "correct horse", "and-a-tail", "s-hidden", "pending-secret", "recorded-secret", "stun-secret"})
    EXPECT_EQ(text.find(secret), std::string::npos) << secret;
  const json extra = {"config x 'y' # option psk unset", "\toption \"psk\" '(secret)'; option name 'kept  '",
                      "\tlist wepkey '(secret)'",        "\toption copy '(secret)'",
                      "\toption empty_password ''",      ""};
  EXPECT_EQ(json::parse(text)["directories"]["/etc/config"]["extra"], extra);
}

TEST_F(Kovadm, AFileThatIsNoRecordingIsRefusedInOneLine) {
  ASSERT_EQ(kovadm("record " RECORDING " Device.IP.").status, 0);
  const std::string good = *contents(RECORDING);
  const auto with = [&](const std::string& part, const std::string& other) {
    return std::regex_replace(good, std::regex(part), other, std::regex_constants::format_first_only);
  };
  const std::pair<std::string, const char*> files[] = {
      {"", "it is no JSON, or cut off"},
      {good.substr(0, good.size() / 2), "it is no JSON, or cut off"},
      {std::string("\x7f\x45LF\0\xff", 6), "it is no JSON, or cut off"},
      {std::string(1000000, '['), "its values are nested too deeply"},
      {std::string(17 << 20, ' '), "it is larger than 16 MiB"},
      {"[]", "it is none"},
      {R"({"format": "kovadm recording"})", "its \"version\" is missing or wrong"},
      {with("\"version\": 1", "\"version\": 2"), "it is of version 2, this kovadm reads version 1"},
      {with("\"version\": 1", "\"version\": 1e99"), "its \"version\" is missing or wrong"},
      {with("\"agent\": ..", "\"agent\": 1"), "its \"agent\" is missing or wrong"},
      {with("\"/etc/config\"", "\"/etc\""), "directory /etc is none that is recorded"},
      {with("\"network\"", "\"../passwd\""), "\"../passwd\" is no file's name"},
      {with("\"status\": 0", "\"status\": 4711"), "has a status out of range"},
      {with("\"up\": true", "\"up\": null"), "has a reply that is no message"},
  };
  for (const auto& [text, fault] : files) {
    write_file("/root/bad.json", text);
    const Finished replay = kovadm("--replay /root/bad.json walk");
    EXPECT_EQ(replay.status, 2) << fault;
    EXPECT_TRUE(replay.error.starts_with("kovadm: /root/bad.json is no recording that can be read: ")) << replay.error;
    EXPECT_TRUE(replay.error.ends_with(fault + std::string("\n"))) << replay.error;
    EXPECT_EQ(std::count(replay.error.begin(), replay.error.end(), '\n'), 1);
  }
  EXPECT_EQ(kovadm("--replay /root/none walk").error, "kovadm: cannot read /root/none\n");
  EXPECT_EQ(kovadm("--replay " RECORDING " set --apply " SERVER "Username=new").status, 2);
  EXPECT_EQ(kovadm("--json --replay " RECORDING " get Device.DeviceInfo.UpTime").document()["not_recorded"].size(), 1U);
}

// ---- Setting ----

TEST_F(Kovadm, ASetTellsWhatItRaisedAndChanged) {
  const Finished set = kovadm("set " SERVER "PeriodicInformInterval=600 Device.UserInterface.RemoteAccess.Enable=1");
  EXPECT_EQ(set.status, 0) << set.error;
  EXPECT_EQ(set.out, R"(apply: APPLY_MANAGEMENT (0x4)
apply: APPLY_REMOTE_ACCESS (0x200)
store: cwmp.info.inform_interval: "3600" -> "600"
store: filter.remoteweb.enabled: (none) -> "1"
mirror: cwmp.info: (none) -> "info"
mirror: cwmp.info.inform_interval: (none) -> "600"
mirror: filter.remoteweb: (none) -> "remoteweb"
mirror: filter.remoteweb.enabled: (none) -> "1"
InternetGatewayDevice.ManagementServer.PeriodicInformInterval = 600
Device.UserInterface.RemoteAccess.Enable = 1
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

TEST_F(Kovadm, AValueHasToBeOfTheParametersType) {
  const std::string integer = " " SERVER "PeriodicInformInterval=";
  const std::string boolean = " " SERVER "PeriodicInformEnable=";
  const std::string address = " " LAN "MinAddress=";
  const std::string time = " Device.Time.CurrentLocalTime=";
  std::string settings;
  int number = 0;
  for (const auto& [path, values] : {std::pair{integer, std::vector{"-1", "4294967296", "1.5", "1x", "+-1", "0x1", ""}},
                                     {boolean, {"yes", "2", "TRUE", ""}},
                                     {address, {"192.168.1", "192.168.1.256", "192.168.1.1.1", "router"}},
                                     {time, {"2026-11-25", "2026-11-25T10:00", "now"}}}) {
    for (const char* value : values) settings += path + value;
    number += static_cast<int>(values.size());
  }
  const Finished refused = kovadm("set --json" + settings);
  const json faults = refused.document()["faults"];
  EXPECT_EQ(faults.size(), static_cast<size_t>(number));
  for (const json& fault : faults) EXPECT_TRUE(std::string(fault["detail"]).starts_with("no ")) << fault;
  for (const char* setting : {SERVER "PeriodicInformInterval=+600", SERVER "PeriodicInformEnable=0",
                              SERVER "URL=no address", LAN "MinAddress=192.168.1.20"})
    EXPECT_EQ(kovadm("set '" + std::string(setting) + "'").error, "") << setting;
  EXPECT_EQ(kovadm("set Device.Time.CurrentLocalTime=2026-11-25T10:00:00.5+01:00").status, 3);
}

TEST_F(Kovadm, ValuesComeFromFilesToo) {
  write_file("/root/value", " a b\n\n");
  EXPECT_EQ(kovadm("set " SERVER "Username=@/root/value").status, 0);
  EXPECT_EQ(config("cwmp.info.username"), " a b\n");
  EXPECT_EQ(kovadm("set " SERVER "Username=@@/root/value").status, 0);
  EXPECT_EQ(config("cwmp.info.username"), "@/root/value");
  EXPECT_EQ(run("printf one | kovadm set " SERVER "Username=@- >/dev/null"), 0);
  EXPECT_EQ(config("cwmp.info.username"), "one");
  write_file("/root/zero", std::string("a\0b", 3));
  for (const auto& [name, message] : {std::pair{"/root/none", "cannot read /root/none"},
                                      {"/root", "cannot read /root"},
                                      {"/root/zero", "/root/zero holds a zero byte, no value can"}}) {
    const Finished set = kovadm("set " SERVER "Username=two " SERVER "Password=@" + std::string(name));
    EXPECT_EQ(set.status, 2);
    EXPECT_EQ(set.error, "kovadm: " + std::string(message) + "\n");
  }
  EXPECT_EQ(config("cwmp.info.username"), "one");
}

// A change of the catalogue's access, or of what it serves, is noticed here.
TEST_F(Kovadm, ProfilesThatAreServedWhole) {
  const json all = kovadm("profiles --json").document();
  std::set<std::string> whole;
  std::string names;
  for (const json& profile : all["profiles"]) {
    const std::string name = profile["name"];
    if (profile["whole"]) whole.insert(std::string(profile["model"]) + " " + name);
    names += " " + name;
  }
  EXPECT_EQ(all["profiles"].size(), 74U);
  EXPECT_EQ(whole, (std::set<std::string>{
                       "TR-098 1.14 DownloadTCP:1", "TR-098 1.14 MemoryStatus:1", "TR-098 1.14 UploadTCP:1",
                       "TR-181 2.17 CellularInterfaceStats:1", "TR-181 2.17 DownloadTCP:1", "TR-181 2.17 Hosts:1",
                       "TR-181 2.17 MemoryStatus:1", "TR-181 2.17 UDPConnReq:1", "TR-181 2.17 UploadTCP:1"}));

  std::set<std::string> unexplained;
  std::set<std::string> differing;
  const json details = kovadm("profiles --json" + names).document();
  for (const json& profile : details["profiles"]) {
    for (const json& parameter : profile["parameters"]) {
      if (!parameter.contains("reason")) continue;
      differing.insert(parameter["path"]);
      if (parameter["reason"] == "") unexplained.insert(parameter["path"]);
    }
  }
  EXPECT_EQ(differing.size(), 41U);
  EXPECT_EQ(unexplained, std::set<std::string>());
}

TEST_F(Kovadm, ARefusedValueIsAFaultAndNothingIsApplied) {
  const Finished set = kovadm("set --apply --force " SERVER "EnableCWMP=maybe " LAN "IPRouters=192.168.1.2");
  EXPECT_EQ(set.status, 1);
  EXPECT_EQ(set.error, "9007 Invalid parameter value: " SERVER "EnableCWMP (refused \"maybe\")\n");
  EXPECT_EQ(set.out, R"(apply: APPLY_TASK_COMMANDS (0x1)
recorded: lua /usr/bin/tr069/verify_pms lan_ip "192.168.1.2" &
InternetGatewayDevice.LANDevice.1.LANHostConfigManagement.IPRouters = 192.168.1.1 (deferred: asked for "192.168.1.2")
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
    EXPECT_EQ(document["ran"][i], (json{{"bit", "APPLY_TASK_COMMANDS"}, {"command", recorded[i]}, {"status", 0}}));
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

TEST_F(Kovadm, ASetTellsWhatIsTrueAfterwards) {
  const struct {
    const char* arguments;
    int status;
    const char* line;  // the last one
  } sets[] = {
      {LAN "IPRouters=192.168.1.2", 0, LAN "IPRouters = 192.168.1.1 (deferred: asked for \"192.168.1.2\")"},
      {"--apply " LAN "IPRouters=192.168.1.2", 0, LAN "IPRouters = 192.168.1.2"},
      {"--apply " LAN "IPRouters=192.168.1.255", 3,
       LAN "IPRouters = 192.168.1.2 (nothing changed: asked for \"192.168.1.255\")"},
      {LAN "DHCPLeaseTime=3661", 0, LAN "DHCPLeaseTime = 3660 (differs: asked for \"3661\")"},
      {"Device.Users.User.1.Password=new-secret", 0, "Device.Users.User.1.Password = (hidden)"},
      {"Device.LEDs.Enable=0", 0, "Device.LEDs.Enable = 0"},
  };
  for (const auto& [arguments, status, line] : sets) {
    const Finished set = kovadm(std::string("set ") + arguments);
    EXPECT_EQ(set.status, status) << arguments;
    EXPECT_EQ(set.lines().back(), line);
  }
  const json value = kovadm("set --json " LAN "IPRouters=192.168.1.3").document()["values"][0];
  EXPECT_EQ(value["value"], "192.168.1.2");
  EXPECT_EQ(value["asked"], "192.168.1.3");
  EXPECT_EQ(value["effect"], "deferred");
}

TEST_F(Kovadm, AFullDiskIsNoSuccess) {
  run("(trap '' XFSZ; ulimit -f 0; kovadm set " SERVER "Username=new; echo $?) 2>&1 | cat >/root/out");
  EXPECT_EQ(contents("/root/out"),
            "apply: APPLY_MANAGEMENT (0x4)\n" SERVER "Username = kova-cpe (nothing changed: asked for \"new\")\n3\n");
}

TEST_F(Kovadm, PendingChangesAreToldOnceAndBlamedOnNobodyElse) {
  const std::string leds = kovadm("set Device.LEDs.Enable=0").lines()[1];
  EXPECT_TRUE(std::regex_match(leds, std::regex(R"re(pending: system\..*\.leds: "1" -> "0")re"))) << leds;
  EXPECT_EQ(kovadm("set Device.LEDs.Enable=0").lines().size(), 2U);
  const json committed = kovadm("set --json Device.Time.NTPServer1=time.example").document()["changes"];
  EXPECT_EQ(committed[0]["was_pending"], true);
  EXPECT_FALSE(committed[1].contains("was_pending"));
}

// ---- The agent's part ----

TEST_F(Kovadm, ApplyStartsTheServicesOfTheRaisedBits) {
  const struct {
    const char* setting;
    const char* service;
    const char* printed;
  } sets[] = {
      {SERVER "PeriodicInformInterval=60", "management",
       "agent: talks to http://acs.example.net:7547/acs, informs it every 60 seconds"},
      {SERVER "PeriodicInformEnable=0", "management",
       "agent: talks to http://acs.example.net:7547/acs, without periodic informs"},
      {"InternetGatewayDevice.X_KOVA_AppCfg.DynDnsCfg.Enable=1", "ddns",
       "ddns: keeps home.dyndns.example up to date at dyndns.example"},
      {"Device.UserInterface.RemoteAccess.Port=8443", "remote-access",
       "remote access: switched off, nothing to be opened"},
      {"Device.UserInterface.RemoteAccess.Enable=1", "remote-access", "remote access: open at port 8443"},
      {"Device.UserInterface.RemoteAccess.Enable=0", "remote-access-off", "remote access: closed"},
      {"Device.LEDs.Enable=0", "leds", "leds: "},
      {"Device.Cellular.Interface.1.Enable=0", "cellular", "cellular: "},
  };
  for (const auto& [setting, service, printed] : sets) {
    const Finished set = kovadm(std::string("set --apply ") + setting);
    EXPECT_EQ(set.status, 0) << set.error;
    EXPECT_NE(set.out.find(std::string("\nran: /usr/bin/tr069/apply/") + service + " (status 0)\n"), std::string::npos);
    EXPECT_NE(set.out.find(std::string("\nprinted: ") + printed), std::string::npos) << set.out;
  }
  EXPECT_EQ(config("firewall.remoteweb.dest_port"), std::nullopt);
  EXPECT_EQ(contents("/sys/class/leds/power/brightness").value_or("0\n"), "0\n");
}

TEST_F(Kovadm, AServiceMayChangeWhatWasSetAndTheFilesOfATest) {
  script_is("/usr/bin/tr069/apply/leds",
            "uci set system.@system[0].leds=2; uci commit; echo Complete >/tmp/diag/state");
  kovadm("set Device.LEDs.Enable=0");  // the handler will have nothing to store
  const Finished set = kovadm("set --apply Device.LEDs.Enable=0");
  EXPECT_EQ(set.status, 0);
  EXPECT_EQ(set.lines().back(), "Device.LEDs.Enable = 2 (differs: asked for \"0\")");
  EXPECT_NE(set.out.find("file: /tmp/diag/state: (none) -> \"Complete\\n\"\n"), std::string::npos);
  run("rm /usr/bin/tr069/apply/leds");
  EXPECT_EQ(kovadm("set --apply --json Device.LEDs.Enable=0").document()["left"],
            (json{{{"bit", "APPLY_LEDS"}, {"work", "switches the LEDs"}, {"service", "/usr/bin/tr069/apply/leds"}}}));
}

TEST_F(Kovadm, ApplyFailsWithWhatItRuns) {
  script_is("/usr/bin/tr069/cwmp-nat", "exit 3");
  script_is("/usr/bin/tr069/apply/leds", "kill -9 $$");
  const Finished set = kovadm("set --apply Device.NAT.PortMapping.1.ExternalPort=81 Device.LEDs.Enable=0");
  EXPECT_EQ(set.status, 1);
  EXPECT_EQ(set.error,
            "failed: /usr/bin/tr069/cwmp-nat & (status 3)\nfailed: /usr/bin/tr069/apply/leds (status 137)\n");
  EXPECT_EQ(task_record_once(), "");
}

// ---- Commands, signals and streams ----

TEST_F(Kovadm, WhatCommandsPrintIsToldAsSuch) {
  script_is("/usr/bin/tr069/cwmp-ntp", "echo some; echo noise");
  for (const char* arguments : {"get " ZONE, "walk " ZONE, "set Device.Time.Enable=1"}) {
    EXPECT_TRUE(kovadm(arguments).out.starts_with("printed: some\nprinted: noise\nDevice.Time.")) << arguments;
    EXPECT_EQ(kovadm(std::string("--json ") + arguments).document()["printed"], "some\nnoise\n") << arguments;
  }
}

TEST_F(Kovadm, SignalsEndItAndNoFallbackIsReadInstead) {
  const std::pair<const char*, const char*> scripts[] = {{"/usr/bin/tr069/cwmp-ntp", ZONE},  // run with system()
                                                         {"/usr/bin/bdinfo", "Device.DeviceInfo.SerialNumber"}};
  for (const auto& [script, parameter] : scripts) {
    const std::string get = std::string("kovadm get ") + parameter + " >/root/out 2>/dev/null; exit $?";
    script_is(script, "sleep 3");
    EXPECT_EQ(WEXITSTATUS(run("timeout -s INT 1 " + get)), 128 + SIGINT);
    EXPECT_EQ(WEXITSTATUS(run("timeout -s TERM 1 " + get)), 128 + SIGTERM);
    // Who ends a child means its parent too.
    script_is(script, "kill -TERM $$");
    EXPECT_EQ(WEXITSTATUS(run(get)), 128 + SIGTERM);
    EXPECT_EQ(contents("/root/out"), "");
  }
  EXPECT_EQ(
      WEXITSTATUS(run("timeout -s TERM 1 kovadm --plugin " SIGNAL_TAKER " get Device.DeviceInfo.UpTime; exit $?")),
      128 + SIGTERM);
}

TEST_F(Kovadm, LooksWhereItsOutputGoes) {
  EXPECT_EQ(WEXITSTATUS(run("kovadm set " SERVER "Username=new >&- 2>/root/error")), 2);
  EXPECT_EQ(contents("/root/error"), "kovadm: standard output: Bad file descriptor\n");
  EXPECT_EQ(config("cwmp.info.username"), "kova-cpe");
  EXPECT_EQ(WEXITSTATUS(run("kovadm --help >/dev/full 2>/dev/null")), 2);
  EXPECT_NE(on_terminal("xterm", "kovadm walk Device.Users.").find("\x1b[K2 Device.Users.User.1.Username"),
            std::string::npos);
  EXPECT_EQ(on_terminal("dumb", "kovadm walk Device.Users.").find('\x1b'), std::string::npos);
  script_is("/usr/bin/tr069/apply/leds", "sleep 1.5");
  EXPECT_NE(on_terminal("xterm", "kovadm set --apply Device.LEDs.Enable=0").find("\x1b[K1 s /usr/bin/tr069/apply/leds"),
            std::string::npos);
}

TEST_F(Kovadm, AMachineThatIsNoRouterIsToldSo) {
  run("mv /etc/config /etc/lab/config");
  for (const char* arguments :
       {"get Device.DeviceInfo.UpTime", "walk", "set " SERVER "Username=new", "explain " ZONE}) {
    const Finished refused = kovadm(arguments);
    EXPECT_EQ(refused.status, 2);
    EXPECT_EQ(refused.out, "");
    EXPECT_EQ(refused.error,
              "kovadm: this is no router, it has no /etc/config; the simulated one: lab/launch -- kovadm ...\n");
  }
  EXPECT_EQ(kovadm("list").status, 0);
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

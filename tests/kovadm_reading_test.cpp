// kovadm as its user reads with it: values, tables, profiles, and what a get does.
#include <regex>
#include <set>

#include "support/catalogue.hpp"
#include "support/kovadm.hpp"

namespace kova::test {
namespace {

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

TEST_F(Kovadm, LooksOnceUnlessToldNot) {
  script_is("/usr/bin/tr069/cwmp-ntp", "echo run >>/root/runs; echo GMT0 >/tmp/tr069/curtimezone");
  for (const char* command : {"get " ZONE " " ZONE, "walk " ZONE " " ZONE, "profiles --live Time"}) {
    SCOPED_TRACE(command);
    for (const auto& [option, runs] : {std::pair{"", "run\n"}, {"--no-look ", "run\nrun\n"}}) {
      write_file("/root/runs", "");
      EXPECT_EQ(kovadm(std::string(option) + command).status, 0);
      EXPECT_EQ(contents("/root/runs"), runs);
    }
  }
}

TEST_F(Kovadm, ValuesTakeOneLineAndAnyBytes) {
  write_file("/etc/config/cwmp", "config info 'info'\n\toption username 'two\nlines\t\x1b \\n \xff'\n");
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
  for (const char* command :
       {"get " SERVER "URL", "--json get " SERVER "URL", "explain Device.Hosts.Host.1.IPAddress", "list", "--help"}) {
    EXPECT_EQ(WEXITSTATUS(run(std::string("kovadm ") + command + " >/dev/full 2>/root/error")), 2);
    EXPECT_EQ(contents("/root/error"), "kovadm: standard output: No space left on device\n");
  }
  // A closed standard error is not mixed up with standard output.
  run("kovadm --json --debug get Device.DeviceInfo.SerialNumber >/root/out 2>&-");
  EXPECT_TRUE(json::accept(*contents("/root/out")));
}

TEST_F(Kovadm, FaultsCarryTheProtocolsNumbersAndTheRestIsAnswered) {
  const Finished get = kovadm(
      "get Device.Users.User.2.Usernam Device.Users.User.9.Username Device.Users.User.1.Username "
      "Device.Users.User.{i}.Username Device.Users.User.1 Device.Users.User.01.Username");
  EXPECT_EQ(get.status, 1);
  EXPECT_EQ(get.out, "Device.Users.User.1.Username = admin\n");
  EXPECT_EQ(get.error,
            "9005 Invalid parameter name: Device.Users.User.2.Usernam\n     nearest: Device.Users.User.2.Username\n"
            "9005 Invalid parameter name: Device.Users.User.9.Username (no such instance: Device.Users.User has 2)\n"
            "9005 Invalid parameter name: Device.Users.User.{i}.Username ({i} stands for an instance number)\n"
            "9005 Invalid parameter name: Device.Users.User.1 (an object, not a parameter)\n"
            "9005 Invalid parameter name: Device.Users.User.01.Username (\"01\" is no instance number)\n");
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
  const std::string longest(100000, 'x');
  for (const std::string& path : {longest, "Device." + longest, "Device.1." + longest})
    EXPECT_EQ(run("timeout 1 kovadm get " + path + " >/dev/null 2>&1; test $? = 1"), 0);
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
  const auto lack = [&listed](const std::string& rows) {
    std::erase_if(listed, [&rows](const std::string& path) { return path.starts_with(rows); });
  };
  if (!has_leds()) lack("Device.LEDs.LED.");
  if (!has_network()) lack("Device.Bridging.Bridge.");
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
      if (parameter["reason"].get<std::string>().empty()) unexplained.insert(parameter["path"]);
    }
  }
  EXPECT_EQ(differing.size(), 41U);
  EXPECT_EQ(unexplained, std::set<std::string>());
}

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
  // A package that nobody can parse is there.
  write_file("/etc/config/cwmp", "config broken \"");
  const json broken = kovadm("explain --json " SERVER "URL").document();
  EXPECT_EQ(broken["options"], (json{{{"path", "cwmp"}, {"value", nullptr}, {"broken", true}}}));
  EXPECT_EQ(broken["warnings"], json{"cwmp: cannot be parsed, and reads as empty"});
  EXPECT_EQ(contents("/tmp/cwmp_debug"), std::nullopt);
}

}  // namespace
}  // namespace kova::test

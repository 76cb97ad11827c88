// kovadm as its user sets with it, and does the agent's part.
#include <regex>
#include <set>

#include "support/kovadm.hpp"

namespace kova::test {
namespace {

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
  EXPECT_EQ(kovadm("set " SERVER "Username=new " SERVER "Username=other").error,
            "9003 Invalid arguments: " SERVER "Username (given twice)\n");
  EXPECT_EQ(WEXITSTATUS(run("TMPDIR=/nope kovadm set " SERVER "Username=new >/dev/null 2>/root/error")), 2);
  EXPECT_EQ(contents("/root/error"), "kovadm: a temporary directory in /nope: No such file or directory\n");
  EXPECT_EQ(config("cwmp.info.username"), "kova-cpe");
}

TEST_F(Kovadm, AValueHasToBeOfTheParametersType) {
  const std::string integer = " " SERVER "PeriodicInformInterval=";
  const std::string boolean = " " SERVER "PeriodicInformEnable=";
  const std::string address = " " LAN "MinAddress=";
  const std::string time = " Device.Time.CurrentLocalTime=";
  for (const auto& [path, values] : {std::pair{integer, std::vector{"-1", "4294967296", "1.5", "1x", "+-1", "0x1", ""}},
                                     {boolean, {"yes", "2", "TRUE", ""}},
                                     {address, {"192.168.1", "192.168.1.256", "192.168.1.1.1", "router"}},
                                     {time, {"2026-11-25", "2026-11-25T10:00", "now"}}}) {
    for (const char* value : values) {
      const json faults = kovadm("set --json" + path + value).document()["faults"];
      EXPECT_TRUE(std::string(faults.at(0)["detail"]).starts_with("no ")) << path << value;
    }
  }
  for (const char* setting : {SERVER "PeriodicInformInterval=+600", SERVER "PeriodicInformEnable=0",
                              SERVER "URL=no address", LAN "MinAddress=192.168.1.20"})
    EXPECT_EQ(kovadm("set '" + std::string(setting) + "'").error, "") << setting;
  EXPECT_EQ(kovadm("set Device.Time.CurrentLocalTime=2026-11-25T10:00:00.5+01:00").status, 3);
}

TEST_F(Kovadm, WarnsOfValuesThatAShellActsOn) {
  const std::pair<std::string, std::string> settings[] = {
      {"Device.Users.User.1.Password=a b$", R"(: a shell acts on "$", " " in VALUE: /usr/bin/tr069/cwmp-user * VALUE)"},
      {"Device.Users.User.1.Password=a.b", ""},
      {LAN "DNSServers=192.168.1.1`",
       R"(: a shell acts on "`" in VALUE: lua /usr/bin/tr069/verify_pms dhcps_dns "VALUE")"},
      {LAN "DNSServers=192.168.1.1 192.168.1.2", ""},
      {SERVER "Password=$(not) `a` 'shell'", ""}};
  for (const auto& [setting, warning] : settings) {
    write_file("/root/value", setting.substr(setting.find('=') + 1));
    const std::string path = setting.substr(0, setting.find('='));
    const json document = kovadm("set --json " + path + "=@/root/value").document();
    EXPECT_EQ(document.value("warnings", json::array()), warning.empty() ? json::array() : json{path + warning});
  }
}

TEST_F(Kovadm, HandlersArePassedTheBooleansThatTheyKnow) {
  const std::string path = "InternetGatewayDevice.LANDevice.1.WLANConfiguration.1.SSIDAdvertisementEnabled";
  const std::tuple<const char*, const char*, const char*, bool> sets[] = {
      {"", "true", "1", true}, {"", "false", "0", true}, {"", "0", "0", false}, {"--force ", "true", "0", false}};
  for (const auto& [option, asked, reads, changed] : sets) {
    kovadm("set " + path + "=1");
    const json value = kovadm(std::string("set --json ") + option + path + "=" + asked).document()["values"][0];
    EXPECT_EQ(value["value"], reads) << option << asked;
    EXPECT_EQ(value["asked"], asked);
    EXPECT_EQ(value.value("passed", "as asked"), changed ? reads : "as asked");
  }
  EXPECT_NE(kovadm("explain " + path + "=false").out.find("passed     0\n"), std::string::npos);
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
  // A command set it at once.
  const Finished protocol = kovadm("set Device.NAT.PortMapping.1.Protocol=UDP");
  EXPECT_EQ(protocol.lines().front(), "ran: uci set firewall.cfg033837.proto='udp' && uci commit");
  EXPECT_EQ(protocol.lines().back(), "Device.NAT.PortMapping.1.Protocol = udp (differs: asked for \"UDP\")");
}

TEST_F(Kovadm, ToldSecretsAreNone) {
  const std::string user = "Device.Users.User.1.Password=";
  const std::string key = "Device.WiFi.AccessPoint.1.Security.KeyPassphrase";
  run("kovadm record --with-secrets /root/before Device.WiFi. >/dev/null; kovadm set " + key +
      "=a-long-secret >/dev/null;"
      "kovadm record --with-secrets /root/after Device.WiFi. >/dev/null");
  const std::string commands[] = {"set --force " + user + "12345 " + key + "=short",
                                  "set " + user + "a-long-secret",
                                  "set " + key + "=a-long-secret",
                                  "get " + key,
                                  "walk Device.WiFi. Device.ManagementServer.",
                                  "explain " + key,
                                  "explain " + user + "a-long-secret",
                                  "diff /root/before /root/after"};
  for (const std::string& command : commands) {
    std::string told = kovadm("--json " + command).out;
    const Finished lines = kovadm(command);
    told += lines.out + lines.error;
    for (const char* secret : {"a-long-secret", "correct horse", "short", "admin-secret", "12345"})
      EXPECT_EQ(told.find(secret), std::string::npos) << command << '\n' << secret;
    EXPECT_NE(told.find("(secret)"), std::string::npos) << command;
    EXPECT_EQ(lines.status, kovadm("--show-secrets " + command).status) << command;
  }
  configure("wireless.wlan00.key", "0");  // as numbers of the document are, too
  EXPECT_EQ(kovadm("--json explain " + key).document()["instances"], (json{1, 0, 0, 0, 0}));
  kovadm("set " + key + "=a-long-secret");
  EXPECT_EQ(kovadm("--show-secrets get " + key).out, key + " = a-long-secret\n");
}

TEST_F(Kovadm, OneWaitsForAnother) {
  run("kovadm record /root/r Device.LEDs. >/dev/null");
  script_is("/usr/bin/tr069/apply/leds", "echo >/root/started; until test -e /root/end; do sleep 0.05; done");
  run("kovadm set --apply Device.LEDs.Enable=0 >/dev/null & until test -e /root/started; do sleep 0.01; done");
  EXPECT_EQ(kovadm("get Device.LEDs.Enable").status, 0);
  for (const char* command : {"set Device.LEDs.Enable=1", "walk Device.LEDs.", "record /root/r", "diff /root/r",
                              "page /root/p", "profiles --live Time", "explain Device.LEDs.Enable=1"}) {
    const Finished late = kovadm(std::string("--wait 0 ") + command);
    EXPECT_EQ(late.status, 2);
    EXPECT_EQ(late.error, "kovadm: another kovadm is at work on this router; waited 0 s for it\n") << command;
  }
  run("(sleep 0.3; echo >/root/end) &");
  EXPECT_EQ(kovadm("set Device.LEDs.Enable=1").lines().back(), "Device.LEDs.Enable = 1");
  // At once: each tells its own change, from the value that another one left.
  run("for i in 1 2 3 4 5 6; do kovadm set Device.DeviceInfo.ProvisioningCode=code$i >/root/set$i & done; wait");
  std::set<std::string> before;
  for (int i = 1; i <= 6; ++i) {
    const std::string told = *contents("/root/set" + std::to_string(i));
    EXPECT_NE(told.find("-> \"code" + std::to_string(i) + "\"\n"), std::string::npos) << told;
    before.insert(told.substr(told.find("store:"), told.find(" ->") - told.find("store:")));
  }
  EXPECT_EQ(before.size(), 6U);
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

}  // namespace
}  // namespace kova::test

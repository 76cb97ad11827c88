// kovadm, run as its user does: its pages, its streams, its ends.
#include "support/kovadm.hpp"

#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <regex>
#include <sstream>

#include "support/device_state.hpp"

namespace kova::test {
namespace {

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

TEST_F(Kovadm, DoesWhatItsPagesShow) {
  for (const auto& [page, least] :
       {std::pair{"/kovadm.md", 20}, {"/recordings.md", 6}, {"/check.md", 4}, {"/page.md", 2}})
    expect_examples_of(std::string(PAGES) + page, least);
}

TEST_F(Kovadm, AnExplainedSetLeavesNothingChanged) {
  const seam::Snapshot before = seam::Snapshot::of_lab();
  const std::pair<const char*, const char*> rows[] = {
      {SERVER "PeriodicInformInterval=600", "mirror: cwmp.info.inform_interval: (none) -> \"600\""},
      {"Device.Users.User.1.Password=new-secret", "commands   /usr/bin/tr069/cwmp-user admin (secret) (not run)"},
      {LAN "IPRouters=192.168.1.2", "recorded   lua /usr/bin/tr069/verify_pms lan_ip \"192.168.1.2\" &"},
      {"Device.LEDs.Enable=0",
       "changes    pending: system.cfg01e48a.leds: \"1\" -> \"0\""},  // by a command that is run
      {"Device.IP.Diagnostics.IPPing.DiagnosticsState=Requested", "/tmp/diag/ping_state: (none) -> \"Requested\""}};
  for (const auto& [setting, line] : rows) {
    EXPECT_NE(kovadm(std::string("explain ") + setting).out.find(line), std::string::npos) << setting;
    EXPECT_EQ(effects_since(before), std::vector<std::string>()) << setting;
  }
}

// ---- Commands, signals and streams ----

TEST_F(Kovadm, WhatCommandsPrintIsToldAsSuch) {
  script_is("/usr/bin/tr069/cwmp-ntp", "echo some; echo noise");
  for (const char* arguments : {"get " ZONE, "walk " ZONE, "set Device.Time.Enable=1"}) {
    EXPECT_TRUE(kovadm(arguments).out.starts_with("printed: some\nprinted: noise\n")) << arguments;
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
  EXPECT_EQ(WEXITSTATUS(run("timeout -s TERM 1 kovadm --plugin " ODD_PLUGIN " get Device.DeviceInfo.UpTime; exit $?")),
            128 + SIGTERM);
}

TEST_F(Kovadm, WhatADeviceSaysIsBelievedWithinBounds) {
  const std::tuple<std::string, size_t, size_t, std::string> tables[] = {
      {"Device.LEDs.LED", 512, 512, "a table has 512 rows at most"},
      {"Device.Users.User", 0, 4 * 2, "no row answers from 1 on"}};
  for (const auto& [table, values, faults, why] : tables) {
    const std::string walk = "--plugin " ODD_PLUGIN " walk " + table + ".";
    const std::string warning = table + " says it has 2147483647: " + why;
    const json document = kovadm("--json " + walk).document();
    EXPECT_EQ(document["values"].size(), values) << table;
    EXPECT_EQ(document["faults"].size(), faults) << table;
    EXPECT_EQ(document["warnings"], json{warning});
    EXPECT_TRUE(kovadm(walk).error.ends_with("warning: " + warning + "\n"));
  }
}

TEST_F(Kovadm, LooksWhereItsOutputGoes) {
  EXPECT_EQ(WEXITSTATUS(run("kovadm set " SERVER "Username=new >&- 2>/root/error")), 2);
  EXPECT_EQ(contents("/root/error"), "kovadm: standard output: Bad file descriptor\n");
  EXPECT_EQ(config("cwmp.info.username"), "kova-cpe");
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

// ---- The log and the record ----

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
  const std::pair<const char*, const char*> misuses[] = {{"", "no command\nReads and sets the device's data model"},
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
    const std::string error = kovadm(std::string("--json ") + arguments).document()["error"];
    EXPECT_TRUE(misuse.error.starts_with("kovadm: " + error + "\n")) << misuse.error;
  }
  EXPECT_EQ(kovadm("--help").status, 0);
}

}  // namespace
}  // namespace kova::test

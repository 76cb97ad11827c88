// Recordings of a router, replayed and compared.
#include <regex>
#include <tuple>

#include "support/kovadm.hpp"

namespace kova::test {
namespace {

#define RECORDING "/root/recording.json"

// Which the modes make a difference for. All others take a thousand processes: once is enough, and too much with
// sanitizers.
constexpr char kByMode[] =
    " InternetGatewayDevice.Layer3Forwarding. Device.IP.Interface. Device.PPP. Device.Ethernet.Link. Device.Cellular.";
#ifdef KOVA_SANITIZED
constexpr const char* kMost = kByMode;
#else
constexpr const char* kMost = "";
#endif

// Without the parameters that do not stand still.
std::vector<std::string> steady(const Finished& walk) {
  static const std::regex moving("(UpTime|CurrentLocalTime|Bytes|Packets|CPUUsage|ProcessNumberOf|Memory)[^ ]* = ");
  std::vector<std::string> lines = walk.lines();
  std::erase_if(lines, [](const std::string& line) { return std::regex_search(line, moving); });
  return lines;
}

// What is the router's, and not a build's below /tmp.
#define ROUTER "$(ls -d /etc/config /tmp/* 2>/dev/null | grep -vxF \"$KOVA_LAB_KEEP\")"

// Leaves nothing that a replay could ask instead of its recording.
void leave_no_router() { run("rm -rf /etc/profile.d /etc/lab /usr/bin/tr069 /var/run/4g " ROUTER); }

TEST_F(Kovadm, AReplayGivesTheTextsOfTheRouterWhereThereIsNone) {
  const std::tuple<const char*, const char*, std::string> modes[] = {{"dhcp", "nr5g-sa", kMost},
                                                                     {"static", "nr5g-nsa", kByMode},
                                                                     {"pppoe", "lte", kByMode},
                                                                     {"l2tp", "none", kByMode}};
  for (const auto& [protocol, modem, below] : modes) {
    ASSERT_EQ(run("/sbin/lab-reset"), 0);
    configure("network.wan.proto", protocol);
    write_file("/etc/lab/modem", std::string(modem) + "\n");
    const std::vector<std::string> live = steady(kovadm("walk" + below));
    EXPECT_GT(live.size(), 50U);
    EXPECT_EQ(kovadm("record --with-secrets " RECORDING + below).status, 0);
    leave_no_router();
    const Finished replay = kovadm("--replay " RECORDING " walk" + below);
    EXPECT_EQ(replay.status, 0) << replay.error;
    EXPECT_EQ(steady(replay), live) << protocol << " " << modem;
    EXPECT_EQ(run("test -z \"" ROUTER "\""), 0);
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
    EXPECT_EQ(run("test -z \"" ROUTER "\""), 0);
  }
}

TEST_F(Kovadm, WhatMovesByItselfIsNoDifference) {
  EXPECT_EQ(kovadm("record " RECORDING).status, 0);
  run("sleep 1");
  const json moved = kovadm("diff --json " RECORDING).document();
  EXPECT_EQ(moved["differences"], json::array());
  EXPECT_GE(moved["left_out"], 4);  // the clocks of both trees; counters move where there is traffic
  EXPECT_EQ(kovadm("diff --all --json " RECORDING).document()["left_out"], 0);
}

TEST_F(Kovadm, ARecordingHasNoSecretsUnlessAskedFor) {
  write_file("/etc/config/extra", R"(config x 'y' # option psk old
# that's all, #option psk 'older'
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
  const json extra = {"config x 'y' # option psk '(secret)'",
                      "# that's all, #option psk '(secret)'",
                      "\toption \"psk\" '(secret)'; option name 'kept  '",
                      "\tlist wepkey '(secret)'",
                      "\toption copy '(secret)'",
                      "\toption empty_password ''",
                      ""};
  EXPECT_EQ(json::parse(text)["directories"]["/etc/config"]["extra"], extra);
}

TEST_F(Kovadm, ARecordingIsItsOwnersAndFollowsNoLink) {
  write_file("/root/theirs", "before");
  run("chmod 644 /root/theirs; ln -sf theirs /root/link; cp /root/theirs " RECORDING
      "; mkfifo /root/fifo; "
      "ln -s /etc/passwd /etc/config/linked; mv /tmp/diag /root; ln -s /root/diag /tmp/diag; echo it >/root/diag/it");
  const json record = kovadm("record --json --with-secrets " RECORDING " Device.Users.").document();
  EXPECT_EQ(record["left_out"], (json{"/etc/config/linked", "/tmp/diag"}));
  EXPECT_EQ(run("test \"$(stat -c %a " RECORDING ")\" = 600 && grep -q admin-secret " RECORDING), 0);
  EXPECT_NE(run("grep -e root:x -e '\"it' " RECORDING), 0);
  const std::string good = *contents(RECORDING);
  for (const auto& [command, message] : {std::pair{"record /root/link", "/root/link is a link: name the file itself"},
                                         {"record /root/fifo", "/root/fifo is no plain file: name another one"},
                                         {"record ''", "a file needs a name"},
                                         {"record /root/none/file", "/root/none/file: No such file or directory"}}) {
    const Finished refused = kovadm(std::string(command) + " Device.Users.");
    EXPECT_EQ(refused.status, 2);
    EXPECT_EQ(refused.error, std::string("kovadm: ") + message + "\n");
  }
  EXPECT_EQ(WEXITSTATUS(run("(trap '' XFSZ; ulimit -f 1; kovadm record " RECORDING " 2>/dev/null)")), 2);
  EXPECT_EQ(contents(RECORDING), good);
  EXPECT_EQ(kovadm("record " RECORDING " Device.Users. Device.Nowhere.").status, 1);
  EXPECT_EQ(contents(RECORDING), good);
  EXPECT_EQ(contents("/root/theirs"), "before");
  EXPECT_EQ(
      run("test -z \"$(ls " RECORDING ".* 2>/dev/null)\"; rm -r /root/fifo /root/link /etc/config/linked /tmp/diag"),
      0);
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
      {"[]", "it is another JSON document"},
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
    EXPECT_TRUE(replay.error.starts_with("kovadm: /root/bad.json cannot be read as a recording: ")) << replay.error;
    EXPECT_TRUE(replay.error.ends_with(fault + std::string("\n"))) << replay.error;
    EXPECT_EQ(std::count(replay.error.begin(), replay.error.end(), '\n'), 1);
  }
  EXPECT_EQ(kovadm("--replay /root/none walk").error, "kovadm: cannot read /root/none\n");
  EXPECT_EQ(kovadm("--replay " RECORDING " set --apply " SERVER "Username=new").status, 2);
  EXPECT_EQ(kovadm("--json --replay " RECORDING " get Device.DeviceInfo.UpTime").document()["not_recorded"].size(), 1U);
}

}  // namespace
}  // namespace kova::test

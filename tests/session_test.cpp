// kovadm in front of a server.
#include <curl/curl.h>

#include <chrono>
#include <csignal>
#include <regex>
#include <sstream>
#include <thread>

#include "support/acs.hpp"
#include "support/device_state.hpp"
#include "support/kovadm.hpp"

namespace kova::test {
namespace {

constexpr char kUrl[] = "http://127.0.0.1:7547/acs";

struct Case {
  std::string request;
  std::vector<std::string> has, lacks;
};

std::vector<Case> read_cases() {
  std::vector<Case> cases;
  std::istringstream stream(*contents(SESSION_MESSAGES));
  for (std::string line; std::getline(stream, line);) {
    const std::string text = line.substr(std::min<size_t>(line.size(), 2));
    if (line.starts_with("> ")) cases.push_back({text, {}, {}});
    if (line.starts_with("< ")) cases.back().has.push_back(text);
    if (line.starts_with("- ")) cases.back().lacks.push_back(text);
  }
  return cases;
}

Finished session(const std::string& options = "") { return kovadm("session " + options + " " + kUrl); }

TEST_F(Kovadm, EveryMethodAndFaultHasItsAnswer) {
  const std::vector<Case> cases = read_cases();
  std::vector<std::string> requests;
  for (const Case& each : cases) requests.push_back(each.request);
  Acs acs(asks(requests));
  const Finished held = session("--transcript /root/transcript");
  EXPECT_EQ(held.status, 0) << held.error;
  ASSERT_EQ(acs.posts.size(), cases.size() + 2);
  EXPECT_EQ(acs.posts[1].text, "");
  for (size_t i = 0; i < cases.size(); ++i) {
    const std::string answer = std::regex_replace(acs.posts[i + 2].text, std::regex(">\\s+<"), "><");
    for (const std::string& part : cases[i].has)
      EXPECT_NE(answer.find(part), std::string::npos) << part << "\nis not in\n" << answer;
    for (const std::string& part : cases[i].lacks) EXPECT_EQ(answer.find(part), std::string::npos) << answer;
  }
  EXPECT_EQ(config("cwmp.info.stun_server_addr"), "a <b> & c");
}

std::string set_of(const std::vector<std::pair<std::string, std::string>>& values) {
  std::string list;
  for (const auto& [path, value] : values)
    list += "<ParameterValueStruct><Name>" + path + "</Name><Value>" + value + "</Value></ParameterValueStruct>";
  return "<cwmp:SetParameterValues><ParameterList>" + list +
         "</ParameterList><ParameterKey>new</ParameterKey>"
         "</cwmp:SetParameterValues>";
}

TEST_F(Kovadm, ARefusedSetLeavesNothing) {
  write_file("/tmp/tr069/cmd_record", "echo from before\n");
  const seam::Snapshot before = seam::Snapshot::of_lab();
  Acs acs(asks({set_of({{"Device.ManagementServer.PeriodicInformInterval", "600"},
                        {"Device.DHCPv4.Server.Pool.1.IPRouters", "192.168.1.2"},
                        {"Device.LEDs.Enable", "0"},
                        {"Device.NAT.PortMapping.1.ExternalPort", "99999"}})}));
  const Finished held = session("--apply");
  EXPECT_EQ(held.status, 0) << held.error;
  EXPECT_NE(held.out.find("SetParameterValues: fault, "), std::string::npos) << held.out;
  EXPECT_NE(held.out.find("     9007 Invalid parameter value: Device.NAT.PortMapping.1.ExternalPort (refused"),
            std::string::npos);
  EXPECT_NE(acs.posts.at(2).text.find("<ParameterName>Device.NAT.PortMapping.1.ExternalPort"), std::string::npos);
  EXPECT_EQ(effects_since(before), std::vector<std::string>());
  EXPECT_EQ(task_record(), "echo from before\n");
}

constexpr char kInterval[] =
    "<cwmp:GetParameterValues><ParameterNames><string>Device.ManagementServer."
    "PeriodicInformInterval</string></ParameterNames></cwmp:GetParameterValues>";

constexpr char kAllNames[] =
    "<cwmp:GetParameterNames><ParameterPath/><NextLevel>0</NextLevel></cwmp:GetParameterNames>";

TEST_F(Kovadm, ASetIsNotInterrupted) {
  script_is("/usr/bin/tr069/cwmp-ntp", "kill -INT $PPID $$; sleep 1; touch /root/done");
  Acs acs(asks({set_of({{"Device.Time.Enable", "0"}, {"Device.ManagementServer.PeriodicInformInterval", "600"}})}));
  const Finished held = session();
  EXPECT_EQ(held.status, 128 + SIGINT);
  EXPECT_NE(held.error.find("interrupted"), std::string::npos) << held.error;
  EXPECT_TRUE(contents("/root/done"));
  EXPECT_EQ(config("cwmp.info.inform_interval"), "600");
  EXPECT_EQ(acs.posts.size(), 2U);
}

// ---- Ways to a server ----

constexpr char kInformed[] = "<cwmp:InformResponse><MaxEnvelopes>1</MaxEnvelopes></cwmp:InformResponse>";
constexpr char kAsks[] = "<cwmp:GetRPCMethods/>";

std::string server_fault(const std::string& code) {
  return message("<s:Fault><faultcode>Server</faultcode><detail><cwmp:Fault><FaultCode>" + code +
                 "</FaultCode><FaultString>no</FaultString></cwmp:Fault></detail></s:Fault>");
}

// Answers the first posts with these, then as asks() does.
Serve first(std::vector<Reply> replies) {
  return [replies = std::move(replies), next = size_t{0}, then = asks({kAsks})](const Post& post) mutable {
    return next < replies.size() ? replies[next++] : then(post);
  };
}

TEST_F(Kovadm, SessionsFollowTheirServers) {
  write_file("/root/password", "acs-password\n");
  write_file("/root/wrong", "password\n");
  const std::string right = "--user acs-user --password @/root/password";
  const std::string wrong = "--user acs-user --password @/root/wrong";
  const std::string informed = message(kInformed, "1");
  const auto slow = [](const Post&) {
    std::this_thread::sleep_for(std::chrono::seconds(2));
    return Reply{};
  };
  const struct {
    std::string options;
    const char* authentication;
    Serve serve;
    size_t posts;
    std::string error;  // part of it; empty: the session came to its end
    const char* cookie = "";
    const char* path = "/acs";
  } sessions[] = {
      {"", "", asks({kAsks}), 3, ""},
      {right, "basic", asks({kAsks}), 3, ""},
      {right, "digest", asks({kAsks}), 3, ""},
      {wrong, "basic", asks({}), 0, "the server answers with status 401"},
      {"", "digest", asks({}), 0, "the server answers with status 401"},
      {"", "", first({{307, "", {{"Location", "/other"}}}}), 4, "", "", "/other"},
      {"", "", first({{302, "", {{"Location", "ftp://127.0.0.1/"}}}}), 1, "ftp"},
      {"", "", first({{302, "", {{"Location", "/acs"}}}, {302, "", {{"Location", "/acs"}}}}), 5, ""},
      {"", "", first({{200, informed, {{"Set-Cookie", "session=7"}}}}), 3, "", "session=7"},
      {"", "", first({{200, server_fault("8005")}, {200, server_fault("8005")}}), 5, ""},
      {"", "", first({{200, server_fault("8001")}}), 1, "the server refuses the Inform: 8001 no"},
      {"", "", first({{200, informed}, {200, server_fault("8002")}}), 2, "the server reports 8002 no"},
      {"", "", first({{503, ""}}), 1, "the server answers with status 503"},
      {"", "", first({{200, "<html>hello</html>"}}), 1, "it is no SOAP 1.1 envelope"},
      {"", "", first({{200, informed}, {0, ""}}), 4, ""},  // a lost connection is made anew
      {"", "", first({{200, informed}, {0, ""}, {0, ""}, {0, ""}}), 0, "Empty reply from server"},
      {"", "", first({{200, std::string(17 << 20, ' ')}}), 1, "an answer of more than 16777216 bytes"},
      {"--timeout 1", "", slow, 1, "imed out"},
  };
  for (const auto& each : sessions) {
    Acs acs(each.serve, {7547, each.authentication});
    const Finished held = session(each.options);
    EXPECT_EQ(held.status, each.error.empty() ? 0 : 1) << held.out;
    EXPECT_NE(held.error.find(each.error), std::string::npos) << held.error << each.error;
    if (each.posts > 0) {
      EXPECT_EQ(acs.posts.size(), each.posts) << held.out << held.error;
    }
    if (held.status != 0) continue;
    EXPECT_TRUE(held.out.ends_with("\nend\n")) << held.out;
    EXPECT_EQ(acs.posts.back().cookie, each.cookie);
    EXPECT_EQ(acs.posts.back().path, each.path);
  }
  EXPECT_NE(session().error.find("connect"), std::string::npos);
}

TEST_F(Kovadm, SessionsAreSecure) {
  write_file("/root/acs.pem", *contents(ACS_DATA ".pem"));
  Acs acs(asks({}), {7547, "", *contents(ACS_DATA ".key"), *contents(ACS_DATA ".pem")});
  for (const auto& [options, status] : {std::pair{"--cacert /root/acs.pem", 0}, {"--insecure", 0}, {"", 1}})
    EXPECT_EQ(kovadm(std::string("session https://127.0.0.1:7547/ ") + options).status, status) << options;
  EXPECT_EQ(acs.posts.size(), 4U);
}

// ---- A device that stays ----

constexpr char kPing[] = "Device.IP.Diagnostics.IPPing.";
constexpr char kPings[] =
    "<cwmp:GetParameterValues><ParameterNames><string>Device.IP.Diagnostics.IPPing.SuccessCount"
    "</string></ParameterNames></cwmp:GetParameterValues>";

TEST_F(Kovadm, ATestThatAServerAsksForIsToldWhenDone) {
  script_is("/usr/bin/tr069/apply/ipping-diag", "echo Complete >/tmp/diag/ping_state");
  const std::string set =
      set_of({{std::string(kPing) + "Host", "127.0.0.1"}, {std::string(kPing) + "DiagnosticsState", "Requested"}});
  for (const auto& [option, posts] : {std::pair{"--apply", 6U}, {"", 3U}}) {
    Acs acs(asks({set}));
    const Finished held = session(option);
    EXPECT_EQ(held.status, 0) << held.error;
    ASSERT_EQ(acs.posts.size(), posts) << held.out;
    EXPECT_EQ(acs.posts.back().text.find("Requested"), std::string::npos);
    if (posts == 3) {
      EXPECT_NE(held.out.find("to apply: APPLY_IPPING_DIAG: the agent starts the ping test"), std::string::npos);
    } else {
      EXPECT_NE(acs.posts[3].text.find("<EventCode>8 DIAGNOSTICS COMPLETE<"), std::string::npos);
    }
  }
}

// One GET with digest authentication. Returns the status.
long connection_request(const std::string& url, const char* who) {
  long status = 0;
  CURL* curl = curl_easy_init();
  curl_easy_setopt(curl, CURLOPT_URL, url.c_str());
  curl_easy_setopt(curl, CURLOPT_HTTPAUTH, CURLAUTH_DIGEST);
  curl_easy_setopt(curl, CURLOPT_USERPWD, who);
  curl_easy_setopt(curl, CURLOPT_TIMEOUT, 5L);
  curl_easy_perform(curl);
  curl_easy_getinfo(curl, CURLINFO_RESPONSE_CODE, &status);
  curl_easy_cleanup(curl);
  return status;
}

// Waits for an Inform of that event; nothing where none comes.
std::optional<std::string> inform_of(const Acs& acs, const std::string& event) {
  for (int tenths = 0; tenths < 150; ++tenths) {
    for (const Post& post : acs.all_posts()) {
      if (post.text.find("<EventCode>" + event + "<") != std::string::npos) return post.text;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
  }
  return std::nullopt;
}

TEST_F(Kovadm, ADeviceStaysAndCalls) {
  configure("cwmp.info.inform_interval", "2");
  Acs acs(asks({}));
  run("kovadm session --stay " + std::string(kUrl) + " >/root/out 2>/root/error & echo $! >/root/pid");
  const auto boot = inform_of(acs, "1 BOOT");
  ASSERT_TRUE(boot) << *contents("/root/error");
  std::smatch url;
  ASSERT_TRUE(std::regex_search(*boot, url, std::regex("http://127.0.0.1:[0-9]+/kova")));
  EXPECT_EQ(connection_request(url.str() + "s", "acs:acs-secret"), 404);
  EXPECT_EQ(connection_request(url.str(), "acs:wrong"), 401);
  EXPECT_TRUE(inform_of(acs, "2 PERIODIC"));
  EXPECT_EQ(connection_request(url.str(), "acs:acs-secret"), 200);
  EXPECT_TRUE(inform_of(acs, "6 CONNECTION REQUEST"));
  EXPECT_EQ(kovadm("get Device.ManagementServer.URL").status, 0);  // others have their turn
  run("uci set network.wan.ipaddr=192.0.2.99; uci set network.wan.netmask=255.255.255.0; "
      "uci set network.wan.proto=static; uci commit network");
  const auto changed = inform_of(acs, "4 VALUE CHANGE");
  EXPECT_NE(changed.value_or("").find("192.0.2.99"), std::string::npos);
  run("kill -INT $(cat /root/pid); while kill -0 $(cat /root/pid) 2>/dev/null; do sleep 0.1; done");
  EXPECT_TRUE(contents("/root/out")->ends_with("\nended\n")) << *contents("/root/out");
  EXPECT_EQ(contents("/root/error")->find("failed:"), std::string::npos) << *contents("/root/error");
}

TEST_F(Kovadm, ADeviceThatFindsNoServerTriesAgain) {
  run("timeout -s INT 1 kovadm session --stay http://127.0.0.1:1/ >/root/out 2>/root/error");
  const std::string told = *contents("/root/out");
  EXPECT_TRUE(std::regex_search(told, std::regex("\ntries again in ([5-9]|10) s\nended\n$"))) << told;
  EXPECT_NE(contents("/root/error")->find("failed: http://127.0.0.1:1/: "), std::string::npos);
}

TEST_F(Kovadm, ARecordingStandsInFrontOfAServer) {
  run("kovadm record /root/router.json >/dev/null; rm -r /etc/config");
  Acs acs(asks({set_of({{"Device.ManagementServer.PeriodicInformInterval", "600"}}), kInterval}));
  EXPECT_EQ(session("--replay /root/router.json --apply").status, 2);
  const Finished held = session("--replay /root/router.json");
  EXPECT_EQ(held.status, 0) << held.error;
  EXPECT_NE(acs.posts.at(3).text.find("<Value xsi:type=\"xsd:unsignedInt\">600<"), std::string::npos);
  EXPECT_FALSE(contents("/etc/config/cwmp"));
}

TEST_F(Kovadm, TheOtherTreeIsShownWhenAsked) {
  Acs acs(asks({"<cwmp:GetParameterNames><ParameterPath/><NextLevel>1</NextLevel></cwmp:GetParameterNames>"}));
  const json document = kovadm(std::string("session --json --tree InternetGatewayDevice ") + kUrl).document();
  EXPECT_NE(acs.posts.at(0).text.find("<Name>InternetGatewayDevice.DeviceSummary<"), std::string::npos);
  EXPECT_NE(acs.posts[0].text.find(".WANIPConnection.1.ExternalIPAddress<"), std::string::npos);
  EXPECT_NE(acs.posts.at(2).text.find("<Name>InternetGatewayDevice.<"), std::string::npos);
  EXPECT_EQ(document["sessions"][0]["exchanges"][1]["method"], "GetParameterNames");
}

TEST_F(Kovadm, TranscriptsTellNoSecrets) {
  const std::string set = set_of({{"Device.ManagementServer.Password", "a&amp;b&lt;c"},
                                  {"Device.ManagementServer.ConnectionRequestPassword", "7"},
                                  {"Device.ManagementServer.Username", "2026-01-07"}});
  for (const auto& [option, shown] : {std::pair{"", false}, {"--show-secrets ", true}}) {
    Acs acs(asks({set,
                  "<cwmp:GetParameterValues><ParameterNames><string>Device.ManagementServer.</string></ParameterNames>"
                  "</cwmp:GetParameterValues>"}));
    session(option + std::string("--transcript /root/transcript"));
    const std::string transcript = *contents("/root/transcript");
    EXPECT_EQ(transcript.find("a&amp;b") != std::string::npos, shown) << transcript;
    EXPECT_EQ(transcript.find(">7<") != std::string::npos, shown) << transcript;
    EXPECT_NE(transcript.find("2026-01-07"), std::string::npos);
    EXPECT_NE(transcript.find("> POST http://127.0.0.1:7547/acs\n<?xml"), std::string::npos);
    EXPECT_NE(transcript.find("< 204\n"), std::string::npos);
  }
}

// ---- The page ----

// The names of the parameters in a message.
std::vector<std::string> parameters_in(const std::string& text) {
  std::vector<std::string> names;
  const std::regex name("<Name>([^<]*[^.<])</Name>");
  for (auto found = std::sregex_iterator(text.begin(), text.end(), name); found != std::sregex_iterator(); ++found)
    names.push_back((*found)[1]);
  return names;
}

// Asks for all names, then for the values, as many at once as servers do.
Serve discovers() {
  return [names = std::vector<std::string>(), asked = asks({kAllNames})](const Post& post) mutable -> Reply {
    if (post.text.find("GetParameterNamesResponse") != std::string::npos) names = parameters_in(post.text);
    if (names.empty()) return asked(post);
    std::string list;
    const size_t many = std::min<size_t>(names.size(), 32);
    for (size_t i = 0; i < many; ++i) list += "<string>" + names[i] + "</string>";
    names.erase(names.begin(), names.begin() + static_cast<ptrdiff_t>(many));
    return {200, message("<cwmp:GetParameterValues><ParameterNames>" + list +
                         "</ParameterNames></cwmp:GetParameterValues>")};
  };
}

TEST_F(Kovadm, SessionsDoWhatTheirPageShows) {
  if (!has_network()) GTEST_SKIP() << "no network";
  std::map<std::string, Serve> servers = {
      {"/first-contact", discovers()},
      {"/refused", asks({set_of({{"Device.ManagementServer.PeriodicInformInterval", "600"},
                                 {"Device.NAT.PortMapping.1.ExternalPort", "99999"}})})},
  };
  servers["/ping"] =
      [done = false, told = asks({kPings}),
       asked = asks({set_of({{std::string(kPing) + "Host", "www.example.net"},
                             {std::string(kPing) + "DiagnosticsState", "Requested"}})})](const Post& post) mutable {
        done |= post.text.find("8 DIAGNOSTICS COMPLETE<") != std::string::npos;
        return done ? told(post) : asked(post);
      };
  std::thread caller;
  servers["/calls"] = [&, asked = asks({kInterval})](const Post& post) mutable {
    std::smatch url;
    if (std::regex_search(post.text, std::regex("1 BOOT<")) &&
        std::regex_search(post.text, url, std::regex("http://[0-9.:]+/kova")))
      caller = std::thread([to = url.str()] { connection_request(to, "acs:acs-secret"); });
    return asked(post);
  };
  Acs acs([&](const Post& post) { return servers.at(post.path)(post); });
  expect_examples_of(SESSION_PAGE);
  if (caller.joinable()) caller.join();
}

// ---- Hostile servers ----

TEST_F(Kovadm, SessionsAreBounded) {
  std::vector<std::pair<std::string, std::string>> many(100000, {"Device.ManagementServer.URL", "x"});
  std::string deep = "<cwmp:GetRPCMethods>";
  for (int i = 0; i < 100000; ++i) deep += "<a>";
  for (int i = 0; i < 100000; ++i) deep += "</a>";
  const seam::Snapshot before = seam::Snapshot::of_lab();
  Acs acs(asks({set_of(many), deep + "</cwmp:GetRPCMethods>"}));
  EXPECT_EQ(session().status, 0);
  EXPECT_NE(acs.posts.at(2).text.find("<FaultCode>9004<"), std::string::npos) << acs.posts[2].text;
  EXPECT_NE(acs.posts.at(3).text.find("nested deeper"), std::string::npos) << acs.posts[3].text;
  EXPECT_EQ(effects_since(before), std::vector<std::string>());
}

}  // namespace
}  // namespace kova::test

// One look: what gets share, and what ends that.
#include <dlfcn.h>
#include <malloc.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <functional>
#include <map>
#include <regex>
#include <set>

#include "seam/platform.hpp"
#include "seam/snapshot.hpp"
#include "seam/trace.hpp"
#include "support/catalogue.hpp"
#include "support/device.hpp"

namespace kova::test {
namespace {

time_t later = 0;                  // what the clock is ahead
std::multiset<std::string> asked;  // of the store and the bus

class Asked final : public seam::Platform {
 public:
  int uci_set_confdir(uci_context* context, const char* directory) override {
    directories_[context] = directory;
    return Platform::uci_set_confdir(context, directory);
  }
  void uci_free_context(uci_context* context) override {
    directories_.erase(context);
    Platform::uci_free_context(context);
  }
  int uci_load(uci_context* context, const char* name, uci_package** package) override {
    asked.insert("loads " + directories_[context] + "/" + name);
    return Platform::uci_load(context, name, package);
  }

  ssize_t read(int file, void* block, std::size_t size) override {
    const ssize_t got = Platform::read(file, block, size);
    bytes_read += got;
    return got;
  }

  int ubus_lookup_id(ubus_context* bus, const char* object, uint32_t* id) override {
    object_ = object;
    return Platform::ubus_lookup_id(bus, object, id);
  }
  int ubus_invoke_fd(ubus_context* bus, uint32_t id, const char* method, blob_attr* message,
                     ubus_data_handler_t handler, void* context, int timeout, int file) override {
    const std::string bytes(reinterpret_cast<const char*>(message), message != nullptr ? blob_raw_len(message) : 0);
    asked.insert("asks " + object_ + " " + method + " " + bytes);
    return Platform::ubus_invoke_fd(bus, id, method, message, handler, context, timeout, file);
  }

  ssize_t bytes_read = 0;

 private:
  std::map<uci_context*, std::string> directories_;
  std::string object_;
};

// What a command has printed once it always prints.
const std::string* always_the_same(const std::string& command) {
  static std::map<std::string, std::string> outputs;
  const auto [output, is_new] = outputs.try_emplace(command);
  if (is_new) {
    run("{ " + command + "\n} > /tmp/output 2>/dev/null");
    output->second = contents("/tmp/output").value_or("");
    run("rm -f /tmp/output");
  }
  return &output->second;
}

const std::string* prints_nothing(const std::string& /*command*/) {
  static const std::string nothing;
  return &nothing;
}

class Look : public DeviceTest {
 protected:
  void SetUp() override {
    DeviceTest::SetUp();
    later = 0;
  }
  void TearDown() override { kova_look_end(); }
};

// Without the error number that libubus leaves behind where a reply comes a little later.
std::string line_of(const Row& row, const Answer& answer, const std::string& log) {
  static const std::regex later_reply("Resource temporarily unavailable");
  return row.name + ": " + testing::PrintToString(answer) + "\n" + std::regex_replace(log, later_reply, "Success");
}

TEST_F(Look, ChangesNoAnswerAndNoLogLine) {
  const seam::Snapshot factory = seam::Snapshot::of_lab();
  seams().popen_answer = always_the_same;
  const std::function<void()> routers[] = {
      [] {},
      [] { run("rm -rf /etc/config/* /tmp/tr069/*"); },
      [] { run("for package in /etc/config/*; do echo \"config 'torn\" > $package; done"); },
      [] { run("rm -r /etc/lab/bus/*"); },
      [] { run("rm -r /etc/lab/bus"); },
      [] { seams().popen_answer = prints_nothing; },
      [] { seams().popen_fails = true; }};
  for (const auto& router : routers) {
    std::vector<std::string> lines[3];
    for (auto& lines_of_walk : lines) {
      factory.restore();
      if (&lines_of_walk == &lines[1]) kova_look_begin();  // the third walk takes what the second has kept
      router();
      write_file(seam::kDebugFile, "");
      for (const Row& row : kCatalogue) {
        errno = 0;
        const Answer answer = get(row.handler);
        lines_of_walk.push_back(line_of(row, answer, take_log()));
      }
    }
    kova_look_end();
    for (std::size_t i = 0; i < lines[0].size(); ++i) {
      EXPECT_EQ(lines[1][i], lines[0][i]);
      EXPECT_EQ(lines[2][i], lines[0][i]);
    }
  }
}

TEST_F(Look, AsksEachSourceOnce) {
  Asked platform;
  const seam::InUse in_use(platform, seam::Calls::OF_PROCESS);
  asked.clear();
  kova_look_begin();
  for (const char* tree : {"one", "other"}) {
    SCOPED_TRACE(tree);
    for (const Row& row : kCatalogue) get(row.handler);
  }
  for (const std::string& command : commands()) asked.insert("runs " + command);
  for (const char* kind : {"runs ", "loads ", "asks "}) EXPECT_TRUE(asked.lower_bound(kind)->starts_with(kind));
  const std::set<std::string> different(asked.begin(), asked.end());
  EXPECT_TRUE(std::equal(asked.begin(), asked.end(), different.begin(), different.end()));
}

// ---- What ends it ----

std::string line_of(const char* command) {
  std::array<char, 64> line = {};
  util_exec(command, line.data(), line.size());
  return line.data();
}

std::string uptime() {
  std::array<char, 64> text = {};
  netif_get_interface_status("wan", INTERFACE_UPTIME, text.data(), text.size());
  return text.data();
}

// What a get of each kind of source sees.
std::vector<std::string> seen() {
  return {get(ManagementServer_URL).text, line_of("cat /tmp/number"), uptime(),
          get(IPPingDiagnostics_DiagnosticsState).text};
}

void change_to(const std::string& number) {
  configure("cwmp.info.url", number);
  write_file("/tmp/number", number + "\n");
  write_file("/etc/lab/bus/network.interface.wan/status.json", "{\"uptime\": " + number + "}");
  write_file("/tmp/diag/ping_state", number);
}

struct End {
  const char* name;
  std::function<void()> happen;
  bool ends = true;
};

TEST_F(Look, EndsWithWhateverMayChangeTheRouter) {
  write_file("/tmp/tr069/check", "config result 'result'\n\toption set_result '1'\n");
  const End ends[] = {
      {"nothing", [] {}, false},
      {"gets", [] { seen(); }, false},
      {"50 seconds", [] { later = 50; }, false},
      {"60 seconds", [] { later = 60; }},
      {"a set", [] { set(DeviceInfo_ProvisioningCode, "1"); }},
      {"a refused set", [] { set(DeviceInfo_Description, "1"); }},
      {"a set of an alias", [] { set(IP_Diagnostics_IPPing_DiagnosticsState, "None"); }},
      {"a script", [] { cwmp_system("true"); }},
      {"a get's script", [] { get(Time_LocalTimeZone); }, false},
      {"a write", [] { uci_raw_set_value("system", "ntp", "enabled", "1"); }},
      {"a write that fails", [] { uci_raw_set_value("none", "of", "this", nullptr); }},
      {"a write of a state file", [] { uci_raw_set_value_By_path("check", "result", "set_result", "0"); }},
      {"a revert", [] { uciRevert("system"); }},
      {"a record", [] { record_task_cmd("true"); }},
      {"a record of one", [] { record_task_cmd_once("true"); }},
      {"the hosts, made", [] { unlink("/tmp/tr069/hosts"), generate_host_info(); }},
      {"the hosts, there", [] { generate_host_info(); }, false},
      {"the hosts, removed", [] { delete_host_info(); }},
      {"a second begin", kova_look_begin},
      {"the end", kova_look_end}};
  for (const auto& [name, happen, ends_it] : ends) {
    SCOPED_TRACE(name);
    later = 0;
    write_file("/tmp/tr069/hosts", "");
    const std::vector<std::string> before(4, "1");
    change_to("1");
    kova_look_begin();
    EXPECT_EQ(seen(), before);
    change_to("2");
    EXPECT_EQ(seen(), before);
    happen();
    change_to("3");
    EXPECT_EQ(seen(), ends_it ? std::vector<std::string>(4, "3") : before);
  }
  // Without a begin.
  kova_look_end();
  for (const char* number : {"4", "5"}) {
    change_to(number);
    EXPECT_EQ(seen(), std::vector<std::string>(4, number));
  }
}

std::ptrdiff_t times(const std::string& command) {
  return std::count(seams().commands.begin(), seams().commands.end(), command);
}

// What a get's script leaves in files, that get does not take from before.
TEST_F(Look, RunsTheScriptOfAGetOnce) {
  constexpr char kScript[] = "/usr/bin/tr069/cwmp-ntp timezoneinfo get";
  constexpr char kReader[] = "cat /tmp/tr069/curtimezone";
  kova_look_begin();
  line_of(kScript);  // which is not to run it for its files
  write_file("/tmp/tr069/curtimezone", "before\n");
  EXPECT_EQ(line_of(kReader), "before");
  const std::string zone = get(Time_LocalTimeZone).text;
  EXPECT_NE(zone, "before");
  write_file("/tmp/tr069/curtimezone", "after\n");
  EXPECT_EQ(get(Time_LocalTimeZone).text, zone);
  EXPECT_EQ(line_of(kReader), zone);
  EXPECT_EQ(times(kScript), 2);
  cwmp_system(kScript);
  EXPECT_EQ(times(kScript), 3);
  get(Time_LocalTimeZone);
  EXPECT_EQ(times(kScript), 4);
}

// Though another get ran it, which read something else of what it left.
TEST_F(Look, ReadsWhatTheScriptLeftAndNotWhatWasBefore) {
  static const int done = 0;
  seams().system_status = [](const std::string&) { return write_file("/tmp/laninfo", "1 a 2 b"), &done; };
  write_file("/tmp/laninfo", "1 before 2 before");
  kova_look_begin();
  EXPECT_EQ(line_of("cat /tmp/laninfo |  awk '{print $4}'"), "before");
  EXPECT_EQ(get(X_KOVA_IPTV_VLANTYPE_LAN, {1}).text, "a");
  EXPECT_EQ(get(X_KOVA_IPTV_VLANTYPE_LAN, {2}).text, "b");
}

TEST_F(Look, HidesNothingFromWhoObserves) {
  seam::name_plugin(dlsym(RTLD_DEFAULT, "util_exec"));
  kova_look_begin();
  std::string line;
  const seam::Trace seen = seam::trace([&] { line = line_of("echo seen"); });
  EXPECT_EQ(line, "seen");
  EXPECT_TRUE(seen.ends.at(0).printed);
}

TEST_F(Look, HasTheHostsMadeWheneverTheyAreNotThere) {
  kova_look_begin();
  for (const char* name : {"one", "other"}) {
    write_file("/tmp/tr069/hosts", "");
    EXPECT_NE(get(Hosts_Host_HostName).text, name);
    unlink("/tmp/tr069/hosts");
    seams().system_status = [&](const std::string&) {
      static const int done = 0;
      write_file("/tmp/tr069/hosts", std::string("config host '1'\n\toption hostname '") + name + "'\n");
      return &done;
    };
    EXPECT_EQ(get(Hosts_Host_HostName).text, name);
  }
}

// ---- What is left ----

TEST_F(Look, IsBounded) {
  kova_look_begin();
  seams().answer("small", "1\n");
  seams().answer("large", std::string(400000, '1') + "\n");
  seams().answer("larger", std::string(600000, '2') + "\n");
  for (const char* command : {"small", "large", "larger", "small", "large", "larger"}) {
    const char digit = std::string_view(command) == "larger" ? '2' : '1';
    EXPECT_EQ(line_of(command), std::string(command[0] == 's' ? 1 : 63, digit));
  }
  EXPECT_EQ(times("small"), 1);
  EXPECT_EQ(times("large"), 1);
  EXPECT_EQ(times("larger"), 2);
  kova_look_begin();
  Asked platform;
  const seam::InUse in_use(platform, seam::Calls::OF_PROCESS);
  line_of("yes");
  EXPECT_LT(platform.bytes_read, 2 << 20);
  std::string package = "config large 'large'\n";
  for (int i = 0; i < 12000; ++i) package += "\toption o" + std::to_string(i) + " '1'\n";
  write_file("/etc/config/large", package);
  asked.clear();
  for (int i = 0; i < 2; ++i) EXPECT_EQ(uci_raw_extract_value("large", "large", "o1", package.data()), 0);
  EXPECT_EQ(asked.count("loads /large"), 2U);
}

TEST_F(Look, DoesNotWaitForCommandsThatNeverEnd) {
  // As agents have, and as the bus library leaves it behind: the end of a child interrupts.
  struct sigaction noted = {};
  noted.sa_handler = [](int) {};
  struct sigaction before = {};
  sigaction(SIGCHLD, &noted, &before);
  kova_look_begin();
  for (const char* command : {"yes", "while echo y; do sleep 0.1; done", "sleep 100000 & echo y"})
    EXPECT_EQ(line_of(command), "y");
  sigaction(SIGCHLD, &before, nullptr);
}

#ifdef SMALL_PLUGIN
TEST_F(Look, LeavesNothing) {
  const auto cycle = [] {
    const int before = dup(0);
    close(before);
    void* const plugin = dlopen(SMALL_PLUGIN, RTLD_NOW | RTLD_LOCAL);
    reinterpret_cast<void (*)()>(dlsym(plugin, "kova_look_begin"))();
    for (const char* name : {"ManagementServer_URL", "DeviceInfo_UpTime",
                             "WANDevice_WANConnectionDevice_WANIPConnection_ExternalIPAddress"})
      get(reinterpret_cast<parameter_handler>(dlsym(plugin, name)));
    dlclose(plugin);
    EXPECT_EQ(dlopen(SMALL_PLUGIN, RTLD_NOW | RTLD_NOLOAD), nullptr);
    const int after = dup(0);
    close(after);
    EXPECT_EQ(after, before);
    seams().syslog = {};
    commands() = {};
    seams().popen_modes = {};
    return mallinfo2().uordblks;
  };
  cycle();
  cycle();  // now the linker's own lists have their sizes
  const auto stable = cycle();
  EXPECT_EQ(cycle(), stable);
}
#endif

}  // namespace
}  // namespace kova::test

int clock_gettime(clockid_t clock, timespec* time) noexcept {
  static const auto real = reinterpret_cast<decltype(&clock_gettime)>(dlsym(RTLD_NEXT, "clock_gettime"));
  const int result = real(clock, time);
  time->tv_sec += kova::test::later;
  return result;
}

// Every handler and every helper while each service of the platform fails once, at each of its calls.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <uci.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <memory>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "seam/paths.hpp"
#include "seam/snapshot.hpp"
#include "support/catalogue.hpp"
#include "support/faults.hpp"
#include "support/handler.hpp"
#include "support/mount.hpp"

namespace kova::test {
namespace {

// Not among those that a handler raises.
constexpr uint32_t kMask = 0x80000008;

// What a call came to.
struct Result {
  int32_t result;
  uint32_t mask = kMask;
};
using Work = std::function<Result()>;
using Findings = std::set<std::string>;

// ---- Files ----

const std::string kNone = "none";
using seam::Texts;

Texts files_now() { return seam::Snapshot({seam::kMainStore, "/tmp"}).texts(); }

std::string contents_of(const std::string& path) {
  return std::filesystem::exists(path) ? seam::read_file(path) : kNone;
}

void put(const std::string& path, const std::string& text) {
  if (text == kNone) {
    std::filesystem::remove(path);
  } else {
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    seam::write_file(path, text);
  }
}

bool is_package(const std::string& path) {
  return path.starts_with(seam::kMainStore) || path.starts_with(seam::kMirror);
}

// The sections and options of a package file, as the store writes it.
std::set<std::string> names_in(const std::string& text) {
  std::set<std::string> names;
  std::istringstream stream(text);
  std::string section;
  for (std::string line; std::getline(stream, line);) {
    if (line.starts_with("config ")) section = line;
    if (!line.empty()) names.insert(section + (line.starts_with('\t') ? line.substr(0, line.find(" '")) : ""));
  }
  return names;
}

// Whether a package file has been written to its end, with all that it has before a call as well as after it.
bool is_whole(const std::string& text, const std::string& before, const std::string& after) {
  if (text == before || text == after) return true;
  const std::set<std::string> names = names_in(text);
  const std::set<std::string> later = names_in(after);
  for (const std::string& name : names_in(before)) {
    if (later.contains(name) && !names.contains(name)) return false;
  }
  return text.empty() || text == "\n" || text == kNone || text.ends_with("\n\n");
}

// The files that a call changes, as they are before and after it; and what else may be left to put back.
class Changed {
 public:
  Changed(const Texts& before, const Texts& after) : before_(before) {
    for (const auto& [path, was, is] : seam::differences(before, after))
      texts_[path] = {was.value_or(kNone), is.value_or(kNone)};
  }

  // Puts the files back, and says which packages are broken.
  Findings judge_and_restore() {
    Findings findings;
    for (const auto& [path, texts] : texts_) {
      const std::string text = contents_of(path);
      if (is_package(path) && !is_whole(text, texts.first, texts.second)) findings.insert("breaks " + path);
      if (text != texts.first) put(path, texts.first);
    }
    return findings;
  }

  // The same for what only a call during which something failed has changed.
  Findings judge_and_restore_others() const {
    Findings findings;
    for (const auto& [path, was, is] : seam::differences(before_, files_now())) {
      const std::string old_text = was.value_or(kNone);
      if (!is_package(path) || !is_whole(is.value_or(kNone), old_text, old_text)) findings.insert("changes " + path);
      put(path, old_text);
    }
    return findings;
  }

 private:
  const Texts& before_;
  std::map<std::string, std::pair<std::string, std::string>> texts_;
};

// ---- Sweep ----

// The first calls one by one, later ones in growing steps: they are the rounds of one loop.
int next(int n) { return n < 32 ? n + 1 : n + n / 8; }

// One call while a service fails; what was wrong with it.
Findings strike(Service& service, int n, const Work& work, bool is_handler) {
  Findings findings;
  const Held before = Held::now();
  service.fails_at = n;
  const Result result = under_fire(work);
  service.fails_at = 0;
  const Held after = Held::now();
  if (after.blocks != before.blocks) findings.insert("keeps memory");
  if (after.pipes != before.pipes) findings.insert("keeps a pipe");
  if (after.descriptor != before.descriptor) findings.insert("keeps a descriptor");
  if (is_handler && result.result != 0 && result.result != -1) findings.insert("has a result of its own");
  if (result.result == -1 && result.mask != kMask) findings.insert("marks and fails");
  return findings;
}

// All that is wrong with a piece of work while each service that it uses fails, at each of its calls.
Findings sweep(const Work& work, bool is_handler = true) {
  Findings all;
  const auto note = [&](const std::string& when, const Findings& findings) {
    for (const std::string& finding : findings) all.insert(when + finding);
  };
  const Texts before = files_now();
  under_fire(work);  // also for what is made once and kept
  std::vector<Service*> used;
  for (Service* service = Service::first; service != nullptr; service = service->next) {
    if (service->calls != 0) used.push_back(service);
  }
  Changed changed(before, files_now());
  changed.judge_and_restore();
  for (Service* service : used) {
    int n = 1;
    do {
      note(std::string(service->name) + ": ", strike(*service, n, work, is_handler));
      note(std::string(service->name) + ": ", changed.judge_and_restore());
    } while (service->calls >= std::exchange(n, next(n)));
  }
  note("", changed.judge_and_restore_others());
  return all;
}

Result get_once(parameter_handler handler) {
  static char output[1 << 16];
  static agent_state agent = running_agent();
  int32_t instances[] = {1, 1, 1, 1, 0, 0};
  return {seam::get(handler, instances, output, &agent)};
}

Result set_once(parameter_handler handler, const char* value) {
  int32_t instances[] = {1, 1, 1, 1, 0, 0};
  Result result = {0};
  result.result = seam::set(handler, instances, value, &result.mask);
  return result;
}

// A router with something for every handler to find.
class FaultSweep : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    const Texts files = files_now();
    for (const char* directory : {seam::kMainStore, "/tmp"}) mount_memory(directory, 4096);  // which is quicker
    for (const auto& [path, text] : files) put(path, text);
    // Whatever is asked for, without a program to be run.
    for (const auto& entry : std::filesystem::recursive_directory_iterator("/etc/lab/bus")) {
      if (entry.is_regular_file())
        put(entry.path(), R"({"up": true, "uptime": 7, "device": "eth0", "l3_device": "eth0", "macaddr": "02:a4:f1",
            "ipv4-address": [{"address": "192.0.2.5", "mask": 24}], "dns-server": ["192.0.2.53"],
            "statistics:int64": {"tx_bytes": 1}, "bridge-members": ["lan1"], "reply": "OK"})");
    }
    // Written as the store writes them, to tell their options apart.
    for (const auto& entry : std::filesystem::directory_iterator("/etc/config")) {
      const std::unique_ptr<uci_context, decltype(&uci_free_context)> context(uci_alloc_context(), &uci_free_context);
      uci_package* package = nullptr;
      uci_load(context.get(), entry.path().filename().c_str(), &package);
      uci_commit(context.get(), &package, true);
    }
    put("/tmp/tr069/check", "config result 'result'\n\toption set_result '1'\n");
    put("/tmp/tr069/hosts", "config host '1'\n\toption ip '192.168.1.10'\n");
    put("/tmp/profile/profile", "config board\n\toption name 'router'\n");
    for (const auto& [section, option, value] :
         {std::tuple{"wlan02", "encryption", "psk2"}, {"wlan12", "encryption", "psk2"}})
      uci_raw_set_value("wireless", section, option, value);
    uci_raw_set_value("network", "wan", "proto", "static");
  }
};

TEST_F(FaultSweep, EveryHandlerGets) {
  for (const Row& row : kCatalogue) EXPECT_EQ(sweep([&] { return get_once(row.handler); }), Findings{}) << row.name;
}

TEST_F(FaultSweep, EveryHandlerGetsInOneLook) {
  for (const Row& row : kCatalogue) {
    EXPECT_EQ(sweep([&] {
                kova_look_begin();
                get_once(row.handler);
                const Result again = get_once(row.handler);
                kova_look_end();
                return again;
              }),
              Findings{})
        << row.name;
  }
}

TEST_F(FaultSweep, EveryHandlerSets) {
  for (const Row& row : kCatalogue) {
    if (row.access == Access::READ_ONLY) continue;
    const Texts before = files_now();
    const char* const* accepted = std::find_if(std::begin(kCommonValues), std::end(kCommonValues), [&](auto value) {
      const bool taken = set_once(row.handler, value).result == 0;
      Changed(before, files_now()).judge_and_restore();
      return taken;
    });
    ASSERT_NE(accepted, std::end(kCommonValues)) << row.name;
    EXPECT_EQ(sweep([&] { return set_once(row.handler, *accepted); }), Findings{}) << row.name;
    EXPECT_EQ(sweep([&] {
                kova_look_begin();
                get_once(row.handler);
                const Result result = set_once(row.handler, *accepted);
                kova_look_end();
                return result;
              }),
              Findings{})
        << row.name;
  }
}

TEST_F(FaultSweep, EveryHelper) {
  static char text[4096];
  char first[16] = "192.168.1.10";
  char last[16] = "";
  const int32_t instances[] = {1, 1, 0};
  const std::function<int32_t()> helpers[] = {
      [] { return uci_raw_extract_value("cwmp", "info", "url", text); },
      [] { return uci_raw_extract_value_By_path("check", "result", "set_result", text); },
      [] { return uci_raw_set_value("cwmp", "info", "url", "http://it's.example/"); },
      [] { return uci_raw_set_value("network", "vlan", "enable", "1"); },
      [] { return uci_raw_set_value_By_path("check", "result", "set_result", "0"); },
      [] { return uciRevert("cwmp.info.url"); },
      [] { return uciGetProfileValue("board", "name", text, 16); },
      [] { return util_exec("line", text, 16); },
      [] { return cwmp_system("command"); },
      [] { return record_task_cmd("command"); },
      [] { return record_task_cmd_once("command"); },
      [] { return generate_host_info(); },
      [] { return generate_mesh_info(); },
      [] { return delete_host_info(); },
      [] { return netif_get_interface_status("wan", INTERFACE_UPTIME, text, 16); },
      [] { return netif_get_device_status("br-lan", DEVICE_MAC, text, 32); },
      [] { return validityHost("www.example.net"); },
      [] { return get_TotalBytesAndPackets_by_name("eth0", COUNTER_BYTES_SENT, text, 32); },
      [] { return get_mac(text, 32); },
      [] { return get_oui(text, 32); },
      [] { return get_mac_last(text, 32); },
      [] { return get_cloud_sn(text, 32); },
      [] { return get_device_sn(text, 32); },
      [&] { return GetChannelPoll(0, nullptr, text, instances, 0); },
      [&] { return dhcp_calc_ipaddr_pool(first, last); },
      [&] { return dhcp_calc_pool_range(first, last); }};
  for (size_t i = 0; i < std::size(helpers); ++i)
    EXPECT_EQ(sweep([&] { return Result{helpers[i]()}; }, false), Findings{}) << "the one at " << i;
}

// ---- The detector ----

TEST_F(FaultSweep, FindsWhatIsPlanted) {
  const auto leaks = [] {
    void* const first = malloc(8);
    void* const second = malloc(8);
    if (second != nullptr) free(first);
    free(second);
    return Result{0};
  };
  std::vector<FILE*> forgotten;
  forgotten.reserve(8);
  const auto forgets_a_pipe = [&] {
    FILE* const pipe = popen("line", "re");
    if (access("/etc/config", F_OK) != 0) return forgotten.push_back(pipe), Result{-1};
    if (pipe != nullptr) pclose(pipe);
    return Result{0};
  };
  const auto forgets_a_file = [] {
    const int file = open("/etc/passwd", O_RDONLY);
    if (access("/etc/config", F_OK) == 0) close(file);
    return Result{0};
  };
  const auto marks_too_early = [] { return access("/etc/config", F_OK) == 0 ? Result{0, 1} : Result{-1, 1}; };
  const auto tears = [] {
    const int file = open("/etc/config/rpcd", O_WRONLY | O_TRUNC);
    const std::string text = "\nconfig a 'a'\n\n";
    const bool written = write(file, text.data(), text.size()) >= 0;
    close(file);
    return Result{written ? 0 : -1};
  };
  const auto passes_an_error_on = [] { return Result{cwmp_system("command") == 0 ? 0 : 28}; };
  Findings kept = {"access: keeps a pipe"};
  if (kMemoryFails) kept.insert("access: keeps memory");
  EXPECT_EQ(sweep(leaks), kMemoryFails ? Findings{"malloc: keeps memory"} : Findings{});
  EXPECT_EQ(sweep(forgets_a_pipe), kept);
  for (FILE* pipe : forgotten) pclose(pipe);
  EXPECT_EQ(sweep(forgets_a_file), Findings{"access: keeps a descriptor"});
  EXPECT_EQ(sweep(marks_too_early), Findings{"access: marks and fails"});
  EXPECT_EQ(sweep(tears), Findings{"write: breaks /etc/config/rpcd"});
  EXPECT_EQ(sweep(passes_an_error_on), Findings{"system: has a result of its own"});
}

}  // namespace
}  // namespace kova::test

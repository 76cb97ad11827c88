// The stand-in for libuci and its tool: recorded runs of the real tool, and the library's own rules.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <uci.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;
using Json = nlohmann::json;

struct Outcome {
  int status;
  std::string out;
  std::string err;
  bool operator==(const Outcome&) const = default;
};

void PrintTo(const Outcome& outcome, std::ostream* stream) {
  *stream << outcome.status << "\nstdout: " << outcome.out << "\nstderr: " << outcome.err;
}

std::optional<std::string> contents(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) return std::nullopt;
  return std::string(std::istreambuf_iterator<char>(file), {});
}

constexpr const char* kDemo =
    "config interface 'lan'\n\toption proto 'static'\n\tlist dns '8.8.8.8'\n\tlist dns '1.1.1.1'\n"
    "config rule\n\toption name 'x'\nconfig rule\n\toption name 'y'\n";

// A store of its own below a temporary directory.
class UciStandin : public testing::Test {
 protected:
  UciStandin() {
    std::string path = fs::temp_directory_path() / "uci-standin-XXXXXX";
    root_ = mkdtemp(path.data());
    fs::create_directory(root_ / "config");
    fs::create_directory(root_ / "save");
    write("config/demo", kDemo);
  }
  ~UciStandin() override { fs::remove_all(root_); }

  void write(const fs::path& name, const std::string& text) const {
    std::ofstream(root_ / name, std::ios::binary) << text;
  }
  std::optional<std::string> read(const fs::path& name) const { return contents(root_ / name); }
  const fs::path& root() const { return root_; }

  Outcome uci(std::vector<std::string> arguments) const {
    arguments.insert(arguments.begin(), {UCI_TOOL, "-c", root_ / "config", "-t", root_ / "save"});
    std::vector<char*> argv;
    argv.reserve(arguments.size() + 1);
    for (std::string& argument : arguments) argv.push_back(argument.data());
    argv.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    const std::string out = root_ / "stdout";
    const std::string err = root_ / "stderr";
    posix_spawn_file_actions_addopen(&actions, 1, out.c_str(), O_CREAT | O_TRUNC | O_WRONLY, 0600);
    posix_spawn_file_actions_addopen(&actions, 2, err.c_str(), O_CREAT | O_TRUNC | O_WRONLY, 0600);
    pid_t child = 0;
    int status = -1;
    EXPECT_EQ(posix_spawn(&child, UCI_TOOL, &actions, nullptr, argv.data(), environ), 0);
    posix_spawn_file_actions_destroy(&actions);
    EXPECT_EQ(waitpid(child, &status, 0), child);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, contents(out).value_or(""), contents(err).value_or("")};
  }

 private:
  fs::path root_;
};

// A context on that store, and the things that tests do with it.
class Session {
 public:
  explicit Session(const fs::path& root) : context_(uci_alloc_context(), &uci_free_context) {
    uci_set_confdir(get(), (root / "config").c_str());
    uci_set_savedir(get(), (root / "save").c_str());
  }
  uci_context* get() const { return context_.get(); }

  uci_package* load(const char* name = "demo") const {
    uci_package* package = nullptr;
    EXPECT_EQ(uci_load(get(), name, &package), UCI_OK);
    return package;
  }
  int look_up(uci_ptr& ptr, const char* path, bool extended = true) {
    path_ = path;
    return uci_lookup_ptr(get(), &ptr, path_.data(), extended);
  }
  template <typename Change>
  int change(Change function, const std::string& path) {
    uci_ptr ptr = {};
    const int error = look_up(ptr, path.c_str());
    return error == UCI_OK ? function(get(), &ptr) : error;
  }
  std::string value(const char* path) {
    uci_ptr ptr = {};
    if (look_up(ptr, path) != UCI_OK || ptr.o == nullptr || ptr.o->type != UCI_TYPE_STRING) return "(none)";
    return ptr.o->v.string;
  }
  int commit() const {
    uci_package* package = uci_lookup_package(get(), "demo");
    return uci_commit(get(), &package, false);
  }

 private:
  std::unique_ptr<uci_context, decltype(&uci_free_context)> context_;
  std::string path_;
};

Json recorded_cases() { return Json::parse(contents(UCI_CASES).value()); }

class RecordedRun : public UciStandin, public testing::WithParamInterface<Json> {};

TEST_P(RecordedRun, IsRepeated) {
  const Json& run = GetParam();
  SCOPED_TRACE(run["title"]);
  const std::string package = run["package"];
  write("config/" + package, run["before"]);
  for (const Json& step : run["steps"]) {
    EXPECT_EQ(uci(step["argv"]), (Outcome{step["status"], step["stdout"], step["stderr"]})) << step["command"];
  }
  EXPECT_EQ(read("config/" + package), run["file_after"].get<std::string>());
  const Json& delta = run["delta_after"];
  EXPECT_EQ(read("save/" + package), delta.is_null() ? std::nullopt : std::optional(delta.get<std::string>()));
}

INSTANTIATE_TEST_SUITE_P(All, RecordedRun, testing::ValuesIn(recorded_cases().get<std::vector<Json>>()));

TEST_F(UciStandin, LookUpSaysHowFarItCame) {
  Session session(root());
  uci_ptr ptr = {};
  ASSERT_EQ(session.look_up(ptr, "demo.lan.proto=dhcp", false), UCI_OK);
  EXPECT_EQ(ptr.flags, uci_ptr::UCI_LOOKUP_DONE | uci_ptr::UCI_LOOKUP_COMPLETE);
  EXPECT_EQ(ptr.target, UCI_TYPE_OPTION);
  EXPECT_EQ(ptr.last, &ptr.o->e);
  EXPECT_STREQ(ptr.o->v.string, "static");
  EXPECT_STREQ(ptr.value, "dhcp");

  ASSERT_EQ(session.look_up(ptr, "demo.lan.none"), UCI_OK);
  EXPECT_EQ(ptr.flags, uci_ptr::UCI_LOOKUP_DONE);
  EXPECT_EQ(ptr.last, &ptr.s->e);
  ASSERT_EQ(session.look_up(ptr, "demo.none.none"), UCI_OK);
  EXPECT_EQ(ptr.flags, uci_ptr::UCI_LOOKUP_DONE);
  EXPECT_EQ(ptr.last, &ptr.p->e);
  ASSERT_EQ(session.look_up(ptr, "demo"), UCI_OK);
  EXPECT_EQ(ptr.flags, uci_ptr::UCI_LOOKUP_DONE | uci_ptr::UCI_LOOKUP_COMPLETE);
  EXPECT_EQ(ptr.target, UCI_TYPE_PACKAGE);

  ASSERT_EQ(session.look_up(ptr, "demo.@rule[-1].name"), UCI_OK);
  EXPECT_EQ(ptr.flags, uci_ptr::UCI_LOOKUP_DONE | uci_ptr::UCI_LOOKUP_COMPLETE | uci_ptr::UCI_LOOKUP_EXTENDED);
  EXPECT_STREQ(ptr.o->v.string, "y");
  ASSERT_EQ(session.look_up(ptr, "demo.@rule[-3]"), UCI_OK);
  EXPECT_EQ(ptr.s, nullptr);
  for (const char* wrong : {"demo.@rule", "demo.@rule[]", "demo.@rule[x]", "demo.@rule[0", "demo.x-y", "demo..x"})
    EXPECT_EQ(session.look_up(ptr, wrong), UCI_ERR_INVAL) << wrong;
  EXPECT_EQ(session.look_up(ptr, "demo.@rule[0]", false), UCI_ERR_INVAL);
  for (const char* wrong : {"", ".lan", "demo.lan.", "demo.lan.a-b", "de/mo.lan"})
    EXPECT_EQ(session.look_up(ptr, wrong), UCI_ERR_PARSE) << wrong;
  EXPECT_EQ(session.look_up(ptr, "none.lan"), UCI_ERR_NOTFOUND);
}

TEST_F(UciStandin, TakesAnElementThatWasFilledInByHand) {
  Session session(root());
  uci_ptr names = {};
  names.package = "demo";
  names.section = "lan";
  names.option = "proto";
  ASSERT_EQ(uci_lookup_ptr(session.get(), &names, nullptr, false), UCI_OK);
  EXPECT_STREQ(names.o->v.string, "static");

  uci_ptr elements = {};
  elements.p = names.p;
  elements.s = names.s;
  elements.option = "mtu";
  elements.value = "1500";
  EXPECT_EQ(uci_set(session.get(), &elements), UCI_OK);
  EXPECT_STREQ(elements.o->v.string, "1500");
  EXPECT_EQ(elements.last, &elements.o->e);

  uci_ptr unknown = {};
  EXPECT_EQ(uci_lookup_ptr(session.get(), &unknown, nullptr, true), UCI_ERR_INVAL);
  elements = {};
  elements.p = names.p;
  elements.s = names.s;
  elements.option = "bad name";
  elements.value = "1";
  EXPECT_EQ(uci_set(session.get(), &elements), UCI_ERR_INVAL);
}

TEST_F(UciStandin, WalksAndLooksUpByName) {
  Session session(root());
  uci_package* package = session.load();
  std::vector<std::string> names;
  uci_element* element = nullptr;
  uci_foreach_element(&package->sections, element) names.emplace_back(element->name);
  EXPECT_EQ(names, (std::vector<std::string>{"lan", "cfg0292bd", "cfg0392bd"}));
  EXPECT_FALSE(uci_lookup_section(session.get(), package, "lan")->anonymous);
  uci_section* rule = uci_lookup_section(session.get(), package, "cfg0392bd");
  ASSERT_NE(rule, nullptr);
  EXPECT_TRUE(rule->anonymous);
  EXPECT_STREQ(uci_lookup_option_string(session.get(), rule, "name"), "y");
  uci_section* lan = uci_lookup_section(session.get(), package, "lan");
  EXPECT_EQ(uci_lookup_option_string(session.get(), lan, "dns"), nullptr);

  uci_option* dns = uci_lookup_option(session.get(), lan, "dns");
  element = nullptr;
  EXPECT_EQ(uci_lookup_next(session.get(), &element, &dns->v.list, "1.1.1.1"), UCI_OK);
  EXPECT_STREQ(element->name, "1.1.1.1");
  EXPECT_EQ(uci_lookup_next(session.get(), &element, &dns->v.list, "1.1.1.1"), UCI_ERR_NOTFOUND);
}

TEST_F(UciStandin, LoadsAPackageOnce) {
  Session session(root());
  uci_package* package = session.load();
  EXPECT_EQ(uci_load(session.get(), "demo", nullptr), UCI_ERR_DUPLICATE);
  EXPECT_EQ(uci_unload(session.get(), package), UCI_OK);
  session.load();
  EXPECT_EQ(uci_load(session.get(), "none", nullptr), UCI_ERR_NOTFOUND);
  fs::create_directory(root() / "config/folder");
  EXPECT_EQ(uci_load(session.get(), "folder", nullptr), UCI_ERR_NOTFOUND);
  EXPECT_EQ(uci_load(session.get(), "../config/demo", nullptr), UCI_ERR_INVAL);

  write("config/mixed", "config a 'x'\nconfig b 'x'\n");
  EXPECT_EQ(uci_load(session.get(), "mixed", nullptr), UCI_ERR_PARSE);
  char* text = nullptr;
  uci_get_errorstr(session.get(), &text, "test");
  EXPECT_TRUE(std::string(text).starts_with("test: Parse error (section of different type")) << text;
  free(text);
}

TEST_F(UciStandin, SetAndDeleteRefuseWhatTheFileCouldNotHold) {
  Session session(root());
  EXPECT_EQ(session.change(uci_set, "demo.none.option=1"), UCI_ERR_INVAL);
  EXPECT_EQ(session.change(uci_set, "demo.new=bad type"), UCI_ERR_INVAL);
  EXPECT_EQ(session.change(uci_set, "demo=1"), UCI_ERR_INVAL);
  EXPECT_EQ(session.change(uci_set, "demo.lan.proto"), UCI_ERR_INVAL);
  EXPECT_EQ(session.change(uci_set, "demo.@rule[7]=rule"), UCI_ERR_INVAL);
  EXPECT_EQ(session.change(uci_delete, "demo.lan.none"), UCI_ERR_NOTFOUND);
  EXPECT_EQ(session.change(uci_delete, "demo"), UCI_ERR_INVAL);
  EXPECT_EQ(session.change(uci_add_list, "demo.none.dns=1"), UCI_ERR_INVAL);
  EXPECT_EQ(session.change(uci_del_list, "demo.lan.proto=static"), UCI_OK);
  EXPECT_EQ(session.value("demo.lan.proto"), "static");
  EXPECT_EQ(session.commit(), UCI_OK);
  EXPECT_EQ(read("config/demo"), kDemo);

  EXPECT_EQ(session.change(uci_set, "demo.lan=bridge"), UCI_OK);
  EXPECT_EQ(session.change(uci_set, "demo.@rule[0]="), UCI_OK);
  EXPECT_EQ(session.change(uci_add_list, "demo.lan.proto=dhcp"), UCI_OK);
  EXPECT_EQ(session.change(uci_del_list, "demo.lan.dns=8.8.8.8"), UCI_OK);
  EXPECT_EQ(session.change(uci_del_list, "demo.lan.dns=1.1.1.1"), UCI_OK);
  EXPECT_EQ(session.commit(), UCI_OK);
  EXPECT_EQ(read("config/demo"),
            "\nconfig bridge 'lan'\n\tlist proto 'static'\n\tlist proto 'dhcp'\n\nconfig rule\n\toption name 'y'\n\n");
}

TEST_F(UciStandin, CommitKeepsWhatOthersChangedMeanwhile) {
  Session session(root());
  session.load();
  EXPECT_EQ(session.change(uci_set, "demo.lan.mine=1"), UCI_OK);
  EXPECT_EQ(uci({"set", "demo.lan.saved=2"}).status, 0);
  write("config/demo", "config interface 'lan'\n\toption theirs '3'\n");
  fs::permissions(root() / "config/demo", fs::perms{0640});
  EXPECT_EQ(session.commit(), UCI_OK);
  EXPECT_EQ(read("config/demo"),
            "\nconfig interface 'lan'\n\toption theirs '3'\n\toption saved '2'\n\toption mine '1'\n\n");
  EXPECT_EQ(session.value("demo.lan.theirs"), "3");
  EXPECT_EQ(fs::status(root() / "config/demo").permissions(), fs::perms{0640});
  EXPECT_EQ(std::distance(fs::directory_iterator(root() / "config"), {}), 1);
}

TEST_F(UciStandin, WritersAtTheSameTimeLoseNothing) {
  constexpr int kWriters = 4;
  constexpr int kRounds = 25;
  std::vector<pid_t> children;
  for (int writer = 0; writer < kWriters; ++writer) {
    children.push_back(fork());
    if (children.back() != 0) continue;
    bool good = true;
    for (int round = 1; round <= kRounds; ++round) {
      Session session(root());
      const std::string path = "demo.lan.w" + std::to_string(writer) + "=" + std::to_string(round);
      good = good && session.change(uci_set, path) == UCI_OK && session.commit() == UCI_OK;
    }
    _exit(good ? 0 : 1);
  }
  for (const pid_t child : children) {
    int status = -1;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
  }
  Session session(root());
  for (int writer = 0; writer < kWriters; ++writer)
    EXPECT_EQ(session.value(("demo.lan.w" + std::to_string(writer)).c_str()), std::to_string(kRounds));
}

TEST_F(UciStandin, AFailedWriteIsReportedAndLeavesTheOldFile) {
  const std::string before = std::string(kDemo) + "\toption text '" + std::string(20000, 'x') + "'\n";
  write("config/demo", before);
  Session session(root());
  EXPECT_EQ(session.change(uci_set, "demo.lan.proto=dhcp"), UCI_OK);
  rlimit old_limit = {};
  getrlimit(RLIMIT_FSIZE, &old_limit);
  const auto old_handler = std::signal(SIGXFSZ, SIG_IGN);
  const rlimit limit = {8192, old_limit.rlim_max};
  setrlimit(RLIMIT_FSIZE, &limit);
  EXPECT_EQ(session.commit(), UCI_ERR_IO);
  setrlimit(RLIMIT_FSIZE, &old_limit);
  std::signal(SIGXFSZ, old_handler);
  EXPECT_EQ(read("config/demo"), before);
  EXPECT_EQ(read("save/demo"), "demo.lan.proto='dhcp'\n");
  EXPECT_EQ(std::distance(fs::directory_iterator(root() / "config"), {}), 1);
  EXPECT_EQ(session.commit(), UCI_OK);
  EXPECT_EQ(Session(root()).value("demo.lan.proto"), "dhcp");
}

TEST_F(UciStandin, AFileThatCannotBeWrittenFailsTheCommit) {
  Session session(root());
  EXPECT_EQ(session.change(uci_set, "demo.lan.proto=dhcp"), UCI_OK);
  fs::remove(root() / "config/demo");
  fs::create_directory(root() / "config/demo");
  EXPECT_EQ(session.commit(), UCI_ERR_IO);
  fs::remove_all(root() / "config");
  EXPECT_EQ(session.commit(), UCI_ERR_IO);
  fs::create_directory(root() / "config");
  write("config/demo", "config broken 'x\n");
  EXPECT_EQ(session.commit(), UCI_ERR_PARSE);
  EXPECT_EQ(read("config/demo"), "config broken 'x\n");
}

TEST_F(UciStandin, ASaveDirectoryIsMadeUnlessItsParentIsMissing) {
  fs::remove(root() / "save");
  Session session(root());
  EXPECT_EQ(session.change(uci_set, "demo.lan.proto=dhcp"), UCI_OK);
  uci_set_savedir(session.get(), (root() / "no/where").c_str());
  EXPECT_EQ(session.commit(), UCI_ERR_IO);
  uci_set_savedir(session.get(), (root() / "config/demo").c_str());
  EXPECT_EQ(session.commit(), UCI_ERR_IO);
  EXPECT_EQ(read("config/demo"), kDemo);
  uci_set_savedir(session.get(), (root() / "save").c_str());
  EXPECT_EQ(session.commit(), UCI_OK);
  EXPECT_EQ(Session(root()).value("demo.lan.proto"), "dhcp");
}

TEST_F(UciStandin, ReadsEveryKindOfChangeAndPassesOverTheOthers) {
  write("save/demo",
        "demo.wan='interface'\ndemo.wan.proto='dhcp'\n+demo.cfg0592bd='rule'\ndemo.cfg0592bd.name='z'\n"
        "@demo.lan='home'\n@demo.home.proto='kind'\n|demo.home.dns='9.9.9.9'\n~demo.home.dns='8.8.8.8'\n"
        "-demo.cfg0292bd\n-demo.none\ndemo.none.a='1'\nnonsense\n''\ndemo.home.bad-name='1'\ndemo.bad='a b'\n"
        "demo.wan.cut='half");
  EXPECT_EQ(uci({"commit"}), (Outcome{0, "", ""}));
  EXPECT_EQ(read("config/demo"),
            "\nconfig interface 'home'\n\toption kind 'static'\n\tlist dns '1.1.1.1'\n\tlist dns '9.9.9.9'\n"
            "\nconfig rule\n\toption name 'y'\n\nconfig interface 'wan'\n\toption proto 'dhcp'\n"
            "\nconfig rule\n\toption name 'z'\n\n");
}

TEST_F(UciStandin, RevertReloadsThePackage) {
  EXPECT_EQ(uci({"set", "demo.lan.saved=1"}).status, 0);
  Session session(root());
  uci_ptr ptr = {};
  EXPECT_EQ(session.change(uci_set, "demo.lan.unsaved=2"), UCI_OK);
  ASSERT_EQ(session.look_up(ptr, "demo.lan.saved"), UCI_OK);
  EXPECT_EQ(uci_revert(session.get(), &ptr), UCI_OK);
  EXPECT_EQ(ptr.p, uci_lookup_package(session.get(), "demo"));
  EXPECT_EQ(session.value("demo.lan.saved"), "(none)");
  EXPECT_EQ(session.value("demo.lan.unsaved"), "2");
  fs::remove(root() / "config/demo");
  ASSERT_EQ(session.look_up(ptr, "demo.lan"), UCI_OK);
  EXPECT_EQ(uci_revert(session.get(), &ptr), UCI_ERR_NOTFOUND);
  EXPECT_EQ(ptr.p, nullptr);
}

TEST_F(UciStandin, HoldsTextsOfAnyLength) {
  Session session(root());
  const std::string text(300000, '\'');
  EXPECT_EQ(session.change(uci_set, "demo.lan.text=" + text), UCI_OK);
  EXPECT_EQ(session.commit(), UCI_OK);
  EXPECT_EQ(Session(root()).value("demo.lan.text"), text);
}

TEST_F(UciStandin, ToolShowsChangesAndReadsExtraOnes) {
  fs::create_directory(root() / "extra");
  write("extra/demo", "demo.lan.proto='it'\\''s'\n");
  const std::string extra = root() / "extra";
  EXPECT_EQ(uci({"-p", extra, "get", "demo.lan.proto"}), (Outcome{0, "it's\n", ""}));
  EXPECT_EQ(uci({"-p", extra, "show", "demo.lan.proto"}), (Outcome{0, "demo.lan.proto='it'\\''s'\n", ""}));
  EXPECT_EQ(uci({"add_list", "demo.lan.dns=a b"}).status, 0);
  EXPECT_EQ(uci({"del_list", "demo.lan.dns=8.8.8.8"}).status, 0);
  EXPECT_EQ(uci({"delete", "demo.@rule[0]"}).status, 0);
  EXPECT_EQ(uci({"set", "demo.wan=interface"}).status, 0);
  EXPECT_EQ(uci({"get", "demo.lan.dns"}), (Outcome{0, "1.1.1.1 'a b'\n", ""}));
  const std::string changes = "demo.lan.dns+='a b'\ndemo.lan.dns-='8.8.8.8'\n-demo.cfg0292bd\ndemo.wan='interface'\n";
  EXPECT_EQ(uci({"changes"}), (Outcome{0, changes, ""}));
  EXPECT_EQ(uci({"-q", "get", "demo.none"}), (Outcome{1, "", ""}));

  write("config/broken", "x\n");
  const Outcome all = uci({"commit"});
  EXPECT_EQ(all, (Outcome{0, "", "uci: Parse error (invalid command) at line 1, byte 0\n"}));
  EXPECT_EQ(uci({"changes", "demo"}), (Outcome{0, "", ""}));
}

}  // namespace

// libuci and its tool, the stand-ins or the real ones: recorded runs of the real tool, and the library's own rules.
#include <sys/wait.h>
#include <uci.h>

#include <cstring>
#include <filesystem>
#include <memory>
#include <nlohmann/json.hpp>
#include <regex>

#include "support/device.hpp"

namespace kova::test {
namespace {

namespace fs = std::filesystem;
using Json = nlohmann::json;

constexpr const char* kDemo =
    "config interface 'lan'\n\toption proto 'static'\n\tlist dns '8.8.8.8'\n\tlist dns '1.1.1.1'\n"
    "config rule\n\toption name 'x'\nconfig rule\n\toption name 'y'\n";

// What a call of the tool shows: its output, its errors, and its status unless that follows from these.
std::string shown(const std::string& out, const std::string& err, int status) {
  return out + err + (status == (err.empty() ? 0 : 1) ? "" : "status " + std::to_string(status));
}

const std::string kInvalid = "uci: Invalid argument\n";
const std::string kNotFound = "uci: Entry not found\n";
const std::string kUnreadable = "uci: Parse error\n";
const std::string kFailed = "uci: I/O error\n";

// A command of the tool, "VERB [PATH]", and what it shows. All behind the verb is the path.
struct Step {
  Step(const char* text, std::string output = "")  // NOLINT(google-explicit-constructor): most show nothing
      : command(text), shown(std::move(output)) {}

  std::string command;
  std::string shown;
};

// A store of its own below a temporary directory.
class UciStandin : public testing::Test {
 protected:
  UciStandin() {
    std::string path = fs::temp_directory_path() / "uci-standin-XXXXXX";
    root_ = mkdtemp(path.data());
    shell("mkdir config save");
    write("config/demo", kDemo);
  }
  ~UciStandin() override { fs::remove_all(root_); }

  void write(const fs::path& name, const std::string& text) const { write_file(root_ / name, text); }
  std::optional<std::string> read(const fs::path& name) const { return contents(root_ / name); }
  int shell(const std::string& command) const { return run("cd " + root_.string() + " && " + command); }
  const fs::path& root() const { return root_; }

  std::string uci(const std::string& command, const std::string& options = "", const std::string& before = "") const {
    const size_t blank = command.find(' ');
    std::string argument;
    if (blank != std::string::npos)
      argument = "'" + std::regex_replace(command.substr(blank + 1), std::regex("'"), "'\\''") + "'";
    const int status = shell(before + "PATH=$(dirname " UCI_TOOL "):$PATH uci -c config -t save " + options + " " +
                             command.substr(0, blank) + " " + argument + " >out 2>err");
    return shown(*read("out"), *read("err"), WEXITSTATUS(status));
  }

  // Carries commands out; then the package and the save directory have these files.
  void expect_run(const std::vector<Step>& steps, const std::string& file,
                  const std::optional<std::string>& delta = "") const {
    for (const auto& [command, shown] : steps) EXPECT_EQ(uci(command), shown) << command;
    EXPECT_EQ(read("config/demo"), file);
    EXPECT_EQ(read("save/demo"), delta);
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

  int look_up(uci_ptr& ptr, const std::string& path, bool extended = true) {
    path_ = path;
    return uci_lookup_ptr(get(), &ptr, path_.data(), extended);
  }
  int set(const std::string& path) {
    uci_ptr ptr = {};
    const int error = look_up(ptr, path);
    return error == UCI_OK ? uci_set(get(), &ptr) : error;
  }
  std::string value(const std::string& path) {
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

// ---- The tool ----

TEST_F(UciStandin, RecordedRunsAreRepeated) {
  for (const Json& recorded : Json::parse(*contents(UCI_CASES))) {
    SCOPED_TRACE(recorded["title"]);
    std::vector<Step> steps;
    for (const Json& step : recorded["steps"])
      steps.emplace_back(step["command"].get_ref<const std::string&>().c_str() + std::strlen("uci "),
                         shown(step["stdout"], step["stderr"], step["status"]));
    const Json& delta = recorded["delta_after"];
    fs::remove(root() / "save/demo");
    if (recorded.contains("delta_before")) write("save/demo", recorded["delta_before"]);
    write("config/demo", recorded["before"]);
    expect_run(steps, recorded["file_after"], delta.is_null() ? std::nullopt : std::optional<std::string>(delta));
  }
}

TEST_F(UciStandin, AnEmptyRepeatOfAnOptionIsPassedOver) {
  write("config/demo",
        "config a 'x'\n\toption p '1'\n\toption q '2'\n\toption p ''\n\toption q '3'\n\toption r\n\toption s '4'\n"
        "\toption r '5'\n\tlist l '6'\n\toption l ''\n");
  expect_run({"set demo.x.t=7", "commit demo"},
             "\nconfig a 'x'\n\toption p '1'\n\toption q '3'\n\toption s '4'\n\toption r '5'\n\tlist l '6'\n"
             "\toption t '7'\n\n");
}

TEST_F(UciStandin, AnIndexThatNoSectionHasIsTakenForAName) {
  const Step option = {"set demo.@rule[2].name=z", kInvalid};
  const Step get = {"get demo.@rule[2]", kNotFound};
  expect_run({"set demo.@rule[2]=rule", "set demo.@rule[-3]=rule", "set demo.@it's[]=rule", option, get, "commit demo"},
             kDemo, "demo.@rule[2]='rule'\ndemo.@rule[-3]='rule'\ndemo.@it's[]='rule'\n");
}

TEST_F(UciStandin, TypesAreWrittenEscaped) {
  expect_run({"set demo.@rule[]=", "set demo.@rule[0]=", "delete demo.lan.dns", "set demo.lan=it's", "commit"},
             "\nconfig it'\\''s 'lan'\n\toption proto 'static'\n\n");
}

TEST_F(UciStandin, WhatCannotBeDoneChangesNothing) {
  shell("mkdir config/folder");
  write("config/mixed", "config a 'x'\nconfig b 'x'\n");
  const std::pair<std::string, std::vector<const char*>> refusals[] = {
      {kInvalid,
       {"set demo.new=bad type", "set demo=1", "set demo.lan.proto", "add_list demo.none.dns=1", "delete demo",
        "get demo.@rule", "get demo.@rule[-]", "get demo.@rule[0", "get demo.x-y", "get demo..x"}},
      {kUnreadable, {"get .lan", "get demo.lan.", "get demo.lan.a-b", "get ../config/demo"}},
      {kNotFound, {"get folder.lan", "delete demo.lan.none"}},
      {"status 1", {"delete demo.lan=x", "delete demo.@rule[0].name=x"}},
      {"", {"del_list demo.lan.proto=static"}},
      {"uci: Parse error (section of different type overwrites prior section with same name) at line 2, byte 13\n",
       {"get mixed.x"}}};
  for (const auto& [shown, commands] : refusals) {
    for (const char* command : commands) EXPECT_EQ(uci(command), shown) << command;
  }
  expect_run({}, kDemo, std::nullopt);
}

TEST_F(UciStandin, ReadsEveryKindOfChangeAndPassesOverTheOthers) {
  write("save/demo",
        "demo.wan='interface'\ndemo.wan.proto='dhcp'\n+demo.cfg0592bd='rule'\ndemo.cfg0592bd.name='z'\n"
        "@demo.lan='home'\n@demo.home.proto='kind'\n|demo.home.dns='9.9.9.9'\n~demo.home.dns='8.8.8.8'\n"
        "-demo.cfg0292bd\n-demo.none\ndemo.none.a='1'\nnonsense\n''\ndemo.home.bad-name='1'\ndemo.bad='a b'\n"
        "demo.wan.cut='half");
  expect_run({"commit"},
             "\nconfig interface 'home'\n\toption kind 'static'\n\tlist dns '1.1.1.1'\n\tlist dns '9.9.9.9'\n"
             "\nconfig rule\n\toption name 'y'\n\nconfig interface 'wan'\n\toption proto 'dhcp'\n"
             "\nconfig rule\n\toption name 'z'\n\n");
}

TEST_F(UciStandin, ChangesWaitUntilTheyAreCommitted) {
  const Step changes = {"changes",
                        "demo.lan.dns+='a b'\ndemo.lan.proto+='dhcp'\ndemo.lan.dns-='8.8.8.8'\n-demo.cfg0292bd\n"
                        "-demo.cfg0392bd\ndemo.wan='interface'\n"};
  const Step dns = {"get demo.lan.dns", "1.1.1.1 'a b'\n"};
  expect_run(
      {"add_list demo.lan.dns=a b", "add_list demo.lan.proto=dhcp", "del_list demo.lan.dns=8.8.8.8",
       "delete demo.@rule[]", "set demo.@rule[0]=", "set demo.wan=interface", dns, changes, "commit", "changes demo",
       dns, "del_list demo.lan.dns=a b", "del_list demo.lan.dns=1.1.1.1", "set demo.wan=bridge", "commit"},
      "\nconfig interface 'lan'\n\tlist proto 'static'\n\tlist proto 'dhcp'\n\nconfig bridge 'wan'\n\n");
}

TEST_F(UciStandin, ToolTakesOptionsAndPassesOverBrokenPackages) {
  shell("mkdir extra");
  write("extra/demo", "demo.lan.proto='it'\\''s'\n");
  EXPECT_EQ(uci("get demo.lan.proto", "-p extra"), "it's\n");
  EXPECT_EQ(uci("show demo.lan.proto", "-p extra"), "demo.lan.proto='it'\\''s'\n");
  EXPECT_EQ(uci("get demo.none", "-q"), "status 1");
  write("config/broken", "x\n");
  EXPECT_EQ(uci("set demo.lan.proto=dhcp"), "");
  EXPECT_EQ(uci("commit"), "uci: Parse error (invalid command) at line 1, byte 0\nstatus 0");
  EXPECT_EQ(uci("changes demo"), "");
}

TEST_F(UciStandin, ASaveDirectoryIsMadeUnlessItsParentIsMissing) {
  for (const char* nowhere : {"-t no/where", "-t config/demo"}) EXPECT_EQ(uci("set demo.lan.a=1", nowhere), kFailed);
  EXPECT_EQ(uci("set demo.lan.a=1", "-t new"), "");
  EXPECT_EQ(read("new/demo"), "demo.lan.a='1'\n");
}

// So who has no room loses a package: the plug-in asks for the room first.
TEST_F(UciStandin, AFailedWriteIsNotNoticed) {
  write("config/demo", std::string(kDemo) + "\toption text '" + std::string(20000, 'x') + "'\n");
  EXPECT_EQ(uci("set demo.lan.proto=dhcp"), "");
  EXPECT_EQ(uci("commit", "", "trap '' 25; ulimit -f 8; "), "");
  EXPECT_EQ(read("config/demo")->size(), 4096U);
  EXPECT_EQ(read("save/demo"), "");
  EXPECT_EQ(shell("test \"$(ls -A config)\" = demo"), 0);
}

TEST_F(UciStandin, ChangesInTheUsualDirectoryCountWhereverOthersAre) {
  run("mkdir -p /tmp/.uci && echo \"demo.lan.proto='usual'\" >/tmp/.uci/demo");
  EXPECT_EQ(uci("get demo.lan.proto"), "usual\n");
  EXPECT_EQ(uci("set demo.lan.a=1"), "");
  EXPECT_EQ(uci("commit demo"), "");
  EXPECT_EQ(contents("/tmp/.uci/demo"), "demo.lan.proto='usual'\n");
  run("rm /tmp/.uci/demo");
  EXPECT_EQ(uci("get demo.lan.proto"), "usual\n");
}

TEST_F(UciStandin, WritersAtTheSameTimeLoseNothing) {
  EXPECT_EQ(shell("for writer in a b c d; do for round in $(seq 12); do " UCI_TOOL
                  " -c config -t save set demo.lan.$writer=$round && " UCI_TOOL
                  " -c config -t save commit demo || touch failed; done & done; wait; test ! -e failed"),
            0);
#ifndef KOVA_STANDINS
  GTEST_SKIP() << "the real libuci loses a change now and then when another is written meanwhile";
#endif
  for (const char* writer : {"a", "b", "c", "d"}) EXPECT_EQ(uci(std::string("get demo.lan.") + writer), "12\n");
}

// ---- The library ----

TEST_F(UciStandin, LookUpsSayHowFarTheyCame) {
  constexpr int kDone = uci_ptr::UCI_LOOKUP_DONE;
  constexpr int kComplete = kDone | uci_ptr::UCI_LOOKUP_COMPLETE;
  constexpr int kExtended = uci_ptr::UCI_LOOKUP_EXTENDED;
  const struct {
    const char* path;
    int flags;
    uci_type target;
    const char* last;
  } rows[] = {{"demo", kComplete, UCI_TYPE_PACKAGE, "demo"},
              {"demo.cfg0392bd", kComplete, UCI_TYPE_SECTION, "cfg0392bd"},
              {"demo.lan.proto=dhcp", kComplete, UCI_TYPE_OPTION, "proto"},
              {"demo.lan.none", kDone, UCI_TYPE_OPTION, "lan"},
              {"demo.none.none", kDone, UCI_TYPE_OPTION, "demo"},
              {"demo.@rule[-1]", kComplete | kExtended, UCI_TYPE_SECTION, "cfg0392bd"},
              {"demo.@rule[]", kComplete | kExtended, UCI_TYPE_SECTION, "cfg0292bd"},
              {"demo.@[1].name", kComplete | kExtended, UCI_TYPE_OPTION, "name"},
              {"demo.@rule[2]", kDone | kExtended, UCI_TYPE_SECTION, "demo"},
              {"demo.@rule[-3]", kDone | kExtended, UCI_TYPE_SECTION, "demo"}};
  Session session(root());
  uci_ptr ptr = {};
  for (const auto& [path, flags, target, last] : rows) {
    SCOPED_TRACE(path);
    const bool is_extended = (flags & kExtended) != 0;
    EXPECT_EQ(session.look_up(ptr, path, true), UCI_OK);
    EXPECT_EQ(ptr.flags, flags);
    EXPECT_EQ(ptr.target, target);
    EXPECT_STREQ(ptr.last->name, last);
    EXPECT_EQ(session.look_up(ptr, path, false), is_extended ? UCI_ERR_INVAL : UCI_OK);
  }
}

TEST_F(UciStandin, TakesAnElementThatWasFilledInByHand) {
  Session session(root());
  uci_ptr ptr = {};
  ptr.package = "demo";
  ptr.section = "lan";
  ptr.option = "proto";
  ASSERT_EQ(uci_lookup_ptr(session.get(), &ptr, nullptr, false), UCI_OK);
  EXPECT_STREQ(ptr.o->v.string, "static");

  uci_ptr elements = {};
  elements.p = ptr.p;
  elements.s = ptr.s;
  elements.option = "mtu";
  elements.value = "1500";
  EXPECT_EQ(uci_set(session.get(), &elements), UCI_OK);
  EXPECT_STREQ(elements.o->v.string, "1500");
  elements.o = nullptr;
  elements.option = "bad name";  // which is not looked at, and is no change when it is read again
  EXPECT_EQ(uci_set(session.get(), &elements), UCI_OK);
}

TEST_F(UciStandin, LoadsAPackageOnceAndWalksIt) {
  const Session session(root());
  uci_package* package = nullptr;
  for (const auto& [wrong, error] : {std::pair{"../config/demo", UCI_ERR_NOTFOUND}, {"", UCI_ERR_INVAL}})
    EXPECT_EQ(uci_load(session.get(), wrong, &package), error) << wrong;
  ASSERT_EQ(uci_load(session.get(), "demo", &package), UCI_OK);
  EXPECT_EQ(uci_load(session.get(), "demo", nullptr), UCI_ERR_DUPLICATE);
  EXPECT_EQ(uci_unload(session.get(), package), UCI_OK);
  ASSERT_EQ(uci_load(session.get(), "demo", &package), UCI_OK);

  std::string names;
  uci_element* element = nullptr;
  uci_foreach_element(&package->sections, element) {
    names += std::string(element->name) + (uci_to_section(element)->anonymous ? "? " : " ");
  }
  EXPECT_EQ(names, "lan cfg0292bd? cfg0392bd? ");
  uci_section* lan = uci_lookup_section(session.get(), package, "lan");
  EXPECT_STREQ(uci_lookup_option_string(session.get(), lan, "proto"), "static");
  EXPECT_EQ(uci_lookup_option_string(session.get(), lan, "dns"), nullptr);
  uci_option* dns = uci_lookup_option(session.get(), lan, "dns");
  element = nullptr;
  EXPECT_EQ(uci_lookup_next(session.get(), &element, &dns->v.list, "1.1.1.1"), UCI_OK);
  EXPECT_STREQ(element->name, "1.1.1.1");
  EXPECT_EQ(uci_lookup_next(session.get(), &element, &dns->v.list, "8.8.8.8"), UCI_OK);  // from the beginning again
}

TEST_F(UciStandin, CommitKeepsWhatOthersChangedMeanwhile) {
  Session session(root());
  EXPECT_EQ(session.set("demo.lan.mine=1"), UCI_OK);
  EXPECT_EQ(uci("set demo.lan.saved=2"), "");
  write("config/demo", "config interface 'lan'\n\toption theirs '3'\n");
  fs::permissions(root() / "config/demo", fs::perms{0640});
  EXPECT_EQ(session.commit(), UCI_OK);
  expect_run({}, "\nconfig interface 'lan'\n\toption theirs '3'\n\toption saved '2'\n\toption mine '1'\n\n");
  EXPECT_EQ(session.value("demo.lan.theirs"), "3");
  EXPECT_EQ(fs::status(root() / "config/demo").permissions(), fs::perms{0640});
  EXPECT_EQ(shell("test \"$(ls -A config)\" = demo"), 0);
  // With nothing of its own to write, too, but then the file is left alone.
  EXPECT_EQ(session.set("demo.@rule[7]=rule"), UCI_OK);
  write("config/demo", "config interface lan\n");
  EXPECT_EQ(session.commit(), UCI_OK);
  EXPECT_EQ(session.value("demo.lan.theirs"), "(none)");
  expect_run({}, "config interface lan\n", "demo.@rule[7]='rule'\n");
}

TEST_F(UciStandin, ACommitThatCannotBeCarriedOutFails) {
  Session session(root());
  EXPECT_EQ(session.set("demo.lan.proto=dhcp"), UCI_OK);
  for (const auto& [spoil, error] : {std::pair{"rm config/demo; mkdir config/demo", UCI_ERR_IO},
                                     {"rm -r config", UCI_ERR_IO},
                                     {"mkdir config; printf \"config broken 'x\" >config/demo", UCI_ERR_PARSE}}) {
    shell(spoil);
    EXPECT_EQ(session.commit(), error) << spoil;
  }
  expect_run({}, "config broken 'x", "demo.lan.proto='dhcp'\n");
}

TEST_F(UciStandin, RevertReloadsThePackage) {
  EXPECT_EQ(uci("set demo.lan.saved=1"), "");
  Session session(root());
  uci_ptr ptr = {};
  EXPECT_EQ(session.set("demo.lan.unsaved=2"), UCI_OK);
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
  EXPECT_EQ(session.set("demo.lan.text=" + text), UCI_OK);
  EXPECT_EQ(session.commit(), UCI_OK);
  EXPECT_EQ(Session(root()).value("demo.lan.text"), text);
}

}  // namespace
}  // namespace kova::test

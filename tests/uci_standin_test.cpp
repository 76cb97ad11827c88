// The libuci stand-in and its uci tool, held to recorded runs of the real ones.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <uci.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>

namespace {

using Json = nlohmann::json;
namespace fs = std::filesystem;

std::string contents(const fs::path& path) {
  std::ostringstream text;
  text << std::ifstream(path, std::ios::binary).rdbuf();
  return text.str();
}

// A store of its own for each test: configuration and save directory.
class UciStandin : public testing::Test {
 protected:
  void SetUp() override {
    char name[] = "/tmp/uci-XXXXXX";
    root_ = mkdtemp(name);
    fs::create_directory(root_ / "config");
  }
  void TearDown() override { fs::remove_all(root_); }

  void write(const std::string& package, const std::string& text) const {
    std::ofstream(root_ / "config" / package, std::ios::binary) << text;
  }

  struct Run {
    int status;
    std::string output, errors;
    bool operator==(const Run&) const = default;
  };

  Run uci(const std::vector<std::string>& arguments) const {
    std::vector<std::string> words = {UCI_TOOL, "-c", root_ / "config", "-t", root_ / "save"};
    words.insert(words.end(), arguments.begin(), arguments.end());
    const pid_t child = fork();
    if (child == 0) {
      freopen((root_ / "out").c_str(), "w", stdout);
      freopen((root_ / "err").c_str(), "w", stderr);
      std::vector<char*> argv;
      for (std::string& word : words) argv.push_back(word.data());
      argv.push_back(nullptr);
      execv(UCI_TOOL, argv.data());
      _exit(127);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return {WEXITSTATUS(status), contents(root_ / "out"), contents(root_ / "err")};
  }

  fs::path root_;
};

TEST_F(UciStandin, AnswersAsTheRecordedRuns) {
  const Json cases = Json::parse(std::ifstream(UCI_CASES));
  EXPECT_EQ(cases.size(), 29U);
  for (const Json& recorded : cases) {
    SCOPED_TRACE(recorded["title"].get<std::string>());
    fs::remove_all(root_ / "save");
    const auto package = recorded["package"].get<std::string>();
    write(package, recorded["before"]);
    for (const Json& step : recorded["steps"]) {
      SCOPED_TRACE(step["command"].get<std::string>());
      const Run run = uci(step["argv"].get<std::vector<std::string>>());
      EXPECT_EQ(run.status, step["status"].get<int>());
      EXPECT_EQ(run.output, step["stdout"].get<std::string>());
      EXPECT_EQ(run.errors, step["stderr"].get<std::string>());
    }
    EXPECT_EQ(contents(root_ / "config" / package), recorded["file_after"].get<std::string>());
    const Json& delta = recorded["delta_after"];
    EXPECT_EQ(fs::exists(root_ / "save" / package), !delta.is_null());
    if (!delta.is_null()) {
      EXPECT_EQ(contents(root_ / "save" / package), delta.get<std::string>());
    }
  }
}

TEST_F(UciStandin, ToolRefusesWhatItDoesNotUnderstand) {
  EXPECT_EQ(uci({"frobnicate", "x"}).status, 1);
  EXPECT_EQ(uci({"set", "demo.x.y"}).status, 1);
  EXPECT_EQ(uci({"get"}).status, 1);
}

TEST_F(UciStandin, ExtraChangeDirectoryIsReadButNotWritten) {
  write("demo", "config a 'x'\n\toption p '1'\n");
  fs::create_directory(root_ / "extra");
  std::ofstream(root_ / "extra" / "demo") << "demo.x.p='2'\n";
  EXPECT_EQ(uci({"-p", root_ / "extra", "get", "demo.x.p"}).output, "2\n");
  EXPECT_EQ(uci({"get", "demo.x.p"}).output, "1\n");
}

// ---- The library ----

class UciLibrary : public UciStandin {
 protected:
  void SetUp() override {
    UciStandin::SetUp();
    write("demo", "config a 'x'\n\toption p '1'\n\tlist l 'one'\nconfig b\n\toption q '2'\nconfig b\n\toption q '3'\n");
    context_ = uci_alloc_context();
    uci_set_confdir(context_, (root_ / "config").c_str());
    uci_set_savedir(context_, (root_ / "save").c_str());
  }
  void TearDown() override {
    uci_free_context(context_);
    UciStandin::TearDown();
  }

  int look_up(std::string path, bool extended = false) {
    text_ = std::move(path);
    return uci_lookup_ptr(context_, &found_, text_.data(), extended);
  }
  int set(const std::string& path, const char* value) {
    if (const int error = look_up(path)) return error;
    found_.value = value;
    return uci_set(context_, &found_);
  }

  uci_context* context_ = nullptr;
  uci_ptr found_ = {};
  std::string text_;
};

TEST_F(UciLibrary, LookUpsSayHowMuchOfThePathExists) {
  EXPECT_EQ(look_up("demo.x.p"), UCI_OK);
  EXPECT_EQ(found_.flags & UCI_LOOKUP_COMPLETE, UCI_LOOKUP_COMPLETE);
  EXPECT_STREQ(found_.o->v.string, "1");
  EXPECT_EQ(look_up("demo.x.none"), UCI_OK);
  EXPECT_EQ(found_.flags & UCI_LOOKUP_COMPLETE, 0);
  EXPECT_NE(found_.s, nullptr);
  EXPECT_EQ(look_up("demo.none.p"), UCI_OK);
  EXPECT_EQ(found_.s, nullptr);
  EXPECT_EQ(look_up("demo.@b[-1].q"), UCI_ERR_INVAL);
  EXPECT_EQ(look_up("demo.@b[-1].q", true), UCI_OK);
  EXPECT_STREQ(found_.o->v.string, "3");
  EXPECT_EQ(look_up("demo.@b[x]", true), UCI_ERR_INVAL);
  EXPECT_EQ(look_up("none.x"), UCI_ERR_NOTFOUND);
}

TEST_F(UciLibrary, InlineLookUpsDistinguishStringsFromLists) {
  uci_package* package = nullptr;
  ASSERT_EQ(uci_load(context_, "demo", &package), UCI_OK);
  EXPECT_EQ(uci_load(context_, "demo", &package), UCI_ERR_DUPLICATE);
  EXPECT_EQ(uci_lookup_package(context_, "demo"), package);
  uci_section* section = uci_lookup_section(context_, package, "x");
  ASSERT_NE(section, nullptr);
  EXPECT_STREQ(uci_lookup_option_string(context_, section, "p"), "1");
  EXPECT_EQ(uci_lookup_option_string(context_, section, "l"), nullptr);
  EXPECT_EQ(uci_lookup_option(context_, section, "l")->type, UCI_TYPE_LIST);
  EXPECT_EQ(uci_lookup_section(context_, package, "y"), nullptr);
}

TEST_F(UciLibrary, SetsFailWithoutTheirSection) {
  EXPECT_EQ(set("demo.none.p", "1"), UCI_ERR_INVAL);
  EXPECT_EQ(set("demo.none.p", ""), UCI_ERR_INVAL);
  EXPECT_EQ(set("demo.none", "none"), UCI_OK);
  EXPECT_EQ(set("demo.none.p", "1"), UCI_OK);
  EXPECT_EQ(set("demo.none.p", ""), UCI_OK);
  EXPECT_EQ(set("demo.none.p", ""), UCI_OK);
}

TEST_F(UciLibrary, ACommitMergesWhatOthersWroteMeanwhile) {
  ASSERT_EQ(set("demo.x.p", "mine"), UCI_OK);
  write("demo", "config a 'x'\n\toption other 'theirs'\n");
  EXPECT_EQ(uci({"set", "demo.x.saved=delta"}).status, 0);
  EXPECT_EQ(uci_commit(context_, &found_.p, false), UCI_OK);
  EXPECT_EQ(contents(root_ / "config" / "demo"),
            "\nconfig a 'x'\n\toption other 'theirs'\n\toption saved 'delta'\n\toption p 'mine'\n\n");
  EXPECT_EQ(contents(root_ / "save" / "demo"), "");
  EXPECT_STREQ(uci_lookup_option_string(context_, uci_lookup_section(context_, found_.p, "x"), "other"), "theirs");
}

TEST_F(UciLibrary, FaultsOfTheFileSystemAreReported) {
  ASSERT_EQ(set("demo.x.p", "2"), UCI_OK);
  fs::remove(root_ / "config" / "demo");
  EXPECT_EQ(uci_commit(context_, &found_.p, false), UCI_ERR_IO);
  std::ofstream(root_ / "save") << "a file in the way";
  EXPECT_EQ(uci_save(context_, found_.p), UCI_ERR_IO);
  char* text = nullptr;
  uci_get_errorstr(context_, &text, "test");
  EXPECT_STREQ(text, "test: I/O error");
  free(text);
}

}  // namespace

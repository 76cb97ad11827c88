// The configuration store: main store, mirrors, state files, revert and factory profile.
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <regex>
#include <sstream>

#include "support/device.hpp"
#include "support/device_state.hpp"
#include "support/mount.hpp"

namespace kova::test {
namespace {

// "package.section.option"
struct Path {
  Path(const char* text) {  // NOLINT(google-explicit-constructor): tables name paths
    std::istringstream names(text);
    for (std::string* name : {&package, &section, &option}) std::getline(names, *name, '.');
  }
  std::string package, section, option;
};

class Store : public DeviceTest {
 protected:
  using Reader = int32_t (*)(const char*, const char*, const char*, char*);
  static Answer read(Reader reader, const Path& path) {
    std::array<char, 4096> output = {};
    kUntouched.copy(output.data(), kUntouched.size());
    const int32_t result = reader(path.package.c_str(), path.section.c_str(), path.option.c_str(), output.data());
    return {result, output.data()};
  }

  using Writer = int32_t (*)(const char*, const char*, const char*, const char*);
  static int32_t write(Writer writer, const Path& path, const char* value) {
    return writer(path.package.c_str(), path.section.c_str(), path.option.c_str(), value);
  }
  static int32_t write(const Path& path, const char* value) { return write(uci_raw_set_value, path, value); }
};

TEST_F(Store, ReadsAValueWholeAndNothingButPlainOptionsOfNamedSections) {
  const std::string longest(3000, 'x');
  for (const char* file : {"/etc/config/demo", "/tmp/tr069/demo"})
    write_file(file, "config a 'named'\n\tlist l '1'\n\toption o '" + longest + "'\nconfig a\n\toption o '1'\n");
  // Of state files, look-ups fail under one fixed name, options without any.
  const std::tuple<Reader, Path, Answer, const char*> rows[] = {
      {uci_raw_extract_value, "demo.named.o", answered(longest), ""},
      {uci_raw_extract_value, "demo.named.l", kGetFailed, "uci lookup error:l\n\n"},
      {uci_raw_extract_value, "demo.named.none", kGetFailed, "uci lookup error:none\n\n"},
      {uci_raw_extract_value, "demo.@a[1].o", kGetFailed, "uci lookup error:@a[1]\n\n"},
      {uci_raw_extract_value, "nopackage.a.b", kGetFailed, "uci load error.\n\n"},
      {uci_raw_extract_value_By_path, "demo.named.o", answered(longest), ""},
      {uci_raw_extract_value_By_path, "demo.named.l", kGetFailed, ""},
      {uci_raw_extract_value_By_path, "demo.named.none", kGetFailed, ""},
      {uci_raw_extract_value_By_path, "demo.@a[1].o", kGetFailed, "uci lookup error:ap\n\n"},
      {uci_raw_extract_value_By_path, "nopackage.a.b", kGetFailed, "uci load error.\n\n"}};
  for (const auto& [reader, path, answer, log] : rows) {
    EXPECT_EQ(read(reader, path), answer) << path.option;
    EXPECT_EQ(take_log(), log) << path.option;
  }
}

TEST_F(Store, LogsUnderItsModuleToBothLogsWhileTheSwitchExists) {
  read(uci_raw_extract_value, "nopackage.a.b");
  ASSERT_EQ(seams().syslog.size(), 1U);
  EXPECT_TRUE(std::regex_match(seams().syslog[0], std::regex("pkg-tool\\.c, [1-9][0-9]+: uci load error\\.\n\n")));
  EXPECT_EQ(seams().stderr_log, seams().syslog);

  run("rm /tmp/cwmp_debug");
  read(uci_raw_extract_value, "nopackage.a.b");
  EXPECT_EQ(seams().syslog.size(), 1U);
  EXPECT_EQ(seams().stderr_log.size(), 1U);
  syslog_message("boot %d", 3);
  EXPECT_EQ(seams().syslog.back(), "boot 3");
}

TEST_F(Store, AWriteReachesStoreAndMirror) {
  umask(022);
  EXPECT_EQ(write("cwmp.info.url", "http://it's.example/?a=b"), 0);
  EXPECT_EQ(take_log(),
            "SUCF.\n\nuci set cwmp.info.url=http://it's.example/?a=b.\n\nDTSP.\n\nSSTBF.\n\nFRSS.\nAC 1\n\n"
            "uci set cwmp.info.url=http://it's.example/?a=b.\n\nfile /tmp/cwmp-config/cwmp\n\nmkdir .\n"
            "create file!\n\nuci set err\n");
  EXPECT_EQ(contents("/tmp/cwmp-config/cwmp"), "\nconfig info 'info'\n\toption url 'http://it'\\''s.example/?a=b'\n\n");
  struct stat mode = {};
  ASSERT_EQ(stat("/tmp/cwmp-config", &mode), 0);
  EXPECT_EQ(mode.st_mode & 0777, 0755U);

  write_file("/etc/config/wifi", "");
  // What the main store, the mirror and the forced mirror have afterwards.
  const std::array<const char*, 5> rows[] = {
      {"cwmp.info.url", "new", "new", "new", ""}, {"cwmp.info.url", "", "", "", ""},
      {"cwmp.info.neverset", "", "", "", ""},     {"network.guest.proto", "static", "static", "static", ""},
      {"network.vlan.enable", "1", "1", "", "1"}, {"network.vlan.enabled", "1", "1", "1", ""},
      {"wifi.ap.beamforming", "1", "1", "", "1"}};
  for (const auto& [path, value, stored, mirrored, forced] : rows) {
    EXPECT_EQ(write(path, value), 0) << path;
    EXPECT_EQ(config(path).value_or(""), stored) << path;
    EXPECT_EQ(mirror(path).value_or(""), mirrored) << path;
    EXPECT_EQ(forced_mirror(path).value_or(""), forced) << path;
    EXPECT_EQ(take_log().find("AC 0\n\n") != std::string::npos, *forced != '\0') << path;
  }
  EXPECT_EQ(contents("/etc/config/wifi"), "\nconfig ap 'ap'\n\toption beamforming '1'\n\n");
}

TEST_F(Store, AFailingMainStoreWriteLeavesTheMirrorUntouched) {
  const std::tuple<Path, const char*, const char*> rows[] = {
      {"nopackage.a.b", "c", "uci_load err!\n"},
      {"cwmp.bad-section.b", "c", "uci set err:cwmp.bad-section 2 \n\n"},
      {"cwmp.info.bad-option", "c", "uci set err:cwmp.info.bad-option=c 5\n\n"},
      {"cwmp.info.url", "a\x01z", "uci set err:cwmp.info.url=a\x01z 2\n\n"},
      {"cwmp.info.url", "a\x1fz", "uci set err:cwmp.info.url=a\x1fz 2\n\n"},
      {"cwmp.info.url", nullptr, "invalid uci set arg.\n\n"}};
  const seam::Snapshot before = seam::Snapshot::of_lab();
  for (const auto& [path, value, log] : rows) {
    EXPECT_EQ(write(path, value), -1);
    EXPECT_TRUE(take_log().ends_with(std::string(log) + "FTSUC.\n\n")) << log;
  }
  EXPECT_EQ(effects_since(before), std::vector<std::string>{});
  EXPECT_NE(run("test -e /tmp/cwmp-config"), 0);
}

TEST_F(Store, AValueAndAPathMayBeLongAndHoldWhatTheStoreCan) {
  const std::string section(600, 's');
  for (const std::string& value :
       {std::string("tab\tand\r\nlines"), std::string("\x7f\xc3\xa4"), std::string(5000, 'v')}) {
    EXPECT_EQ(uci_raw_set_value("cwmp", section.c_str(), "url", value.c_str()), 0);
    EXPECT_EQ(config("cwmp." + section + ".url"), value);
    EXPECT_EQ(mirror("cwmp." + section + ".url"), value);
  }
}

TEST_F(Store, ANameThatWouldNameSomethingElseIsRefused) {
  const std::string before = *contents("/etc/config/cwmp");
  write_file("/tmp/tr069/cwmp", before);
  for (const Writer writer : {uci_raw_set_value, uci_raw_set_value_By_path}) {
    for (const auto& [package, section, option] : {std::tuple{"cwmp.info", "url", "b"},
                                                   {"cwmp", "info.url", "b"},
                                                   {"cwmp", "info", "url.b"},
                                                   {"cwmp", "info", "url=b"},
                                                   {"cwmp", "info=b", "url"}})
      EXPECT_EQ(writer(package, section, option, "value"), -1) << package << section << option;
  }
  EXPECT_EQ(contents("/etc/config/cwmp"), before);
  EXPECT_EQ(contents("/tmp/tr069/cwmp"), before);
}

TEST_F(Store, WhatHasNoRoomLeavesStoreAndMirrorAsTheyWere) {
  const std::string store = "/etc/config/cwmp";
  const std::string mirror = "/tmp/cwmp-config/cwmp";
  const std::string factory = *contents(store);
  EXPECT_EQ(write("cwmp.info.url", "first"), 0);
  const std::string mirrored = *contents(mirror);
  const size_t room = 3 * static_cast<size_t>(getpagesize());
  // Beside the mirror's files, libuci keeps the change itself.
  for (const auto& [full, directory, pages] : {std::tuple{store, "/etc/config", 4}, {mirror, "/tmp", 7}}) {
    if (!mount_memory(directory, pages * getpagesize() / 1024)) GTEST_SKIP() << "no file system can be mounted here";
    run("mkdir -p /tmp/cwmp-config");
    size_t largest = 0;
    size_t refused = 0;
    for (size_t length = room - factory.size() - 200; length < room; ++length) {
      write_file(store, factory);
      write_file(mirror, mirrored);
      const std::string value = "'" + std::string(length, 'x');
      if (write("cwmp.info.url", value.c_str()) == 0) {
        EXPECT_EQ(config("cwmp.info.url"), value);
        EXPECT_EQ(DeviceTest::mirror("cwmp.info.url"), value);
        largest = contents(full)->size();
      } else {
        EXPECT_EQ(contents(store), factory);
        EXPECT_EQ(contents(mirror), mirrored);
        ++refused;
      }
    }
    umount(directory);
    EXPECT_NE(refused, 0U) << full;
    EXPECT_LE(largest, room);
    EXPECT_GE(largest, full == store ? room : room - 200);
  }
}

TEST_F(Store, OnAFullFileSystemWhatIsStoredAlreadyCanBeSet) {
  for (const auto& [directory, full] : {std::pair{"/etc/config", "/etc/config"}, {"/tmp", "/tmp/cwmp-config"}}) {
    const std::string factory = *contents("/etc/config/cwmp");
    if (!mount_memory(directory, 32)) GTEST_SKIP() << "no file system can be mounted here";
    write_file("/etc/config/cwmp", factory);
    write_file("/tmp/cwmp_debug", "");
    EXPECT_EQ(write("cwmp.info.url", "stored"), 0);
    run(std::string("dd if=/dev/zero of=") + directory + "/full bs=1k 2>/dev/null");
    const std::string before = *contents("/etc/config/cwmp");
    EXPECT_EQ(write("cwmp.info.url", "stored"), 0);
    EXPECT_EQ(write("cwmp.info.none", ""), 0);
    EXPECT_EQ(write("cwmp.info.url", "another"), -1);
    EXPECT_TRUE(take_log().ends_with(std::string("no room for ") + full + "\nFTSUC.\n\n"));
    EXPECT_EQ(contents("/etc/config/cwmp"), before);
    EXPECT_EQ(DeviceTest::mirror("cwmp.info.url"), "stored");
    umount(directory);
    write_file("/etc/config/cwmp", factory);
  }
}

// An ordinary process may not use what a file system keeps for root; in the simulated router it is root.
TEST_F(Store, RootUsesWhatIsKeptForIt) {
  struct statfs kept = {};
  kept.f_blocks = kept.f_bfree = 1000;
  kept.f_frsize = 4096;
  seams().file_system = kept;
  EXPECT_EQ(write("cwmp.info.url", "stored"), 0);
}

TEST_F(Store, AFailingMirrorWriteIsReportedAfterTheStoreWasCommitted) {
  const std::pair<const char*, const char*> rows[] = {
      {"echo > /tmp/cwmp-config", "create file /tmp/cwmp-config/cwmp failed!\n\n"},
      {"ln -s /nowhere/below /tmp/cwmp-config", "mkdir err.\n"},
      {"mkdir /tmp/cwmp-config; echo 'no store' > /tmp/cwmp-config/cwmp", "uci_load err!\n"}};
  for (const auto& [spoil, log] : rows) {
    run(std::string("rm -f /tmp/cwmp-config; ") + spoil);
    EXPECT_EQ(write("cwmp.info.url", spoil), -1);
    EXPECT_EQ(config("cwmp.info.url"), spoil);
    EXPECT_EQ(messages().back(), log);
  }
}

TEST_F(Store, StateFilesAreWrittenInPlace) {
  const std::tuple<Path, const char*, const char*> rows[] = {
      {"none.result.set_result", "1", "uci load error!\n"},
      {"check.result.set_result", nullptr, "Invalid input arg.\n\n"},
      {"check.other.set_result", "1", "uci set error:check.other.set_result=1 2\n\n"}};
  write_file("/tmp/tr069/check", "config check 'result'\n\toption set_result '0'\n");
  EXPECT_EQ(write(uci_raw_set_value_By_path, "check.result.set_result", "1"), 0);
  for (const auto& [path, value, log] : rows) {
    EXPECT_EQ(write(uci_raw_set_value_By_path, path, value), -1);
    EXPECT_EQ(take_log(), log);
  }
  EXPECT_EQ(contents("/tmp/tr069/check"), "\nconfig check 'result'\n\toption set_result '1'\n\n");
}

TEST_F(Store, RevertDropsWhatIsSavedButNotCommitted) {
  run("mkdir -p /var/state");
  const std::string longest = "cwmp.info." + std::string(90, 'o');  // of a path, 100 characters count
  write_file("/var/state/cwmp", "cwmp.info.url='saved'\ncwmp.info.username='saved'\n" + longest + "='saved'\n");
  EXPECT_EQ(uciRevert("cwmp.info.url"), 0);
  EXPECT_EQ(uciRevert((longest + "more").c_str()), 0);
  EXPECT_EQ(contents("/var/state/cwmp"), "cwmp.info.username='saved'\n");
  EXPECT_EQ(uciRevert(nullptr), -1);
  EXPECT_EQ(uciRevert("nopackage"), -1);
  EXPECT_EQ(take_log(), "Invalid input arg.\nuci get nopackage err\n");
}

TEST_F(Store, WithoutMemoryForAContextEverythingFailsInItsOwnWords) {
  std::array<char, 8> output = {};
  seams().config_context_fails = true;
  EXPECT_EQ(read(uci_raw_extract_value, "cwmp.info.url"), kGetFailed);
  EXPECT_EQ(take_log(), "uci alloc ctx error.\n\n");
  EXPECT_EQ(read(uci_raw_extract_value_By_path, "check.result.set_result"), kGetFailed);
  EXPECT_EQ(write(uci_raw_set_value_By_path, "check.result.set_result", "1"), -1);
  EXPECT_EQ(uciRevert("cwmp"), -1);
  EXPECT_EQ(take_log(), "uci alloc ctx err.\n\nuci alloc ctx err.\n\nuci alloc ctx err.\n\n");
  EXPECT_EQ(uciGetProfileValue("board", "name", output.data(), 4), -1);
  EXPECT_EQ(take_log(), "uci alloc cxt error.\n\n");
  EXPECT_EQ(write("cwmp.info.url", "lost"), -1);
  EXPECT_EQ(take_log(), "SUCF.\n\nuci set cwmp.info.url=lost.\n\nuci alloc ctx error.\n\nFTSUC.\n\n");
}

TEST_F(Store, ProfileValuesAreCutAndTerminatedOnePastTheUsualPlace) {
  write_file("/etc/profile.d/profile",
             "config board\n\toption name 'router'\n\tlist l '1'\nconfig board\n\toption name 'x'\n");
  const std::string untouched(12, '#');
  const std::tuple<const char*, const char*, int32_t, std::string, const char*> rows[] = {
      {"board", "name", 4, std::string("rout#\0######", 12), ""},
      {"board", "name", 8, std::string("router\0\0#\0##", 12), ""},
      {"board", "name", 0, untouched, "Invalid input arg.\n\n"},
      {nullptr, "name", 8, untouched, "Invalid input arg.\n\n"},
      {"board", nullptr, 8, untouched, "Invalid input arg.\n\n"},
      {"board", "none", 8, untouched, "uci lookup error:board.none\n\n"},
      {"board", "l", 8, untouched, "uci lookup error:board.l\n\n"}};
  for (const auto& [type, option, length, expected, log] : rows) {
    std::string output = untouched;
    EXPECT_EQ(uciGetProfileValue(type, option, output.data(), length), expected == untouched ? -1 : 0);
    EXPECT_EQ(output, expected);
    EXPECT_EQ(take_log(), log);
  }
  EXPECT_EQ(uciGetProfileValue("board", "name", nullptr, 8), -1);
  run("rm /etc/profile.d/profile");
  EXPECT_EQ(uciGetProfileValue("board", "name", std::string(12, '#').data(), 8), -1);
  EXPECT_EQ(take_log(), "Invalid input arg.\n\nuci load error.\n\n");
}

}  // namespace
}  // namespace kova::test

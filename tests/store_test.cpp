// The configuration store: main store, mirrors, state files, revert and factory profile.
#include <sys/stat.h>

#include <array>
#include <regex>

#include "support/device.hpp"

namespace kova::test {
namespace {

class Store : public DeviceTest {
 protected:
  static Answer read(int32_t (*reader)(const char*, const char*, const char*, char*), const char* package,
                     const char* section, const char* option) {
    std::array<char, 4096> output = {};
    kUntouched.copy(output.data(), kUntouched.size());
    const int32_t result = reader(package, section, option, output.data());
    return {result, output.data()};
  }
};

TEST_F(Store, ReadsAValueWholeAndNothingButPlainOptionsOfNamedSections) {
  const std::string longest(3000, 'x');
  configure("cwmp.info.url", longest);
  EXPECT_EQ(read(uci_raw_extract_value, "cwmp", "info", "url"), answered(longest));
  EXPECT_TRUE(messages().empty());

  write_file("/etc/config/demo", "config a 'named'\n\tlist l '1'\nconfig a\n\toption o '1'\n");
  EXPECT_EQ(read(uci_raw_extract_value, "demo", "named", "l"), kGetFailed);
  EXPECT_EQ(read(uci_raw_extract_value, "demo", "named", "none"), kGetFailed);
  EXPECT_EQ(read(uci_raw_extract_value, "demo", "@a[1]", "o"), kGetFailed);
  EXPECT_EQ(read(uci_raw_extract_value, "nopackage", "a", "b"), kGetFailed);
  EXPECT_EQ(messages(), (std::vector<std::string>{"uci lookup error:l\n\n", "uci lookup error:none\n\n",
                                                  "uci lookup error:@a[1]\n\n", "uci load error.\n\n"}));
}

TEST_F(Store, LogsUnderItsModuleToBothLogsWhileTheSwitchExists) {
  read(uci_raw_extract_value, "nopackage", "a", "b");
  ASSERT_EQ(seams().syslog.size(), 1U);
  EXPECT_TRUE(std::regex_match(seams().syslog[0], std::regex("pkg-tool\\.c, [1-9][0-9]+: uci load error\\.\n\n")));
  EXPECT_EQ(seams().stderr_log, seams().syslog);

  run("rm /tmp/cwmp_debug");
  read(uci_raw_extract_value, "nopackage", "a", "b");
  EXPECT_EQ(seams().syslog.size(), 1U);
  EXPECT_EQ(seams().stderr_log.size(), 1U);
  syslog_message("boot %d", 3);
  EXPECT_EQ(seams().syslog.back(), "boot 3");
}

TEST_F(Store, AWriteReachesStoreAndMirror) {
  umask(022);
  EXPECT_EQ(uci_raw_set_value("cwmp", "info", "url", "http://it's.example/?a=b"), 0);
  EXPECT_EQ(config("cwmp.info.url"), "http://it's.example/?a=b");
  EXPECT_EQ(contents("/tmp/cwmp-config/cwmp"), "\nconfig info 'info'\n\toption url 'http://it'\\''s.example/?a=b'\n\n");
  struct stat mode = {};
  ASSERT_EQ(stat("/tmp/cwmp-config", &mode), 0);
  EXPECT_EQ(mode.st_mode & 0777, 0755U);
  EXPECT_EQ(messages(), (std::vector<std::string>{
                            "SUCF.\n\n", "uci set cwmp.info.url=http://it's.example/?a=b.\n\n", "DTSP.\n\n",
                            "SSTBF.\n\n", "FRSS.\n", "AC 1\n\n", "uci set cwmp.info.url=http://it's.example/?a=b.\n\n",
                            "file /tmp/cwmp-config/cwmp\n\n", "mkdir .\n", "create file!\n\n", "uci set err\n"}));
}

TEST_F(Store, AMissingSectionIsCreatedUnderItsOwnName) {
  EXPECT_EQ(uci_raw_set_value("network", "guest", "proto", "static"), 0);
  EXPECT_NE(contents("/etc/config/network")->find("config guest 'guest'\n\toption proto 'static'\n"),
            std::string::npos);
  EXPECT_EQ(mirror("network.guest.proto"), "static");
}

TEST_F(Store, AnEmptyValueRemovesTheOption) {
  uci_raw_set_value("cwmp", "info", "username", "someone");
  EXPECT_EQ(uci_raw_set_value("cwmp", "info", "username", ""), 0);
  EXPECT_EQ(config("cwmp.info.username"), std::nullopt);
  EXPECT_EQ(mirror("cwmp.info.username"), std::nullopt);
  EXPECT_EQ(uci_raw_set_value("cwmp", "info", "neverset", ""), 0);
}

TEST_F(Store, ForcedKeysGoToTheForcedMirrorOnly) {
  EXPECT_EQ(uci_raw_set_value("network", "lan", "mtu", "1400"), 0);
  EXPECT_EQ(uci_raw_set_value("network", "vlan", "enable", "1"), 0);
  EXPECT_EQ(mirror("network.vlan.enable"), std::nullopt);
  EXPECT_EQ(forced_mirror("network.vlan.enable"), "1");
  EXPECT_EQ(mirror("network.lan.mtu"), "1400");
  EXPECT_EQ(forced_mirror("network.lan.mtu"), std::nullopt);
  EXPECT_TRUE(logged("AC 0\n\n"));
  EXPECT_EQ(uci_raw_set_value("wifi", "ap", "beamforming", "1"), -1);  // there is no such package yet
  write_file("/etc/config/wifi", "");
  EXPECT_EQ(uci_raw_set_value("wifi", "ap", "beamforming", "1"), 0);
  EXPECT_EQ(forced_mirror("wifi.ap.beamforming"), "1");
  EXPECT_EQ(mirror("wifi.ap.beamforming"), std::nullopt);
  // Near a forced key is not one.
  EXPECT_EQ(uci_raw_set_value("network", "vlan", "enabled", "1"), 0);
  EXPECT_EQ(mirror("network.vlan.enabled"), "1");
}

TEST_F(Store, AFailingMainStoreWriteLeavesTheMirrorUntouched) {
  EXPECT_EQ(uci_raw_set_value("nopackage", "a", "b", "c"), -1);
  EXPECT_EQ(uci_raw_set_value("cwmp", "bad-section", "b", "c"), -1);
  EXPECT_TRUE(logged("uci set err:cwmp.bad-section 2 \n\n"));
  EXPECT_EQ(uci_raw_set_value("cwmp", "info", "bad-option", "c"), -1);
  EXPECT_TRUE(logged("uci set err:cwmp.info.bad-option=c 5\n\n"));
  EXPECT_EQ(uci_raw_set_value("cwmp", "info", "url", nullptr), -1);
  EXPECT_TRUE(logged("uci_load err!\n"));
  EXPECT_TRUE(logged("invalid uci set arg.\n\n"));
  EXPECT_TRUE(logged("FTSUC.\n\n"));
  EXPECT_EQ(contents("/tmp/cwmp-config/cwmp"), std::nullopt);
  EXPECT_EQ(contents("/tmp/cwmp-config/nopackage"), std::nullopt);
}

TEST_F(Store, AFailingMirrorWriteIsReportedAfterTheStoreWasCommitted) {
  write_file("/tmp/cwmp-config", "in the way");
  EXPECT_EQ(uci_raw_set_value("cwmp", "info", "url", "http://new.example"), -1);
  EXPECT_EQ(config("cwmp.info.url"), "http://new.example");
  EXPECT_TRUE(logged("create file /tmp/cwmp-config/cwmp failed!\n\n"));

  run("rm /tmp/cwmp-config; mkdir /tmp/cwmp-config; echo 'no store' > /tmp/cwmp-config/cwmp");
  EXPECT_EQ(uci_raw_set_value("cwmp", "info", "url", "http://newer.example"), -1);
  EXPECT_EQ(config("cwmp.info.url"), "http://newer.example");
}

TEST_F(Store, AMirrorDirectoryThatCannotBeMadeFailsTheWrite) {
  run("ln -s /nowhere/below /tmp/cwmp-config");
  EXPECT_EQ(uci_raw_set_value("cwmp", "info", "url", "http://new.example"), -1);
  EXPECT_EQ(config("cwmp.info.url"), "http://new.example");
  EXPECT_EQ(messages().back(), "mkdir err.\n");
}

TEST_F(Store, StateFilesAreReadAndWrittenInPlace) {
  EXPECT_EQ(read(uci_raw_extract_value_By_path, "check", "result", "set_result"), kGetFailed);
  EXPECT_EQ(uci_raw_set_value_By_path("check", "result", "set_result", "1"), -1);
  EXPECT_EQ(messages(), (std::vector<std::string>{"uci load error.\n\n", "uci load error!\n"}));

  write_file("/tmp/tr069/check", "config check 'result'\n\toption set_result '0'\n");
  EXPECT_EQ(uci_raw_set_value_By_path("check", "result", "set_result", "1"), 0);
  EXPECT_EQ(read(uci_raw_extract_value_By_path, "check", "result", "set_result"), answered("1"));
  EXPECT_EQ(uci_raw_set_value_By_path("check", "result", "set_result", nullptr), -1);
  EXPECT_EQ(messages().back(), "Invalid input arg.\n\n");
  // Sections are not made here, and look-ups fail under one fixed name, options without any.
  seams().syslog.clear();
  EXPECT_EQ(uci_raw_set_value_By_path("check", "other", "set_result", "1"), -1);
  EXPECT_EQ(read(uci_raw_extract_value_By_path, "check", "other", "set_result"), kGetFailed);
  EXPECT_EQ(read(uci_raw_extract_value_By_path, "check", "result", "other"), kGetFailed);
  EXPECT_EQ(messages(),
            (std::vector<std::string>{"uci set error:check.other.set_result=1 2\n\n", "uci lookup error:ap\n\n"}));
}

TEST_F(Store, RevertDropsWhatIsSavedButNotCommitted) {
  run("mkdir -p /var/state && printf \"cwmp.info.url='http://saved.example'\\ncwmp.info.username='saved'\\n\" > "
      "/var/state/cwmp");
  EXPECT_EQ(uciRevert("cwmp.info.url"), 0);
  EXPECT_EQ(contents("/var/state/cwmp"), "cwmp.info.username='saved'\n");
  // Of a path, 100 characters count.
  const std::string longest = "cwmp.info." + std::string(90, 'o');
  write_file("/var/state/cwmp", longest + "='saved'\n");
  EXPECT_EQ(uciRevert((longest + "more").c_str()), 0);
  EXPECT_EQ(contents("/var/state/cwmp"), "");
  EXPECT_EQ(uciRevert(nullptr), -1);
  EXPECT_EQ(uciRevert("nopackage"), -1);
  EXPECT_EQ(messages(), (std::vector<std::string>{"Invalid input arg.\n", "uci get nopackage err\n"}));
}

TEST_F(Store, WithoutMemoryForAContextEverythingFailsInItsOwnWords) {
  char output[8] = {};
  seams().config_context_fails = true;
  EXPECT_EQ(uci_raw_extract_value("cwmp", "info", "url", output), -1);
  EXPECT_EQ(uci_raw_extract_value_By_path("check", "result", "set_result", output), -1);
  EXPECT_EQ(uci_raw_set_value_By_path("check", "result", "set_result", "1"), -1);
  EXPECT_EQ(uciRevert("cwmp"), -1);
  EXPECT_EQ(uciGetProfileValue("board", "name", output, 4), -1);
  EXPECT_EQ(messages(),
            (std::vector<std::string>{"uci alloc ctx error.\n\n", "uci alloc ctx err.\n\n", "uci alloc ctx err.\n\n",
                                      "uci alloc ctx err.\n\n", "uci alloc cxt error.\n\n"}));
  EXPECT_EQ(uci_raw_set_value("cwmp", "info", "url", "lost"), -1);
  EXPECT_TRUE(logged("uci alloc ctx error.\n\n"));
  EXPECT_EQ(messages().back(), "FTSUC.\n\n");
}

TEST_F(Store, ProfileValuesAreCutAndTerminatedOnePastTheUsualPlace) {
  write_file("/etc/profile.d/profile",
             "config board\n\toption name 'router'\n\tlist l '1'\nconfig board\n\toption name 'x'\n");
  std::string output(12, '#');
  EXPECT_EQ(uciGetProfileValue("board", "name", output.data(), 4), 0);
  EXPECT_EQ(output, std::string("rout#\0######", 12));
  output.assign(12, '#');
  EXPECT_EQ(uciGetProfileValue("board", "name", output.data(), 8), 0);
  EXPECT_EQ(output, std::string("router\0\0#\0##", 12));

  output.assign(12, '#');
  EXPECT_EQ(uciGetProfileValue("board", "name", output.data(), 0), -1);
  EXPECT_EQ(uciGetProfileValue(nullptr, "name", output.data(), 8), -1);
  EXPECT_EQ(uciGetProfileValue("board", nullptr, output.data(), 8), -1);
  EXPECT_EQ(uciGetProfileValue("board", "name", nullptr, 8), -1);
  EXPECT_EQ(messages(), std::vector<std::string>(4, "Invalid input arg.\n\n"));
  EXPECT_EQ(uciGetProfileValue("board", "none", output.data(), 8), -1);
  EXPECT_EQ(uciGetProfileValue("board", "l", output.data(), 8), -1);
  EXPECT_EQ(output, std::string(12, '#'));
  EXPECT_TRUE(logged("uci lookup error:board.none\n\n"));
  run("rm /etc/profile.d/profile");
  EXPECT_EQ(uciGetProfileValue("board", "name", output.data(), 8), -1);
  EXPECT_EQ(messages().back(), "uci load error.\n\n");
}

}  // namespace
}  // namespace kova::test

// Commands, and the records of commands that the agent runs later.
#include <array>

#include "support/device.hpp"
#include "support/mount.hpp"

namespace kova::test {
namespace {

class Command : public DeviceTest {};

TEST_F(Command, OnlyTheFirstLineOfTheOutputCounts) {
  std::array<char, 16> output = {};
  const std::tuple<const char*, int32_t, int32_t, const char*> rows[] = {{"printf 'one\\ntwo\\n'", 16, 3, "one"},
                                                                         {"printf 'no newline'", 16, 10, "no newline"},
                                                                         {"echo", 16, 0, ""},
                                                                         {"echo 123456789", 5, 4, "1234"},
                                                                         {"true", 16, -1, "as it was"}};
  for (const auto& [command, size, result, line] : rows) {
    strcpy(output.data(), "as it was");
    EXPECT_EQ(util_exec(command, output.data(), size), result) << command;
    EXPECT_STREQ(output.data(), line);
  }
  EXPECT_EQ(messages()[2], "cmd: echo--\n\n");
  EXPECT_TRUE(messages().back().starts_with("fgets true failed ") && messages().back().ends_with("\n\n"));
  take_log();

  EXPECT_EQ(util_exec(nullptr, output.data(), 16), -1);
  EXPECT_EQ(util_exec("true", nullptr, 16), -1);
  EXPECT_EQ(util_exec("true", output.data(), 0), -1);
  EXPECT_EQ(take_log(), "NP.\nNP.\nNP.\n");
  // Commands that run beside must not inherit the pipe.
  EXPECT_EQ(seams().popen_modes, std::vector<std::string>(std::size(rows), "re"));
  seams().popen_fails = true;
  EXPECT_EQ(util_exec("true", output.data(), 16), -1);
  EXPECT_STREQ(output.data(), "as it was");
  EXPECT_TRUE(messages()[0].starts_with("popen true failed ") && messages()[0].ends_with("\n\n"));
}

TEST_F(Command, ExitStatusBecomesAThreeWayResult) {
  for (const auto& [command, result] : {std::pair{"true", 0}, {"exit 3", -2}, {"kill -9 $$", -2}})
    EXPECT_EQ(cwmp_system(command), result) << command;
  EXPECT_EQ(take_log(), "");
  const int not_run = -1;
  seams().system_status = [&](const std::string&) { return &not_run; };
  EXPECT_EQ(cwmp_system("true"), -1);
  EXPECT_EQ(take_log(), "[ERR]system ret -1\n");
}

int32_t firmware(int32_t operation, va_list arguments) {
  return GetFirmDeviceInfo(operation, arguments, "cat /etc/rom_version");
}

TEST_F(Command, AGetterCanBeTheFirstLineOfACommand) {
  write_file("/etc/rom_version", std::string(120, 'v') + "\n");
  EXPECT_EQ(get(firmware), answered(std::string(99, 'v')));
  write_file("/etc/rom_version", "");
  EXPECT_EQ(get(firmware), answered(""));
  EXPECT_EQ(set(firmware, "2"), kRefused);
  seams().popen_fails = true;
  EXPECT_EQ(get(firmware), kGetFailed);
  EXPECT_EQ(take_log(), "FTGDI.\n");
}

TEST_F(Command, RecordsAppendOrOverwrite) {
  for (const auto record : {record_task_cmd, record_task_cmd_once}) {
    for (const char* line : {"first \"quoted\" &", "second"}) EXPECT_EQ(record(line), 0);
    EXPECT_EQ(take_log(), "cmd first \"quoted\" &\ncmd second\n");
  }
  EXPECT_EQ(task_record(), "first \"quoted\" &\nsecond\n");
  EXPECT_EQ(task_record_once(), "second\n");
}

TEST_F(Command, ARecordThatCannotBeWrittenFails) {
  for (const auto& [record, refusal] :
       {std::pair{&record_task_cmd, "Invalid input arg\n"}, {&record_task_cmd_once, "NP\n"}}) {
    EXPECT_EQ(record(nullptr), -1);
    run("rm -r /tmp/tr069");
    EXPECT_EQ(record("lost"), -1);
    run("mkdir /tmp/tr069");
    EXPECT_EQ(take_log(), refusal + std::string("fopen error\n"));
  }
}

// An agent runs the lines as root.
TEST_F(Command, ARecordHoldsWholeLinesOnly) {
  if (!mount_memory("/tmp/tr069", 64)) GTEST_SKIP() << "no file system can be mounted here";
  const std::string too_much(200000, 'x');
  for (const auto& [record, file] :
       {std::pair{&record_task_cmd, "/tmp/tr069/cmd_record"}, {&record_task_cmd_once, "/tmp/tr069/cmd_record_once"}}) {
    EXPECT_EQ(record("first"), 0);
    EXPECT_EQ(record(too_much.c_str()), -1);
    EXPECT_EQ(contents(file), "first\n");
    EXPECT_TRUE(take_log().ends_with("xxx\nfwrite error\n"));
  }
  write_file("/tmp/tr069/cmd_record", "a fragm");
  EXPECT_EQ(record_task_cmd("second"), 0);
  EXPECT_EQ(task_record(), "a fragm\nsecond\n");
  umount("/tmp/tr069");
}

}  // namespace
}  // namespace kova::test

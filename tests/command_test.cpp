// Commands, and the records of commands that the agent runs later.
#include <array>

#include "support/device.hpp"

namespace kova::test {
namespace {

class Command : public DeviceTest {};

TEST_F(Command, OnlyTheFirstLineOfTheOutputCounts) {
  std::array<char, 16> output = {};
  EXPECT_EQ(util_exec("printf 'one\\ntwo\\n'", output.data(), 16), 3);
  EXPECT_STREQ(output.data(), "one");
  EXPECT_EQ(util_exec("printf 'no newline'", output.data(), 16), 10);
  EXPECT_STREQ(output.data(), "no newline");
  EXPECT_EQ(util_exec("echo", output.data(), 16), 0);
  EXPECT_STREQ(output.data(), "");
  EXPECT_TRUE(logged("cmd: echo--\n\n"));
}

TEST_F(Command, AnOverlongLineIsCutToTheBuffer) {
  std::array<char, 6> output = {};
  EXPECT_EQ(util_exec("echo 123456789", output.data(), 5), 4);
  EXPECT_STREQ(output.data(), "1234");
}

TEST_F(Command, NothingPrintedOrStartedLeavesTheBufferUntouched) {
  std::array<char, 16> output = {"as it was"};
  EXPECT_EQ(util_exec("true", output.data(), 16), -1);
  EXPECT_EQ(util_exec("true", nullptr, 16), -1);
  seams().popen_fails = true;
  EXPECT_EQ(util_exec("true", output.data(), 16), -1);
  EXPECT_STREQ(output.data(), "as it was");
  ASSERT_EQ(messages().size(), 3U);
  EXPECT_TRUE(messages()[0].starts_with("fgets true failed ") && messages()[0].ends_with("\n\n"));
  EXPECT_EQ(messages()[1], "NP.\n");
  EXPECT_TRUE(messages()[2].starts_with("popen true failed ") && messages()[2].ends_with("\n\n"));
  // Commands that run beside must not inherit the pipe.
  EXPECT_EQ(seams().popen_modes, std::vector<std::string>(2, "re"));
}

TEST_F(Command, ExitStatusBecomesAThreeWayResult) {
  EXPECT_EQ(cwmp_system("true"), 0);
  EXPECT_EQ(cwmp_system("exit 3"), -2);
  EXPECT_EQ(cwmp_system("kill -9 $$"), -2);
  EXPECT_TRUE(messages().empty());
  const int not_run = -1;
  seams().system_status = [&](const std::string&) { return &not_run; };
  EXPECT_EQ(cwmp_system("true"), -1);
  EXPECT_TRUE(logged("[ERR]system ret -1\n"));
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
  EXPECT_TRUE(logged("FTGDI.\n"));
}

TEST_F(Command, RecordsAppendOrOverwrite) {
  EXPECT_EQ(record_task_cmd("first \"quoted\" &"), 0);
  EXPECT_EQ(record_task_cmd("second"), 0);
  EXPECT_EQ(record_task_cmd_once("first"), 0);
  EXPECT_EQ(record_task_cmd_once("second"), 0);
  EXPECT_EQ(task_record(), "first \"quoted\" &\nsecond\n");
  EXPECT_EQ(task_record_once(), "second\n");
  EXPECT_TRUE(logged("cmd second\n"));
}

TEST_F(Command, ARecordThatCannotBeWrittenFails) {
  EXPECT_EQ(record_task_cmd(nullptr), -1);
  EXPECT_EQ(record_task_cmd_once(nullptr), -1);
  run("rm -r /tmp/tr069");
  EXPECT_EQ(record_task_cmd("lost"), -1);
  EXPECT_EQ(messages(), (std::vector<std::string>{"Invalid input arg\n", "NP\n", "fopen error\n"}));

  EXPECT_EQ(record_task_cmd_once("lost"), -1);
  EXPECT_EQ(messages().back(), "fopen error\n");

  run("mkdir /tmp/tr069; ln -s /dev/full /tmp/tr069/cmd_record; ln -s /dev/full /tmp/tr069/cmd_record_once");
  for (const auto record : {record_task_cmd, record_task_cmd_once}) {
    EXPECT_EQ(record("lost"), -1);
    EXPECT_EQ(messages().back(), "fwrite error\n");
    seams().syslog.clear();
  }
}

}  // namespace
}  // namespace kova::test

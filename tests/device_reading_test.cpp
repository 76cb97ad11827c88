// What is read off the running device: interface counters, board identity, radio channels.
#include <array>

#include "support/device.hpp"

namespace kova::test {
namespace {

class Counters : public DeviceTest {
 protected:
  static Answer count(const char* name, int32_t counter, int32_t length = 64) {
    std::array<char, 64> output = {};
    kUntouched.copy(output.data(), kUntouched.size());
    const int32_t result = get_TotalBytesAndPackets_by_name(name, counter, output.data(), length);
    return {result, output.data()};
  }
};

TEST_F(Counters, AreTheFieldsOfTheKernelsLine) {
  seams().answer(
      "cat /proc/net/dev|grep -w eth9",
      "  eth9: 1001 1002 1003 0 0 0 0 0 2001 2002 2003 0 0 0 0 0\n eth9x: 9 9 9 9 9 9 9 9 9 9 9 9 9 9 9 9\n");
  EXPECT_EQ(count("eth9", COUNTER_BYTES_SENT), answered("2001"));
  EXPECT_EQ(count("eth9", COUNTER_BYTES_RECEIVED), answered("1001"));
  EXPECT_EQ(count("eth9", COUNTER_PACKETS_SENT), answered("2002"));
  EXPECT_EQ(count("eth9", COUNTER_PACKETS_RECEIVED), answered("1002"));
  EXPECT_EQ(count("eth9", COUNTER_ERRORS_SENT), answered("2003"));
  EXPECT_EQ(count("eth9", COUNTER_ERRORS_RECEIVED), answered("1003"));
  EXPECT_EQ(count("eth9", COUNTER_BYTES_SENT, 3), answered("20"));
  EXPECT_EQ(count("eth9", 6), kGetFailed);
  EXPECT_EQ(count("eth9", -1), kGetFailed);
  EXPECT_TRUE(logged("EGBP.!\n"));
}

TEST_F(Counters, ComeFromTheRunningKernel) {
  run("busybox ping -c 1 127.0.0.1 > /dev/null");
  EXPECT_GT(std::stol(count("lo", COUNTER_BYTES_SENT).text), 0);
}

TEST_F(Counters, FaultsLeaveTheOutputUntouched) {
  EXPECT_EQ(count(nullptr, 0), kGetFailed);
  EXPECT_EQ(messages().back(), "NP!\n");
  EXPECT_EQ(count("nosuch0", 0), kGetFailed);
  EXPECT_TRUE(messages().back().starts_with("fgets error "));
  seams().answer("cat /proc/net/dev|grep -w eth9", "eth9: 1 2 3\n");
  EXPECT_EQ(count("eth9", 0), kGetFailed);
  EXPECT_EQ(messages().back(), "interface txrx stats get failed.\n");
  // A field that is no number, as when a large counter touches the name, changes nothing and is no failure.
  seams().answer("cat /proc/net/dev|grep -w eth9", "eth9:1 2 3 4 5 6 7 8 9 x 11 12 13\n");
  EXPECT_EQ(count("eth9", COUNTER_BYTES_SENT), answered(kUntouched));
  seams().popen_fails = true;
  EXPECT_EQ(count("eth9", 0), kGetFailed);
  EXPECT_EQ(messages().back(), "popen failed.\n");
}

class Board : public DeviceTest {};

TEST_F(Board, MacDigitsWithoutSeparators) {
  std::array<char, 32> output = {};
  seams().answer("bdinfo mac", "AA:bb:CC-dd:EE:ff\n");
  EXPECT_EQ(get_mac_last(output.data(), 20), 12);
  EXPECT_STREQ(output.data(), "AAbbCCddEEff");
  EXPECT_EQ(get_mac_last(output.data(), 19), -1);
  EXPECT_EQ(get_mac(output.data(), 32), 17);
  EXPECT_STREQ(output.data(), "AA:bb:CC-dd:EE:ff");
}

TEST_F(Board, OuiHasNoTerminatorWhereItDoesNotFit) {
  std::array<char, 8> output = {};
  seams().answer("bdinfo mac", "AA:BB:CC:DD:EE:FF\n");
  output.fill('#');
  EXPECT_EQ(get_oui(output.data(), 6), 6);
  EXPECT_EQ(std::string(output.data(), 8), "AABBCC##");
  EXPECT_EQ(get_oui(output.data(), 7), 6);
  EXPECT_STREQ(output.data(), "AABBCC");
  EXPECT_EQ(get_oui(output.data(), 5), -1);
  seams().answer("bdinfo mac", "A-B\n");
  EXPECT_EQ(get_oui(output.data(), 6), 2);
  EXPECT_STREQ(output.data(), "AB");
  seams().answer("bdinfo mac", "");
  EXPECT_EQ(get_oui(output.data(), 6), 0);
  EXPECT_STREQ(output.data(), "");
}

TEST_F(Board, SerialNumbersAreOneLineEach) {
  std::array<char, 64> output = {};
  seams().answer("bdinfo sn", "SN-1\n");
  seams().answer("uci get cloud_config.device_status.serial_number", "CLOUD-1\n");
  EXPECT_EQ(get_device_sn(output.data(), 64), 4);
  EXPECT_STREQ(output.data(), "SN-1");
  EXPECT_EQ(get_cloud_sn(output.data(), 64), 7);
  EXPECT_STREQ(output.data(), "CLOUD-1");
  seams().answer("bdinfo sn", "");
  EXPECT_EQ(get_device_sn(output.data(), 64), -1);
}

class Channels : public DeviceTest {
 protected:
  void SetUp() override {
    DeviceTest::SetUp();
    write_file(
        "/etc/config/wireless",
        "config wifi-iface 'wlan00'\n\toption ifname 'ra0'\nconfig wifi-iface 'wlan02'\n\toption ifname 'ra1'\n"
        "config wifi-iface 'wlan10'\n\toption ifname 'rai0'\nconfig wifi-iface 'wlan12'\n\toption ifname 'rai1'\n");
    seams().popen_answer = [](const std::string& command) -> const std::string* {
      static std::string answer;
      const std::string expected_tail = " freqlist | sed -e 's/*//g' -e 's/)//g' | awk '{print $4}' |tr '\n' ' ' ";
      EXPECT_TRUE(command.ends_with(expected_tail));
      // Interfaces answer with different channels, so that a test sees which was asked.
      answer = command.starts_with("iwinfo ra0 ") ? "1 6 0 11 " : "36 140[DFS] word ";
      return &answer;
    };
  }

  static std::pair<int32_t, std::string> list(const Instances& instances, int32_t variant) {
    std::array<char, 256> channels = {};
    const int32_t result = GetChannelPoll(0, nullptr, channels.data(), instances.data(), variant);
    return {result, channels.data()};
  }
};

TEST_F(Channels, AreListedByNetworkAndVariant) {
  for (const Instances& main : {Instances{1, 0}, Instances{1, 1}})
    EXPECT_EQ(list(main, 0), std::pair(0, std::string("1 6 0 11 ")));
  EXPECT_EQ(list({1, 2}, 0), std::pair(0, std::string("36 140  ")));
  EXPECT_TRUE(commands().back().starts_with("iwinfo rai0 "));
  list({1, 1}, 1);
  EXPECT_TRUE(commands().back().starts_with("iwinfo ra1 "));
  list({1, 0}, 1);
  EXPECT_TRUE(commands().back().starts_with("iwinfo ra1 "));
  for (const Instances& other : {Instances{2, 0}, Instances{1, 2}}) {
    list(other, 1);
    EXPECT_TRUE(commands().back().starts_with("iwinfo rai1 "));
  }
  for (const Instances& none : {Instances{1, 3}, Instances{2, 1}, Instances{0, 0}}) EXPECT_EQ(list(none, 0).first, -1);
  EXPECT_EQ(list({1, 1}, 2).first, -1);
  run("rm /etc/config/wireless");
  EXPECT_EQ(list({1, 1}, 0).first, -1);
}

TEST_F(Channels, AreTestedByNumber) {
  const int32_t instances[] = {1, 1};
  const auto test = [&](std::string channel) { return GetChannelPoll(7, nullptr, channel.data(), instances, 0); };
  EXPECT_EQ(test("6"), 7);
  EXPECT_EQ(test("11 and more"), 7);
  EXPECT_EQ(test("7"), 0);
  EXPECT_EQ(test("0"), 0);
  seams().popen_fails = true;
  EXPECT_EQ(test("6"), -1);
  EXPECT_EQ(messages().back(), "popen failed.\n");
}

}  // namespace
}  // namespace kova::test

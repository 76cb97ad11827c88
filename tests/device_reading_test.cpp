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
  run("busybox ping -c 1 127.0.0.1 > /dev/null");
  EXPECT_GT(std::stol(count("lo", COUNTER_BYTES_SENT).text), 0);

  const auto kernel_has = [](const char* line) { seams().answer("cat /proc/net/dev|grep -w eth9", line); };
  kernel_has("  eth9: 1001 1002 1003 0 0 0 0 0 2001 2002 2003 0 0 0 0 0\n eth9x: 9 9 9 9 9 9 9 9 9 9 9 9 9 9 9 9\n");
  int32_t counter = COUNTER_BYTES_SENT;
  for (const char* text : {"2001", "1001", "2002", "1002", "2003", "1003"})
    EXPECT_EQ(count("eth9", counter++), answered(text));
  EXPECT_EQ(count("eth9", COUNTER_BYTES_SENT, 3), answered("20"));
  EXPECT_EQ(count("eth9", COUNTER_BYTES_SENT, 0), answered(kUntouched));
  EXPECT_EQ(take_log(), "");
  for (const int32_t none : {-1, 6}) EXPECT_EQ(count("eth9", none), kGetFailed);
  EXPECT_EQ(count(nullptr, 0), kGetFailed);
  kernel_has("eth9: 1 2 3 4 5 6 7 8 9 10\n");
  EXPECT_EQ(count("eth9", 0), kGetFailed);
  // A field that is no number, as when a large counter touches the name, changes nothing and is no failure.
  kernel_has("eth9:1 2 3 4 5 6 7 8 9 x 11 12 13\n");
  EXPECT_EQ(count("eth9", COUNTER_BYTES_SENT), answered(kUntouched));
  EXPECT_EQ(count("nosuch0", 0), kGetFailed);
  seams().popen_fails = true;
  EXPECT_EQ(count("eth9", 0), kGetFailed);
  const std::string log = take_log();
  EXPECT_TRUE(log.starts_with("EGBP.!\nEGBP.!\nNP!\ninterface txrx stats get failed.\nfgets error ")) << log;
  EXPECT_TRUE(log.ends_with("\npopen failed.\n")) << log;
}

class Board : public DeviceTest {};

TEST_F(Board, IsWhatTheBoardToolSays) {
  const std::string untouched(64, '#');
  const auto expect = [](int32_t (*reader)(char*, int32_t), int32_t size, int32_t result, const std::string& text) {
    std::string output(64, '#');
    EXPECT_EQ(reader(output.data(), size), result);
    EXPECT_EQ(output.c_str(), text);
  };
  seams().answer("bdinfo mac", "AA:bb:CC-dd:EE:ff\n");
  seams().answer("bdinfo sn", "SN-1\n");
  seams().answer("uci get cloud_config.device_status.serial_number", "CLOUD-1\n");
  expect(get_device_sn, 64, 4, "SN-1");
  expect(get_cloud_sn, 64, 7, "CLOUD-1");
  expect(get_mac, 32, 17, "AA:bb:CC-dd:EE:ff");
  expect(get_mac_last, 20, 12, "AAbbCCddEEff");
  expect(get_mac_last, 19, -1, untouched);
  expect(get_oui, 7, 6, "AAbbCC");
  expect(get_oui, 6, 6, "AAbbCC" + untouched.substr(6));  // no room for a terminator
  expect(get_oui, 5, -1, untouched);
  seams().answer("bdinfo mac", "A-B\n");
  expect(get_oui, 6, 2, "AB");
  seams().answer("bdinfo mac", "");
  expect(get_oui, 6, 0, "");
  expect(get_mac_last, 20, 0, "");
  expect(get_mac, 20, -1, untouched);
}

class Channels : public DeviceTest {
 protected:
  void SetUp() override {
    DeviceTest::SetUp();
    write_file(
        "/etc/config/wireless",
        "config wifi-iface 'wlan00'\n\toption ifname 'ra0'\nconfig wifi-iface 'wlan02'\n\toption ifname 'ra1'\n"
        "config wifi-iface 'wlan10'\n\toption ifname 'rai0'\nconfig wifi-iface 'wlan12'\n\toption ifname 'rai1'\n");
  }

  static std::string listing(const std::string& interface) {
    return "iwinfo " + interface + " freqlist | sed -e 's/*//g' -e 's/)//g' | awk '{print $4}' |tr '\n' ' ' ";
  }
};

TEST_F(Channels, AreListedByNetworkAndVariant) {
  const std::tuple<Instances, int32_t, const char*> rows[] = {
      {{1, 0}, 0, "ra0"},  {{1, 1}, 0, "ra0"},  {{1, 0}, 1, "ra1"},  {{1, 1}, 1, "ra1"}, {{1, 2}, 0, "rai0"},
      {{2, 0}, 0, "rai0"}, {{1, 2}, 1, "rai1"}, {{2, 0}, 1, "rai1"}, {{1, 3}, 0, ""},    {{2, 1}, 0, ""},
      {{0, 0}, 0, ""},     {{1, 1}, 2, ""},     {{1, 1}, -1, ""},    {{2, 2}, 0, ""}};
  for (const auto& [instances, variant, interface] : rows) {
    seams() = Seams();
    seams().answer(listing(interface), "1 6 0 140[DFS] word ");
    std::array<char, 256> channels = {};
    const bool has = *interface != '\0';
    EXPECT_EQ(GetChannelPoll(0, nullptr, channels.data(), instances.data(), variant), has ? 0 : -1);
    EXPECT_STREQ(channels.data(), has ? "1 6 0 140  " : "") << interface;
  }
}

TEST_F(Channels, AreTestedByNumber) {
  const auto test = [](std::string channel) {
    return GetChannelPoll(7, nullptr, channel.data(), Instances{1, 1}.data(), 0);
  };
  seams().answer(listing("ra0"), "1 6 0 11 ");
  for (const auto& [channel, result] : {std::pair{"6", 7}, {"11 and more", 7}, {"7", 0}, {"0", 0}, {"4294967302", 0}})
    EXPECT_EQ(test(channel), result) << channel;
  configure("wireless.wlan00.ifname", std::string(300, 'i'));
  seams().answer(listing(std::string(255, 'i')), "9");
  EXPECT_EQ(test("9"), 7);
  seams().popen_fails = true;
  EXPECT_EQ(test("6"), -1);
  EXPECT_EQ(take_log(), "popen failed.\n");
  run("rm /etc/config/wireless");
  EXPECT_EQ(test("6"), -1);
  EXPECT_EQ(take_log(), "uci load error.\n\n");
}

}  // namespace
}  // namespace kova::test

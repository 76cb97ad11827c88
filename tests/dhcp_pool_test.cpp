// The DHCP pool and its arithmetic.
#include <array>

#include "pool_address.hpp"
#include "support/device.hpp"

namespace kova::test {
namespace {

PoolAddress address(const char* text) {
  PoolAddress address;
  EXPECT_TRUE(address.parse(text)) << text;
  return address;
}

TEST(PoolAddress, CarriesRunToTheRightAndAreDroppedAtTheEnd) {
  // The second-lowest byte of a number adds to the third octet, and its carry goes to the fourth.
  const std::tuple<const char*, uint32_t, const char*> rows[] = {{"192.168.1.0", 100, "192.168.1.100"},
                                                                 {"192.168.1.100", 199, "192.168.1.43"},
                                                                 {"10.0.0.1", 256, "10.0.1.1"},
                                                                 {"10.0.255.1", 256, "10.0.0.2"},
                                                                 {"255.255.255.255", 0x01000000, "0.0.0.0"},
                                                                 {"192.168.1.9", UINT32_MAX, "191.168.1.9"}};
  for (const auto& [text, number, sum] : rows) {
    std::array<char, 16> printed = {};
    EXPECT_TRUE((address(text) + number).print(printed.data()));
    EXPECT_STREQ(printed.data(), sum);
  }
}

TEST(PoolAddress, ComparesTheFourthOctetFirst) {
  for (const auto& [less, more] : {std::pair{"192.168.9.1", "10.0.0.2"},
                                   {"10.0.1.2", "10.0.2.2"},
                                   {"10.1.2.2", "10.2.2.2"},
                                   {"1.2.2.2", "2.2.2.2"}})
    EXPECT_LT(address(less), address(more));
}

class DhcpPool : public DeviceTest {
 protected:
  void SetUp() override {
    DeviceTest::SetUp();
    configure("network.lan.ipaddr", "192.168.1.1");
    configure("network.lan.netmask", "255.255.255.0");
    configure("dhcp.lan.start", "100");
    configure("dhcp.lan.limit", "150");
  }

  // What becomes of the range "FIRST - LAST", or why it is none.
  static std::string completed(const std::string& range) {
    const size_t separator = range.find(" - ");
    std::array<char, 33> first = {};
    std::array<char, 33> last = {};
    range.substr(0, separator).copy(first.data(), 32);
    range.substr(separator + 3).copy(last.data(), 32);
    if (dhcp_calc_pool_range(first.data(), last.data()) != 0) return take_log();
    return std::string(first.data()) + " - " + last.data();
  }
  static std::string configured() {
    std::array<char, 16> first = {};
    std::array<char, 16> last = {};
    if (dhcp_calc_ipaddr_pool(first.data(), last.data()) != 0) return take_log();
    return std::string(first.data()) + " - " + last.data();
  }
};

TEST_F(DhcpPool, IsTheConfiguredRange) {
  EXPECT_EQ(configured(), "192.168.1.100 - 192.168.1.249");
  std::array<char, 33> text = {};
  for (const auto calculate : {dhcp_calc_ipaddr_pool, dhcp_calc_pool_range}) {
    EXPECT_EQ(calculate(nullptr, text.data()), -1);
    EXPECT_EQ(calculate(text.data(), nullptr), -1);
    EXPECT_EQ(take_log(), "NP\n\nNP\n\n");
  }
  for (const auto& [path, value, log] : {std::tuple{"network.lan.netmask", "/24", "invalid ip\n\n"},
                                         {"network.lan.netmask", "", "uci lookup error:netmask\n\nGDIE.\n\n"},
                                         {"network.lan.ipaddr", "here", "invalid ip\n\n"},
                                         {"network.lan.ipaddr", "", "uci lookup error:ipaddr\n\nGDIE.\n\n"},
                                         {"dhcp.lan.start", "", "uci lookup error:start\n\nGDIE.\n\n"},
                                         {"dhcp.lan.limit", "", "uci lookup error:limit\n\nGDIE.\n\n"}}) {
    const std::string before = *config(path);
    configure(path, value);
    EXPECT_EQ(configured(), log);
    EXPECT_EQ(completed("192.168.1.50 - "), log);
    configure(path, before);
  }
}

TEST_F(DhcpPool, NumbersAreReadWhole) {
  configure("dhcp.lan.start", std::string(20, '0') + "100");
  configure("dhcp.lan.limit", std::string(20, ' ') + "150");
  EXPECT_EQ(configured(), "192.168.1.100 - 192.168.1.249");
}

TEST_F(DhcpPool, RangesAreCompletedFromTheConfiguredPool) {
  for (const auto& [range, expected] : {std::pair{"192.168.1.50 - ", "192.168.1.50 - 192.168.1.249"},
                                        {"192.168.1.251 - ", "192.168.1.251 - 192.168.1.251"},
                                        {" - 192.168.1.200", "192.168.1.100 - 192.168.1.200"},
                                        {" - 192.168.1.20", "192.168.1.20 - 192.168.1.20"},
                                        {"192.168.1.7 - 192.168.1.7", "192.168.1.7 - 192.168.1.7"}})
    EXPECT_EQ(completed(range), expected);
  for (const char* range : {"192.168.2.50 - ", " - 10.0.0.1", "192.168.1.9 - 192.168.1.8", "192.168.2.1 - 192.168.1.9",
                            "192.168.1.1 - 192.168.2.9"})
    EXPECT_EQ(completed(range), "invalid ip pool\n\n") << range;
  for (const char* range : {"x - ", " - x", "x - 192.168.1.8", "192.168.1.8 - x", " - "})
    EXPECT_EQ(completed(range), "invalid ip\n\n") << range;
}

// A /16 LAN: the default end is what the carry rule makes of it, and ranges compare by their last octet.
TEST_F(DhcpPool, WideLansFollowTheSameRules) {
  configure("network.lan.netmask", "255.255.0.0");
  configure("dhcp.lan.limit", "200");
  EXPECT_EQ(completed("192.168.0.5 - "), "192.168.0.5 - 192.168.0.43");
  EXPECT_EQ(completed("192.168.9.10 - 192.168.1.20"), "192.168.9.10 - 192.168.1.20");
  EXPECT_EQ(completed("192.168.1.20 - 192.168.9.10"), "invalid ip pool\n\n");
}

}  // namespace
}  // namespace kova::test

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

std::string sum(const char* text, uint32_t number) {
  std::array<char, 16> printed = {};
  EXPECT_TRUE((address(text) + number).print(printed.data()));
  return printed.data();
}

TEST(PoolAddress, CarriesRunToTheRightAndAreDroppedAtTheEnd) {
  EXPECT_EQ(sum("192.168.1.0", 100), "192.168.1.100");
  EXPECT_EQ(sum("192.168.1.100", 199), "192.168.1.43");
  // The second-lowest byte of a number adds to the third octet, and its carry goes to the fourth.
  EXPECT_EQ(sum("10.0.0.1", 256), "10.0.1.1");
  EXPECT_EQ(sum("10.0.255.1", 256), "10.0.0.2");
  EXPECT_EQ(sum("255.255.255.255", 0x01000000), "0.0.0.0");
  EXPECT_EQ(sum("192.168.1.9", static_cast<uint32_t>(-1)), "191.168.1.9");
}

TEST(PoolAddress, ComparesTheFourthOctetFirst) {
  EXPECT_LT(address("192.168.9.1"), address("10.0.0.2"));
  EXPECT_LT(address("10.0.1.2"), address("10.0.2.2"));
  EXPECT_LT(address("10.1.2.2"), address("10.2.2.2"));
  EXPECT_LT(address("1.2.2.2"), address("2.2.2.2"));
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

  // The range after completion, or why there is none.
  static std::string range(const char* first, const char* last) {
    std::array<char, 33> begin = {};
    std::array<char, 33> end = {};
    std::string(first).copy(begin.data(), 32);
    std::string(last).copy(end.data(), 32);
    if (dhcp_calc_pool_range(begin.data(), end.data()) != 0) return messages().back();
    return std::string(begin.data()) + " - " + end.data();
  }
};

TEST_F(DhcpPool, IsTheConfiguredRange) {
  std::array<char, 16> first = {};
  std::array<char, 16> last = {};
  EXPECT_EQ(dhcp_calc_ipaddr_pool(first.data(), last.data()), 0);
  EXPECT_STREQ(first.data(), "192.168.1.100");
  EXPECT_STREQ(last.data(), "192.168.1.249");
  EXPECT_EQ(dhcp_calc_ipaddr_pool(nullptr, last.data()), -1);
  EXPECT_EQ(dhcp_calc_ipaddr_pool(first.data(), nullptr), -1);
  EXPECT_EQ(dhcp_calc_pool_range(nullptr, last.data()), -1);
  EXPECT_EQ(dhcp_calc_pool_range(first.data(), nullptr), -1);
  EXPECT_EQ(messages(), std::vector<std::string>(4, "NP\n\n"));
  configure("network.lan.netmask", "/24");
  EXPECT_EQ(dhcp_calc_ipaddr_pool(first.data(), last.data()), -1);
  EXPECT_EQ(messages().back(), "invalid ip\n\n");
  configure("network.lan.netmask", "255.255.255.0");
  configure("network.lan.ipaddr", "here");
  EXPECT_EQ(dhcp_calc_ipaddr_pool(first.data(), last.data()), -1);
  EXPECT_EQ(messages().back(), "invalid ip\n\n");
  configure("dhcp.lan.start", "");
  EXPECT_EQ(dhcp_calc_ipaddr_pool(first.data(), last.data()), -1);
  EXPECT_EQ(messages().back(), "GDIE.\n\n");
}

TEST_F(DhcpPool, RangesAreCompletedFromTheConfiguredPool) {
  EXPECT_EQ(range("192.168.1.50", ""), "192.168.1.50 - 192.168.1.249");
  EXPECT_EQ(range("192.168.1.251", ""), "192.168.1.251 - 192.168.1.251");
  EXPECT_EQ(range("", "192.168.1.200"), "192.168.1.100 - 192.168.1.200");
  EXPECT_EQ(range("", "192.168.1.20"), "192.168.1.20 - 192.168.1.20");
  EXPECT_EQ(range("192.168.1.7", "192.168.1.7"), "192.168.1.7 - 192.168.1.7");
}

TEST_F(DhcpPool, RangesOutsideTheLanOrBackwardsAreRefused) {
  for (const auto& [first, last] : {std::pair{"192.168.2.50", ""},
                                    {"", "10.0.0.1"},
                                    {"192.168.1.9", "192.168.1.8"},
                                    {"192.168.2.1", "192.168.1.9"},
                                    {"192.168.1.1", "192.168.2.9"}})
    EXPECT_EQ(range(first, last), "invalid ip pool\n\n");
  for (const auto& [first, last] :
       {std::pair{"x", ""}, {"", "x"}, {"x", "192.168.1.8"}, {"192.168.1.8", "x"}, {"", ""}})
    EXPECT_EQ(range(first, last), "invalid ip\n\n");
  configure("dhcp.lan.limit", "");
  EXPECT_EQ(range("192.168.1.50", ""), "GDIE.\n\n");
}

// A /16 LAN: the default end is what the carry rule makes of it, and ranges compare by their last octet.
TEST_F(DhcpPool, WideLansFollowTheSameRules) {
  configure("network.lan.netmask", "255.255.0.0");
  configure("dhcp.lan.limit", "200");
  EXPECT_EQ(range("192.168.0.5", ""), "192.168.0.5 - 192.168.0.43");
  EXPECT_EQ(range("192.168.9.10", "192.168.1.20"), "192.168.9.10 - 192.168.1.20");
  EXPECT_EQ(range("192.168.1.20", "192.168.9.10"), "invalid ip pool\n\n");
}

}  // namespace
}  // namespace kova::test

// The validators, each with its own idea of a result.
#include "support/device.hpp"

namespace kova::test {
namespace {

class Validation : public DeviceTest {};

TEST_F(Validation, AddressesAreCanonicalDottedQuads) {
  for (const char* valid : {"0.0.0.0", "255.255.255.255", "10.20.30.4"}) EXPECT_EQ(checkValidIP(valid), 1) << valid;
  for (const char* invalid : {"256.1.1.1", "1.2.3.4x", "1.1.1.1 ", " 1.1.1.1", "010.1.1.1", "1.1.1", "1.1.1.1.1",
                              "-1.1.1.1", "+1.1.1.1", "1..1.1", "", "1.1.1.4294967297", "1.1.1.0x1"})
    EXPECT_EQ(checkValidIP(invalid), 0) << invalid;
  EXPECT_EQ(checkValidIP(nullptr), 0);
}

TEST_F(Validation, HostsAreAddressesOrNamesByTwoLaxPatterns) {
  for (const char* address : {"1.2.3.4", "1a2b3c4"}) EXPECT_EQ(validityHost(address), 0) << address;
  EXPECT_EQ(messages(), (std::vector<std::string>{"str matched ip.\n", "str matched ip.\n"}));
  seams().syslog.clear();
  for (const char* name : {"host.lan", "a-b.example", "server_com"}) EXPECT_EQ(validityHost(name), 0) << name;
  EXPECT_EQ(messages(), std::vector<std::string>(3, "str matched domain.\n"));
  for (const char* invalid : {"", "-a.lan", "a b.lan!", "x.y1", "256.1.1.1"})
    EXPECT_EQ(validityHost(invalid), -1) << invalid;
  const std::string longest = std::string(252, 'a') + ".lan";
  EXPECT_EQ(validityHost(longest.c_str()), 0);
  EXPECT_EQ(validityHost(("a" + longest).c_str()), -1);
}

TEST_F(Validation, NumbersByKind) {
  const struct {
    const char* text;
    int32_t kind;
    int32_t result;
  } cases[] = {{"", 1, 0},        {"12345678901234567890", 1, 0},
               {"1a", 1, -1},     {"-1", 1, -1},
               {"123456", 2, 0},  {"1234567", 2, -1},
               {"", 2, 0},        {"1", 3, 0},
               {"65535", 3, 0},   {"65536", 3, -1},
               {"0", 3, -1},      {"", 3, -1},
               {"0000080", 3, 0}, {"99999999999999999999", 3, -1},
               {"1", 0, -1},      {"1", 4, -1}};
  for (const auto& [text, kind, result] : cases)
    EXPECT_EQ(validityCheck(text, kind), result) << text << " kind " << kind;
}

TEST_F(Validation, MacAddressesNeedASeparatorMoreThanUsual) {
  const std::pair<std::string, int32_t> cases[] = {
      {"aa:bb:cc:dd:ee:ff", -1},   {"aa:bb:cc:dd:ee:ff:", 1},  {"::AA:bb:0c:dd:ee:09", 1}, {"aa:bb:cc:dd:ee:fg:", 0},
      {"aa:bb:cc:dd:ee:ff:00", 0}, {"aaa:bb:cc:dd:ee:ff", -1}, {"aa-bb-cc-dd-ee-ff-", -1}, {":::::::::::::::::::", 0}};
  for (auto [text, result] : cases) {
    const std::string shown = text;
    EXPECT_EQ(CheckValidMacAddr(text.data()), result) << shown;
  }
  EXPECT_EQ(messages(), std::vector<std::string>{"MAC len error.\n"});
}

}  // namespace
}  // namespace kova::test

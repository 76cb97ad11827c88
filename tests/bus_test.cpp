// Status queries over the bus.
extern "C" {
#include <libubus.h>
}

#include <algorithm>
#include <array>
#include <cstring>
#include <map>

#include "seam/platform.hpp"
#include "support/device.hpp"

namespace kova::test {
namespace {

class Bus : public DeviceTest {
 protected:
  static void interface_answers(const std::string& json) {
    run("mkdir -p /etc/lab/bus/network.interface.test");
    write_file("/etc/lab/bus/network.interface.test/status.json", json);
  }
  static void device_answers(const std::string& json) {
    write_file("/etc/lab/bus/network.device/status.json", R"([{"when": {"name": "test0"}, "reply": )" + json + "}]");
  }

  using Query = int32_t (*)(const char*, uint32_t, char*, int32_t);
  static Answer ask(Query query, const char* name, uint32_t code, int32_t length = 64) {
    std::array<char, 64> output = {};
    output.fill('#');
    strcpy(output.data(), kUntouched.c_str());
    const int32_t result = query(name, code, output.data(), length);
    const auto behind = std::max<std::ptrdiff_t>(length, static_cast<std::ptrdiff_t>(kUntouched.size()) + 1);
    EXPECT_TRUE(std::all_of(output.begin() + behind, output.end(), [](char c) { return c == '#'; }));
    return {result, output.data()};
  }
  static Answer interface(uint32_t code, int32_t length = 64) {
    return ask(netif_get_interface_status, "test", code, length);
  }
  static Answer device(uint32_t code) { return ask(netif_get_device_status, "test0", code); }
};

const Answer kNothingWritten = answered(kUntouched);

TEST_F(Bus, EveryFieldOfAnInterface) {
  interface_answers(R"({"up": true, "uptime": 4000000000, "device": "eth0", "l3_device": "pppoe-wan", "proto": "pppoe",
      "ipv4-address": [{"address": "192.0.2.5", "mask": 23}, {"address": "192.0.2.6", "mask": 24}],
      "route": [{"target": "0.0.0.0", "nexthop": "192.0.2.1"}], "dns-server": ["192.0.2.53", "198.51.100.53", "192.0.2.54"]})");
  uint32_t next = INTERFACE_UP;
  for (const char* text : {"1", "4000000000", "eth0", "pppoe-wan", "pppoe", "192.0.2.5", "255.255.254.0", "192.0.2.1",
                           "192.0.2.53,198.51.100.53,192.0.2.54"})
    EXPECT_EQ(interface(next++), answered(text));
  for (const uint32_t code : {9U, 16U, 17U, 0xffffffffU}) EXPECT_EQ(interface(code), kNothingWritten) << code;
  EXPECT_EQ(interface(INTERFACE_L3_DEVICE, 6), answered("pppoe"));
  EXPECT_EQ(interface(INTERFACE_DNS_SERVERS, 14), answered("192.0.2.53,19"));
  EXPECT_TRUE(messages().empty());
}

TEST_F(Bus, MissingEmptyOrMistypedFieldsLeaveTheBufferUntouched) {
  for (const char* reply :
       {"{}", R"({"ipv4-address": [], "route": [], "dns-server": []})",
        R"({"up": 1, "uptime": "9", "device": 7, "l3_device": true, "proto": [], "ipv4-address": "192.0.2.5",
            "route": {"nexthop": "192.0.2.1"}, "dns-server": "192.0.2.53"})",
        R"({"uptime:int64": 9, "ipv4-address": ["192.0.2.5"], "route": [{}], "dns-server": [53]})",
        R"({"ipv4-address": [{"address": 5, "mask": "24"}]})"}) {
    interface_answers(reply);
    for (uint32_t code = INTERFACE_UP; code <= INTERFACE_DNS_SERVERS; ++code)
      EXPECT_EQ(interface(code), kNothingWritten) << code << " of " << reply;
  }
  interface_answers(R"({"dns-server": ["192.0.2.53", 53, "192.0.2.54"]})");
  EXPECT_EQ(interface(INTERFACE_DNS_SERVERS), answered("192.0.2.53"));
  interface_answers(R"({"dns-server": ["", "192.0.2.53"]})");
  EXPECT_EQ(interface(INTERFACE_DNS_SERVERS), answered(",192.0.2.53"));
}

// A reply as another program may have spoilt it, handed to the plug-in in place of the bus's.
class SpoiltReply : public Bus, seam::Platform {
 protected:
  void SetUp() override {
    Bus::SetUp();
    interface_answers("{}");
    device_answers("{}");
    blob_buf_init(&message_, 0);
  }
  void TearDown() override { blob_buf_free(&message_); }

  int ubus_invoke_fd(ubus_context* bus, uint32_t id, const char* method, blob_attr* asked, ubus_data_handler_t handler,
                     void* context, int timeout, int file) override {
    if (handler == nullptr)  // not the plug-in's
      return Platform::ubus_invoke_fd(bus, id, method, asked, handler, context, timeout, file);
    EXPECT_EQ(timeout, 3000);
    ubus_request request = {};
    request.priv = context;
    handler(&request, 0, has_message_ ? message_.head : nullptr);
    return 0;
  }

  // An array whose one element claims a longer name than it has room for.
  void add_spoilt_array(const char* name) {
    void* array = blobmsg_open_array(&message_, name);
    const size_t element = blob_raw_len(message_.head);
    blobmsg_close_table(&message_, blobmsg_open_table(&message_, ""));
    blobmsg_close_array(&message_, array);
    reinterpret_cast<char*>(message_.head)[element + sizeof(blob_attr)] = '\x7f';
  }

  blob_buf message_ = {};
  bool has_message_ = true;
  const seam::InUse in_use_{*this, seam::Calls::OF_PROCESS};
};

TEST_F(SpoiltReply, WritesNothing) {
  EXPECT_EQ(interface(INTERFACE_UP), kNothingWritten);
  EXPECT_EQ(device(DEVICE_MAC), kNothingWritten);
  blobmsg_close_table(&message_, blobmsg_open_table(&message_, "statistics"));
  EXPECT_EQ(device(DEVICE_TX_BYTES), kNothingWritten);
  EXPECT_EQ(take_log(), "blob parsed error\nblob parsed error\nblob parsed error\n");
  has_message_ = false;
  EXPECT_EQ(interface(INTERFACE_UP), kNothingWritten);
  EXPECT_EQ(take_log(), "NP\n");
}

TEST_F(SpoiltReply, IsNotTrustedFurtherInEither) {
  for (const char* array : {"ipv4-address", "route", "dns-server"}) add_spoilt_array(array);
  for (const uint32_t code : {INTERFACE_ADDRESS, INTERFACE_MASK, INTERFACE_NEXTHOP, INTERFACE_DNS_SERVERS})
    EXPECT_EQ(interface(code), kNothingWritten);
}

TEST_F(Bus, NamesAreCutTo63Characters) {
  const std::string longest(63, 'n');
  interface_answers(R"({"up": true})");
  run("mv /etc/lab/bus/network.interface.test /etc/lab/bus/network.interface." + longest);
  EXPECT_EQ(ask(netif_get_interface_status, (longest + "more").c_str(), INTERFACE_UP), answered("1"));
}

TEST_F(Bus, NetmaskOfEachPrefix) {
  const std::map<int, const char*> masks = {{0, "255.255.255.255"},
                                            {1, "128.0.0.0"},
                                            {17, "255.255.128.0"},
                                            {31, "255.255.255.254"},
                                            {32, "255.255.255.255"}};
  for (const auto& [prefix, mask] : masks) {
    interface_answers(R"({"ipv4-address": [{"mask": )" + std::to_string(prefix) + "}]}");
    EXPECT_EQ(interface(INTERFACE_MASK), answered(mask));
  }
}

TEST_F(Bus, EveryFieldOfADevice) {
  device_answers(R"({"macaddr": "02:a4:f1:00:00:09", "bridge-members": ["eth0", "eth1"],
      "statistics:int64": {"tx_bytes": 1, "tx_packets": 2, "tx_errors": 3, "rx_bytes": 18446744073709551615,
                           "rx_packets": 5, "rx_errors": 6}})");
  const char* texts[] = {"02:a4:f1:00:00:09", "1", "2", "3", "18446744073709551615", "5", "6", "eth0,eth1"};
  for (uint32_t i = 0; i < std::size(texts); ++i) EXPECT_EQ(device(DEVICE_MAC + i), answered(texts[i])) << i;
  for (const uint32_t code : {0U, 8U, 17U}) EXPECT_EQ(device(code), kNothingWritten) << code;
  // A counter is a 64-bit integer on the bus, whatever its size.
  device_answers(R"({"statistics": {"tx_bytes": 1}})");
  EXPECT_EQ(device(DEVICE_TX_BYTES), kNothingWritten);
}

TEST_F(Bus, WithoutRoomForAnAnswerTheBusIsAskedAllTheSame) {
  interface_answers(R"({"up": true, "uptime": 5, "dns-server": ["1.1.1.1"]})");
  for (const int32_t length : {0, -1}) {
    for (const uint32_t code : {INTERFACE_UP, INTERFACE_UPTIME, INTERFACE_DNS_SERVERS})
      EXPECT_EQ(interface(code, length), kNothingWritten);
  }
  EXPECT_EQ(ask(netif_get_interface_status, "nosuch", 0, 0), (Answer{4, kUntouched}));
}

TEST_F(Bus, FaultsAreTheBussErrorCodes) {
  EXPECT_EQ(ask(netif_get_interface_status, "nosuch", 0), (Answer{4, kUntouched}));
  interface_answers(R"({"status": 7})");
  EXPECT_EQ(interface(0), (Answer{7, kUntouched}));
  run("rm -r /etc/lab/bus");
  EXPECT_EQ(interface(0), kGetFailed);
  EXPECT_EQ(take_log(), "ubus_lookup_id error\nubus_invoke error\nubus_connect error\n");

  for (const Query query : {netif_get_interface_status, netif_get_device_status}) {
    EXPECT_EQ(ask(query, nullptr, 0), kGetFailed);
    EXPECT_EQ(query("test0", 0, nullptr, 8), -1);
  }
  EXPECT_EQ(take_log(), "");
  const auto handler = [](ubus_request*, int, blob_attr*) {};
  EXPECT_EQ(ubus_call("a", "b", nullptr, nullptr, nullptr, 10), -1);
  EXPECT_EQ(ubus_call(nullptr, "b", nullptr, handler, nullptr, 10), -1);
  EXPECT_EQ(ubus_call("a", nullptr, nullptr, handler, nullptr, 10), -1);
  EXPECT_EQ(take_log(), "NP\nNP\nNP\n");
}

TEST_F(Bus, OfAReplyInSeveralMessagesTheLastOneCounts) {
  interface_answers(R"({"replies": [{"uptime": 1, "proto": "dhcp"}, {"uptime": 2}]})");
  EXPECT_EQ(interface(INTERFACE_UPTIME), answered("2"));
  EXPECT_EQ(interface(INTERFACE_PROTO), answered("dhcp"));
}

// Has something happen to the router between a look-up and the call.
class Vanishing : public Bus, seam::Platform {
 protected:
  int ubus_lookup_id(ubus_context* bus, const char* object, uint32_t* id) override {
    const int status = Platform::ubus_lookup_id(bus, object, id);
    if (object == std::string("network.interface.test")) run(then_);
    return status;
  }

  std::string then_ = "true";
  const seam::InUse in_use_{*this, seam::Calls::OF_PROCESS};
};

TEST_F(Vanishing, AnObjectThatGoesOrDoesNotAnswerIsTheBussErrorCode) {
  interface_answers("{}");
  then_ = "rm -r /etc/lab/bus/network.interface.test";
  EXPECT_NE(interface(INTERFACE_UP).result, 0);
  EXPECT_EQ(take_log(), "ubus_invoke error\n");
#ifdef KOVA_STANDINS
  GTEST_SKIP() << "the stand-ins' bus has no daemon that could be stopped";
#endif
  then_ = "kill -KILL $(cat /var/run/ubus/ubusd.pid)";
  interface_answers("{}");
  EXPECT_NE(interface(INTERFACE_UP).result, 0);
  then_ = "true";
  run("rm -r /etc/lab/bus/network.interface.test");
  interface_answers(R"({"up": true})");
  EXPECT_EQ(interface(INTERFACE_UP), answered("1"));
  if (!has_network()) GTEST_SKIP() << "proot stops no process";
  then_ = "kill -STOP $(cat /var/run/ubus/lab-bus.pid)";
  EXPECT_EQ(interface(INTERFACE_UP), (Answer{UBUS_STATUS_TIMEOUT, kUntouched}));
  EXPECT_EQ(::system("kill -CONT $(cat /var/run/ubus/lab-bus.pid)"), 0);
}

TEST_F(Bus, ACallHandsTheReplyAndItsContextOver) {
  interface_answers(R"({"up": true})");
  bool called = false;
  const auto handler = [](ubus_request* request, int, blob_attr* reply) {
    *static_cast<bool*>(request->priv) = reply != nullptr;
  };
  EXPECT_EQ(ubus_call("network.interface.test", "status", nullptr, handler, &called, 100), 0);
  EXPECT_TRUE(called);
}

}  // namespace
}  // namespace kova::test

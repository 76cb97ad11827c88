// libubox and libubus, the stand-ins or the real ones: messages, exact types, answers from the lab's files.
extern "C" {
#include <libubus.h>
}
#include <sys/resource.h>

#include "support/device.hpp"

namespace kova::test {
namespace {

struct Message {
  Message() { blob_buf_init(&buffer, 0); }
  ~Message() { blob_buf_free(&buffer); }
  Message(const Message&) = delete;
  Message& operator=(const Message&) = delete;

  blob_buf buffer = {};
};

int parse(const void* data, size_t length, const char* name, enum blobmsg_type type, blob_attr*& field) {
  const blobmsg_policy policy = {name, type};
  return blobmsg_parse(&policy, 1, &field, const_cast<void*>(data), static_cast<unsigned>(length));
}

// The field of this name and type; nullptr when there is none.
blob_attr* field_of(const blob_attr* message, const char* name, enum blobmsg_type type) {
  blob_attr* field = nullptr;
  parse(blob_data(message), blob_len(message), name, type, field);
  return field;
}

TEST(BlobMessage, NestedContainersSurviveTheBuffersGrowth) {
  Message message;
  void* table = blobmsg_open_table(&message.buffer, "table");
  void* array = blobmsg_open_array(&message.buffer, "array");
  for (int i = 0; i < 1000; ++i) blobmsg_add_string(&message.buffer, nullptr, std::to_string(i).c_str());
  blobmsg_close_array(&message.buffer, array);
  blobmsg_add_u64(&message.buffer, "large", 0x0102030405060708);
  blobmsg_close_table(&message.buffer, table);
  blobmsg_add_u8(&message.buffer, "after", 1);

  const blob_attr* parsed_table = field_of(message.buffer.head, "table", BLOBMSG_TYPE_TABLE);
  ASSERT_NE(parsed_table, nullptr);
  const blobmsg_policy policy[] = {{"array", BLOBMSG_TYPE_ARRAY}, {"large", BLOBMSG_TYPE_INT64}};
  blob_attr* fields[2];
  const auto length = static_cast<unsigned>(blobmsg_data_len(parsed_table));
  EXPECT_EQ(blobmsg_parse(policy, 2, fields, blobmsg_data(parsed_table), length), 0);
  int count = 0;
  blob_attr* element = nullptr;
  size_t rest = 0;
  blobmsg_for_each_attr(element, fields[0], rest) EXPECT_EQ(blobmsg_get_string(element), std::to_string(count++));
  EXPECT_EQ(count, 1000);
  EXPECT_EQ(blobmsg_get_u64(fields[1]), 0x0102030405060708U);
  EXPECT_TRUE(blobmsg_get_bool(field_of(message.buffer.head, "after", BLOBMSG_TYPE_BOOL)));
}

TEST(BlobMessage, TypesMatchExactly) {
  Message message;
  blobmsg_add_u32(&message.buffer, "counter", 7);
  EXPECT_EQ(field_of(message.buffer.head, "counter", BLOBMSG_TYPE_INT64), nullptr);
  EXPECT_EQ(field_of(message.buffer.head, "Counter", BLOBMSG_TYPE_INT32), nullptr);
  EXPECT_EQ(blobmsg_get_u32(field_of(message.buffer.head, "counter", BLOBMSG_TYPE_INT32)), 7U);
  EXPECT_NE(field_of(message.buffer.head, "counter", BLOBMSG_TYPE_UNSPEC), nullptr);
}

TEST(BlobMessage, MalformedMessagesAreRefusedAndCutOnesPassedOver) {
  Message message;
  blobmsg_add_string(&message.buffer, "x", "text");
  const std::string good(static_cast<char*>(blob_data(message.buffer.head)), blob_len(message.buffer.head));
  blob_attr* field = nullptr;
  const auto parsed = [&](const std::string& data) {
    return parse(data.data(), data.size(), "x", BLOBMSG_TYPE_STRING, field);
  };
  EXPECT_EQ(parsed(good), 0);
  EXPECT_LT(parsed(""), -1);
  for (const size_t left : {good.size() - 4, size_t{3}}) {
    EXPECT_EQ(parsed(good.substr(0, left)), 0);
    EXPECT_EQ(field, nullptr);
  }
  // With a length beyond the end, with a name beyond the end, and with a text that has no end.
  for (const auto& [offset, byte, result] :
       {std::tuple{size_t{3}, '\x40', 0}, {size_t{5}, '\x7f', -1}, {good.size() - 4, 'x', -1}}) {
    std::string bad = good;
    bad[offset] = byte;
    EXPECT_EQ(parsed(bad), result) << offset;
    EXPECT_EQ(field, nullptr);
  }
}

class BusAnswers : public testing::Test {
 protected:
  void SetUp() override { run("mkdir -p " + root_ + "/object"); }
  void TearDown() override { run("rm -rf " + root_); }

  // The answer to {"text": text}: its string member "text", or the status in brackets.
  std::string call(const std::string& json, const char* text = "") const {
    write_file(root_ + "/object/method.json", json);
    ubus_context* bus = ubus_connect(nullptr);
    uint32_t id = 0;
    EXPECT_EQ(ubus_lookup_id(bus, "loop", &id), UBUS_STATUS_NOT_FOUND);
    EXPECT_EQ(ubus_lookup_id(bus, "object", &id), UBUS_STATUS_OK);
    EXPECT_EQ(ubus_invoke(bus, id + 1000, "method", nullptr, nullptr, nullptr, 3000), UBUS_STATUS_NOT_FOUND);
    EXPECT_EQ(ubus_invoke(bus, id, "other", nullptr, nullptr, nullptr, 3000), UBUS_STATUS_METHOD_NOT_FOUND);
    Message request;
    blobmsg_add_string(&request.buffer, "text", text);
    std::string answer = "no reply";
    const auto reply = [](ubus_request* made, int, blob_attr* message) {
      blob_attr* field = field_of(message, "text", BLOBMSG_TYPE_STRING);
      std::string& all = *static_cast<std::string*>(made->priv);
      all = (all == "no reply" ? "" : all + " ") + (field != nullptr ? blobmsg_get_string(field) : "no text");
    };
    const int status = ubus_invoke(bus, id, "method", request.buffer.head, reply, &answer, 3000);
    ubus_free(bus);
    return status == UBUS_STATUS_OK ? answer : "[" + std::to_string(status) + "]";
  }

  const std::string root_ = "/etc/lab/bus";
};

TEST_F(BusAnswers, AreTheFirstCaseThatMatches) {
  const char* cases = R"([{"when": {"text": "a"}, "reply": {"text": "for a"}}, {"when": {"text": "b"}, "status": 7},
                          {"reply": {"text": "for others"}}])";
  const struct {
    const char* json;
    const char* text;
    const char* answer;
  } rows[] = {{cases, "a", "for a"},
              {cases, "b", "[7]"},
              {cases, "c", "for others"},
              {R"({"when": {"text": "a"}, "reply": {"text": "for a"}})", "c", "[4]"},
              {R"({"when": {"other": "a"}, "reply": {}})", "a", "[4]"},
              {R"({"text": "plain"})", "a", "plain"},
              {R"({"replies": [{"text": "first"}, {"text": "second"}]})", "a", "first second"},
              {R"({"script": "/bin/echo"})", "router", "router"},  // the request itself
              {R"({"script": "/bin/true"})", "a", "no reply"},
              {R"({"script": "/no/where"})", "a", "[12]"},
              {"{not json", "a", "[12]"},
              {R"({"text": null})", "a", "[12]"}};
  for (const auto& [json, text, answer] : rows) EXPECT_EQ(call(json, text), answer) << json;
}

TEST_F(BusAnswers, ComeFromNothingThatCannotBeRead) {
  run("ln -s loop " + root_ + "/loop");
  EXPECT_EQ(call(R"({"text": "plain"})"), "plain");
  rlimit old_limit = {};
  getrlimit(RLIMIT_NOFILE, &old_limit);
  const rlimit limit = {0, old_limit.rlim_max};
  setrlimit(RLIMIT_NOFILE, &limit);
  EXPECT_EQ(ubus_connect(nullptr), nullptr);
  setrlimit(RLIMIT_NOFILE, &old_limit);
  run("rm -r " + root_);
  EXPECT_EQ(ubus_connect(nullptr), nullptr);
}

}  // namespace
}  // namespace kova::test

// The libubox and libubus stand-ins: messages, exact types, answers from files.
#include <gtest/gtest.h>
extern "C" {
#include <libubus.h>
}
#include <sys/stat.h>

#include <cstring>
#include <filesystem>
#include <fstream>

namespace {

namespace fs = std::filesystem;

struct Message {
  Message() { blob_buf_init(&buffer, 0); }
  ~Message() { blob_buf_free(&buffer); }
  Message(const Message&) = delete;
  Message& operator=(const Message&) = delete;

  blob_attr* parse(const char* name, enum blobmsg_type type, int* result = nullptr) const {
    const blobmsg_policy policy = {name, type};
    blob_attr* field = nullptr;
    const int parsed =
        blobmsg_parse(&policy, 1, &field, blob_data(buffer.head), static_cast<unsigned>(blob_len(buffer.head)));
    if (result != nullptr) *result = parsed;
    return field;
  }

  blob_buf buffer = {};
};

TEST(BlobMessage, NestedContainersSurviveTheBuffersGrowth) {
  Message message;
  void* table = blobmsg_open_table(&message.buffer, "table");
  void* array = blobmsg_open_array(&message.buffer, "array");
  for (int i = 0; i < 1000; ++i) blobmsg_add_string(&message.buffer, nullptr, std::to_string(i).c_str());
  blobmsg_close_array(&message.buffer, array);
  blobmsg_add_u64(&message.buffer, "large", 0x0102030405060708);
  blobmsg_close_table(&message.buffer, table);
  blobmsg_add_u8(&message.buffer, "after", 1);

  blob_attr* parsed_table = message.parse("table", BLOBMSG_TYPE_TABLE);
  ASSERT_NE(parsed_table, nullptr);
  const blobmsg_policy policy[] = {{"array", BLOBMSG_TYPE_ARRAY}, {"large", BLOBMSG_TYPE_INT64}};
  blob_attr* fields[2];
  EXPECT_EQ(blobmsg_parse(policy, 2, fields, blobmsg_data(parsed_table),
                          static_cast<unsigned>(blobmsg_data_len(parsed_table))),
            0);
  int count = 0;
  blob_attr* element = nullptr;
  size_t rest = 0;
  blobmsg_for_each_attr(element, fields[0], rest) EXPECT_EQ(blobmsg_get_string(element), std::to_string(count++));
  EXPECT_EQ(count, 1000);
  EXPECT_EQ(blobmsg_get_u64(fields[1]), 0x0102030405060708U);
  EXPECT_TRUE(blobmsg_get_bool(message.parse("after", BLOBMSG_TYPE_BOOL)));
}

TEST(BlobMessage, TypesMatchExactly) {
  Message message;
  blobmsg_add_u32(&message.buffer, "counter", 7);
  EXPECT_EQ(message.parse("counter", BLOBMSG_TYPE_INT64), nullptr);
  EXPECT_EQ(message.parse("Counter", BLOBMSG_TYPE_INT32), nullptr);
  EXPECT_EQ(blobmsg_get_u32(message.parse("counter", BLOBMSG_TYPE_INT32)), 7U);
  EXPECT_NE(message.parse("counter", BLOBMSG_TYPE_UNSPEC), nullptr);
}

TEST(BlobMessage, MalformedMessagesAreRefused) {
  int result = 0;
  Message empty;
  empty.parse("x", BLOBMSG_TYPE_STRING, &result);
  EXPECT_LT(result, 0);

  Message message;
  blobmsg_add_string(&message.buffer, "x", "text");
  auto* data = static_cast<char*>(blob_data(message.buffer.head));
  const auto length = static_cast<unsigned>(blob_len(message.buffer.head));
  const blobmsg_policy policy = {"x", BLOBMSG_TYPE_STRING};
  blob_attr* field = nullptr;
  // Cut short, with a length beyond the end, with a name beyond the end, and with a text that has no end.
  EXPECT_EQ(blobmsg_parse(&policy, 1, &field, data, length - 4), -1);
  EXPECT_EQ(blobmsg_parse(&policy, 1, &field, data, 3), -1);
  const std::string good(data, length);
  for (const auto& [offset, byte] : {std::pair{3U, '\x40'}, {5U, '\x7f'}, {length - 4, 'x'}}) {
    data[offset] = byte;
    EXPECT_EQ(blobmsg_parse(&policy, 1, &field, data, length), -1) << offset;
    std::memcpy(data, good.data(), length);
  }
  EXPECT_EQ(blobmsg_parse(&policy, 1, &field, data, length), 0);
}

class BusAnswers : public testing::Test {
 protected:
  void SetUp() override {
    char name[] = "/tmp/bus-XXXXXX";
    root_ = mkdtemp(name);
    fs::create_directories(root_ / "object");
    setenv("KOVA_LAB_BUS", root_.c_str(), 1);
  }
  void TearDown() override {
    unsetenv("KOVA_LAB_BUS");
    fs::remove_all(root_);
  }

  void answers(const std::string& json) const { std::ofstream(root_ / "object" / "method.json") << json; }

  // The string member "text" of the answer to {"name": name}, or the status in brackets.
  static std::string call(const char* name = "n") {
    ubus_context* bus = ubus_connect(nullptr);
    uint32_t id = 0;
    EXPECT_EQ(ubus_lookup_id(bus, "none", &id), UBUS_STATUS_NOT_FOUND);
    EXPECT_EQ(ubus_lookup_id(bus, "object", &id), UBUS_STATUS_OK);
    EXPECT_EQ(ubus_invoke(bus, id, "other", nullptr, nullptr, nullptr, 1), UBUS_STATUS_METHOD_NOT_FOUND);
    Message request;
    blobmsg_add_string(&request.buffer, "name", name);
    std::string text = "no reply";
    const auto reply = [](ubus_request* made, int, blob_attr* message) {
      const blobmsg_policy policy = {"text", BLOBMSG_TYPE_STRING};
      blob_attr* field = nullptr;
      blobmsg_parse(&policy, 1, &field, blob_data(message), static_cast<unsigned>(blob_len(message)));
      *static_cast<std::string*>(made->priv) = field != nullptr ? blobmsg_get_string(field) : "no text";
    };
    const int status = ubus_invoke(bus, id, "method", request.buffer.head, reply, &text, 1);
    ubus_free(bus);
    return status == UBUS_STATUS_OK ? text : "[" + std::to_string(status) + "]";
  }

  fs::path root_;
};

TEST_F(BusAnswers, AreTheFirstCaseThatMatches) {
  answers(R"([{"when": {"name": "a"}, "reply": {"text": "for a"}}, {"when": {"name": "b"}, "status": 7},
              {"reply": {"text": "for others"}}])");
  EXPECT_EQ(call("a"), "for a");
  EXPECT_EQ(call("b"), "[7]");
  EXPECT_EQ(call("c"), "for others");
  answers(R"({"when": {"name": "a"}, "reply": {"text": "for a"}})");
  EXPECT_EQ(call("c"), "[4]");
  answers(R"({"text": "plain"})");
  EXPECT_EQ(call(), "plain");
}

TEST_F(BusAnswers, ComeFromAScriptThatSeesTheRequest) {
  std::ofstream(root_ / "script") << "#!/bin/sh\nprintf '{\"text\": \"%s\"}' \"$(printf '%s' \"$1\" | tr -d '\"')\"\n";
  chmod((root_ / "script").c_str(), 0755);
  answers(R"({"script": ")" + (root_ / "script").string() + R"("})");
  EXPECT_EQ(call("router"), "{name:router}");
  answers(R"({"script": "/bin/true"})");
  EXPECT_EQ(call(), "no reply");
}

TEST_F(BusAnswers, FaultsAreStatuses) {
  answers("{not json");
  EXPECT_EQ(call(), "[12]");
  answers(R"({"text": null})");
  EXPECT_EQ(call(), "[12]");
  fs::remove_all(root_);
  EXPECT_EQ(ubus_connect(nullptr), nullptr);
}

}  // namespace

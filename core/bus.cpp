// Status queries to the network daemon over the bus.
extern "C" {
#include <libubox/blobmsg.h>
#include <libubus.h>
}
#include <arpa/inet.h>
#include <errno.h>
#include <inttypes.h>
#include <stdio.h>
#include <string.h>

#include <algorithm>
#include <iterator>
#include <span>

#include "bus.hpp"
#include "descriptors.hpp"
#include "log.hpp"
#include "look.hpp"
#include "text.hpp"

namespace {

using namespace kova;

constexpr int32_t kTimeout = 3000;
constexpr int kConnectTries = 20;

// A connection to the bus for one call.
class BusConnection {
 public:
  // libubus gives up when a signal interrupts it, which happens to agents that have timers.
  BusConnection() : context_(nullptr) {
    for (int tries = 0; context_ == nullptr && tries < kConnectTries; ++tries) {
      errno = 0;
      context_ = ubus_connect(nullptr);
      if (errno != EINTR) break;
    }
  }
  ~BusConnection() {
    if (context_ != nullptr) ubus_free(context_);
  }
  BusConnection(const BusConnection&) = delete;
  BusConnection& operator=(const BusConnection&) = delete;

  explicit operator bool() const { return context_ != nullptr; }
  ubus_context* get() const { return context_; }

 private:
  kova::StandardDescriptors standard_;
  ubus_context* context_;
};

// A message under construction.
class Message {
 public:
  Message() : complete_(blob_buf_init(&buffer_, 0) == 0) {}
  ~Message() { blob_buf_free(&buffer_); }
  Message(const Message&) = delete;
  Message& operator=(const Message&) = delete;

  void add(const char* name, const char* value) {
    complete_ = complete_ && blobmsg_add_string(&buffer_, name, value) == 0;
  }
  explicit operator bool() const { return complete_; }  // without memory it is not
  blob_attr* get() const { return buffer_.head; }

 private:
  blob_buf buffer_ = {};
  bool complete_;
};

// What a caller wants from a reply, and where it goes.
struct StatusQuery {
  uint32_t code;
  std::span<char> output;

  void write(const char* text) const { copy_text(output, text); }
  void write_number(uint64_t number) const { snprintf(output.data(), output.size(), "%" PRIu64, number); }
  void write_string(blob_attr* attribute) const {
    if (attribute != nullptr) write(blobmsg_get_string(attribute));
  }
};

// ---- Pieces of a reply ----

// Finds the field of this name and type in a table; nullptr when it is absent. False for a malformed table.
bool find_field(blob_attr* table, const char* name, enum blobmsg_type type, blob_attr*& field) {
  const blobmsg_policy policy[] = {{.name = name, .type = type}};
  field = nullptr;
  return blobmsg_parse(policy, 1, &field, blobmsg_data(table), static_cast<unsigned>(blobmsg_data_len(table))) == 0;
}

// The field of an array's first element, which is a table.
blob_attr* field_of_first(blob_attr* array, const char* name, enum blobmsg_type type) {
  if (array == nullptr) return nullptr;
  blob_attr* element = nullptr;
  size_t rest = 0;
  blobmsg_for_each_attr(element, array, rest) {
    if (blobmsg_type(element) != BLOBMSG_TYPE_TABLE || !blobmsg_check_attr(element, false)) return nullptr;
    blob_attr* field = nullptr;
    return find_field(element, name, type, field) ? field : nullptr;
  }
  return nullptr;
}

// Hands the strings of an array to `take`, until it returns false or an element is malformed.
template <typename Take>
void for_each_string(blob_attr* array, Take take) {
  if (array == nullptr) return;
  blob_attr* element = nullptr;
  size_t rest = 0;
  blobmsg_for_each_attr(element, array, rest) {
    if (blobmsg_type(element) != BLOBMSG_TYPE_STRING || !blobmsg_check_attr(element, false)) return;
    if (!take(blobmsg_get_string(element))) return;
  }
}

// Joins the strings of an array with ","; an empty array writes nothing.
void write_joined(const StatusQuery& query, blob_attr* array) {
  size_t used = 0;
  const char* separator = "";
  for_each_string(array, [&](const char* text) {
    const std::span<char> left = query.output.subspan(used);
    const int length = snprintf(left.data(), left.size(), "%s%s", separator, text);
    if (length < 0 || static_cast<size_t>(length) >= left.size()) return false;
    used += static_cast<size_t>(length);
    separator = ",";
    return true;
  });
}

void write_netmask(const StatusQuery& query, blob_attr* prefix) {
  if (prefix == nullptr) return;
  const uint32_t host_bits = (32 - blobmsg_get_u32(prefix)) % 32;
  in_addr mask = {};
  mask.s_addr = htonl(UINT32_MAX << host_bits);
  char text[INET_ADDRSTRLEN] = {};
  query.write(inet_ntop(AF_INET, &mask, text, sizeof text));
}

// ---- Replies ----

enum InterfaceField { UP, UPTIME, DEVICE, L3_DEVICE, PROTO, IPV4_ADDRESS, ROUTE, DNS_SERVER, INTERFACE_FIELDS };

constexpr blobmsg_policy kInterfacePolicy[INTERFACE_FIELDS] = {
    {.name = "up", .type = BLOBMSG_TYPE_BOOL},       {.name = "uptime", .type = BLOBMSG_TYPE_INT32},
    {.name = "device", .type = BLOBMSG_TYPE_STRING}, {.name = "l3_device", .type = BLOBMSG_TYPE_STRING},
    {.name = "proto", .type = BLOBMSG_TYPE_STRING},  {.name = "ipv4-address", .type = BLOBMSG_TYPE_ARRAY},
    {.name = "route", .type = BLOBMSG_TYPE_ARRAY},   {.name = "dns-server", .type = BLOBMSG_TYPE_ARRAY},
};

void write_interface_field(const StatusQuery& query, blob_attr* const (&fields)[INTERFACE_FIELDS]) {
  switch (query.code) {
    case INTERFACE_UP:
      if (fields[UP] != nullptr) query.write(blobmsg_get_bool(fields[UP]) ? "1" : "0");
      break;
    case INTERFACE_UPTIME:
      if (fields[UPTIME] != nullptr) query.write_number(blobmsg_get_u32(fields[UPTIME]));
      break;
    case INTERFACE_DEVICE:
      query.write_string(fields[DEVICE]);
      break;
    case INTERFACE_L3_DEVICE:
      query.write_string(fields[L3_DEVICE]);
      break;
    case INTERFACE_PROTO:
      query.write_string(fields[PROTO]);
      break;
    case INTERFACE_ADDRESS:
      query.write_string(field_of_first(fields[IPV4_ADDRESS], "address", BLOBMSG_TYPE_STRING));
      break;
    case INTERFACE_MASK:
      write_netmask(query, field_of_first(fields[IPV4_ADDRESS], "mask", BLOBMSG_TYPE_INT32));
      break;
    case INTERFACE_NEXTHOP:
      query.write_string(field_of_first(fields[ROUTE], "nexthop", BLOBMSG_TYPE_STRING));
      break;
    case INTERFACE_DNS_SERVERS:
      write_joined(query, fields[DNS_SERVER]);
      break;
    default:
      break;
  }
}

enum DeviceField { MACADDR, STATISTICS, BRIDGE_MEMBERS, DEVICE_FIELDS };

constexpr blobmsg_policy kDevicePolicy[DEVICE_FIELDS] = {
    {.name = "macaddr", .type = BLOBMSG_TYPE_STRING},
    {.name = "statistics", .type = BLOBMSG_TYPE_TABLE},
    {.name = "bridge-members", .type = BLOBMSG_TYPE_ARRAY},
};

// The counters' names, indexed from DEVICE_TX_BYTES.
constexpr const char* kStatistics[] = {"tx_bytes", "tx_packets", "tx_errors", "rx_bytes", "rx_packets", "rx_errors"};

void write_statistic(const StatusQuery& query, blob_attr* statistics) {
  if (statistics == nullptr) return;
  blob_attr* counter = nullptr;
  if (!find_field(statistics, kStatistics[query.code - DEVICE_TX_BYTES], BLOBMSG_TYPE_INT64, counter)) {
    LOG("blob parsed error\n");
    return;
  }
  if (counter != nullptr) query.write_number(blobmsg_get_u64(counter));
}

void write_device_field(const StatusQuery& query, blob_attr* const (&fields)[DEVICE_FIELDS]) {
  if (query.code == DEVICE_MAC) query.write_string(fields[MACADDR]);
  if (query.code >= DEVICE_TX_BYTES && query.code <= DEVICE_RX_ERRORS) write_statistic(query, fields[STATISTICS]);
  if (query.code == DEVICE_BRIDGE_MEMBERS) write_joined(query, fields[BRIDGE_MEMBERS]);
}

// Who takes a bridge's members.
struct MemberTaker {
  void (*take)(void* context, const char* name);
  void* context;
};

void hand_on_members(const MemberTaker& taker, blob_attr* const (&fields)[DEVICE_FIELDS]) {
  for_each_string(fields[BRIDGE_MEMBERS], [&](const char* name) {
    taker.take(taker.context, name);
    return true;
  });
}

// Parses a status reply with its policy and hands the fields on, with what the request carries.
template <typename Wanted, int Fields>
void parse_reply(ubus_request* request, blob_attr* reply, const blobmsg_policy (&policy)[Fields],
                 void (*hand_on)(const Wanted&, blob_attr* const (&)[Fields])) {
  if (request == nullptr || request->priv == nullptr || reply == nullptr) {
    LOG("NP\n");
    return;
  }
  blob_attr* fields[Fields] = {};
  if (blobmsg_parse(policy, Fields, fields, blob_data(reply), static_cast<unsigned>(blob_len(reply))) != 0) {
    LOG("blob parsed error\n");
    return;
  }
  hand_on(*static_cast<const Wanted*>(request->priv), fields);
}

void on_interface_status(ubus_request* request, int /*type*/, blob_attr* reply) {
  parse_reply(request, reply, kInterfacePolicy, write_interface_field);
}

void on_device_status(ubus_request* request, int /*type*/, blob_attr* reply) {
  parse_reply(request, reply, kDevicePolicy, write_device_field);
}

void on_bridge_members(ubus_request* request, int /*type*/, blob_attr* reply) {
  parse_reply(request, reply, kDevicePolicy, hand_on_members);
}

// Asks for the status of a network device. The result is that of ubus_call.
int32_t ask_device(const char* name, bus_reply_handler on_reply, void* wanted) {
  Message message;
  message.add("name", name);
  return message ? ubus_call("network.device", "status", message.get(), on_reply, wanted, kTimeout) : -1;
}

// ---- One call ----

// Its head and what it holds.
size_t length_of(const blob_attr* message) { return message != nullptr ? sizeof *message + blob_len(message) : 0; }

// The replies to one call, handed on as they come; and what is kept of it for the next who asks the same.
struct Replies {
  bus_reply_handler handler;
  void* context;
  bool is_kept;
  Finding found = {};
};

void on_reply(ubus_request* request, int type, blob_attr* reply) {
  Replies& replies = *static_cast<Replies*>(request->priv);
  static constexpr char kPadding[sizeof(uint32_t)] = {};
  const size_t size = length_of(reply);
  replies.is_kept = replies.is_kept && size != 0 && replies.found.bytes.append(reply, size) &&
                    replies.found.bytes.append(kPadding, blob_pad_len(reply) - size);
  request->priv = replies.context;
  replies.handler(request, type, reply);
  request->priv = &replies;
}

void hand_on_again(std::span<char> replies, bus_reply_handler handler, void* context) {
  for (size_t position = 0; position < replies.size();) {
    blob_attr* const reply = reinterpret_cast<blob_attr*>(&replies[position]);
    position += blob_pad_len(reply);
    ubus_request request = {};
    request.priv = context;
    handler(&request, UBUS_MSG_DATA, reply);
  }
}

struct Question {
  const char* path;
  const char* method;
  blob_attr* message;
  int32_t timeout;
};

std::string_view bytes_of(const blob_attr* message) {
  return {reinterpret_cast<const char*>(message), length_of(message)};
}

void ask(const Question& question, Replies& replies) {
  Finding& found = replies.found;
  found.step = "ubus_connect";
  found.error = -1;
  const BusConnection bus;
  if (!bus) return;
  found.step = "ubus_lookup_id";
  uint32_t id = 0;
  found.error = ubus_lookup_id(bus.get(), question.path, &id);
  if (found.error != 0) return;
  found.step = "ubus_invoke";
  found.error = ubus_invoke(bus.get(), id, question.method, question.message, on_reply, &replies, question.timeout);
}

// Tells why a call has failed, if it has. Its result.
int32_t told(const Finding& found) {
  if (found.error != 0) LOG("%s error\n", found.step);
  return found.error;
}

// Without room in the output the bus is asked all the same, and nothing is written.
StatusQuery make_query(uint32_t code, char* output, int32_t length) {
  return {code, {output, static_cast<size_t>(std::max(length, 0))}};
}

}  // namespace

bool kova::for_each_bridge_member(const char* bridge, void (*take)(void* context, const char* name), void* context) {
  MemberTaker taker{take, context};
  return ask_device(bridge, on_bridge_members, &taker) == 0;
}

int32_t ubus_call(const char* path, const char* method, blob_attr* message, bus_reply_handler reply_handler,
                  void* context, int32_t timeout) {
  if (path == nullptr || method == nullptr || reply_handler == nullptr) {
    LOG("NP\n");
    return -1;
  }
  Source source({SourceName::BUS, {path, method, bytes_of(message)}});
  if (const Finding* kept = source.kept()) {
    hand_on_again(kept->bytes.get(), reply_handler, context);
    return told(*kept);
  }
  Replies replies{.handler = reply_handler, .context = context, .is_kept = source.is_wanted()};
  ask({path, method, message, timeout}, replies);
  const int32_t result = told(replies.found);
  if (replies.is_kept) source.keep(replies.found);
  return result;
}

int32_t netif_get_interface_status(const char* name, uint32_t query, char* output, int32_t length) {
  if (name == nullptr || output == nullptr) return -1;
  Text<96> path;
  path.print("network.interface.%.63s", name);
  StatusQuery wanted = make_query(query, output, length);
  return ubus_call(path.c_str(), "status", nullptr, on_interface_status, &wanted, kTimeout);
}

int32_t netif_get_device_status(const char* name, uint32_t query, char* output, int32_t length) {
  if (name == nullptr || output == nullptr) return -1;
  StatusQuery wanted = make_query(query, output, length);
  return ask_device(name, on_device_status, &wanted);
}

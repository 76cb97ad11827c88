// Messages: attributes with a type (their id) and a name (length, text and zero before the data, padded to 4).
extern "C" {
#include "libubox/blobmsg.h"
}

#include <arpa/inet.h>
#include <endian.h>

#include <cstring>
#include <string_view>

#include "blob.hpp"

namespace {

constexpr int kErrorInvalid = -22;

size_t name_block(size_t name_length) { return (sizeof(uint16_t) + name_length + 1 + 3) & ~size_t{3}; }

size_t name_length(const blob_attr* attr) {
  uint16_t length = 0;
  memcpy(&length, blob_data(attr), sizeof length);
  return ntohs(length);
}

const char* bytes(const blob_attr* attr) { return static_cast<const char*>(blob_data(attr)); }

// Adds an attribute of `length` data bytes; a pointer to these, nullptr when there is no room.
char* add(blob_buf* buf, enum blobmsg_type type, const char* name, size_t length) {
  const std::string_view text = name != nullptr ? name : "";
  const size_t block = name_block(text.size());
  blob_attr* attr = standin::append(buf, type, block + length, true);
  if (attr == nullptr) return nullptr;
  const uint16_t stored_length = htons(static_cast<uint16_t>(text.size()));
  char* data = static_cast<char*>(blob_data(attr));
  memcpy(data, &stored_length, sizeof stored_length);
  text.copy(data + sizeof stored_length, text.size());
  return data + block;
}

template <typename T>
int add_value(blob_buf* buf, enum blobmsg_type type, const char* name, T big_endian) {
  char* data = add(buf, type, name, sizeof big_endian);
  if (data == nullptr) return -1;
  memcpy(data, &big_endian, sizeof big_endian);
  return 0;
}

template <typename T>
T value(const blob_attr* attr) {
  T big_endian;
  memcpy(&big_endian, blobmsg_data(attr), sizeof big_endian);
  return big_endian;
}

// An open container is remembered by its place, since the block moves as it grows.
void* open(blob_buf* buf, enum blobmsg_type type, const char* name) {
  const size_t offset = blob_raw_len(buf->head);
  // NOLINTNEXTLINE(performance-no-int-to-ptr): callers only hand it back
  return add(buf, type, name, 0) != nullptr ? reinterpret_cast<void*>(offset) : nullptr;
}

void close(blob_buf* buf, void* cookie) {
  const auto offset = reinterpret_cast<size_t>(cookie);
  auto* attr = reinterpret_cast<blob_attr*>(reinterpret_cast<char*>(buf->head) + offset);
  standin::set_header(attr, blob_id(attr), blob_raw_len(buf->head) - offset, true);
}

bool has_size_of_type(const blob_attr* attr) {
  const size_t length = blobmsg_data_len(attr);
  switch (blobmsg_type(attr)) {
    case BLOBMSG_TYPE_INT8:
      return length == sizeof(uint8_t);
    case BLOBMSG_TYPE_INT16:
      return length == sizeof(uint16_t);
    case BLOBMSG_TYPE_INT32:
      return length == sizeof(uint32_t);
    case BLOBMSG_TYPE_INT64:
    case BLOBMSG_TYPE_DOUBLE:
      return length == sizeof(uint64_t);
    case BLOBMSG_TYPE_STRING:
      return length > 0 && static_cast<const char*>(blobmsg_data(attr))[length - 1] == '\0';
    default:
      return blobmsg_type(attr) <= BLOBMSG_TYPE_DOUBLE;
  }
}

}  // namespace

int blobmsg_add_field(blob_buf* buf, int type, const char* name, const void* data, unsigned int len) {
  char* room = add(buf, static_cast<enum blobmsg_type>(type), name, len);
  if (room == nullptr) return -1;
  if (len > 0) memcpy(room, data, len);
  return 0;
}

int blobmsg_add_u8(blob_buf* buf, const char* name, uint8_t value) {
  return add_value(buf, BLOBMSG_TYPE_INT8, name, value);
}

int blobmsg_add_u32(blob_buf* buf, const char* name, uint32_t value) {
  return add_value(buf, BLOBMSG_TYPE_INT32, name, htobe32(value));
}

int blobmsg_add_u64(blob_buf* buf, const char* name, uint64_t value) {
  return add_value(buf, BLOBMSG_TYPE_INT64, name, htobe64(value));
}

int blobmsg_add_string(blob_buf* buf, const char* name, const char* value) {
  char* data = add(buf, BLOBMSG_TYPE_STRING, name, strlen(value) + 1);
  if (data == nullptr) return -1;
  strcpy(data, value);
  return 0;
}

void* blobmsg_open_table(blob_buf* buf, const char* name) { return open(buf, BLOBMSG_TYPE_TABLE, name); }
void* blobmsg_open_array(blob_buf* buf, const char* name) { return open(buf, BLOBMSG_TYPE_ARRAY, name); }
void blobmsg_close_table(blob_buf* buf, void* cookie) { close(buf, cookie); }
void blobmsg_close_array(blob_buf* buf, void* cookie) { close(buf, cookie); }

const char* blobmsg_name(const blob_attr* attr) {
  return standin::is_extended(attr) ? bytes(attr) + sizeof(uint16_t) : "";
}

int blobmsg_type(const blob_attr* attr) { return static_cast<int>(blob_id(attr)); }

void* blobmsg_data(const blob_attr* attr) {
  char* data = static_cast<char*>(blob_data(attr));
  return standin::is_extended(attr) ? data + name_block(name_length(attr)) : data;
}

size_t blobmsg_data_len(const blob_attr* attr) {
  const auto before = static_cast<size_t>(static_cast<char*>(blobmsg_data(attr)) - bytes(attr));
  const size_t length = blob_len(attr);
  return length > before ? length - before : 0;
}

size_t blobmsg_len(const blob_attr* attr) { return blobmsg_data_len(attr); }

bool blobmsg_get_bool(blob_attr* attr) { return blobmsg_get_u8(attr) != 0; }
uint8_t blobmsg_get_u8(blob_attr* attr) { return value<uint8_t>(attr); }
uint32_t blobmsg_get_u32(blob_attr* attr) { return be32toh(value<uint32_t>(attr)); }
uint64_t blobmsg_get_u64(blob_attr* attr) { return be64toh(value<uint64_t>(attr)); }
char* blobmsg_get_string(blob_attr* attr) { return attr != nullptr ? static_cast<char*>(blobmsg_data(attr)) : nullptr; }

bool blobmsg_check_attr(const blob_attr* attr, bool name) {
  if (standin::is_extended(attr)) {
    if (blob_len(attr) < sizeof(uint16_t) + 1) return false;
    const size_t length = name_length(attr);
    if (name_block(length) > ((blob_len(attr) + 3) & ~size_t{3})) return false;
    if (bytes(attr)[sizeof(uint16_t) + length] != '\0') return false;
    if (name && length == 0) return false;
  } else if (name) {
    return false;
  }
  return has_size_of_type(attr);
}

int blobmsg_parse(const blobmsg_policy* policy, int policy_len, blob_attr** tb, void* data, unsigned int len) {
  for (int i = 0; i < policy_len; ++i) tb[i] = nullptr;
  if (data == nullptr || len == 0) return kErrorInvalid;
  size_t rest = len;
  for (auto* attr = static_cast<blob_attr*>(data); rest > 0; attr = blob_next(attr)) {
    // What is cut off is no fault.
    if (rest < sizeof(blob_attr) || blob_pad_len(attr) < sizeof(blob_attr) || blob_pad_len(attr) > rest) return 0;
    rest -= blob_pad_len(attr);
    if (!blobmsg_check_attr(attr, false)) return -1;
    for (int i = 0; i < policy_len; ++i) {
      const bool type_matches =
          policy[i].type == BLOBMSG_TYPE_UNSPEC || static_cast<int>(policy[i].type) == blobmsg_type(attr);
      if (tb[i] == nullptr && type_matches && strcmp(policy[i].name, blobmsg_name(attr)) == 0) tb[i] = attr;
    }
  }
  return 0;
}

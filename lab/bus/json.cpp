#include "json.hpp"

#include <cstdint>
#include <stdexcept>
#include <string>

namespace lab {
namespace {

constexpr std::string_view kInt64Suffix = ":int64";

void add_value(blob_buf& message, const char* name, const Json& value, bool as_int64);

void need_room(bool added) {
  if (!added) throw std::runtime_error("a message has no more room");
}

void add_integer(blob_buf& message, const char* name, const Json& value, bool as_int64) {
  const bool is_large = value.is_number_unsigned()
                            ? value.get<uint64_t>() > UINT32_MAX
                            : value.get<int64_t>() < INT32_MIN || value.get<int64_t>() > UINT32_MAX;
  const auto bits = value.is_number_unsigned() ? value.get<uint64_t>() : static_cast<uint64_t>(value.get<int64_t>());
  if (as_int64 || is_large) {
    need_room(blobmsg_add_u64(&message, name, bits) == 0);
  } else {
    need_room(blobmsg_add_u32(&message, name, static_cast<uint32_t>(bits)) == 0);
  }
}

void add_members(blob_buf& message, const Json& object, bool as_int64) {
  for (const auto& [key, value] : object.items()) {
    const bool marked = key.ends_with(kInt64Suffix);
    const std::string name = marked ? key.substr(0, key.size() - kInt64Suffix.size()) : key;
    add_value(message, name.c_str(), value, as_int64 || marked);
  }
}

void add_value(blob_buf& message, const char* name, const Json& value, bool as_int64) {
  if (value.is_object()) {
    void* table = blobmsg_open_table(&message, name);
    need_room(table != nullptr);
    add_members(message, value, as_int64);
    blobmsg_close_table(&message, table);
  } else if (value.is_array()) {
    void* array = blobmsg_open_array(&message, name);
    need_room(array != nullptr);
    for (const Json& element : value) add_value(message, "", element, as_int64);
    blobmsg_close_array(&message, array);
  } else if (value.is_string()) {
    need_room(blobmsg_add_string(&message, name, value.get_ref<const std::string&>().c_str()) == 0);
  } else if (value.is_boolean()) {
    need_room(blobmsg_add_u8(&message, name, value.get<bool>() ? 1 : 0) == 0);
  } else if (value.is_number_integer()) {
    add_integer(message, name, value, as_int64);
  } else {
    throw std::runtime_error("a message cannot hold " + value.dump());
  }
}

Json attribute_value(blob_attr* attribute) {
  switch (blobmsg_type(attribute)) {
    case BLOBMSG_TYPE_TABLE:
      return to_json(blobmsg_data(attribute), blobmsg_data_len(attribute));
    case BLOBMSG_TYPE_STRING:
      return blobmsg_get_string(attribute);
    case BLOBMSG_TYPE_BOOL:
      return blobmsg_get_bool(attribute);
    case BLOBMSG_TYPE_INT32:
      return static_cast<int32_t>(blobmsg_get_u32(attribute));
    case BLOBMSG_TYPE_INT64:
      return static_cast<int64_t>(blobmsg_get_u64(attribute));
    case BLOBMSG_TYPE_ARRAY: {
      Json array = Json::array();
      blob_attr* element = nullptr;
      size_t rest = 0;
      blobmsg_for_each_attr(element, attribute, rest) array.push_back(attribute_value(element));
      return array;
    }
    default:
      return nullptr;
  }
}

}  // namespace

void add_members(blob_buf& message, const Json& object) {
  if (!object.is_object()) throw std::runtime_error("a message is an object, not " + object.dump());
  add_members(message, object, false);
}

Json to_json(const void* data, size_t length) {
  Json object = Json::object();
  auto* attribute = static_cast<blob_attr*>(const_cast<void*>(data));
  for (size_t rest = length; rest > 0; attribute = blob_next(attribute)) {
    if (rest < sizeof(blob_attr)) throw std::runtime_error("malformed message");
    const size_t size = blob_pad_len(attribute);
    if (size < sizeof(blob_attr) || size > rest || !blobmsg_check_attr(attribute, false))
      throw std::runtime_error("malformed message");
    rest -= size;
    object[blobmsg_name(attribute)] = attribute_value(attribute);
  }
  return object;
}

}  // namespace lab

#include "recording/bus_message.hpp"

#include "recording/bytes_json.hpp"

namespace kovadm {
namespace {

using Json = nlohmann::ordered_json;
using Kind = FieldName::Kind;

// ---- To JSON ----

Json table_json(const void* data, std::size_t length);

std::string bytes_of(blob_attr* field) {
  return {static_cast<const char*>(blobmsg_data(field)), static_cast<std::size_t>(blobmsg_data_len(field))};
}

// What is plain; nothing for the rest.
std::optional<Json> plain_json(blob_attr* field) {
  switch (blobmsg_type(field)) {
    case BLOBMSG_TYPE_TABLE:
      return table_json(blobmsg_data(field), static_cast<std::size_t>(blobmsg_data_len(field)));
    case BLOBMSG_TYPE_STRING:
      return is_utf8(blobmsg_get_string(field)) ? std::optional<Json>(blobmsg_get_string(field)) : std::nullopt;
    case BLOBMSG_TYPE_BOOL:
      return blobmsg_get_u8(field) <= 1 ? std::optional<Json>(blobmsg_get_bool(field)) : std::nullopt;
    case BLOBMSG_TYPE_INT32:
      return static_cast<int32_t>(blobmsg_get_u32(field));
    default:
      return std::nullopt;
  }
}

void add_json(Json& object, const std::string& name, blob_attr* field);

template <typename Take>
void for_each_field(const void* data, std::size_t length, Take take) {
  auto* field = static_cast<blob_attr*>(const_cast<void*>(data));
  for (std::size_t rest = length; rest >= sizeof(blob_attr) && blob_pad_len(field) >= sizeof(blob_attr) &&
                                  blob_pad_len(field) <= rest && blobmsg_check_attr(field, false);
       rest -= blob_pad_len(field), field = blob_next(field))
    take(field);
}

void add_array(Json& object, const std::string& name, blob_attr* array) {
  Json plain = Json::array();
  Json items = Json::array();
  for_each_field(blobmsg_data(array), static_cast<std::size_t>(blobmsg_data_len(array)), [&](blob_attr* field) {
    add_json(items.emplace_back(Json::object()), "", field);
    const auto& item = items.back();
    if (item.begin().key().empty()) plain.push_back(item.front());
  });
  if (plain.size() == items.size() && field_name(name).kind == Kind::PLAIN) {
    object[name] = plain;
  } else {
    object[name + ":items"] = items;
  }
}

// Of fields of the same name the first counts.
void add_json(Json& object, const std::string& name, blob_attr* field) {
  if (blobmsg_type(field) == BLOBMSG_TYPE_ARRAY) return add_array(object, name, field);
  const auto plain = field_name(name).kind == Kind::PLAIN ? plain_json(field) : std::nullopt;
  if (plain) {
    object.emplace(name, Json(*plain));
  } else if (blobmsg_type(field) == BLOBMSG_TYPE_INT64) {
    object.emplace(name + ":int64", Json(static_cast<int64_t>(blobmsg_get_u64(field))));
  } else {
    object.emplace(name + ":raw-" + std::to_string(blobmsg_type(field)), Json(to_hexadecimal(bytes_of(field))));
  }
}

Json table_json(const void* data, std::size_t length) {
  Json object = Json::object();
  for_each_field(data, length, [&](blob_attr* field) { add_json(object, blobmsg_name(field), field); });
  return object;
}

// ---- From JSON ----

void add_fields(blob_buf& message, const Json& object);
void add_field(blob_buf& message, const std::string& member, const Json& value);

void add_plain(blob_buf& message, const char* name, const Json& value) {
  if (value.is_object()) {
    void* table = blobmsg_open_table(&message, name);
    add_fields(message, value);
    blobmsg_close_table(&message, table);
  } else if (value.is_array()) {
    void* array = blobmsg_open_array(&message, name);
    for (const Json& element : value) add_plain(message, "", element);
    blobmsg_close_array(&message, array);
  } else if (value.is_string()) {
    blobmsg_add_string(&message, name, value.get_ref<const std::string&>().c_str());
  } else if (value.is_boolean()) {
    blobmsg_add_u8(&message, name, value.get<bool>() ? 1 : 0);
  } else {
    blobmsg_add_u32(&message, name, static_cast<uint32_t>(value.get<int64_t>()));
  }
}

void add_items(blob_buf& message, const char* name, const Json& items) {
  void* array = blobmsg_open_array(&message, name);
  for (const Json& item : items) add_field(message, item.begin().key(), item.front());
  blobmsg_close_array(&message, array);
}

void add_field(blob_buf& message, const std::string& member, const Json& value) {
  const auto [name, kind, type] = field_name(member);
  if (kind == Kind::ITEMS) return add_items(message, name.c_str(), value);
  if (kind == Kind::PLAIN) return add_plain(message, name.c_str(), value);
  if (kind == Kind::INT64) {
    blobmsg_add_u64(&message, name.c_str(), static_cast<uint64_t>(value.get<int64_t>()));
    return;
  }
  const std::string bytes = *from_hexadecimal(value.get_ref<const std::string&>());
  blobmsg_add_field(&message, type, name.c_str(), bytes.data(), static_cast<unsigned>(bytes.size()));
}

void add_fields(blob_buf& message, const Json& object) {
  for (const auto& [member, value] : object.items()) add_field(message, member, value);
}

}  // namespace

Json to_json(const blob_attr* message) {
  return message != nullptr ? table_json(blob_data(message), static_cast<std::size_t>(blob_len(message)))
                            : Json::object();
}

BusMessage::BusMessage(const Json& object) {
  blob_buf_init(&buffer_, 0);
  add_fields(buffer_, object);
}

}  // namespace kovadm

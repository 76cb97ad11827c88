// The form of messages as JSON; needs no bus.
#include <algorithm>
#include <charconv>

#include "recording/bus_message.hpp"
#include "recording/bytes_json.hpp"

namespace kovadm {
namespace {

using Json = nlohmann::ordered_json;

constexpr std::string_view kInt64 = ":int64";
constexpr std::string_view kItems = ":items";
constexpr std::string_view kRaw = ":raw-";
constexpr int kMostTypes = 128;

bool is_field(const std::string& member, const Json& value);

bool is_item(const Json& value) {
  return value.is_object() && value.size() == 1 && field_name(value.begin().key()).name.empty() &&
         is_field(value.begin().key(), value.front());
}

template <typename Test>
bool all(const Json& array, Test test) {
  return array.is_array() && std::all_of(array.begin(), array.end(), test);
}

bool fits(const Json& value, int64_t least, int64_t most) {
  if (value.is_number_unsigned()) return value.get<uint64_t>() <= static_cast<uint64_t>(most);
  return value.is_number_integer() && value.get<int64_t>() >= least && value.get<int64_t>() <= most;
}

bool is_plain(const Json& value) {
  if (value.is_string()) return value.get_ref<const std::string&>().find('\0') == std::string::npos;
  return value.is_boolean() || fits(value, INT32_MIN, UINT32_MAX) || is_message(value) || all(value, is_plain);
}

bool is_field(const std::string& member, const Json& value) {
  if (member.find('\0') != std::string::npos || member.size() > UINT16_MAX) return false;
  switch (field_name(member).kind) {
    case FieldName::Kind::INT64:
      return fits(value, INT64_MIN, INT64_MAX);
    case FieldName::Kind::ITEMS:
      return all(value, is_item);
    case FieldName::Kind::RAW:
      return value.is_string() && from_hexadecimal(value.get_ref<const std::string&>()).has_value();
    case FieldName::Kind::PLAIN:
      return is_plain(value);
  }
  return false;
}

}  // namespace

FieldName field_name(const std::string& member) {
  if (member.ends_with(kInt64)) return {member.substr(0, member.size() - kInt64.size()), FieldName::Kind::INT64, 0};
  if (member.ends_with(kItems)) return {member.substr(0, member.size() - kItems.size()), FieldName::Kind::ITEMS, 0};
  const std::size_t raw = member.rfind(kRaw);
  if (raw != std::string::npos) {
    int type = -1;
    const char* end = member.data() + member.size();
    const auto [stop, error] = std::from_chars(member.data() + raw + kRaw.size(), end, type);
    if (error == std::errc() && stop == end && type >= 0 && type < kMostTypes)
      return {member.substr(0, raw), FieldName::Kind::RAW, type};
  }
  return {member, FieldName::Kind::PLAIN, 0};
}

bool is_message(const Json& value) {
  if (!value.is_object()) return false;
  const auto& fields = value.items();
  return std::all_of(fields.begin(), fields.end(),
                     [](const auto& field) { return is_field(field.key(), field.value()); });
}

}  // namespace kovadm

// Messages of the bus as JSON, without loss. A table is an object, in its order; strings, tables, arrays, booleans and
// 32-bit integers are plain. The name of any other field says what it is:
//
//   "NAME:int64"   a 64-bit integer
//   "NAME:items"   an array of such fields, each as an object whose only member has no name: {":int64": 5}
//   "NAME:raw-N"   a field of type N, its bytes in hexadecimal digits
#pragma once

#include <nlohmann/json.hpp>

struct blob_attr;
struct blob_buf;

namespace kovadm {

// The message; nullptr for none. What is malformed ends it.
nlohmann::ordered_json to_json(const blob_attr* message);

// Adds the members of an object that is_message().
void add_fields(blob_buf& message, const nlohmann::ordered_json& object);

// A member's name, taken apart.
struct FieldName {
  enum class Kind { PLAIN, INT64, ITEMS, RAW };
  std::string name;
  Kind kind;
  int type;  // of RAW
};
FieldName field_name(const std::string& member);

// Whether the value is an object as described above.
bool is_message(const nlohmann::ordered_json& value);

}  // namespace kovadm

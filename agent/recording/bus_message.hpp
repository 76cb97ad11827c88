// Messages of the bus as JSON, without loss. A table is an object, in its order; strings, tables, arrays, booleans and
// 32-bit integers are plain. The name of any other field says what it is:
//
//   "NAME:int64"   a 64-bit integer
//   "NAME:items"   an array of such fields, each as an object whose only member has no name: {":int64": 5}
//   "NAME:raw-N"   a field of type N, its bytes in hexadecimal digits
#pragma once

extern "C" {
#include <libubox/blobmsg.h>
}
#include <nlohmann/json.hpp>

namespace kovadm {

// The message; nullptr for none. What is malformed ends it.
nlohmann::ordered_json to_json(const blob_attr* message);

// The message that an object stands for, which is_message().
class BusMessage {
 public:
  explicit BusMessage(const nlohmann::ordered_json& object);
  ~BusMessage() { blob_buf_free(&buffer_); }
  BusMessage(const BusMessage&) = delete;
  BusMessage& operator=(const BusMessage&) = delete;

  blob_attr* get() const { return buffer_.head; }

 private:
  blob_buf buffer_ = {};
};

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

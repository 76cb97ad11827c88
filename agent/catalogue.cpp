#include "catalogue.hpp"

#include "families.h"

#undef KOVA_PARAMETER
#define KOVA_PARAMETER(handler, access, type, ...) {#handler, Access::access, Type::type, {__VA_ARGS__}},

namespace kovadm {

const std::vector<Row>& catalogue() {
  static const std::vector<Row> rows = {
#include "families.h"
  };
  return rows;
}

std::string to_text(Access access) { return access == Access::READ_ONLY ? "read-only" : "read-write"; }

std::string to_text(Type type) {
  switch (type) {
    case Type::STRING:
      return "string";
    case Type::SECRET:
      return "string (hidden)";
    case Type::BOOLEAN:
      return "boolean";
    case Type::UNSIGNED_INT:
      return "unsignedInt";
    case Type::INT:
      return "int";
    case Type::UNSIGNED_LONG:
      return "unsignedLong";
    case Type::DATE_TIME:
      return "dateTime";
    case Type::IP_ADDRESS:
      return "IPAddress";
    case Type::MAC_ADDRESS:
      return "MACAddress";
    case Type::LIST:
      return "list";
  }
  return "";
}

}  // namespace kovadm

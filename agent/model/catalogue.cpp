#include "model/catalogue.hpp"

#include <algorithm>
#include <initializer_list>
#include <regex>

#include "families.h"
#include "model/data_files.hpp"

namespace kovadm {
namespace {

// Plain data, which compiles in no time; a vector's own list would be code.
struct Entry {
  const char* handler;
  Access access;
  Type type;
  std::initializer_list<const char*> paths;
};

#undef KOVA_PARAMETER
#define KOVA_PARAMETER(handler, access, type, ...) {#handler, Access::access, Type::type, {__VA_ARGS__}},
constexpr Entry kEntries[] = {
#include "families.h"
};

std::vector<Row> make_rows() {
  std::vector<Row> rows;
  for (const Entry& entry : kEntries)
    rows.push_back({entry.handler, entry.access, entry.type, {entry.paths.begin(), entry.paths.end()}});
  return rows;
}

}  // namespace

const std::vector<Row>& catalogue() {
  static const std::vector<Row> rows = make_rows();
  return rows;
}

bool is_secret_name(const std::string& name) {
  static const std::regex names(
      "passw(or)?d|passphrase|secret|psk|pwd|token|private|credential|"
      "^(wep|wpa|wpa2|sae|auth|preshared)?_?key_?[0-9]*$|^(sim|wps|ap)?_?(pin|puk)_?(code)?[0-9]*$",
      std::regex::icase);
  return std::regex_search(name, names);
}

bool is_secret(const Row& row) {
  return row.type == Type::SECRET || std::any_of(row.paths.begin(), row.paths.end(), [](const std::string& path) {
           return is_secret_name(path.substr(path.rfind('.') + 1));
         });
}

std::string movement(const std::string& path) {
  static const auto table = read_table(kMovingTable);
  const auto found =
      std::find_if(table.begin(), table.end(), [&](const auto& cells) { return path.ends_with(cells[0]); });
  return found != table.end() ? found->at(1) : "";
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

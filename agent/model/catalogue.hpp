// The parameters that the plug-in serves: the rows of the family headers, and nothing else.
#pragma once

#include <string>
#include <vector>

namespace kovadm {

enum class Access { READ_ONLY, READ_WRITE };
enum class Type { STRING, SECRET, BOOLEAN, UNSIGNED_INT, INT, UNSIGNED_LONG, DATE_TIME, IP_ADDRESS, MAC_ADDRESS, LIST };

struct Row {
  std::string handler;
  Access access;
  Type type;
  std::vector<std::string> paths;  // "{i}" stands for an instance number
};

// Every row, family by family, in the headers' order.
const std::vector<Row>& catalogue();

// What parameters, options and fields are called whose values are secrets: passwords, keys, PINs.
bool is_secret_name(const std::string& name);
// By its type, or its name.
bool is_secret(const Row& row);

// "clock", "counter" or "load" for a parameter that moves by itself; else empty.
std::string movement(const std::string& path);

// Where the handler is defined, as "FILE:LINE" of the sources that this program was built with; empty: unknown.
std::string definition_of(const std::string& handler);

// As shown to the user: "read-only", "unsignedInt", "string (hidden)".
std::string to_text(Access access);
std::string to_text(Type type);

}  // namespace kovadm

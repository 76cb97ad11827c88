#include "recording/bytes_json.hpp"

#include <charconv>
#include <vector>

namespace kovadm {
namespace {

using Json = nlohmann::ordered_json;

Json line_to_json(const std::string& line) { return is_utf8(line) ? Json(line) : Json{{"hex", to_hexadecimal(line)}}; }

std::optional<std::string> line_from_json(const Json& value) {
  if (value.is_string()) return value.get<std::string>();
  if (!value.is_object() || value.size() != 1 || !value.contains("hex") || !value["hex"].is_string())
    return std::nullopt;
  return from_hexadecimal(value["hex"].get_ref<const std::string&>());
}

}  // namespace

Json bytes_to_json(const std::string& bytes) {
  const std::size_t first_end = bytes.find('\n');
  if (first_end == std::string::npos || first_end + 1 == bytes.size()) return line_to_json(bytes);
  Json lines = Json::array();
  std::size_t start = 0;
  for (std::size_t end = first_end; end != std::string::npos; end = bytes.find('\n', start)) {
    lines.push_back(line_to_json(bytes.substr(start, end - start)));
    start = end + 1;
  }
  lines.push_back(line_to_json(bytes.substr(start)));
  return lines;
}

std::optional<std::string> bytes_from_json(const Json& value) {
  if (!value.is_array()) return line_from_json(value);
  std::string bytes;
  for (const Json& element : value) {
    const auto line = line_from_json(element);
    if (!line) return std::nullopt;
    if (&element != &value.front()) bytes += '\n';
    bytes += *line;
  }
  return bytes;
}

bool is_utf8(const std::string& text) {
  try {
    static_cast<void>(Json(text).dump());
    return true;
  } catch (const Json::type_error&) {
    return false;
  }
}

std::string to_hexadecimal(std::string_view bytes) {
  constexpr char kDigits[] = "0123456789abcdef";
  std::string digits;
  for (const char character : bytes) {
    const auto byte = static_cast<unsigned char>(character);
    digits += {kDigits[byte >> 4], kDigits[byte & 15]};
  }
  return digits;
}

std::optional<std::string> from_hexadecimal(std::string_view digits) {
  if (digits.size() % 2 != 0) return std::nullopt;
  std::string bytes;
  for (const char* pair = digits.data(); pair != digits.data() + digits.size(); pair += 2) {
    unsigned char byte = 0;
    if (std::from_chars(pair, pair + 2, byte, 16).ptr != pair + 2) return std::nullopt;
    bytes += static_cast<char>(byte);
  }
  return bytes;
}

}  // namespace kovadm

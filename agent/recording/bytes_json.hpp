// Bytes as JSON that a person can read, without loss. A text of one line is a string; one of several lines is an array
// of its lines, between which the newlines stood; a line that is no UTF-8 is {"hex": "00ff..."}.
#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>

namespace kovadm {

nlohmann::ordered_json bytes_to_json(const std::string& bytes);

// Nothing for what is none of these.
std::optional<std::string> bytes_from_json(const nlohmann::ordered_json& value);

bool is_utf8(const std::string& text);

std::string to_hexadecimal(std::string_view bytes);

// Nothing unless the text is pairs of hexadecimal digits.
std::optional<std::string> from_hexadecimal(std::string_view digits);

}  // namespace kovadm

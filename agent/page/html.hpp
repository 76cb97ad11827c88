// Texts as parts of an HTML page, where they are data whatever is in them.
#pragma once

#include <map>
#include <nlohmann/json.hpp>
#include <string>

namespace kovadm {

// The bytes as a text that can be shown: what is no UTF-8 is replaced, and control characters but newline and tab have
// their pictures.
std::string readable(const std::string& bytes);

// The text as content of an element or of an attribute in quotes.
std::string to_html(const std::string& text);

// The document as content of a script element.
std::string to_script(const nlohmann::ordered_json& document);

// The page with parts in the place of "{{NAME}}"; they are not looked through in turn.
std::string fill(const std::string& page, const std::map<std::string, std::string>& parts);

}  // namespace kovadm

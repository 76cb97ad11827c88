#include "page/html.hpp"

namespace kovadm {
namespace {

using Json = nlohmann::ordered_json;

std::string as_utf8(const std::string& bytes) {
  return Json::parse(Json(bytes).dump(-1, ' ', false, Json::error_handler_t::replace)).get<std::string>();
}

// Of a control character: U+2400 and following, in UTF-8.
std::string picture_of(char control) {
  const char number = control == '\x7f' ? '\x21' : control;
  return {'\xe2', '\x90', static_cast<char>('\x80' + number)};
}

bool is_shown_by_picture(char character) {
  const auto byte = static_cast<unsigned char>(character);
  return (byte < ' ' && character != '\n' && character != '\t') || byte == 0x7f;
}

}  // namespace

std::string readable(const std::string& bytes) {
  std::string text;
  for (const char character : as_utf8(bytes)) {
    if (is_shown_by_picture(character)) {
      text += picture_of(character);
    } else {
      text += character;
    }
  }
  return text;
}

std::string to_html(const std::string& text) {
  static const std::map<char, const char*> kReferences = {
      {'&', "&amp;"}, {'<', "&lt;"}, {'>', "&gt;"}, {'"', "&quot;"}, {'\'', "&#39;"}};
  std::string html;
  for (const char character : readable(text)) {
    const auto reference = kReferences.find(character);
    if (reference != kReferences.end()) {
      html += reference->second;
    } else {
      html += character;
    }
  }
  return html;
}

// No end of the element, and no comment, begins in it.
std::string to_script(const Json& document) {
  std::string script;
  for (const char character : document.dump(-1, ' ', false, Json::error_handler_t::replace)) {
    if (character == '<') {
      script += "\\u003c";
    } else {
      script += character;
    }
  }
  return script;
}

std::string fill(const std::string& page, const std::map<std::string, std::string>& parts) {
  std::string filled;
  std::size_t end = 0;
  for (std::size_t start = page.find("{{"); start != std::string::npos; start = page.find("{{", end)) {
    filled.append(page, end, start - end);
    end = page.find("}}", start) + 2;
    filled += parts.at(page.substr(start + 2, end - start - 4));
  }
  return filled.append(page, end);
}

}  // namespace kovadm

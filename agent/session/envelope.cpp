#include "session/envelope.hpp"

#include <algorithm>
#include <array>
#include <sstream>

namespace kovadm::session {
namespace {

constexpr char kSoap[] = "http://schemas.xmlsoap.org/soap/envelope/";
constexpr std::array kVersions = {"urn:dslforum-org:cwmp-1-0", "urn:dslforum-org:cwmp-1-1",
                                  "urn:dslforum-org:cwmp-1-2"};

// Looks at every node of a message that is not to be trusted.
class Inspection : public pugi::xml_tree_walker {
 public:
  bool for_each(pugi::xml_node& node) override {
    if (node.type() == pugi::node_doctype) fault_ = "it declares a document type";
    if (depth() > kDeepest) fault_ = "it is nested deeper than " + std::to_string(kDeepest);
    for (const pugi::xml_attribute& attribute : node.attributes()) {
      if (!std::string_view(attribute.name()).starts_with("xmlns")) continue;
      soap_ |= attribute.value() == std::string_view(kSoap);
      const auto* known = std::find(kVersions.begin(), kVersions.end(), std::string_view(attribute.value()));
      if (known != kVersions.end()) version_ = *known;
    }
    return fault_.empty();
  }

  std::string fault() const { return !fault_.empty() ? fault_ : soap_ ? "" : "it is no SOAP 1.1 envelope"; }
  const std::string& version() const { return version_; }

 private:
  std::string fault_;
  bool soap_ = false;
  std::string version_;
};

pugi::xml_node first_element(const pugi::xml_node& node) {
  return node.find_child([](const pugi::xml_node& each) { return each.type() == pugi::node_element; });
}

// How many bytes there are of a character that XML can hold; 0 for none.
std::size_t character_at(std::string_view text) {
  const auto byte = [&](std::size_t at) { return at < text.size() ? static_cast<unsigned char>(text[at]) : 0U; };
  const unsigned first = byte(0);
  if (first < 0x80) return first >= 0x20 || first == '\t' || first == '\n' || first == '\r' ? 1 : 0;
  const std::size_t length = first >= 0xf0 ? 4 : first >= 0xe0 ? 3 : 2;
  if (first < 0xc2 || first > 0xf4) return 0;
  for (std::size_t at = 1; at < length; ++at) {
    if ((byte(at) & 0xc0U) != 0x80) return 0;
  }
  const bool too_long = (first == 0xe0 && byte(1) < 0xa0) || (first == 0xf0 && byte(1) < 0x90);
  const bool no_character = (first == 0xed && byte(1) >= 0xa0) || (first == 0xf4 && byte(1) >= 0x90) ||
                            (first == 0xef && byte(1) == 0xbf && byte(2) >= 0xbe);
  return too_long || no_character ? 0 : length;
}

std::string as_xml_can(std::string_view text) {
  std::string result;
  while (!text.empty()) {
    const std::size_t length = character_at(text);
    result += length > 0 ? text.substr(0, length) : "\xef\xbf\xbd";
    text.remove_prefix(std::max<std::size_t>(length, 1));
  }
  return result;
}

}  // namespace

std::string_view local_name(const pugi::xml_node& node) {
  const std::string_view name = node.name();
  return name.substr(name.find(':') + 1);
}

pugi::xml_node child(const pugi::xml_node& node, std::string_view name) {
  return node.find_child([&](const pugi::xml_node& each) { return local_name(each) == name; });
}

std::string element_text(const pugi::xml_node& node) {
  std::string text;
  for (const pugi::xml_node& part : node) text += part.value();
  return text;
}

std::string child_text(const pugi::xml_node& node, std::string_view name) { return element_text(child(node, name)); }

bool is_true(std::string_view text) { return text == "1" || text == "true"; }

std::variant<Message, std::string> read_message(const std::string& text) {
  Message message;
  const unsigned how = pugi::parse_default | pugi::parse_doctype | pugi::parse_ws_pcdata_single;
  const pugi::xml_parse_result parsed = message.document.load_buffer(text.data(), text.size(), how);
  if (!parsed) return "it is no XML: " + std::string(parsed.description());
  Inspection inspection;
  message.document.traverse(inspection);
  if (!inspection.fault().empty()) return inspection.fault();
  message.version = inspection.version();
  const pugi::xml_node envelope = child(message.document, "Envelope");
  message.id = child_text(child(envelope, "Header"), "ID");
  message.content = first_element(child(envelope, "Body"));
  if (!message.content) return "its body is empty";
  return message;
}

Envelope::Envelope(const std::string& version, const std::string& id) {
  pugi::xml_node envelope = document_.append_child("soap:Envelope");
  envelope.append_attribute("xmlns:soap") = kSoap;
  envelope.append_attribute("xmlns:soapenc") = "http://schemas.xmlsoap.org/soap/encoding/";
  envelope.append_attribute("xmlns:xsd") = "http://www.w3.org/2001/XMLSchema";
  envelope.append_attribute("xmlns:xsi") = "http://www.w3.org/2001/XMLSchema-instance";
  envelope.append_attribute("xmlns:cwmp") = version.c_str();
  if (!id.empty())
    add_text(envelope.append_child("soap:Header"), "cwmp:ID", id).append_attribute("soap:mustUnderstand") = "1";
  body_ = envelope.append_child("soap:Body");
}

pugi::xml_node Envelope::add(const char* name) { return body_.append_child((std::string("cwmp:") + name).c_str()); }

pugi::xml_node Envelope::add_fault(int code, const char* text) {
  pugi::xml_node fault = body_.append_child("soap:Fault");
  constexpr std::array kOwn = {9000, 9001, 9002, 9004, 9009};  // the others are the asking side's
  const bool own = std::find(kOwn.begin(), kOwn.end(), code) != kOwn.end();
  add_text(fault, "faultcode", own ? "Server" : "Client");
  add_text(fault, "faultstring", "CWMP fault");
  pugi::xml_node detail = fault.append_child("detail").append_child("cwmp:Fault");
  add_text(detail, "FaultCode", std::to_string(code));
  add_text(detail, "FaultString", text);
  return detail;
}

std::string Envelope::text() const {
  std::ostringstream stream;
  document_.save(stream, " ", pugi::format_indent);
  std::string text;
  for (const char character : stream.str()) {
    // Who reads it takes a bare carriage return for the end of a line.
    if (character == '\r')
      text += "&#13;";
    else
      text += character;
  }
  return text;
}

pugi::xml_node add_text(pugi::xml_node parent, const char* name, const std::string& text) {
  pugi::xml_node node = parent.append_child(name);
  node.text() = as_xml_can(text).c_str();
  return node;
}

pugi::xml_node add_array(pugi::xml_node parent, const char* name, const char* type, std::size_t size) {
  pugi::xml_node array = parent.append_child(name);
  array.append_attribute("soapenc:arrayType") = (std::string(type) + "[" + std::to_string(size) + "]").c_str();
  return array;
}

}  // namespace kovadm::session

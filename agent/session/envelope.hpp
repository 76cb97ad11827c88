// The messages of the CPE WAN Management Protocol as text.
#pragma once

#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <variant>

namespace kovadm::session {

// What a server sends is no larger, bytes; and not deeper.
inline constexpr std::size_t kLargestMessage = 16UL * 1024 * 1024;
inline constexpr int kDeepest = 32;

// The name without its namespace's prefix.
std::string_view local_name(const pugi::xml_node& node);

// The first child of that name, whatever its prefix.
pugi::xml_node child(const pugi::xml_node& node, std::string_view name);

// An element's text, and that of such a child; empty where there is none.
std::string element_text(const pugi::xml_node& node);
std::string child_text(const pugi::xml_node& node, std::string_view name);

// Whether it is "1" or "true".
bool is_true(std::string_view text);

// A message that came.
struct Message {
  pugi::xml_document document;
  std::string id;          // of the header; empty: none
  std::string version;     // "urn:dslforum-org:cwmp-1-0"; empty: none of those that are known
  pugi::xml_node content;  // the body's element

  std::string_view method() const { return local_name(content); }
};

// The message, or why the text is none.
std::variant<Message, std::string> read_message(const std::string& text);

// A message to be sent.
class Envelope {
 public:
  // `id` is that of the request that it answers.
  Envelope(const std::string& version, const std::string& id);

  // The body's element of that name, in the protocol's namespace.
  pugi::xml_node add(const char* name);
  // A fault as the protocol tells it: its own part, to which more may be added.
  pugi::xml_node add_fault(int code, const char* text);

  std::string text() const;

 private:
  pugi::xml_document document_;
  pugi::xml_node body_;
};

// Adds an element with a text, in which what XML cannot hold is replaced.
pugi::xml_node add_text(pugi::xml_node parent, const char* name, const std::string& text);

// Adds an array of `size` elements of that type, as SOAP wants it said.
pugi::xml_node add_array(pugi::xml_node parent, const char* name, const char* type, std::size_t size);

}  // namespace kovadm::session

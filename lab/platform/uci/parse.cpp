#include "parse.hpp"

#include "reader.hpp"

namespace standin {
namespace {

using Words = std::vector<std::string>;

uci_section* read_section(Package& package, const Reader& reader, const Words& words) {
  if (words.size() < 2) reader.fail_behind("insufficient arguments");
  if (words.size() > 3) reader.fail_behind("too many arguments");
  if (!is_type(words[1])) reader.fail_behind("invalid character in type field");
  const std::string name = words.size() == 3 ? words[2] : "";
  if (name.empty()) return add_section(package, words[1], "");
  if (!is_name(name)) reader.fail_behind("invalid character in name field");
  uci_section* same = find_section(package, name);
  if (same == nullptr) return add_section(package, words[1], name);
  if (same->type != words[1]) reader.fail_behind("section of different type overwrites prior section with same name");
  return same;
}

void read_option(uci_section* section, const Reader& reader, const Words& words) {
  if (section == nullptr) reader.fail_at_word("option/list command found before the first section");
  if (words.size() < 2) reader.fail_behind("insufficient arguments");
  if (words.size() > 3) reader.fail_behind("too many arguments");
  if (!is_name(words[1])) reader.fail_behind("invalid character in name field");
  const std::string value = words.size() == 3 ? words[2] : "";
  if (words[0] == "list") {
    add_to_list(*section, words[1], value);
  } else if (!value.empty()) {
    set_string(*section, words[1], value);
  }
}

}  // namespace

void parse_package(Package& package, const std::string& text) {
  Reader reader(text);
  uci_section* section = nullptr;
  while (const auto words = reader.next()) {
    const std::string& command = words->front();
    if (command == "config") {
      section = read_section(package, reader, *words);
    } else if (command == "option" || command == "list") {
      read_option(section, reader, *words);
    } else if (command != "package") {
      reader.fail_at_word("invalid command");
    }
  }
}

}  // namespace standin

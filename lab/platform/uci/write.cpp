#include "write.hpp"

namespace standin {
namespace {

std::string format_option(uci_option* option) {
  const std::string name = option->e.name;
  if (option->type == UCI_TYPE_STRING) return "\toption " + name + " " + quoted(option->v.string) + "\n";
  std::string lines;
  uci_element* item = nullptr;
  uci_foreach_element(&option->v.list, item) lines += "\tlist " + name + " " + quoted(item->name) + "\n";
  return lines;
}

std::string format_section(const uci_section& section) {
  std::string lines = "\nconfig " + escaped(section.type);
  if (!section.anonymous) lines += " " + quoted(section.e.name);
  lines += "\n";
  uci_element* option = nullptr;
  uci_foreach_element(&section.options, option) lines += format_option(uci_to_option(option));
  return lines;
}

}  // namespace

std::string format_package(const uci_package& package) {
  std::string text;
  uci_element* section = nullptr;
  uci_foreach_element(&package.sections, section) text += format_section(*uci_to_section(section));
  return text + "\n";
}

std::string escaped(std::string_view text) {
  std::string result;
  for (const char c : text) {
    if (c == '\'') {
      result += "'\\''";
    } else {
      result += c;
    }
  }
  return result;
}

std::string quoted(std::string_view value) { return "'" + escaped(value) + "'"; }

}  // namespace standin

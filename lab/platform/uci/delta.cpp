#include "delta.hpp"

#include <cstring>
#include <optional>

#include "model.hpp"
#include "reader.hpp"
#include "write.hpp"

namespace standin {
namespace {

// "package.section[.option][=value]" behind a sign.
std::optional<Change> read_change(std::string word) {
  Change change{Change::SET, {}, {}, {}};
  if (std::strchr("-+@|~", word[0]) != nullptr) {
    change.kind = static_cast<Change::Kind>(word[0]);
    word.erase(0, 1);
  }
  const size_t equals = word.find('=');
  const std::string path = word.substr(0, equals);
  if (equals != std::string::npos) change.value = word.substr(equals + 1);
  const size_t first = path.find('.');
  if (first == std::string::npos) return std::nullopt;
  const size_t second = path.find('.', first + 1);
  change.section = path.substr(first + 1, second == std::string::npos ? second : second - first - 1);
  if (second != std::string::npos) change.option = path.substr(second + 1);
  const bool is_valid = is_name(change.section) && (second == std::string::npos || is_name(change.option));
  return is_valid ? std::optional(change) : std::nullopt;
}

void set_section(Package& package, uci_section* section, const Change& change) {
  if (!is_type(change.value)) return;
  if (section == nullptr) section = add_section(package, change.value, change.section);
  assign(section->type, change.value);
  if (change.kind == Change::ADD) section->anonymous = true;
}

void rename_section(uci_section& section, const std::string& name) {
  if (!is_name(name) || find_section(*section.package, name) != nullptr) return;
  assign(section.e.name, name);
  section.anonymous = false;
}

void apply_to_section(Package& package, const Change& change) {
  uci_section* section = find_section(package, change.section);
  switch (change.kind) {
    case Change::SET:
    case Change::ADD:
      set_section(package, section, change);
      break;
    case Change::REMOVE:
      if (section != nullptr) free_section(section);
      break;
    case Change::RENAME:
      if (section != nullptr) rename_section(*section, change.value);
      break;
    default:
      break;
  }
}

void apply_to_option(uci_section& section, const Change& change) {
  uci_option* option = find_option(section, change.option);
  switch (change.kind) {
    case Change::SET:
      set_string(section, change.option, change.value);
      break;
    case Change::ADD_TO_LIST:
      add_to_list(section, change.option, change.value);
      break;
    case Change::REMOVE:
      if (option != nullptr) free_option(option);
      break;
    case Change::RENAME:
      if (option != nullptr && is_name(change.value)) assign(option->e.name, change.value);
      break;
    case Change::REMOVE_FROM_LIST:
      if (option != nullptr) remove_from_list(*option, change.value);
      break;
    default:
      break;
  }
}

}  // namespace

std::vector<Change> parse_delta(const std::string& text) {
  std::vector<Change> changes;
  Reader reader(text);
  try {
    while (const auto words = reader.next()) {
      if (auto change = read_change(words->front())) changes.push_back(std::move(*change));
    }
  } catch (const Failure&) {
    return changes;
  }
  return changes;
}

std::string format_delta(const std::string& package, const std::vector<Change>& changes) {
  std::string text;
  for (const Change& change : changes) {
    if (change.kind != Change::SET) text += static_cast<char>(change.kind);
    text += package + "." + escaped(change.section);
    if (!change.option.empty()) text += "." + change.option;
    if (change.kind != Change::REMOVE) text += "=" + quoted(change.value);
    text += "\n";
  }
  return text;
}

void apply(Package& package, const Change& change) {
  if (change.option.empty()) {
    apply_to_section(package, change);
  } else if (uci_section* section = find_section(package, change.section)) {
    apply_to_option(*section, change);
  }
}

}  // namespace standin

#include "delta.hpp"

#include <cstdlib>
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
  if (second == std::string::npos && (change.kind == Change::ADD_TO_LIST || change.kind == Change::REMOVE_FROM_LIST))
    return std::nullopt;
  if (equals == std::string::npos && change.kind != Change::REMOVE) return std::nullopt;
  const bool is_valid = is_name(change.section) && (second == std::string::npos || is_name(change.option));
  return is_valid ? std::optional(change) : std::nullopt;
}

// A section that gets a type of another length is made anew, and has its name from then on.
bool set_section(Package& package, uci_section* section, const Change& change) {
  if (!is_type(change.value)) return false;
  if (section == nullptr) section = add_section(package, change.value, change.section);
  if (std::strlen(section->type) != change.value.size()) section->anonymous = false;
  assign(section->type, change.value);
  if (change.kind == Change::ADD) section->anonymous = true;
  return true;
}

bool rename_section(uci_section& section, const std::string& name) {
  if (!is_name(name) || find_section(*section.package, name) != nullptr) return false;
  assign(section.e.name, name);
  section.anonymous = false;
  return true;
}

bool apply_to_section(Package& package, const Change& change) {
  uci_section* section = find_section(package, change.section);
  if (change.kind == Change::SET || change.kind == Change::ADD) return set_section(package, section, change);
  if (section == nullptr) return false;
  if (change.kind == Change::RENAME) return rename_section(*section, change.value);
  if (change.kind != Change::REMOVE) return false;
  free_section(section);
  return true;
}

bool rename_option(uci_option* option, const std::string& name) {
  if (option == nullptr || !is_name(name)) return false;
  assign(option->e.name, name);
  return true;
}

bool remove(uci_option* option, const std::string& place) {
  if (option == nullptr) return false;
  if (place.empty()) {
    free_option(option);
  } else {
    remove_item(*option, std::atoi(place.c_str()));
  }
  return true;
}

bool apply_to_option(uci_section& section, const Change& change) {
  uci_option* option = find_option(section, change.option);
  switch (change.kind) {
    case Change::SET:
      set_string(section, change.option, change.value);
      return true;
    case Change::ADD_TO_LIST:
      add_to_list(section, change.option, change.value);
      return true;
    case Change::REMOVE_FROM_LIST:
      if (option != nullptr) remove_from_list(*option, change.value);
      return true;
    case Change::RENAME:
      return rename_option(option, change.value);
    case Change::REMOVE:
      return remove(option, change.value);
    default:
      return false;
  }
}

}  // namespace

std::vector<Change> parse_delta(const std::string& text, bool* whole) {
  std::vector<Change> changes;
  Reader reader(text);
  bool all = true;
  try {
    while (const auto words = reader.next()) {
      if (auto change = read_change(words->front())) {
        changes.push_back(std::move(*change));
      } else {
        all = false;
      }
    }
  } catch (const Failure&) {
    all = false;
  }
  if (whole != nullptr) *whole = all;
  return changes;
}

std::string format_delta(const std::string& package, const std::vector<Change>& changes) {
  std::string text;
  for (const Change& change : changes) {
    if (change.kind != Change::SET) text += static_cast<char>(change.kind);
    text += package + "." + change.section;
    if (!change.option.empty()) text += "." + change.option;
    if (change.kind != Change::REMOVE || !change.value.empty()) text += "=" + quoted(change.value);
    text += "\n";
  }
  return text;
}

bool apply(Package& package, const Change& change) {
  if (change.option.empty()) return apply_to_section(package, change);
  uci_section* section = find_section(package, change.section);
  return section != nullptr && apply_to_option(*section, change);
}

}  // namespace standin

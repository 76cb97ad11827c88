#include "model.hpp"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <memory>

namespace standin {
namespace {

// Texts that nothing owns yet: memory may end before their element is complete.
using Owned = std::unique_ptr<char[]>;  // NOLINT(modernize-avoid-c-arrays): as uci.h has them

void append(uci_list& list, uci_element& element) {
  element.list.prev = list.prev;
  element.list.next = &list;
  list.prev->next = &element.list;
  list.prev = &element.list;
}

void unlink(uci_element& element) {
  element.list.prev->next = element.list.next;
  element.list.next->prev = element.list.prev;
}

uci_element make_element(uci_type type, Owned name) { return {{nullptr, nullptr}, type, name.release()}; }

void free_item(uci_element* item) {
  unlink(*item);
  delete[] item->name;
  delete item;
}

void free_items(uci_list& list) {
  uci_element* item = nullptr;
  uci_element* next = nullptr;
  // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDelete): does not follow what unlink() does
  uci_foreach_element_safe(&list, next, item) free_item(item);
}

// The running number tells sections of one type apart; the hash notices that the number now means another type.
std::string generated_name(unsigned number, std::string_view type) {
  unsigned hash = 5381;
  for (const char c : type) hash = hash * 33 + static_cast<unsigned char>(c);
  char name[32];
  snprintf(name, sizeof name, "cfg%02x%04x", number, (hash & 0x7fffffff) % 0x10000);
  return name;
}

void add_item(uci_option& option, std::string_view value) {
  Owned text(copy(value));
  auto* item = new uci_element();
  *item = make_element(UCI_TYPE_ITEM, std::move(text));
  append(option.v.list, *item);
}

// Empties an option of whatever it holds.
void clear(uci_option& option) {
  if (option.type == UCI_TYPE_LIST) {
    free_items(option.v.list);
  } else {
    delete[] option.v.string;
  }
}

uci_option* add_option(uci_section& section, std::string_view name) {
  Owned text(copy(name));
  auto* option = new uci_option();
  option->e = make_element(UCI_TYPE_OPTION, std::move(text));
  option->section = &section;
  option->type = UCI_TYPE_STRING;
  option->v.string = nullptr;
  append(section.options, option->e);
  return option;
}

}  // namespace

bool is_name(std::string_view text) {
  for (const char c : text) {
    if (std::isalnum(static_cast<unsigned char>(c)) == 0 && c != '_') return false;
  }
  return !text.empty();
}

bool is_package_name(std::string_view text) {
  std::string without_hyphens(text);
  std::replace(without_hyphens.begin(), without_hyphens.end(), '-', '_');
  return is_name(without_hyphens);
}

bool is_type(std::string_view text) {
  for (const char c : text) {
    if (c < 33 || c > 126) return false;
  }
  return !text.empty();
}

char* copy(std::string_view text) {
  char* result = new char[text.size() + 1];
  text.copy(result, text.size());
  result[text.size()] = '\0';
  return result;
}

void assign(char*& target, std::string_view text) {
  char* old = target;
  target = copy(text);
  delete[] old;
}

void init(uci_list& list) { list.next = list.prev = &list; }

uci_element* find(const uci_list& list, std::string_view name) {
  uci_element* element = nullptr;
  uci_foreach_element(&list, element) {
    if (element->name == name) return element;
  }
  return nullptr;
}

uci_section* find_section(const uci_package& package, std::string_view name) {
  uci_element* element = find(package.sections, name);
  return element != nullptr ? uci_to_section(element) : nullptr;
}

uci_option* find_option(const uci_section& section, std::string_view name) {
  uci_element* element = find(section.options, name);
  return element != nullptr ? uci_to_option(element) : nullptr;
}

Package* make_package(Context& context, const std::string& name) {
  Owned text(copy(name));
  Owned path(copy(context.configuration_directory + "/" + name));
  auto* package = new Package();
  package->e = make_element(UCI_TYPE_PACKAGE, std::move(text));
  package->ctx = &context;
  package->has_delta = true;
  package->path = path.release();
  init(package->sections);
  append(context.root, package->e);
  return package;
}

void free_package(Package* package) {
  uci_element* section = nullptr;
  uci_element* next = nullptr;
  uci_foreach_element_safe(&package->sections, next, section) free_section(uci_to_section(section));
  unlink(package->e);
  delete[] package->e.name;
  delete[] package->path;
  delete package;
}

uci_section* add_section(Package& package, std::string_view type, std::string_view name) {
  ++package.sections_made;
  Owned text(copy(name.empty() ? generated_name(package.sections_made, type) : std::string(name)));
  Owned type_text(copy(type));
  auto* section = new uci_section();
  section->anonymous = name.empty();
  section->e = make_element(UCI_TYPE_SECTION, std::move(text));
  section->package = &package;
  section->type = type_text.release();
  init(section->options);
  append(package.sections, section->e);
  return section;
}

void free_section(uci_section* section) {
  uci_element* option = nullptr;
  uci_element* next = nullptr;
  uci_foreach_element_safe(&section->options, next, option) free_option(uci_to_option(option));
  unlink(section->e);
  delete[] section->e.name;
  delete[] section->type;
  delete section;
}

void set_string(uci_section& section, std::string_view name, std::string_view value) {
  Owned text(copy(value));  // before the old value goes, of which it may be a part
  uci_option* option = find_option(section, name);
  if (option == nullptr) {
    option = add_option(section, name);
  } else {
    clear(*option);
  }
  option->type = UCI_TYPE_STRING;
  option->v.string = text.release();
}

void add_to_list(uci_section& section, std::string_view name, std::string_view value) {
  uci_option* option = find_option(section, name);
  const bool is_new = option == nullptr;
  if (is_new) option = add_option(section, name);
  if (option->type == UCI_TYPE_STRING) {
    const std::string first = is_new ? "" : option->v.string;
    delete[] option->v.string;
    option->type = UCI_TYPE_LIST;
    init(option->v.list);
    if (!is_new) add_item(*option, first);
  }
  add_item(*option, value);
}

void remove_from_list(uci_option& option, std::string_view value) {
  if (option.type != UCI_TYPE_LIST) return;
  const std::string kept_value(value);  // may be the text of an item that goes
  uci_element* item = nullptr;
  uci_element* next = nullptr;
  uci_foreach_element_safe(&option.v.list, next, item) {
    if (item->name == kept_value) free_item(item);
  }
  if (option.v.list.next == &option.v.list) free_option(&option);
}

uci_element* item_at(const uci_option& option, int place) {
  if (option.type != UCI_TYPE_LIST || place < 0) return nullptr;
  uci_element* item = nullptr;
  uci_foreach_element(&option.v.list, item) {
    if (place-- == 0) return item;
  }
  return nullptr;
}

void remove_item(uci_option& option, int place) {
  uci_element* const item = item_at(option, place);
  if (item == nullptr) return;
  free_item(item);
  if (option.v.list.next == &option.v.list) free_option(&option);
}

void free_option(uci_option* option) {
  clear(*option);
  unlink(option->e);
  delete[] option->e.name;
  delete option;
}

}  // namespace standin

// Finding what a path names.
#include <charconv>
#include <cstring>

#include "model.hpp"

using namespace standin;

namespace {

// Takes the next name off a path: up to the next dot, which becomes a zero.
const char* take_name(char*& path) {
  char* name = path;
  if (path != nullptr) path = std::strchr(path, '.');
  if (path != nullptr) *path++ = '\0';
  return name;
}

// Splits "package[.section[.option]][=value]" in place.
void split(uci_ptr& ptr, char* text) {
  ptr = uci_ptr();
  if (char* equals = std::strchr(text, '=')) {
    *equals = '\0';
    ptr.value = equals + 1;
  }
  ptr.package = take_name(text);
  ptr.section = take_name(text);
  ptr.option = take_name(text);
  if (ptr.section == nullptr) {
    ptr.target = UCI_TYPE_PACKAGE;
  } else {
    ptr.target = ptr.option != nullptr ? UCI_TYPE_OPTION : UCI_TYPE_SECTION;
  }
  require(is_package_name(ptr.package), UCI_ERR_PARSE);
  if (ptr.section != nullptr && !is_name(ptr.section)) raise(ptr, uci_ptr::UCI_LOOKUP_EXTENDED);
  if (ptr.option != nullptr) require(is_name(ptr.option), UCI_ERR_PARSE);
}

// "@type[n]": the n-th section of a type (of any with no type), from the end when n is negative; without n the first.
uci_section* find_by_index(const uci_package& package, std::string_view text) {
  const size_t open = text.find('[');
  require(text.starts_with('@') && open != std::string_view::npos && text.ends_with(']'), UCI_ERR_INVAL);
  const std::string_view type = text.substr(1, open - 1);
  const std::string_view digits = text.substr(open + 1, text.size() - open - 2);
  int index = 0;
  if (!digits.empty()) {
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), index);
    require(error == std::errc() && end == digits.data() + digits.size(), UCI_ERR_INVAL);
  }

  std::vector<uci_section*> sections;
  uci_element* element = nullptr;
  uci_foreach_element(&package.sections, element) {
    uci_section* section = uci_to_section(element);
    if (type.empty() || section->type == type) sections.push_back(section);
  }
  const int count = static_cast<int>(sections.size());
  if (index < 0) index += count;
  return index >= 0 && index < count ? sections[static_cast<size_t>(index)] : nullptr;
}

uci_package* find_or_load(uci_context* context, const char* name) {
  require(name != nullptr, UCI_ERR_INVAL);
  if (uci_package* loaded = uci_lookup_package(context, name)) return loaded;
  uci_package* package = nullptr;
  if (const int error = uci_load(context, name, &package); error != UCI_OK)
    throw Failure{error, context_of(context).detail};
  return package;
}

uci_section* find_named(uci_context* context, const uci_ptr& ptr, bool extended) {
  if (!is_raised(ptr, uci_ptr::UCI_LOOKUP_EXTENDED)) return uci_lookup_section(context, ptr.p, ptr.section);
  require(extended, UCI_ERR_INVAL);
  return find_by_index(*ptr.p, ptr.section);
}

// Whether everything that is named exists.
bool resolve(uci_context* context, uci_ptr& ptr, bool extended) {
  if (ptr.p == nullptr) ptr.p = find_or_load(context, ptr.package);
  ptr.last = &ptr.p->e;
  if (ptr.section == nullptr && ptr.s == nullptr) return true;
  if (ptr.s == nullptr) ptr.s = find_named(context, ptr, extended);
  if (ptr.s == nullptr) return false;
  ptr.last = &ptr.s->e;
  if (ptr.option == nullptr && ptr.o == nullptr) return true;
  if (ptr.o == nullptr) ptr.o = uci_lookup_option(context, ptr.s, ptr.option);
  if (ptr.o == nullptr) return false;
  ptr.last = &ptr.o->e;
  return true;
}

}  // namespace

namespace standin {

void expand(uci_context* context, uci_ptr* ptr) {
  require(ptr != nullptr, UCI_ERR_INVAL);
  if (is_raised(*ptr, uci_ptr::UCI_LOOKUP_DONE)) return;
  if (const int error = uci_lookup_ptr(context, ptr, nullptr, true); error != UCI_OK)
    throw Failure{error, context_of(context).detail};
}

const char* section_name(const uci_ptr& ptr) { return ptr.s != nullptr ? ptr.s->e.name : ptr.section; }

const char* option_name(const uci_ptr& ptr) {
  return ptr.option == nullptr && ptr.o != nullptr ? ptr.o->e.name : ptr.option;
}

}  // namespace standin

int uci_lookup_next(uci_context* ctx, uci_element** e, uci_list* list, const char* name) {
  if (ctx == nullptr || e == nullptr || list == nullptr || name == nullptr) return UCI_ERR_INVAL;
  for (const uci_list* position = list->next; position != list; position = position->next) {
    uci_element* element = list_to_element(position);
    if (std::strcmp(element->name, name) != 0) continue;
    *e = element;
    return UCI_OK;
  }
  return UCI_ERR_NOTFOUND;
}

int uci_lookup_ptr(uci_context* ctx, uci_ptr* ptr, char* str, bool extended) {
  return guarded(ctx, [&](Context&) {
    require(ptr != nullptr, UCI_ERR_INVAL);
    if (str != nullptr) split(*ptr, str);
    raise(*ptr, uci_ptr::UCI_LOOKUP_DONE);
    if (resolve(ctx, *ptr, extended)) raise(*ptr, uci_ptr::UCI_LOOKUP_COMPLETE);
  });
}

// Finding what a path names.
#include <charconv>
#include <cstring>

#include "model.hpp"

using namespace standin;

namespace {

// Splits "package[.section[.option]][=value]" in place.
void split(uci_ptr& ptr, char* text) {
  if (char* equals = std::strchr(text, '=')) {
    *equals = '\0';
    ptr.value = equals + 1;
  }
  ptr.package = text;
  char* section = std::strchr(text, '.');
  if (section == nullptr) return;
  *section++ = '\0';
  ptr.section = section;
  char* option = std::strchr(section, '.');
  if (option == nullptr) return;
  *option++ = '\0';
  ptr.option = option;
}

// "@type[n]": the n-th section of a type, from the end when n is negative.
uci_section* find_by_index(uci_package& package, std::string_view text) {
  const size_t open = text.find('[');
  require(open != std::string_view::npos && text.back() == ']', UCI_ERR_INVAL);
  const std::string_view type = text.substr(1, open - 1);
  const std::string_view digits = text.substr(open + 1, text.size() - open - 2);
  int index = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), index);
  require(error == std::errc() && end == digits.data() + digits.size(), UCI_ERR_INVAL);

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
  if (uci_element* loaded = find(context->root, name)) return uci_to_package(loaded);
  uci_package* package = nullptr;
  if (uci_load(context, name, &package) != UCI_OK) throw Failure{context_of(context).error, context_of(context).detail};
  return package;
}

void validate(const uci_ptr& ptr, bool extended) {
  if (ptr.section != nullptr) {
    const bool by_index = ptr.section[0] == '@';
    require(by_index ? extended : *ptr.section != '\0', UCI_ERR_INVAL);
    if (!by_index) require(is_name(ptr.section), UCI_ERR_PARSE);
  }
  if (ptr.option != nullptr) require(is_name(ptr.option), UCI_ERR_PARSE);
}

}  // namespace

int uci_lookup_next(uci_context* ctx, uci_element** e, uci_list* list, const char* name) {
  if (ctx == nullptr || e == nullptr || list == nullptr || name == nullptr) return UCI_ERR_INVAL;
  const uci_list* position = *e != nullptr ? (*e)->list.next : list->next;
  for (; position != list; position = position->next) {
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
    if (str != nullptr) {
      *ptr = uci_ptr();
      split(*ptr, str);
    }
    require(ptr->package != nullptr && is_name(ptr->package), UCI_ERR_INVAL);
    ptr->p = find_or_load(ctx, ptr->package);
    validate(*ptr, extended);
    ptr->target = UCI_TYPE_PACKAGE;
    ptr->last = &ptr->p->e;
    bool complete = true;
    if (ptr->section != nullptr) {
      ptr->target = UCI_TYPE_SECTION;
      ptr->s =
          ptr->section[0] == '@' ? find_by_index(*ptr->p, ptr->section) : uci_lookup_section(ctx, ptr->p, ptr->section);
      complete = ptr->s != nullptr;
      if (complete) ptr->last = &ptr->s->e;
    }
    if (ptr->option != nullptr) {
      ptr->target = UCI_TYPE_OPTION;
      ptr->o = ptr->s != nullptr ? uci_lookup_option(ctx, ptr->s, ptr->option) : nullptr;
      complete = ptr->o != nullptr;
      if (complete) ptr->last = &ptr->o->e;
    }
    ptr->flags = UCI_LOOKUP_DONE | (complete ? UCI_LOOKUP_COMPLETE : 0) | (extended ? UCI_LOOKUP_EXTENDED : 0);
  });
}

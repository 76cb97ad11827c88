// Changing elements. Each change is carried out and noted, to be saved or committed.
#include <cstdlib>
#include <cstring>

#include "model.hpp"

using namespace standin;

namespace {

// The elements that a change left.
void refresh(uci_ptr& ptr, const Change& change) {
  ptr.s = find_section(*ptr.p, change.section);
  ptr.o = ptr.s != nullptr ? find_option(*ptr.s, change.option) : nullptr;
  ptr.last = &ptr.p->e;
  if (ptr.s != nullptr) ptr.last = &ptr.s->e;
  if (ptr.o != nullptr) ptr.last = &ptr.o->e;
}

void carry_out(uci_ptr& ptr, Change::Kind kind, const char* option, const char* value) {
  const Change change{kind, section_name(ptr), option != nullptr ? option : "", value != nullptr ? value : ""};
  Package& package = package_of(ptr.p);
  apply(package, change);
  package.unsaved.push_back(change);
  refresh(ptr, change);
}

void change_option(uci_ptr& ptr, Change::Kind kind) { carry_out(ptr, kind, option_name(ptr), ptr.value); }

void set_option(uci_ptr& ptr) {
  require(ptr.s != nullptr, UCI_ERR_INVAL);
  const bool same = ptr.o != nullptr && ptr.o->type == UCI_TYPE_STRING && std::strcmp(ptr.o->v.string, ptr.value) == 0;
  if (!same) change_option(ptr, Change::SET);
}

// An index that no section has is taken for a name, as the real library does, though no reader takes that name.
void set_section(uci_ptr& ptr) {
  require(section_name(ptr) != nullptr && is_type(ptr.value), UCI_ERR_INVAL);
  if (ptr.s != nullptr && std::strcmp(ptr.s->type, ptr.value) == 0) return;
  carry_out(ptr, Change::SET, nullptr, ptr.value);
}

void remove(uci_ptr& ptr, const char* place = nullptr) { carry_out(ptr, Change::REMOVE, option_name(ptr), place); }

}  // namespace

int uci_set(uci_context* ctx, uci_ptr* ptr) {
  return guarded(ctx, [&](Context&) {
    expand(ctx, ptr);
    const bool is_option = option_name(*ptr) != nullptr;
    require(ptr->value != nullptr && section_name(*ptr) != nullptr, UCI_ERR_INVAL);
    require(ptr->s != nullptr || !is_option, UCI_ERR_INVAL);
    if (ptr->value[0] == '\0') {
      const bool exists = is_option ? ptr->o != nullptr : ptr->s != nullptr;
      if (exists) remove(*ptr);
    } else if (is_option) {
      set_option(*ptr);
    } else {
      set_section(*ptr);
    }
  });
}

int uci_add_list(uci_context* ctx, uci_ptr* ptr) {
  return guarded(ctx, [&](Context&) {
    expand(ctx, ptr);
    require(ptr->s != nullptr && ptr->value != nullptr, UCI_ERR_INVAL);
    change_option(*ptr, Change::ADD_TO_LIST);  // of a section too, though nobody takes that
  });
}

int uci_del_list(uci_context* ctx, uci_ptr* ptr) {
  return guarded(ctx, [&](Context&) {
    expand(ctx, ptr);
    require(ptr->s != nullptr && ptr->value != nullptr, UCI_ERR_INVAL);
    if (ptr->o == nullptr || ptr->o->type != UCI_TYPE_LIST) return;
    change_option(*ptr, Change::REMOVE_FROM_LIST);
  });
}

int uci_delete(uci_context* ctx, uci_ptr* ptr) {
  return guarded(ctx, [&](Context&) {
    expand(ctx, ptr);
    require(is_raised(*ptr, uci_ptr::UCI_LOOKUP_COMPLETE), UCI_ERR_NOTFOUND);
    require(ptr->s != nullptr, UCI_ERR_INVAL);
    // Of a list, a value is an item's place.
    const bool is_item =
        ptr->value != nullptr && ptr->value[0] != '\0' && ptr->o != nullptr && ptr->o->type == UCI_TYPE_LIST;
    if (!is_item) {
      remove(*ptr);
    } else if (item_at(*ptr->o, std::atoi(ptr->value)) != nullptr) {
      remove(*ptr, ptr->value);
    }
  });
}

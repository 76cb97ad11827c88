// Changing elements that a look-up has found. Each change is carried out and noted, to be saved or committed.
#include <cstring>

#include "model.hpp"

using namespace standin;

namespace {

void carry_out(const uci_ptr& ptr, Change::Kind kind, const char* option, const char* value) {
  Package& package = package_of(ptr.p);
  const Change change{kind, ptr.s != nullptr ? ptr.s->e.name : ptr.section, option != nullptr ? option : "",
                      value != nullptr ? value : ""};
  apply(package, change);
  package.unsaved.push_back(change);
}

// The section and option that the change left.
void refresh(uci_ptr& ptr) {
  if (ptr.s == nullptr && ptr.section != nullptr) {
    uci_element* section = find(ptr.p->sections, ptr.section);
    ptr.s = section != nullptr ? uci_to_section(section) : nullptr;
  }
  if (ptr.s == nullptr || ptr.option == nullptr) return;
  uci_element* option = find(ptr.s->options, ptr.option);
  ptr.o = option != nullptr ? uci_to_option(option) : nullptr;
}

void set_section(uci_ptr& ptr) {
  require(is_type(ptr.value), UCI_ERR_INVAL);
  if (ptr.s != nullptr && std::strcmp(ptr.s->type, ptr.value) == 0) return;
  if (ptr.s == nullptr) require(is_name(ptr.section), UCI_ERR_INVAL);
  carry_out(ptr, Change::SET, nullptr, ptr.value);
}

}  // namespace

int uci_set(uci_context* ctx, uci_ptr* ptr) {
  return guarded(ctx, [&](Context& context) {
    require(ptr != nullptr && ptr->p != nullptr && ptr->section != nullptr && ptr->value != nullptr, UCI_ERR_INVAL);
    require(ptr->s != nullptr || ptr->option == nullptr, UCI_ERR_INVAL);
    if (ptr->value[0] == '\0') {
      const bool exists = ptr->option != nullptr ? ptr->o != nullptr : ptr->s != nullptr;
      if (exists) require(uci_delete(ctx, ptr) == UCI_OK, context.error);
      return;
    }
    if (ptr->option == nullptr) {
      set_section(*ptr);
    } else {
      const bool same =
          ptr->o != nullptr && ptr->o->type == UCI_TYPE_STRING && std::strcmp(ptr->o->v.string, ptr->value) == 0;
      if (same) return;
      carry_out(*ptr, Change::SET, ptr->option, ptr->value);
    }
    refresh(*ptr);
  });
}

int uci_add_list(uci_context* ctx, uci_ptr* ptr) {
  return guarded(ctx, [&](Context&) {
    require(ptr != nullptr && ptr->s != nullptr && ptr->option != nullptr && ptr->value != nullptr, UCI_ERR_INVAL);
    carry_out(*ptr, Change::ADD_TO_LIST, ptr->option, ptr->value);
    refresh(*ptr);
  });
}

int uci_del_list(uci_context* ctx, uci_ptr* ptr) {
  return guarded(ctx, [&](Context&) {
    require(ptr != nullptr && ptr->s != nullptr && ptr->option != nullptr && ptr->value != nullptr, UCI_ERR_INVAL);
    carry_out(*ptr, Change::REMOVE_FROM_LIST, ptr->option, ptr->value);
    ptr->o = nullptr;
    refresh(*ptr);
  });
}

int uci_delete(uci_context* ctx, uci_ptr* ptr) {
  return guarded(ctx, [&](Context&) {
    require(ptr != nullptr && ptr->s != nullptr, UCI_ERR_INVAL);
    require(ptr->option == nullptr || ptr->o != nullptr, UCI_ERR_NOTFOUND);
    carry_out(*ptr, Change::REMOVE, ptr->option, nullptr);
    ptr->o = nullptr;
    if (ptr->option == nullptr) ptr->s = nullptr;
  });
}

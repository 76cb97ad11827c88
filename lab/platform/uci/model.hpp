// The store in memory: what stands behind the plain structures of uci.h.
#pragma once

#include <new>
#include <string>
#include <string_view>
#include <vector>

#include "delta.hpp"
#include "uci.h"

namespace standin {

struct Context : uci_context {
  std::string configuration_directory = UCI_CONFDIR;
  std::string save_directory = UCI_SAVEDIR;  // the last one of delta_path
  int error = UCI_OK;
  std::string detail;  // of the last parse error
};

struct Package : uci_package {
  unsigned sections_made = 0;
  std::vector<Change> saved;  // came from delta files
  std::vector<Change> unsaved;
};

// What a function of the library fails with.
struct Failure {
  int error;
  std::string detail = {};
};

inline Context& context_of(uci_context* context) { return *static_cast<Context*>(context); }
inline Package& package_of(uci_package* package) { return *static_cast<Package*>(package); }

// Runs an API function's body: failures become its result and are kept for uci_perror.
template <typename Body>
int guarded(uci_context* context, Body body) {
  if (context == nullptr) return UCI_ERR_INVAL;
  Context& state = context_of(context);
  try {
    body(state);
    state.error = UCI_OK;
    state.detail.clear();
  } catch (const Failure& failure) {
    state.error = failure.error;
    state.detail = failure.detail;
  } catch (const std::bad_alloc&) {
    state.error = UCI_ERR_MEM;
    state.detail.clear();
  }
  return state.error;
}

inline void require(bool condition, int error) {
  if (!condition) throw Failure{error};
}

bool is_name(std::string_view text);          // letters, digits and underscores
bool is_package_name(std::string_view text);  // hyphens too
bool is_type(std::string_view text);          // printable
char* copy(std::string_view text);
void assign(char*& target, std::string_view text);

void init(uci_list& list);
uci_element* find(const uci_list& list, std::string_view name);
uci_section* find_section(const uci_package& package, std::string_view name);
uci_option* find_option(const uci_section& section, std::string_view name);

Package* make_package(Context& context, const std::string& name);
void free_package(Package* package);

// A named section, or an anonymous one (empty name) that gets its generated name.
uci_section* add_section(Package& package, std::string_view type, std::string_view name);
void free_section(uci_section* section);

void set_string(uci_section& section, std::string_view name, std::string_view value);
void add_to_list(uci_section& section, std::string_view name, std::string_view value);
uci_element* item_at(const uci_option& option, int place);          // nullptr where a list has none
void remove_from_list(uci_option& option, std::string_view value);  // the option too with its last item
void remove_item(uci_option& option, int place);                    // the same
void free_option(uci_option* option);

inline void raise(uci_ptr& ptr, int flag) { ptr.flags = static_cast<decltype(ptr.flags)>(ptr.flags | flag); }
inline bool is_raised(const uci_ptr& ptr, int flag) { return (ptr.flags & flag) != 0; }

// Completes what a caller filled in by hand: looks its element up, unless that has been done. Throws Failure.
void expand(uci_context* context, uci_ptr* ptr);
const char* section_name(const uci_ptr& ptr);  // nullptr for none
const char* option_name(const uci_ptr& ptr);

}  // namespace standin

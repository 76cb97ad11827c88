// The configuration store as handlers use it, beside the exported functions of pkg-tool.h.
#pragma once

#include <uci.h>

#include <cstdint>
#include <cstring>
#include <span>

#include "log.hpp"

namespace kova {

// A section of the store, and one of its options.
struct Section {
  const char* package;
  const char* name;
};

// Reads an option of /etc/config into a bounded text, cut to what fits. False, logged, with `value` untouched, when it
// cannot be read.
bool read_option(Section section, const char* option, std::span<char> value);

// Whether an option of /etc/config can be read and is exactly this value, of at most 62 characters.
bool option_is(Section section, const char* option, const char* value);

// The same as read_option for the state files below /tmp/tr069.
bool read_state_option(Section section, const char* option, std::span<char> value);

// Writes an option as uci_raw_set_value does. Whether it was written.
bool write_option(Section section, const char* option, const char* value);

// Owns a libuci context and with it every package loaded there.
class ConfigContext {
 public:
  // On the packages of a directory, or of /etc/config.
  explicit ConfigContext(const char* directory = nullptr);
  ~ConfigContext() {
    if (context_ != nullptr) uci_free_context(context_);
  }
  ConfigContext(const ConfigContext&) = delete;
  ConfigContext& operator=(const ConfigContext&) = delete;

  explicit operator bool() const { return context_ != nullptr; }
  uci_context* get() const { return context_; }

  // Loads a package; nullptr when that fails.
  uci_package* load(const char* package) const;

 private:
  uci_context* context_;
};

// The sections of one type in a package, in file order: for (uci_section* login : sections(package, "login")).
class SectionsOfType {
 public:
  class Iterator {
   public:
    Iterator(const uci_list* position, const uci_list* end, const char* type)
        : position_(position), end_(end), type_(type) {
      skip_others();
    }
    uci_section* operator*() const { return uci_to_section(list_to_element(position_)); }
    Iterator& operator++() {
      position_ = position_->next;
      skip_others();
      return *this;
    }
    bool operator!=(const Iterator& other) const { return position_ != other.position_; }

   private:
    void skip_others() {
      while (position_ != end_ && strcmp((**this)->type, type_) != 0) position_ = position_->next;
    }

    const uci_list* position_;
    const uci_list* end_;
    const char* type_;
  };

  SectionsOfType(const uci_package* package, const char* type) : head_(&package->sections), type_(type) {}
  Iterator begin() const { return {head_->next, head_, type_}; }
  Iterator end() const { return {head_, head_, type_}; }

  int32_t count() const {
    int32_t count = 0;
    for ([[maybe_unused]] uci_section* section : *this) ++count;
    return count;
  }

  // The section that has this number in file order, counted from 1; nullptr when there is none.
  uci_section* nth(int32_t number) const {
    int32_t count = 0;
    for (uci_section* section : *this) {
      if (++count == number) return section;
    }
    return nullptr;
  }

 private:
  const uci_list* head_;
  const char* type_;
};

// A package of the main store, opened to walk its sections. Failures are logged at `origin`: the one of the context
// with the text that all walkers use, the one of the load with `load_failure`.
class WalkedPackage {
 public:
  WalkedPackage(const char* name, Origin origin, LogMessage load_failure);

  explicit operator bool() const { return package_ != nullptr; }
  SectionsOfType sections(const char* type) const { return {package_, type}; }

  // A string option of one of the sections; nullptr when it is absent or a list.
  const char* string(uci_section* section, const char* option) const {
    return uci_lookup_option_string(context_.get(), section, option);
  }
  uci_option* option(uci_section* section, const char* name) const {
    return uci_lookup_option(context_.get(), section, name);
  }

 private:
  ConfigContext context_;
  uci_package* package_ = nullptr;
};

}  // namespace kova

// The configuration store as handlers use it, beside the exported functions of pkg-tool.h.
#pragma once

#include <uci.h>

#include <cstdint>
#include <cstring>
#include <optional>
#include <string_view>

#include "descriptors.hpp"
#include "log.hpp"
#include "look.hpp"
#include "text.hpp"

namespace kova {

// A section of the store, and one of its options.
struct Section {
  const char* package;
  const char* name;
};

inline constexpr char kMainDirectory[] = "/etc/config";
inline constexpr char kStateDirectory[] = "/tmp/tr069";

// Owns a libuci context and with it every package loaded there.
class ConfigContext {
 public:
  // On the packages of a directory, or of /etc/config.
  explicit ConfigContext(const char* directory = nullptr);
  ~ConfigContext();
  ConfigContext(const ConfigContext&) = delete;
  ConfigContext& operator=(const ConfigContext&) = delete;

  explicit operator bool() const { return context_ != nullptr; }
  uci_context* get() const { return context_; }

  // Loads a package, the only one of this context; nullptr when that fails. What comes from the look is only read.
  uci_package* load(const char* package);

 private:
  uci_package* look_at(const char* package);
  uci_package* use(const Finding& kept);

  StandardDescriptors standard_;
  const char* directory_;
  uci_context* context_;
  std::optional<Source> source_;  // of the package
  bool is_kept_ = false;          // by the look
};

// A text of the store, whole, where the library has it; what holds it there goes with the scope.
class StoredText {
 public:
  // Whether it could be read; a list counts as missing.
  explicit operator bool() const { return text_ != nullptr; }
  const char* text() const { return text_; }

  // False when it could not be read.
  bool operator==(std::string_view text) const { return text_ != nullptr && text == text_; }

 protected:
  explicit StoredText(const char* directory = nullptr) : context_(directory) {}

  ConfigContext context_;
  const char* text_ = nullptr;
};

// An option of /etc/config. Why it cannot be read is logged.
class Option : public StoredText {
 public:
  Option(Section section, const char* name);
};

// An option of the state files below /tmp/tr069.
class StateOption : public StoredText {
 public:
  StateOption(Section section, const char* name);
};

// Writes an option as uci_raw_set_value does. Whether it was written.
bool write_option(Section section, const char* option, const char* value);

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

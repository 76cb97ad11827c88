// Reading the configuration store.
#include "store.hpp"

#include <stdint.h>
#include <string.h>

#include "text.hpp"

namespace kova {
namespace {

const char* string_value(const uci_option* option) {
  return option != nullptr && option->type == UCI_TYPE_STRING ? option->v.string : nullptr;
}

}  // namespace

ConfigContext::ConfigContext(const char* directory) : directory_(directory), context_(uci_alloc_context()) {
  if (context_ == nullptr || directory == nullptr || uci_set_confdir(context_, directory) == UCI_OK) return;
  uci_free_context(context_);
  context_ = nullptr;
}

ConfigContext::~ConfigContext() {
  if (context_ != nullptr && !is_kept_) uci_free_context(context_);
}

uci_package* ConfigContext::load(const char* package) {
  uci_package* loaded = nullptr;
  if (is_looking()) return look_at(package);
  return uci_load(context_, package, &loaded) == UCI_OK ? loaded : nullptr;
}

uci_package* ConfigContext::look_at(const char* package) {
  source_.emplace(SourceName{SourceName::PACKAGE,
                             {directory_ != nullptr ? directory_ : kMainDirectory, package != nullptr ? package : ""}});
  if (const Finding* kept = source_->kept()) return use(*kept);
  Finding found;
  const int error = uci_load(context_, package, &found.package);
  if (error == UCI_OK) {
    found.context = context_;
    is_kept_ = source_->keep(found);
    return found.package;
  }
  found.package = nullptr;
  if (error == UCI_ERR_NOTFOUND || error == UCI_ERR_PARSE) source_->keep(found);
  return nullptr;
}

uci_package* ConfigContext::use(const Finding& kept) {
  if (kept.package == nullptr) return nullptr;
  uci_free_context(context_);
  context_ = kept.context;
  is_kept_ = true;
  return kept.package;
}

WalkedPackage::WalkedPackage(const char* name, Origin origin, LogMessage load_failure) {
  static constexpr LogMessage kNoContext = "[ERR]failed to alloc uci ctx.\n";
  if (!context_) {
    kNoContext.print(origin);
    return;
  }
  package_ = context_.load(name);
  if (package_ == nullptr) load_failure.print(origin);
}

Option::Option(Section section, const char* name) {
  if (!context_) {
    LOG("uci alloc ctx error.\n\n");
    return;
  }
  uci_package* package = context_.load(section.package);
  if (package == nullptr) {
    LOG("uci load error.\n\n");
    return;
  }
  uci_section* found = uci_lookup_section(context_.get(), package, section.name);
  if (found == nullptr) {
    LOG("uci lookup error:%s\n\n", section.name);
    return;
  }
  text_ = string_value(uci_lookup_option(context_.get(), found, name));
  if (text_ == nullptr) LOG("uci lookup error:%s\n\n", name);
}

StateOption::StateOption(Section section, const char* name) : StoredText(kStateDirectory) {
  if (!context_) {
    LOG("uci alloc ctx err.\n\n");
    return;
  }
  uci_package* package = context_.load(section.package);
  if (package == nullptr) {
    LOG("uci load error.\n\n");
    return;
  }
  uci_section* found = uci_lookup_section(context_.get(), package, section.name);
  if (found == nullptr) {
    // The name is fixed whatever was looked for: the first table kept this way was that of the access points.
    LOG("uci lookup error:%s\n\n", "ap");
    return;
  }
  text_ = string_value(uci_lookup_option(context_.get(), found, name));
}

}  // namespace kova

using namespace kova;

int32_t uci_raw_extract_value(const char* package, const char* section, const char* option, char* output) {
  const Option stored({package, section}, option);
  if (!stored) return -1;
  strcpy(output, stored.text());
  return 0;
}

int32_t uci_raw_extract_value_By_path(const char* package, const char* section, const char* option, char* output) {
  const StateOption stored({package, section}, option);
  if (!stored) return -1;
  strcpy(output, stored.text());
  return 0;
}

int32_t uciGetProfileValue(const char* type, const char* option, char* output, int32_t length) {
  const auto is_plain = [](const char* name) { return name != nullptr && name[strcspn(name, ".=")] == '\0'; };
  if (!is_plain(type) || !is_plain(option) || output == nullptr || length <= 0) {
    LOG("Invalid input arg.\n\n");
    return -1;
  }
  ConfigContext context("/etc/profile.d");
  if (!context) {
    LOG("uci alloc cxt error.\n\n");
    return -1;
  }
  if (context.load("profile") == nullptr) {
    LOG("uci load error.\n\n");
    return -1;
  }
  Text<512> path;
  path.print("profile.@%s[0].%s", type, option);
  uci_ptr element = {};
  const char* value =
      uci_lookup_ptr(context.get(), &element, path.data(), true) == UCI_OK ? string_value(element.o) : nullptr;
  if (value == nullptr) {
    LOG("uci lookup error:%s.%s\n\n", type, option);
    return -1;
  }
  strncpy(output, value, static_cast<size_t>(length));
  output[length + 1] = '\0';
  return 0;
}

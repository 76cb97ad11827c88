#include "changes.hpp"

extern "C" {
#include <uci.h>
}
#include <filesystem>
#include <memory>

#include "task_records.hpp"

namespace kovadm {
namespace {

namespace fs = std::filesystem;
using Options = std::map<std::string, std::string>;

struct Store {
  const char* name;
  const char* directory;
};
constexpr Store kStores[] = {{"store", "/etc/config"},
                             {"mirror", "/tmp/cwmp-config"},
                             {"forced mirror", "/tmp/cwmp-config-force"},
                             {"state", "/tmp/tr069"}};

// Only what is committed counts: there are no pending changes in a directory that is not there.
constexpr char kNoChanges[] = "/nonexistent";

std::string value_of(const uci_option& option) {
  if (option.type == UCI_TYPE_STRING) return option.v.string;
  std::string list;
  uci_element* item = nullptr;
  uci_foreach_element(&option.v.list, item) list += (list.empty() ? "" : " ") + std::string(item->name);
  return list;
}

void add_package(const uci_package& package, Options& options) {
  uci_element* element = nullptr;
  uci_foreach_element(&package.sections, element) {
    const uci_section& section = *uci_to_section(element);
    const std::string path = std::string(package.e.name) + "." + section.e.name;
    options[path] = section.type;
    uci_element* inner = nullptr;
    uci_foreach_element(&section.options, inner) options[path + "." + inner->name] = value_of(*uci_to_option(inner));
  }
}

Options read_store(const char* directory) {
  Options options;
  std::error_code missing;
  for (const fs::directory_entry& file : fs::directory_iterator(directory, missing)) {
    if (!file.is_regular_file() || is_task_record(file.path())) continue;
    const std::unique_ptr<uci_context, decltype(&uci_free_context)> context(uci_alloc_context(), &uci_free_context);
    uci_set_confdir(context.get(), directory);
    uci_set_savedir(context.get(), kNoChanges);
    uci_package* package = nullptr;
    if (uci_load(context.get(), file.path().filename().c_str(), &package) == UCI_OK) add_package(*package, options);
  }
  return options;
}

void compare(const char* store, const Options& before, const Options& after, std::vector<Change>& changes) {
  Options all = before;
  all.insert(after.begin(), after.end());
  for (const auto& [path, ignored] : all) {
    const auto old = before.find(path);
    const auto fresh = after.find(path);
    const bool was = old != before.end();
    const bool is = fresh != after.end();
    if (was && is && old->second == fresh->second) continue;
    changes.push_back({store, path, was ? std::optional(old->second) : std::nullopt,
                       is ? std::optional(fresh->second) : std::nullopt});
  }
}

}  // namespace

Snapshot::Snapshot() {
  for (const Store& store : kStores) stores_.push_back(read_store(store.directory));
}

std::vector<Change> Snapshot::changes_since(const Snapshot& earlier) const {
  std::vector<Change> changes;
  for (std::size_t i = 0; i < stores_.size(); ++i) compare(kStores[i].name, earlier.stores_[i], stores_[i], changes);
  return changes;
}

}  // namespace kovadm

#include "changes.hpp"

extern "C" {
#include <uci.h>
}
#include <filesystem>
#include <fstream>
#include <memory>
#include <set>
#include <sstream>

#include "seam/platform.hpp"
#include "task_records.hpp"

namespace kovadm {
namespace {

namespace fs = std::filesystem;
using Values = std::map<std::string, std::string>;

constexpr char kMainStore[] = "/etc/config";
// Where a tool leaves changes until they are committed, and a directory that has none.
constexpr char kPendingChanges[] = "/tmp/.uci";
constexpr char kNoChanges[] = "/nonexistent";

std::string value_of(const uci_option& option) {
  if (option.type == UCI_TYPE_STRING) return option.v.string;
  std::string list;
  uci_element* item = nullptr;
  uci_foreach_element(&option.v.list, item) list += (list.empty() ? "" : " ") + std::string(item->name);
  return list;
}

void add_package(const uci_package& package, Values& values) {
  uci_element* element = nullptr;
  uci_foreach_element(&package.sections, element) {
    const uci_section& section = *uci_to_section(element);
    const std::string path = std::string(package.e.name) + "." + section.e.name;
    values[path] = section.type;
    uci_element* inner = nullptr;
    uci_foreach_element(&section.options, inner) values[path + "." + inner->name] = value_of(*uci_to_option(inner));
  }
}

std::vector<fs::path> files_in(const std::string& directory) {
  std::vector<fs::path> files;
  std::error_code missing;
  for (const fs::directory_entry& file : fs::directory_iterator(directory, missing)) {
    if (file.is_regular_file(missing)) files.push_back(file.path());
  }
  return files;
}

Values read_store(const std::string& directory, const std::string& pending_changes) {
  const std::string place = platform().place(directory);
  Values values;
  for (const fs::path& file : files_in(place)) {
    if (is_task_record(fs::path(directory) / file.filename())) continue;
    const std::unique_ptr<uci_context, decltype(&uci_free_context)> context(uci_alloc_context(), &uci_free_context);
    uci_set_confdir(context.get(), place.c_str());
    uci_set_savedir(context.get(), platform().place(pending_changes).c_str());
    uci_package* package = nullptr;
    if (uci_load(context.get(), file.filename().c_str(), &package) == UCI_OK) add_package(*package, values);
  }
  return values;
}

Values read_files(const std::string& directory) {
  Values values;
  for (const fs::path& file : files_in(platform().place(directory))) {
    std::ostringstream text;
    text << std::ifstream(file).rdbuf();
    values[fs::path(directory) / file.filename()] = text.str();
  }
  return values;
}

struct Store {
  const char* name;
  Values (*read)();
};
constexpr Store kStores[] = {{"store", [] { return read_store(kMainStore, kNoChanges); }},
                             {"mirror", [] { return read_store("/tmp/cwmp-config", kNoChanges); }},
                             {"forced mirror", [] { return read_store("/tmp/cwmp-config-force", kNoChanges); }},
                             {"state", [] { return read_store("/tmp/tr069", kNoChanges); }},
                             {"file", [] { return read_files("/tmp/diag"); }}};

std::optional<std::string> value_at(const Values& values, const std::string& path) {
  const auto found = values.find(path);
  return found != values.end() ? std::optional(found->second) : std::nullopt;
}

std::set<std::string> paths_of(const Values& some, const Values& others) {
  std::set<std::string> paths;
  for (const Values* values : {&some, &others}) {
    for (const auto& [path, ignored] : *values) paths.insert(path);
  }
  return paths;
}

// For people, without the far end of a file.
std::string quoted(const Change& change, const std::optional<std::string>& value) {
  constexpr std::size_t kLongest = 80;
  if (!value) return "(none)";
  const bool whole = change.store != "file" || value->size() <= kLongest;
  return '"' + one_line(whole ? *value : value->substr(0, kLongest) + "...") + '"';
}

Json json_or_null(const std::optional<std::string>& value) { return value ? Json(*value) : Json(); }

}  // namespace

Snapshot::Snapshot() : with_pending_(read_store(kMainStore, kPendingChanges)) {
  for (const Store& store : kStores) stores_.push_back(store.read());
}

bool Snapshot::is_pending(const std::string& path) const {
  return value_at(with_pending_, path) != value_at(stores_[0], path);
}

void Snapshot::add_pending(const Snapshot& earlier, std::vector<Change>& changes) const {
  for (const std::string& path : paths_of(stores_[0], with_pending_)) {
    const auto value = value_at(with_pending_, path);
    const bool was_so = earlier.is_pending(path) && value_at(earlier.with_pending_, path) == value;
    if (is_pending(path) && !was_so) changes.push_back({"pending", path, value_at(stores_[0], path), value, false});
  }
}

std::vector<Change> Snapshot::changes_since(const Snapshot& earlier, const Snapshot& start) const {
  std::vector<Change> changes;
  for (std::size_t i = 0; i < stores_.size(); ++i) {
    for (const std::string& path : paths_of(earlier.stores_[i], stores_[i])) {
      const auto before = value_at(earlier.stores_[i], path);
      const auto after = value_at(stores_[i], path);
      const bool was_pending = i == 0 && start.is_pending(path) && value_at(start.with_pending_, path) == after;
      if (before != after) changes.push_back({kStores[i].name, path, before, after, was_pending});
    }
    if (i == 0) add_pending(earlier, changes);
  }
  return changes;
}

Json tell_changes(const std::vector<Change>& changes, Output& output) {
  Json list = Json::array();
  for (const Change& change : changes) {
    output.line(change.store + ": " + change.path + ": " + quoted(change, change.before) + " -> " +
                quoted(change, change.after) + (change.was_pending ? " (was pending)" : ""));
    list.push_back({{"store", change.store},
                    {"path", change.path},
                    {"before", json_or_null(change.before)},
                    {"after", json_or_null(change.after)}});
    if (change.was_pending) list.back()["was_pending"] = true;
  }
  return list;
}

}  // namespace kovadm

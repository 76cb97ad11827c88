#include "support/device_state.hpp"

#include <algorithm>
#include <sstream>

#include "support/device.hpp"
#include "support/tables.hpp"

namespace kova::test {
namespace {

namespace fs = std::filesystem;

const fs::path kMainStore = "/etc/config";
const fs::path kMirror = "/tmp/cwmp-config";
const fs::path kForcedMirror = "/tmp/cwmp-config-force";
const fs::path kSaveDirectory = "/tmp/.uci";
const fs::path kRecord = "/tmp/tr069/cmd_record";
const fs::path kRecordOnce = "/tmp/tr069/cmd_record_once";

// ---- Texts by name: the options of a package, the files of a router ----

template <typename Name>
std::string text_of(const std::map<Name, std::string>& texts, const Name& name) {
  const auto found = texts.find(name);
  return found != texts.end() ? found->second : std::string();
}

template <typename Name>
std::vector<Name> changed(const std::map<Name, std::string>& before, const std::map<Name, std::string>& after) {
  std::map<Name, std::string> all = before;
  all.insert(after.begin(), after.end());
  std::vector<Name> names;
  for (const auto& [name, ignored] : all) {
    if (text_of(before, name) != text_of(after, name)) names.push_back(name);
  }
  return names;
}

using Options = std::map<std::string, std::string>;
using Files = lab::DeviceFiles::Texts;

// The options of a package file's text, by path; a section's type by the path of the section.
Options options_of(const std::string& package, const std::string& text) {
  const fs::path directory = fs::temp_directory_path() / "package-of-test";
  fs::create_directory(directory);
  write_file(directory / package, text);
  Options options;
  const Store store = open_store(directory);
  uci_set_savedir(store.get(), directory.c_str());
  uci_package* loaded = nullptr;
  if (uci_load(store.get(), package.c_str(), &loaded) == UCI_OK) {
    uci_element* element = nullptr;
    uci_foreach_element(&loaded->sections, element) {
      const uci_section& section = *uci_to_section(element);
      const std::string path = package + "." + section.e.name;
      options[path] = section.type;
      uci_element* inner = nullptr;
      uci_foreach_element(&section.options, inner) options[path + "." + inner->name] = value_of(*uci_to_option(inner));
    }
  }
  fs::remove_all(directory);
  return options;
}

// ---- Changes of options ----

using Change = std::pair<std::string, std::string>;  // an option's path and its value, empty for none

bool take(std::vector<Change>& changes, const Change& wanted) {
  const auto found = std::find(changes.begin(), changes.end(), wanted);
  if (found == changes.end()) return false;
  changes.erase(found);
  return true;
}

// The changes in all package files of a directory.
std::vector<Change> changes_below(const fs::path& directory, const Files& before, const Files& after) {
  std::vector<Change> changes;
  for (const fs::path& path : changed(before, after)) {
    if (path.parent_path() != directory) continue;
    const std::string package = path.filename();
    const Options now = options_of(package, text_of(after, path));
    for (const std::string& option : changed(options_of(package, text_of(before, path)), now))
      changes.emplace_back(option, text_of(now, option));
  }
  return changes;
}

// The mirrors' changes are told with those of the main store that they repeat. A removed option leaves no trace there,
// and a section that only a mirror lacked comes with its option.
std::vector<std::string> stored_since(const Files& before, const Files& after) {
  std::vector<std::string> effects;
  std::vector<Change> mirrored = changes_below(kMirror, before, after);
  std::vector<Change> forced = changes_below(kForcedMirror, before, after);
  for (const Change& change : changes_below(kMainStore, before, after)) {
    const auto& [path, value] = change;
    if (value.empty() || take(mirrored, change)) {
      effects.push_back(stores(path, value));
    } else {
      effects.push_back(take(forced, change) ? forces(path, value) : changes(path, value));
    }
  }
  for (const auto& [path, value] : mirrored) {
    if (std::count(path.begin(), path.end(), '.') > 1) effects.push_back(mirrors(path, value));
  }
  return effects;
}

// ---- Changes of files ----

// The change is told otherwise, or it is what libuci leaves once there is nothing to save.
bool is_told_otherwise(const fs::path& path, const std::string& text) {
  const fs::path directory = path.parent_path();
  return directory == kMainStore || directory == kMirror || directory == kForcedMirror || path == kRecord ||
         path == kRecordOnce || (directory == kSaveDirectory && text.empty());
}

std::string added_text(const Files& before, const Files& after, const fs::path& path) {
  const std::string old = text_of(before, path);
  const std::string now = text_of(after, path);
  return now.starts_with(old) ? now.substr(old.size()) : now;
}

std::vector<std::string> lines_of(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

}  // namespace

Store open_store(const std::string& directory) {
  Store store(uci_alloc_context(), &uci_free_context);
  uci_set_confdir(store.get(), directory.c_str());
  return store;
}

std::string value_of(const uci_option& option) {
  if (option.type == UCI_TYPE_STRING) return option.v.string;
  std::string list;
  uci_element* element = nullptr;
  uci_foreach_element(&option.v.list, element) list += std::string("|") + element->name;
  return list;
}

std::vector<std::string> DeviceState::effects() const {
  const Files& before = files_.texts();
  const lab::DeviceFiles current;
  const Files& now = current.texts();
  std::vector<std::string> effects = stored_since(before, now);
  for (const std::string& line : lines_of(added_text(before, now, kRecord))) effects.push_back(records(line));
  const std::string once = text_of(now, kRecordOnce);
  if (once != text_of(before, kRecordOnce)) {
    for (const std::string& line : lines_of(once)) effects.push_back(records_once(line));
  }
  for (const auto& [path, text] : now) {
    const auto old = before.find(path);
    if (old != before.end() && old->second == text) continue;
    if (!is_told_otherwise(path, text)) effects.push_back(writes(path, text));
  }
  for (const auto& [path, text] : before) {
    if (!now.contains(path) && !is_told_otherwise(path, text)) effects.push_back(removes(path));
  }
  return effects;
}

}  // namespace kova::test

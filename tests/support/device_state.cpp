#include "support/device_state.hpp"

extern "C" {
#include <uci.h>
}
#include <algorithm>
#include <cstdlib>
#include <memory>
#include <sstream>

#include "support/device.hpp"
#include "support/tables.hpp"

namespace kova::test {
namespace {

namespace fs = std::filesystem;

// What belongs to the device's state, all of it that /sbin/lab-reset makes anew.
constexpr const char* kRoots[] = {"/etc/config",     "/etc/lab",       "/etc/profile.d",  "/etc/rom_version",
                                  "/etc/TZ",         "/etc/localtime", "/sys/class/leds", "/tmp",
                                  "/usr/bin/bdinfo", "/usr/bin/ddns",  "/usr/bin/iwinfo", "/usr/bin/tr069",
                                  "/var/etc",        "/var/run",       "/var/state"};
const fs::path kMainStore = "/etc/config";
const fs::path kMirror = "/tmp/cwmp-config";
const fs::path kForcedMirror = "/tmp/cwmp-config-force";
const fs::path kSaveDirectory = "/tmp/.uci";
const fs::path kRecord = "/tmp/tr069/cmd_record";
const fs::path kRecordOnce = "/tmp/tr069/cmd_record_once";

// Where a test program that is built below /tmp lies, there is nothing of the router's.
bool is_foreign(const fs::path& path) {
  const char* kept = std::getenv("KOVA_LAB_KEEP");
  return kept != nullptr && path == kept;
}

using Options = std::map<std::string, std::string>;

std::string value_of(const uci_option& option) {
  if (option.type == UCI_TYPE_STRING) return option.v.string;
  std::string list;
  uci_element* element = nullptr;
  uci_foreach_element(&option.v.list, element) list += std::string("|") + element->name;
  return list;
}

// The options of a package file's text, by path; a section's type by the path of the section.
Options options_of(const std::string& package, const std::string& text) {
  const fs::path directory = fs::temp_directory_path() / "package-of-test";
  fs::create_directory(directory);
  write_file(directory / package, text);
  Options options;
  const std::unique_ptr<uci_context, decltype(&uci_free_context)> context(uci_alloc_context(), &uci_free_context);
  uci_set_confdir(context.get(), directory.c_str());
  uci_set_savedir(context.get(), directory.c_str());
  uci_package* loaded = nullptr;
  if (uci_load(context.get(), package.c_str(), &loaded) == UCI_OK) {
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

using Change = std::pair<std::string, std::string>;  // an option's path and its value, empty for none

std::vector<Change> changes_between(const Options& before, const Options& after) {
  Options all = before;
  all.insert(after.begin(), after.end());
  std::vector<Change> changed;
  const auto value = [](const Options& options, const std::string& path) {
    const auto found = options.find(path);
    return found != options.end() ? found->second : std::string();
  };
  for (const auto& [path, ignored] : all) {
    if (value(before, path) != value(after, path)) changed.emplace_back(path, value(after, path));
  }
  return changed;
}

bool take(std::vector<Change>& changed, const Change& wanted) {
  const auto found = std::find(changed.begin(), changed.end(), wanted);
  if (found == changed.end()) return false;
  changed.erase(found);
  return true;
}

using Files = std::map<fs::path, std::string>;

std::string text_of(const Files& files, const fs::path& path) {
  const auto found = files.find(path);
  return found != files.end() ? found->second : std::string();
}

// The changes in all package files of a directory.
std::vector<Change> changes_below(const fs::path& directory, const Files& before, const Files& after) {
  Files all = before;
  all.insert(after.begin(), after.end());
  std::vector<Change> changed;
  for (const auto& [path, ignored] : all) {
    if (path.parent_path() != directory || text_of(before, path) == text_of(after, path)) continue;
    const std::string package = path.filename();
    const auto found =
        changes_between(options_of(package, text_of(before, path)), options_of(package, text_of(after, path)));
    changed.insert(changed.end(), found.begin(), found.end());
  }
  return changed;
}

bool is_section(const std::string& path) { return std::count(path.begin(), path.end(), '.') == 1; }

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
    if (!is_section(path)) effects.push_back(mirrors(path, value));
  }
  return effects;
}

// What libuci leaves in the save directory once there is nothing to save.
bool is_empty_delta(const fs::path& path, const std::string& text) {
  return path.parent_path() == kSaveDirectory && text.empty();
}

bool is_told_otherwise(const fs::path& path) {
  const fs::path directory = path.parent_path();
  return directory == kMainStore || directory == kMirror || directory == kForcedMirror || path == kRecord ||
         path == kRecordOnce;
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

DeviceState::DeviceState() {
  for (const fs::path root : kRoots) {
    note(root);
    std::error_code missing;
    for (auto entry = fs::recursive_directory_iterator(root, missing); entry != fs::recursive_directory_iterator();
         ++entry) {
      if (is_foreign(entry->path())) {
        entry.disable_recursion_pending();
      } else {
        note(entry->path());
      }
    }
  }
}

void DeviceState::note(const fs::path& path) {
  const fs::file_status status = fs::symlink_status(path);
  if (fs::is_directory(status)) directories_.insert(path);
  if (!fs::is_regular_file(status)) return;
  files_[path] = contents(path).value_or("");
  permissions_[path] = status.permissions();
}

void DeviceState::restore() const {
  const DeviceState now;
  for (const auto& [path, ignored] : now.files_) {
    if (!files_.contains(path)) fs::remove(path);
  }
  for (const fs::path& path : now.directories_) {
    if (!directories_.contains(path)) fs::remove_all(path);
  }
  for (const fs::path& path : directories_) fs::create_directories(path);
  for (const auto& [path, text] : files_) {
    const auto present = now.files_.find(path);
    if (present != now.files_.end() && present->second == text) continue;
    write_file(path, text);
    fs::permissions(path, permissions_.at(path));
  }
}

std::vector<std::string> DeviceState::effects() const {
  const DeviceState now;
  std::vector<std::string> effects = stored_since(files_, now.files_);
  for (const std::string& line : lines_of(added_text(files_, now.files_, kRecord))) effects.push_back(records(line));
  if (text_of(files_, kRecordOnce) != text_of(now.files_, kRecordOnce)) {
    for (const std::string& line : lines_of(text_of(now.files_, kRecordOnce))) effects.push_back(records_once(line));
  }
  for (const auto& [path, text] : now.files_) {
    const auto before = files_.find(path);
    if (is_told_otherwise(path) || is_empty_delta(path, text)) continue;
    if (before == files_.end() || before->second != text) effects.push_back(writes(path, text));
  }
  for (const auto& [path, ignored] : files_) {
    if (!is_told_otherwise(path) && !now.files_.contains(path)) effects.push_back(removes(path));
  }
  return effects;
}

}  // namespace kova::test

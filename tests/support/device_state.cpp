#include "support/device_state.hpp"

#include <algorithm>
#include <filesystem>
#include <sstream>

#include "seam/paths.hpp"
#include "support/device.hpp"
#include "support/tables.hpp"

namespace kova::test {
namespace {

namespace fs = std::filesystem;

using seam::Texts;

std::string text_of(const Texts& texts, const std::string& path) {
  const auto found = texts.find(path);
  return found != texts.end() ? found->second : std::string();
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
std::vector<Change> changes_below(const std::string& directory, const Texts& before, const Texts& after) {
  std::vector<Change> changes;
  for (const auto& [path, old, now] : seam::differences(before, after)) {
    if (fs::path(path).parent_path() != directory) continue;
    const std::string package = fs::path(path).filename();
    for (const auto& [option, was, is] :
         seam::differences(seam::options_of(package, old.value_or("")), seam::options_of(package, now.value_or(""))))
      changes.emplace_back(option, is.value_or(""));
  }
  return changes;
}

// The mirrors' changes are told with those of the main store that they repeat. A removed option leaves no trace there,
// and a section that only a mirror lacked comes with its option.
std::vector<std::string> stored_since(const Texts& before, const Texts& after) {
  std::vector<std::string> effects;
  std::vector<Change> mirrored = changes_below(seam::kMirror, before, after);
  std::vector<Change> forced = changes_below(seam::kForcedMirror, before, after);
  for (const Change& change : changes_below(seam::kMainStore, before, after)) {
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
  return directory == seam::kMainStore || directory == seam::kMirror || directory == seam::kForcedMirror ||
         path == seam::kTaskRecord || path == seam::kTaskRecordOnce ||
         (directory == seam::kPendingChanges && text.empty());
}

std::string added_text(const Texts& before, const Texts& after, const std::string& path) {
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

std::vector<std::string> effects_since(const seam::Snapshot& start) {
  const Texts& before = start.texts();
  const seam::Snapshot current = seam::Snapshot::of_lab();
  const Texts& now = current.texts();
  std::vector<std::string> effects = stored_since(before, now);
  for (const std::string& line : lines_of(added_text(before, now, seam::kTaskRecord))) effects.push_back(records(line));
  const std::string once = text_of(now, seam::kTaskRecordOnce);
  if (once != text_of(before, seam::kTaskRecordOnce)) {
    for (const std::string& line : lines_of(once)) effects.push_back(records_once(line));
  }
  for (const auto& [path, old, text] : seam::differences(before, now)) {
    if (is_told_otherwise(path, text ? *text : *old)) continue;
    effects.push_back(text ? writes(path, *text) : removes(path));
  }
  return effects;
}

}  // namespace kova::test

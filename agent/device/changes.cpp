#include "device/changes.hpp"

#include <filesystem>
#include <set>

#include "model/catalogue.hpp"
#include "seam/paths.hpp"

namespace kovadm {
namespace {

namespace fs = std::filesystem;
using seam::Texts;
using Value = std::optional<std::string>;

struct Store {
  const char* name;
  const char* directory;
};
constexpr Store kMainStore = {"store", seam::kMainStore};
constexpr Store kStores[] = {
    {"mirror", seam::kMirror}, {"forced mirror", seam::kForcedMirror}, {"state", seam::kStateFiles}};

std::string text_of(const Texts& files, const std::string& path) {
  const auto found = files.find(path);
  return found != files.end() ? found->second : std::string();
}

Value value_at(const Texts& options, const std::string& path) {
  const auto found = options.find(path);
  return found != options.end() ? std::optional(found->second) : std::nullopt;
}

// The names of a directory's files that differ in what they say.
std::set<std::string> changed_in(const char* directory, const Texts& before, const Texts& after) {
  std::set<std::string> names;
  for (const auto& [path, was, is] : seam::differences(before, after)) {
    if (fs::path(path).parent_path() == directory && was.value_or("") != is.value_or(""))
      names.insert(fs::path(path).filename());
  }
  return names;
}

// A package of the main store, as it is committed and as it is when all is.
struct Package {
  Package(const Texts& files, const std::string& name)
      : stored(options(files, name, "")),
        with_pending(options(files, name, text_of(files, seam::kPendingChanges + ("/" + name)))) {}

  static Texts options(const Texts& files, const std::string& name, const std::string& changes) {
    return seam::options_of(name, text_of(files, seam::kMainStore + ("/" + name)), changes);
  }
  bool is_pending(const std::string& path) const { return value_at(with_pending, path) != value_at(stored, path); }

  Texts stored;
  Texts with_pending;
};

void add_main_store(const std::string& name, const Texts& first, const Texts& before, const Texts& after,
                    std::vector<Change>& stored, std::vector<Change>& pending) {
  const Package start(first, name);
  const Package earlier(before, name);
  const Package now(after, name);
  for (const auto& [path, was, is] : seam::differences(earlier.stored, now.stored)) {
    const bool was_pending = start.is_pending(path) && value_at(start.with_pending, path) == is;
    stored.push_back({kMainStore.name, path, was, is, was_pending});
  }
  for (const auto& [path, was, is] : seam::differences(now.stored, now.with_pending)) {
    const bool was_so = earlier.is_pending(path) && value_at(earlier.with_pending, path) == is;
    if (!was_so) pending.push_back({"pending", path, was, is, false});
  }
}

// For people, without the far end of a file.
std::string quoted(const Change& change, const std::optional<std::string>& value) {
  constexpr std::size_t kLongest = 80;
  if (!value) return "(none)";
  const bool whole = change.store != "file" || value->size() <= kLongest;
  return '"' + one_line(whole ? *value : value->substr(0, kLongest) + "...") + '"';
}

bool is_secret(const Change& change) { return is_secret_name(change.path.substr(change.path.rfind('.') + 1)); }

Json json_of(const Change& change, const Value& value, Redaction& redaction) {
  if (!value) return {};
  return is_secret(change) ? redaction.secret(*value) : *value;
}

}  // namespace

std::vector<Change> changes(const Texts& before, const Texts& after, const Texts& start) {
  std::vector<Change> all;
  std::vector<Change> pending;
  std::set<std::string> packages = changed_in(seam::kMainStore, before, after);
  packages.merge(changed_in(seam::kPendingChanges, before, after));
  for (const std::string& name : packages) add_main_store(name, start, before, after, all, pending);
  all.insert(all.end(), pending.begin(), pending.end());
  for (const auto& [store, directory] : kStores) {
    for (const std::string& name : changed_in(directory, before, after)) {
      const std::string path = directory + ("/" + name);
      for (const auto& [option, was, is] : seam::differences(seam::options_of(name, text_of(before, path)),
                                                             seam::options_of(name, text_of(after, path))))
        all.push_back({store, option, was, is, false});
    }
  }
  for (const auto& [path, was, is] : seam::differences(before, after)) {
    if (fs::path(path).parent_path() == seam::kTestFiles) all.push_back({"file", path, was, is, false});
  }
  return all;
}

std::string to_text(const Change& change, const Redaction& redaction) {
  const bool untold = !redaction.off() && is_secret(change);
  const std::string what = untold ? "changed" : quoted(change, change.before) + " -> " + quoted(change, change.after);
  return change.store + ": " + change.path + ": " + what + (change.was_pending ? " (was pending)" : "");
}

Json tell_changes(const std::vector<Change>& changes, Output& output) {
  Json list = Json::array();
  for (const Change& change : changes) {
    output.line(to_text(change, output.redaction()));
    list.push_back({{"store", change.store},
                    {"path", change.path},
                    {"before", json_of(change, change.before, output.redaction())},
                    {"after", json_of(change, change.after, output.redaction())}});
    if (change.was_pending) list.back()["was_pending"] = true;
  }
  return list;
}

}  // namespace kovadm

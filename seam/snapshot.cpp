#include "seam/snapshot.hpp"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <memory>
#include <sstream>
#include <system_error>

#include "seam/paths.hpp"
#include "seam/platform.hpp"
#include "seam/work_directory.hpp"

namespace seam {
namespace {

namespace fs = std::filesystem;

// Larger files are no configuration.
constexpr std::uintmax_t kLargest = 1024UL * 1024;

// Where a program that is built below /tmp lies, there is nothing of the router's.
bool is_foreign(const fs::path& path) {
  const char* kept = std::getenv("KOVA_LAB_KEEP");
  return kept != nullptr && path == kept;
}

// Directories for libuci to read, gone at once: nothing of the device's is to be seen in them.
class Scratch {
 public:
  Scratch() = default;
  ~Scratch() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
  }
  Scratch(const Scratch&) = delete;
  Scratch& operator=(const Scratch&) = delete;

  std::string directory(const char* name) const {
    const fs::path made = fs::path(path_) / name;
    fs::create_directory(made);
    return made;
  }

 private:
  std::string path_ = make_temporary_directory();
};

void add_section(const uci_section& section, Texts& options) {
  const std::string path = std::string(section.package->e.name) + "." + section.e.name;
  options[path] = section.type;
  uci_element* element = nullptr;
  uci_foreach_element(&section.options, element) {
    options[path + "." + element->name] = value_of(*uci_to_option(element));
  }
}

}  // namespace

std::vector<Difference> differences(const Texts& before, const Texts& after) {
  std::vector<Difference> all;
  for (const auto& [path, text] : before) {
    const auto now = after.find(path);
    if (now == after.end()) {
      all.push_back({path, text, std::nullopt});
    } else if (now->second != text) {
      all.push_back({path, text, now->second});
    }
  }
  for (const auto& [path, text] : after) {
    if (!before.contains(path)) all.push_back({path, std::nullopt, text});
  }
  std::sort(all.begin(), all.end(), [](const auto& one, const auto& other) { return one.path < other.path; });
  return all;
}

Snapshot::Snapshot(const std::vector<fs::path>& places) : places_(places) {
  for (const fs::path& place : places) {
    note(place);
    std::error_code missing;
    for (auto entry = fs::recursive_directory_iterator(place, missing); entry != fs::recursive_directory_iterator();
         ++entry) {
      if (is_foreign(entry->path())) {
        entry.disable_recursion_pending();
      } else {
        note(entry->path());
      }
    }
  }
}

Snapshot Snapshot::of_lab() { return Snapshot({std::begin(kLabFiles), std::end(kLabFiles)}); }

void Snapshot::note(const fs::path& path) {
  const fs::file_status status = fs::symlink_status(path);
  if (fs::is_directory(status)) directories_.insert(path);
  if (!fs::is_regular_file(status)) return;
  texts_[path] = read_file(path);
  permissions_[path] = status.permissions();
}

void Snapshot::restore() const { restore(Snapshot(places_)); }

void Snapshot::restore(const Snapshot& now) const {
  for (const auto& [path, ignored] : now.texts_) {
    if (!texts_.contains(path)) fs::remove(path);
  }
  for (const fs::path& path : now.directories_) {
    if (!directories_.contains(path)) fs::remove_all(path);
  }
  for (const fs::path& path : directories_) fs::create_directories(path);
  for (const auto& [path, ignored, text] : differences(now.texts_, texts_)) {
    if (!text) continue;
    write_file(path, *text);
    fs::permissions(path, permissions_.at(path));
  }
}

Texts kept_files(const Platform& of) {
  Texts texts;
  std::error_code gone;
  for (const fs::path directory : kKeptDirectories) {
    for (const fs::directory_entry& file : fs::directory_iterator(of.place(directory), gone)) {
      const std::string path = directory / file.path().filename();
      if (!file.is_regular_file(gone) || file.file_size(gone) > kLargest || path == kTaskRecord ||
          path == kTaskRecordOnce)
        continue;
      texts[path] = read_file(file.path());
    }
  }
  return texts;
}

std::string read_file(const fs::path& file) {
  std::ostringstream text;
  text << std::ifstream(file, std::ios::binary).rdbuf();  // a directory can be opened, but not read
  return text.str();
}

void write_file(const fs::path& file, const std::string& text) {
  std::ofstream stream(file, std::ios::binary);
  if (!(stream << text).flush()) throw std::system_error(errno, std::generic_category(), file);
}

Texts options_of(const std::string& package, const std::string& text, const std::string& changes) {
  const Scratch scratch;
  const std::string store = scratch.directory("store");
  const std::string pending = scratch.directory("pending");
  write_file(fs::path(store) / package, text);
  if (!changes.empty()) write_file(fs::path(pending) / package, changes);
  Texts options;
  const std::unique_ptr<uci_context, decltype(&uci_free_context)> context(uci_alloc_context(), &uci_free_context);
  leave_usual_changes(context.get());
  uci_set_confdir(context.get(), store.c_str());
  uci_set_savedir(context.get(), pending.c_str());
  uci_package* loaded = nullptr;
  if (uci_load(context.get(), package.c_str(), &loaded) == UCI_OK) {
    uci_element* element = nullptr;
    uci_foreach_element(&loaded->sections, element) add_section(*uci_to_section(element), options);
  }
  return options;
}

std::string value_of(const uci_option& option) {
  if (option.type == UCI_TYPE_STRING) return option.v.string;
  std::string list;
  uci_element* element = nullptr;
  uci_foreach_element(&option.v.list, element) list += (list.empty() ? "" : " ") + std::string(element->name);
  return list;
}

}  // namespace seam

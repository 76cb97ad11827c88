// Packages and their files: loading, saving deltas, committing, reverting.
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <cerrno>
#include <filesystem>
#include <memory>

#include "file.hpp"
#include "parse.hpp"
#include "write.hpp"

using namespace standin;

namespace {

using OwnedPackage = std::unique_ptr<Package, decltype(&free_package)>;

std::string delta_path(const Context& context, const std::string& package) {
  return context.save_directory + "/" + package;
}

std::vector<Change> read_delta(const std::string& path) {
  const File file(path, O_RDONLY, LOCK_SH);
  return file ? parse_delta(file.read_all()) : std::vector<Change>();
}

// Every change to a package that waits: in the directories that are only read, and then in the save directory.
// There it is the file `saved`, if that is open already.
std::vector<Change> read_deltas(const Context& context, const std::string& package, const File* saved = nullptr) {
  std::vector<Change> changes;
  uci_element* directory = nullptr;
  uci_foreach_element(&context.delta_path, directory) {
    const bool is_open = saved != nullptr && *saved && directory->name == context.save_directory;
    const std::vector<Change> more =
        is_open ? parse_delta(saved->read_all()) : read_delta(std::filesystem::path(directory->name) / package);
    changes.insert(changes.end(), more.begin(), more.end());
  }
  return changes;
}

// Whether any fits the package.
bool apply_saved(Package& package, const std::vector<Change>& changes) {
  bool any = false;
  for (const Change& change : changes) any = apply(package, change) || any;
  package.saved.insert(package.saved.end(), changes.begin(), changes.end());
  return any;
}

OwnedPackage read_package(Context& context, const std::string& name, const File& file) {
  OwnedPackage package(make_package(context, name), &free_package);
  parse_package(*package, file.read_all());
  return package;
}

uci_package* load(Context& context, const std::string& name) {
  require(find(context.root, name) == nullptr, UCI_ERR_DUPLICATE);
  const std::string path = context.configuration_directory + "/" + name;
  struct stat status = {};
  require(stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode), UCI_ERR_NOTFOUND);
  const File file(path, O_RDONLY, LOCK_SH);
  require(static_cast<bool>(file), UCI_ERR_IO);
  OwnedPackage package = read_package(context, name, file);
  apply_saved(*package, read_deltas(context, name));
  return package.release();
}

void make_directory(const std::string& path) {
  struct stat status = {};
  if (stat(path.c_str(), &status) == 0) return;
  require(mkdir(path.c_str(), 0700) == 0 || errno == EEXIST, UCI_ERR_IO);
}

void save(const Context& context, Package& package) {
  if (package.unsaved.empty()) return;
  make_directory(context.save_directory);
  const File file(delta_path(context, package.e.name), O_WRONLY | O_CREAT | O_APPEND, LOCK_EX);
  require(static_cast<bool>(file), UCI_ERR_IO);
  file.write_all(format_delta(package.e.name, package.unsaved));
  package.unsaved.clear();
}

// Takes the changes of an element, a section or a whole package (null names) out of the save directory. Where there are
// none, or lines that make no sense, the file stays as it is.
void drop_changes(const Context& context, const std::string& package, const char* section, const char* option) {
  const File file(delta_path(context, package), O_RDWR | O_APPEND, LOCK_EX);
  if (!file) return;
  bool whole = false;
  std::vector<Change> changes = parse_delta(file.read_all(), &whole);
  const auto dropped = std::erase_if(changes, [&](const Change& change) {
    return (section == nullptr || change.section == section) && (option == nullptr || change.option == option);
  });
  if (!whole || dropped == 0) return;
  file.truncate();
  file.write_all(format_delta(package, changes));
}

}  // namespace

int uci_load(uci_context* ctx, const char* name, uci_package** package) {
  return guarded(ctx, [&](Context& context) {
    require(name != nullptr && *name != '\0', UCI_ERR_INVAL);
    require(is_package_name(name), UCI_ERR_NOTFOUND);
    uci_package* loaded = load(context, name);
    if (package != nullptr) *package = loaded;
  });
}

int uci_unload(uci_context* ctx, uci_package* package) {
  return guarded(ctx, [&](Context&) {
    require(package != nullptr, UCI_ERR_INVAL);
    free_package(&package_of(package));
  });
}

int uci_save(uci_context* ctx, uci_package* package) {
  return guarded(ctx, [&](Context& context) {
    require(package != nullptr, UCI_ERR_INVAL);
    save(context, package_of(package));
  });
}

int uci_commit(uci_context* ctx, uci_package** p, bool overwrite) {
  return guarded(ctx, [&](Context& context) {
    require(p != nullptr && *p != nullptr, UCI_ERR_INVAL);
    Package& package = package_of(*p);
    const std::string name = package.e.name;
    const std::string path = package.path;
    // Held until the new file stands; other writers wait for it.
    const File file(path, O_RDWR | O_CREAT, LOCK_EX);
    require(static_cast<bool>(file), UCI_ERR_IO);
    if (!overwrite) save(context, package);
    const File delta(delta_path(context, name), O_RDWR, LOCK_EX);
    bool writes = overwrite;
    if (overwrite) {
      file.replace(path, format_package(package));
      package.unsaved.clear();
      package.saved.clear();
    } else {
      // The file may have changed since it was loaded: its present state plus all changes is what counts.
      OwnedPackage current = read_package(context, name, file);
      writes = apply_saved(*current, read_deltas(context, name, &delta));
      if (writes) file.replace(path, format_package(*current));
      current->saved.clear();
      free_package(&package);
      *p = current.release();
    }
    if (writes && delta) delta.truncate();
  });
}

int uci_revert(uci_context* ctx, uci_ptr* ptr) {
  return guarded(ctx, [&](Context& context) {
    expand(ctx, ptr);
    Package& package = package_of(ptr->p);
    save(context, package);
    const std::string name = package.e.name;
    drop_changes(context, name, section_name(*ptr), option_name(*ptr));
    free_package(&package);
    ptr->p = nullptr;
    ptr->s = nullptr;
    ptr->o = nullptr;
    ptr->last = nullptr;
    ptr->p = load(context, name);
  });
}

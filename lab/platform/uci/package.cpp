// Packages and their files: loading, saving deltas, committing.
#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "parse.hpp"

namespace standin {
namespace {

// An open, locked file.
class File {
 public:
  File(const std::string& path, int flags, int lock) : descriptor_(open(path.c_str(), flags | O_CLOEXEC, 0600)) {
    if (descriptor_ >= 0) flock(descriptor_, lock);
  }
  ~File() {
    if (descriptor_ >= 0) close(descriptor_);
  }
  File(const File&) = delete;
  File& operator=(const File&) = delete;

  explicit operator bool() const { return descriptor_ >= 0; }

  std::string read_all() const {
    std::string text;
    char block[4096];
    ssize_t length = 0;
    while ((length = read(descriptor_, block, sizeof block)) > 0) text.append(block, static_cast<size_t>(length));
    require(length == 0, UCI_ERR_IO);
    return text;
  }

  void write_all(const std::string& text) const {
    for (size_t done = 0; done < text.size();) {
      const ssize_t length = write(descriptor_, text.data() + done, text.size() - done);
      require(length > 0, UCI_ERR_IO);
      done += static_cast<size_t>(length);
    }
  }

  void truncate() const { require(ftruncate(descriptor_, 0) == 0, UCI_ERR_IO); }
  void sync() const { require(fsync(descriptor_) == 0, UCI_ERR_IO); }

 private:
  int descriptor_;
};

std::string delta_path(const Context& context, const std::string& package) {
  return context.save_directory + "/" + package;
}

std::vector<Change> read_delta(const std::string& path) {
  const File file(path, O_RDONLY, LOCK_SH);
  return file ? parse_delta(file.read_all()) : std::vector<Change>();
}

void apply_all(Package& package, const std::vector<Change>& changes) {
  for (const Change& change : changes) apply(package, change);
}

// A package as its file has it.
std::unique_ptr<Package, decltype(&free_package)> read_package(Context& context, const std::string& name) {
  const std::string path = context.configuration_directory + "/" + name;
  const File file(path, O_RDONLY, LOCK_SH);
  require(static_cast<bool>(file), errno == EACCES ? UCI_ERR_IO : UCI_ERR_NOTFOUND);
  std::unique_ptr<Package, decltype(&free_package)> package(make_package(context, name), &free_package);
  parse_package(*package, file.read_all());
  return package;
}

// Replaces a file by way of a temporary one beside it, so that a reader or a power cut never meets half of it.
void replace_file(const std::string& path, const std::string& text) {
  struct stat status = {};
  require(stat(path.c_str(), &status) == 0, UCI_ERR_IO);
  require(access(path.c_str(), W_OK) == 0, UCI_ERR_IO);
  const size_t slash = path.rfind('/');
  const std::string temporary = path.substr(0, slash) + "/." + path.substr(slash + 1) + ".uci-new";
  unlink(temporary.c_str());
  try {
    const File file(temporary, O_WRONLY | O_CREAT | O_EXCL, LOCK_EX);
    require(static_cast<bool>(file), UCI_ERR_IO);
    file.write_all(text);
    file.sync();
    require(chmod(temporary.c_str(), status.st_mode & 07777) == 0, UCI_ERR_IO);
    require(rename(temporary.c_str(), path.c_str()) == 0, UCI_ERR_IO);
  } catch (const Failure&) {
    unlink(temporary.c_str());
    throw;
  }
}

bool is_under(const Change& change, const char* section, const char* option) {
  if (section == nullptr) return true;
  if (change.section != section) return false;
  return option == nullptr || change.option == option;
}

}  // namespace
}  // namespace standin

using namespace standin;

int uci_load(uci_context* ctx, const char* name, uci_package** package) {
  return guarded(ctx, [&](Context& context) {
    require(name != nullptr && *name != '\0' && std::strchr(name, '/') == nullptr, UCI_ERR_INVAL);
    require(find(context.root, name) == nullptr, UCI_ERR_DUPLICATE);
    auto loaded = read_package(context, name);
    for (const std::string& directory : context.delta_directories)
      apply_all(*loaded, read_delta(directory + "/" + name));
    apply_all(*loaded, read_delta(delta_path(context, name)));
    if (package != nullptr) *package = loaded.get();
    loaded.release();
  });
}

int uci_unload(uci_context* ctx, uci_package* package) {
  return guarded(ctx, [&](Context&) {
    require(package != nullptr, UCI_ERR_INVAL);
    free_package(&package_of(package));
  });
}

int uci_save(uci_context* ctx, uci_package* p) {
  return guarded(ctx, [&](Context& context) {
    require(p != nullptr, UCI_ERR_INVAL);
    Package& package = package_of(p);
    if (package.unsaved.empty()) return;
    require(mkdir(context.save_directory.c_str(), 0700) == 0 || errno == EEXIST, UCI_ERR_IO);
    const File file(delta_path(context, p->e.name), O_WRONLY | O_CREAT | O_APPEND, LOCK_EX);
    require(static_cast<bool>(file), UCI_ERR_IO);
    std::string lines;
    for (const Change& change : package.unsaved) lines += format_change(p->e.name, change);
    file.write_all(lines);
    package.unsaved.clear();
  });
}

int uci_commit(uci_context* ctx, uci_package** p, bool overwrite) {
  return guarded(ctx, [&](Context& context) {
    require(p != nullptr && *p != nullptr, UCI_ERR_INVAL);
    Package& package = package_of(*p);
    const std::string name = package.e.name;
    const std::string path = package.path;
    // Held until the new file stands; other writers wait for it.
    const File lock(path, O_RDWR, LOCK_EX);
    require(static_cast<bool>(lock), UCI_ERR_IO);
    const File delta(delta_path(context, name), O_RDWR, LOCK_EX);
    const std::vector<Change> saved = delta ? parse_delta(delta.read_all()) : std::vector<Change>();
    if (overwrite) {
      replace_file(path, format_package(package));
      package.unsaved.clear();
    } else if (!saved.empty() || !package.unsaved.empty()) {
      // The file may have changed since it was loaded: its present state plus all changes is what counts.
      auto current = std::unique_ptr<Package, decltype(&free_package)>(make_package(context, name), &free_package);
      parse_package(*current, lock.read_all());
      apply_all(*current, saved);
      apply_all(*current, package.unsaved);
      replace_file(path, format_package(*current));
      free_package(&package);
      *p = current.release();
    }
    if (delta && !saved.empty()) delta.truncate();
  });
}

int uci_revert(uci_context* ctx, uci_ptr* ptr) {
  return guarded(ctx, [&](Context& context) {
    require(ptr != nullptr && ptr->p != nullptr, UCI_ERR_INVAL);
    const std::string name = ptr->p->e.name;
    const char* section = ptr->s != nullptr ? ptr->s->e.name : ptr->section;
    std::vector<Change> kept;
    if (const File delta(delta_path(context, name), O_RDWR | O_APPEND, LOCK_EX); delta) {
      for (const Change& change : parse_delta(delta.read_all())) {
        if (!is_under(change, section, ptr->option)) kept.push_back(change);
      }
      std::string lines;
      for (const Change& change : kept) lines += format_change(name, change);
      delta.truncate();
      delta.write_all(lines);
    }
    free_package(&package_of(ptr->p));
    ptr->s = nullptr;
    ptr->o = nullptr;
    require(uci_load(ctx, name.c_str(), &ptr->p) == UCI_OK, context.error);
  });
}

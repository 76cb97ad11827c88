#include "seam/device_files.hpp"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace kova::lab {
namespace {

namespace fs = std::filesystem;

constexpr const char* kRoots[] = {"/etc/config",     "/etc/lab",       "/etc/profile.d",  "/etc/rom_version",
                                  "/etc/TZ",         "/etc/localtime", "/sys/class/leds", "/tmp",
                                  "/usr/bin/bdinfo", "/usr/bin/ddns",  "/usr/bin/iwinfo", "/usr/bin/tr069",
                                  "/var/etc",        "/var/run",       "/var/state"};

// Where a program that is built below /tmp lies, there is nothing of the router's.
bool is_foreign(const fs::path& path) {
  const char* kept = std::getenv("KOVA_LAB_KEEP");
  return kept != nullptr && path == kept;
}

std::string text_of(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

void write(const fs::path& path, const std::string& text) {
  std::ofstream file(path, std::ios::binary);
  file << text;
  if (!file.flush()) throw std::runtime_error("cannot write " + path.string());
}

}  // namespace

DeviceFiles::DeviceFiles() {
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

void DeviceFiles::note(const fs::path& path) {
  const fs::file_status status = fs::symlink_status(path);
  if (fs::is_directory(status)) directories_.insert(path);
  if (!fs::is_regular_file(status)) return;
  texts_[path] = text_of(path);
  permissions_[path] = status.permissions();
}

void DeviceFiles::restore() const {
  const DeviceFiles now;
  for (const auto& [path, ignored] : now.texts_) {
    if (!texts_.contains(path)) fs::remove(path);
  }
  for (const fs::path& path : now.directories_) {
    if (!directories_.contains(path)) fs::remove_all(path);
  }
  for (const fs::path& path : directories_) fs::create_directories(path);
  for (const auto& [path, text] : texts_) {
    const auto present = now.texts_.find(path);
    if (present != now.texts_.end() && present->second == text) continue;
    write(path, text);
    fs::permissions(path, permissions_.at(path));
  }
}

}  // namespace kova::lab

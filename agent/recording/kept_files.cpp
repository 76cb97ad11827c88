#include "recording/kept_files.hpp"

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <system_error>

#include "task_records.hpp"

namespace kovadm {
namespace {

namespace fs = std::filesystem;

// Larger files are no configuration.
constexpr std::uintmax_t kLargest = 1024UL * 1024;

Files read_directory(const char* directory) {
  Files files;
  std::error_code gone;
  for (const fs::directory_entry& file : fs::directory_iterator(directory, gone)) {
    if (!file.is_regular_file(gone) || file.file_size(gone) > kLargest || is_task_record(file.path())) continue;
    std::ostringstream text;
    text << std::ifstream(file.path(), std::ios::binary).rdbuf();
    files[file.path().filename()] = text.str();
  }
  return files;
}

std::optional<std::string> find(const KeptFiles& kept, const std::string& directory, const std::string& name) {
  const auto files = kept.find(directory);
  if (files == kept.end()) return std::nullopt;
  const auto file = files->second.find(name);
  return file != files->second.end() ? std::optional(file->second) : std::nullopt;
}

}  // namespace

KeptFiles read_kept_files() {
  KeptFiles kept;
  std::error_code missing;
  for (const char* directory : kKeptDirectories) {
    if (fs::is_directory(directory, missing)) kept[directory] = read_directory(directory);
  }
  return kept;
}

std::map<std::string, std::optional<std::string>> changes(const KeptFiles& before, const KeptFiles& after) {
  std::map<std::string, std::optional<std::string>> changed;
  for (const KeptFiles* kept : {&before, &after}) {
    for (const auto& [directory, files] : *kept) {
      for (const auto& [name, ignored] : files) {
        const auto now = find(after, directory, name);
        if (now != find(before, directory, name)) changed[file_in(directory, name)] = now;
      }
    }
  }
  return changed;
}

void write_file(const std::string& path, const std::string& text) {
  std::ofstream file(path, std::ios::binary);
  if (!(file << text).flush()) throw std::system_error(errno, std::generic_category(), path);
}

}  // namespace kovadm

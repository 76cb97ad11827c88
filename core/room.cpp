#include "room.hpp"

#include <string.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/vfs.h>
#include <unistd.h>

#include "log.hpp"
#include "text.hpp"

namespace kova {
namespace {

constexpr uint64_t length_of(const char* text) { return __builtin_strlen(text); }

uint64_t option_size(const uci_option& option) {
  const uint64_t name = strlen(option.e.name);
  if (option.type == UCI_TYPE_STRING) return length_of("\toption  ''\n") + name + quoted_size(option.v.string);
  uint64_t size = 0;
  uci_element* item = nullptr;
  uci_foreach_element(&option.v.list, item) size += length_of("\tlist  ''\n") + name + quoted_size(item->name);
  return size;
}

uint64_t section_size(const uci_section& section) {
  uint64_t size = length_of("\nconfig \n") + quoted_size(section.type);
  if (!section.anonymous) size += length_of(" ''") + quoted_size(section.e.name);
  uci_element* option = nullptr;
  uci_foreach_element(&section.options, option) size += option_size(*uci_to_option(option));
  return size;
}

// A file system and the room that it has for this process.
class FileSystem {
 public:
  explicit FileSystem(const char* directory) {
    struct stat place;
    struct statfs system;
    if (stat(directory, &place) != 0 || statfs(directory, &system) != 0) return;
    device_ = place.st_dev;
    block_ = system.f_blocks != 0 ? static_cast<uint64_t>(system.f_frsize) : 0;
    free_ = geteuid() == 0 ? system.f_bfree : system.f_bavail;  // some of it is kept for root
  }

  bool is(const FileSystem& other) const { return device_ == other.device_; }

  // Whether files of these sizes fit. True when it cannot tell.
  bool has_room(uint64_t size, uint64_t other_size = 0) const {
    return block_ == 0 || blocks(size) + blocks(other_size) <= free_;
  }

 private:
  uint64_t blocks(uint64_t bytes) const { return (bytes + block_ - 1) / block_; }

  dev_t device_ = 0;
  uint64_t block_ = 0;
  uint64_t free_ = 0;
};

// Whether this process may write a file of this size.
bool is_allowed(uint64_t size) {
  rlimit limit;
  return getrlimit(RLIMIT_FSIZE, &limit) != 0 || size <= limit.rlim_cur;
}

}  // namespace

uint64_t quoted_size(const char* value) {
  const char* end = strchrnul(value, '\'');
  uint64_t quotes = 0;
  for (; *end != '\0'; end = strchrnul(end + 1, '\'')) ++quotes;
  return static_cast<uint64_t>(end - value) + 3 * quotes;
}

uint64_t file_size(const uci_package& package) {
  uint64_t size = length_of("\n");
  uci_element* section = nullptr;
  uci_foreach_element(&package.sections, section) size += section_size(*uci_to_section(section));
  return size;
}

bool others_wait(const char* package) {
  Text<512> path;
  struct stat changes;
  return !path.print("/tmp/.uci/%s", package) || (stat(path.c_str(), &changes) == 0 && changes.st_size != 0);
}

bool has_room(const char* directory, uint64_t size, uint64_t change) {
  const FileSystem package_files(directory);
  const FileSystem changes("/tmp");
  const bool fits = package_files.is(changes) ? package_files.has_room(size, change)
                                              : package_files.has_room(size) && changes.has_room(change);
  const bool room = fits && is_allowed(size);
  if (!room) LOG("no room for %s\n", directory);
  return room;
}

}  // namespace kova

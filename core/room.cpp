#include "room.hpp"

#include <string.h>
#include <sys/vfs.h>

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

bool has_room(const char* directory, uint64_t size, uint64_t beside) {
  struct statfs system;
  if (statfs(directory, &system) != 0 || system.f_blocks == 0 || system.f_frsize == 0) return true;
  const auto block = static_cast<uint64_t>(system.f_frsize);
  const auto blocks = [&](uint64_t bytes) { return (bytes + block - 1) / block; };
  return blocks(size) + blocks(beside) <= system.f_bavail;
}

}  // namespace kova

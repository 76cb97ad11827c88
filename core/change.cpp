// Changes of the configuration store, each of one option, written and committed at once.
#include <ctype.h>
#include <stdio.h>
#include <string.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <iterator>

#include "file.hpp"
#include "room.hpp"
#include "store.hpp"
#include "text.hpp"

namespace kova {
namespace {

constexpr char kMirrorParent[] = "/tmp";
constexpr char kMirrorDirectory[] = "/tmp/cwmp-config";
constexpr char kForcedMirrorDirectory[] = "/tmp/cwmp-config-force";

bool equal(const char* one, const char* other) { return strcmp(one, other) == 0; }

// A name that stands for itself in a path of libuci's.
bool is_plain(const char* name) {
  return name != nullptr && strchr(name, '.') == nullptr && strchr(name, '=') == nullptr;
}

// What the platform takes for a name and for a value. It does not look everywhere itself.
bool is_name(const char* name) {
  return *name != '\0' && name[strspn(name, "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_")] == '\0';
}
bool is_storable(const char* value) {
  for (; *value != '\0'; ++value) {
    if (static_cast<unsigned char>(*value) < ' ' && strchr("\t\n\r", *value) == nullptr) return false;
  }
  return true;
}

// One option's change, as an exported function was asked for it.
struct Change {
  const char* package;
  const char* section;
  const char* option;
  const char* value;

  // Whether all of it is given, by plain names.
  bool is_valid() const { return is_plain(package) && is_plain(section) && is_plain(option) && value != nullptr; }

  // Whether the agent has to take it over even where it would keep its own value.
  bool is_forced() const { return is("network", "vlan", "enable") || is("wifi", "ap", "beamforming"); }

  // The bytes by which it lets a file of the store grow at most, or a file of changes.
  uint64_t size() const {
    constexpr uint64_t kRest = 64;  // what stands between the names: words, dots, quotes, line ends
    return strlen(package) + 4 * strlen(section) + 2 * strlen(option) + quoted_size(value) + kRest;
  }

 private:
  bool is(const char* its_package, const char* its_section, const char* its_option) const {
    return equal(package, its_package) && equal(section, its_section) && equal(option, its_option);
  }
};

// Fails a change that was possible until its last step.
bool refuse(const Change& change, int error) {
  LOG("uci set err:%s.%s.%s=%s %d\n\n", change.package, change.section, change.option, change.value, error);
  return false;
}

// Sets an option, or with a nullptr for its name a section's type, as loaded. A libuci error code.
int set_element(uci_context* context, const char* package, const char* section, const char* option, const char* value) {
  if (option != nullptr && !is_name(option)) return UCI_ERR_PARSE;
  if (!is_storable(value)) return UCI_ERR_INVAL;
  uci_ptr element = {};
  element.package = package;
  element.section = section;
  element.option = option;
  if (const int error = uci_lookup_ptr(context, &element, nullptr, false); error != UCI_OK) return error;
  element.value = value;
  return uci_set(context, &element);
}

int set_option(uci_context* context, const Change& change) {
  return set_element(context, change.package, change.section, change.option, change.value);
}

bool set_option_creating_section(uci_context* context, const Change& change) {
  const int first_error = set_option(context, change);
  if (first_error == UCI_OK) return true;
  LOG("uci set err\n");
  // The section may well be there, and must not get another type then.
  if (first_error == UCI_ERR_MEM) return refuse(change, first_error);
  const int section_error = is_name(change.section)
                                ? set_element(context, change.package, change.section, nullptr, change.section)
                                : UCI_ERR_INVAL;
  if (section_error != UCI_OK) {
    LOG("uci set err:%s.%s %d \n\n", change.package, change.section, section_error);
    return false;
  }
  const int error = set_option(context, change);
  return error == UCI_OK || refuse(change, error);
}

// Whether the package holds the change already, and nothing else is committed with it.
bool changes_nothing(uci_context* context, uci_package* package, const Change& change) {
  if (others_wait(change.package)) return false;
  uci_section* section = uci_lookup_section(context, package, change.section);
  if (section == nullptr) return false;
  const uci_option* option = uci_lookup_option(context, section, change.option);
  if (option == nullptr) return change.value[0] == '\0';
  return option->type == UCI_TYPE_STRING && equal(option->v.string, change.value);
}

bool create_empty_file(const char* path) {
  LOG("create file!\n\n");
  const File file(path, "a");  // should it be there after all, it keeps what it has
  if (file) return true;
  LOG("create file %s failed!\n\n", path);
  return false;
}

// Makes sure that a mirror has a file for the package, since libuci loads only existing ones.
bool prepare_mirror(const char* directory, const char* package) {
  Text<512> path;
  const bool fits = path.print("%s/%s", directory, package);
  LOG("file %s\n\n", path.c_str());
  if (fits && access(path.c_str(), F_OK) == 0) return true;
  if (access(directory, F_OK) != 0) {
    LOG("mkdir .\n");
    if (mkdir(directory, 0777) != 0) {
      LOG("mkdir err.\n");
      return false;
    }
  }
  if (fits) return create_empty_file(path.c_str());
  LOG("create file %s failed!\n\n", path.c_str());
  return false;
}

const char* shown(const char* text) { return text != nullptr ? text : "(null)"; }

// Writes and commits one option below `directory`, or in the main store when there is none.
bool uci_write_option(const Change& change, const char* directory) {
  LOG("uci set %s.%s.%s=%s.\n\n", shown(change.package), shown(change.section), shown(change.option),
      shown(change.value));
  ConfigContext context(directory);
  if (!context) {
    LOG("uci alloc ctx error.\n\n");
    return false;
  }
  if (!change.is_valid()) {
    LOG("invalid uci set arg.\n\n");
    return false;
  }
  if (directory == nullptr) {
    LOG("DTSP.\n\n");
  } else if (!prepare_mirror(directory, change.package)) {
    return false;
  }
  uci_package* package = context.load(change.package);
  if (package == nullptr) {
    LOG("uci_load err!\n");
    return false;
  }
  const bool writes = !changes_nothing(context.get(), package, change);
  if (!set_option_creating_section(context.get(), change)) return false;
  const char* place = directory != nullptr ? directory : kMainDirectory;
  if (writes && !has_room(place, file_size(*package), change.size())) return false;
  uci_commit(context.get(), &package, false);
  return true;
}

// Whether there is room for the change in the mirror, once the main store has it.
bool mirror_has_room(const char* mirror, const Change& change) {
  if (!change.is_valid()) return true;
  ConfigContext context(mirror);
  uci_package* package = context ? context.load(change.package) : nullptr;
  if (package != nullptr && changes_nothing(context.get(), package, change)) return true;
  const uint64_t present = package != nullptr ? file_size(*package) : 0;
  return has_room(access(mirror, F_OK) == 0 ? mirror : kMirrorParent, present + change.size(), change.size());
}

}  // namespace

bool write_option(Section section, const char* option, const char* value) {
  return uci_raw_set_value(section.package, section.name, option, value) == 0;
}

}  // namespace kova

using namespace kova;

int32_t uci_raw_set_value(const char* package, const char* section, const char* option, const char* value) {
  const Effect effect;
  const Change change{package, section, option, value};
  LOG("SUCF.\n\n");
  const bool forced = change.is_valid() && change.is_forced();
  const char* mirror = forced ? kForcedMirrorDirectory : kMirrorDirectory;
  if (!mirror_has_room(mirror, change) || !uci_write_option(change, nullptr)) {
    LOG("FTSUC.\n\n");
    return -1;
  }
  LOG("SSTBF.\n\n");
  LOG("FRSS.\n");
  LOG("AC %d\n\n", forced ? 0 : 1);
  return uci_write_option(change, mirror) ? 0 : -1;
}

int32_t uci_raw_set_value_By_path(const char* package, const char* section, const char* option, const char* value) {
  const Effect effect;
  const Change change{package, section, option, value};
  ConfigContext context(kStateDirectory);
  if (!context) {
    LOG("uci alloc ctx err.\n\n");
    return -1;
  }
  if (!change.is_valid()) {
    LOG("Invalid input arg.\n\n");
    return -1;
  }
  uci_package* loaded = context.load(package);
  if (loaded == nullptr) {
    LOG("uci load error!\n");
    return -1;
  }
  const bool writes = !changes_nothing(context.get(), loaded, change);
  int error = set_option(context.get(), change);
  if (error == UCI_OK && writes && !has_room(kStateDirectory, file_size(*loaded), change.size())) error = UCI_ERR_IO;
  if (error != UCI_OK) {
    LOG("uci set error:%s.%s.%s=%s %d\n\n", package, section, option, value, error);
    return -1;
  }
  uci_commit(context.get(), &loaded, false);
  return 0;
}

int32_t uciRevert(const char* path) {
  const Effect effect;
  if (path == nullptr) {
    LOG("Invalid input arg.\n");
    return -1;
  }
  const ConfigContext context(kMainDirectory);
  if (!context || uci_set_savedir(context.get(), "/var/state") != UCI_OK) {
    LOG("uci alloc ctx err.\n\n");
    return -1;
  }

  Text<101> work(path);
  uci_ptr element = {};
  if (uci_lookup_ptr(context.get(), &element, work.data(), true) != UCI_OK) {
    LOG("uci get %s err\n", path);
    return -1;
  }
  if (const int error = uci_revert(context.get(), &element); error != UCI_OK) {
    LOG("uci rvt %s err %d\n", path, error);
    return -1;
  }
  return 0;
}

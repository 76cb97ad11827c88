#include "store.hpp"

#include <errno.h>
#include <stdio.h>
#include <string.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <initializer_list>
#include <iterator>

#include "room.hpp"
#include "text.hpp"

namespace kova {
namespace {

constexpr int kSuccess = 0;
constexpr int kFailure = -1;

constexpr char kMainDirectory[] = "/etc/config";
constexpr char kRevertDirectory[] = "/var/state";
constexpr char kStateDirectory[] = "/tmp/tr069";
constexpr char kProfileDirectory[] = "/etc/profile.d";
constexpr char kMirrorParent[] = "/tmp";
constexpr char kMirrorDirectory[] = "/tmp/cwmp-config";
constexpr char kForcedMirrorDirectory[] = "/tmp/cwmp-config-force";

// Changes that the agent has to take over even where it would keep its own value.
constexpr std::string_view kForcedKeys[] = {"network.vlan.enable", "network.vlan", "wifi.ap.beamforming"};

const char* string_value(const uci_option* option) {
  return option != nullptr && option->type == UCI_TYPE_STRING ? option->v.string : nullptr;
}

// The agent's output buffers come without a size and are large enough by agreement.
std::span<char> unbounded(char* output) { return {output, SIZE_MAX - reinterpret_cast<uintptr_t>(output)}; }

// A name that stands for itself in a path of libuci's.
bool is_plain(const char* name) {
  return name != nullptr && strchr(name, '.') == nullptr && strchr(name, '=') == nullptr;
}

// Names joined to a path. Not a Text: there are several in a write, and only what is used is ever touched.
class Path {
 public:
  Path() { text_[0] = '\0'; }

  // False, with as many names as fit, when they do not fit.
  bool join(char separator, std::initializer_list<const char*> names) {
    size_t used = 0;
    for (const char* name : names) {
      const size_t length = strlen(name);
      if (used + length + 1 > sizeof text_) {
        text_[std::min(used, sizeof text_ - 1)] = '\0';
        return false;
      }
      memcpy(&text_[used], name, length);
      used += length + 1;
      text_[used - 1] = separator;
    }
    text_[used - 1] = '\0';
    return true;
  }

  const char* c_str() const { return text_; }

  // For a library that takes paths apart: a copy, into as much room.
  static constexpr size_t kSize = 512;
  void copy_to(char (&place)[kSize]) const { strcpy(place, text_); }

 private:
  char text_[kSize];
};

// A change of one option, as an exported function was asked for it.
struct Change {
  Change(const char* its_package, const char* its_section, const char* its_option, const char* its_value)
      : package(its_package), section(its_section), option(its_option), value(its_value) {
    if (is_valid) has_path = path.join('.', {package, section, option});
  }

  bool is_forced() const {
    const std::string_view written = path.c_str();
    return std::any_of(std::begin(kForcedKeys), std::end(kForcedKeys),
                       [&](std::string_view key) { return written == key; });
  }

  const char* package;
  const char* section;
  const char* option;
  const char* value;
  // Whether all of it is given, by plain names.
  bool is_valid = is_plain(package) && is_plain(section) && is_plain(option) && value != nullptr;
  Path path;
  bool has_path = false;
};

// Sets the element that `path` names, as libuci sees it: with a value of any length.
int set_element(uci_context* context, const Path& path, const char* value) {
  char place[Path::kSize];
  path.copy_to(place);
  uci_ptr element = {};
  const int error = uci_lookup_ptr(context, &element, place, false);
  if (error != UCI_OK) return error;
  element.value = value;
  return uci_set(context, &element);
}

int set_option(uci_context* context, const Change& change) {
  return change.has_path ? set_element(context, change.path, change.value) : UCI_ERR_INVAL;
}

int create_section(uci_context* context, const Change& change) {
  Path path;
  if (!path.join('.', {change.package, change.section})) return UCI_ERR_INVAL;
  return set_element(context, path, change.section);
}

// Fails a change that was possible until its last step.
int refuse_set(const Change& change, int error) {
  LOG("uci set err:%s.%s.%s=%s %d\n\n", change.package, change.section, change.option, change.value, error);
  return kFailure;
}

int set_option_creating_section(uci_context* context, const Change& change) {
  const int first_error = set_option(context, change);
  if (first_error == UCI_OK) return kSuccess;
  LOG("uci set err\n");
  // The section may well be there, and must not get another type then.
  if (first_error == UCI_ERR_MEM) return refuse_set(change, first_error);
  if (const int error = create_section(context, change); error != UCI_OK) {
    LOG("uci set err:%s.%s %d \n\n", change.package, change.section, error);
    return kFailure;
  }
  const int error = set_option(context, change);
  return error == UCI_OK ? kSuccess : refuse_set(change, error);
}

int create_empty_file(const char* path) {
  LOG("create file!\n\n");
  FILE* file = fopen(path, "a");  // should it be there after all, it keeps what it has
  if (file == nullptr) {
    LOG("create file %s failed!\n\n", path);
    return kFailure;
  }
  fclose(file);
  return kSuccess;
}

// Makes sure that a mirror has a file for the package, since libuci loads only existing ones.
int prepare_mirror(const char* directory, const char* package) {
  Path path;
  const bool fits = path.join('/', {directory, package});
  LOG("file %s\n\n", path.c_str());
  if (fits && access(path.c_str(), F_OK) == 0) return kSuccess;
  if (access(directory, F_OK) != 0) {
    LOG("mkdir .\n");
    if (mkdir(directory, 0777) != 0) {
      LOG("mkdir err.\n");
      return kFailure;
    }
  }
  if (!fits) {
    LOG("create file %s failed!\n\n", path.c_str());
    return kFailure;
  }
  return create_empty_file(path.c_str());
}

const char* shown(const char* text) { return text != nullptr ? text : "(null)"; }

// Writes and commits one option below `directory`, or in the main store when there is none.
int uci_write_option(const Change& change, const char* directory) {
  LOG("uci set %s.%s.%s=%s.\n\n", shown(change.package), shown(change.section), shown(change.option),
      shown(change.value));
  const ConfigContext context(directory);
  if (!context) {
    LOG("uci alloc ctx error.\n\n");
    return kFailure;
  }
  if (!change.is_valid) {
    LOG("invalid uci set arg.\n\n");
    return kFailure;
  }
  if (directory == nullptr) {
    LOG("DTSP.\n\n");
  } else if (prepare_mirror(directory, change.package) != kSuccess) {
    return kFailure;
  }
  uci_package* loaded = context.load(change.package);
  if (loaded == nullptr) {
    LOG("uci_load err!\n");
    return kFailure;
  }
  if (set_option_creating_section(context.get(), change) != kSuccess) return kFailure;
  const char* place = directory != nullptr ? directory : kMainDirectory;
  if (!has_room(place, file_size(*loaded))) return refuse_set(change, UCI_ERR_IO);
  uci_commit(context.get(), &loaded, false);
  return kSuccess;
}

// The bytes by which a change lets a file of the store grow at most, or a file of changes.
uint64_t size_of(const Change& change) {
  constexpr uint64_t kRest = 64;  // what stands between the names: words, dots, quotes, line ends
  return strlen(change.package) + 4 * strlen(change.section) + 2 * strlen(change.option) + quoted_size(change.value) +
         kRest;
}

// Whether there is room for the change in the mirror, once the main store has it. libuci keeps the change itself in a
// file for the time of a commit, and that beside the mirrors.
bool mirror_has_room(const char* mirror, const Change& change) {
  if (!change.is_valid) return true;
  Path path;
  struct stat file;
  const bool is_there = path.join('/', {mirror, change.package}) && stat(path.c_str(), &file) == 0;
  const uint64_t present = is_there ? static_cast<uint64_t>(file.st_size) : 0;
  const uint64_t more = size_of(change);
  return has_room(is_there || access(mirror, F_OK) == 0 ? mirror : kMirrorParent, present + more, more);
}

}  // namespace

ConfigContext::ConfigContext(const char* directory) : context_(uci_alloc_context()) {
  if (context_ == nullptr || directory == nullptr || uci_set_confdir(context_, directory) == UCI_OK) return;
  uci_free_context(context_);
  context_ = nullptr;
}

uci_package* ConfigContext::load(const char* package) const {
  uci_package* loaded = nullptr;
  return uci_load(context_, package, &loaded) == UCI_OK ? loaded : nullptr;
}

WalkedPackage::WalkedPackage(const char* name, Origin origin, LogMessage load_failure) {
  static constexpr LogMessage kNoContext = "[ERR]failed to alloc uci ctx.\n";
  if (!context_) {
    kNoContext.print(origin);
    return;
  }
  package_ = context_.load(name);
  if (package_ == nullptr) load_failure.print(origin);
}

bool read_option(Section section, const char* option, std::span<char> value) {
  const ConfigContext context;
  if (!context) {
    LOG("uci alloc ctx error.\n\n");
    return false;
  }
  uci_package* package = context.load(section.package);
  if (package == nullptr) {
    LOG("uci load error.\n\n");
    return false;
  }
  uci_section* found = uci_lookup_section(context.get(), package, section.name);
  if (found == nullptr) {
    LOG("uci lookup error:%s\n\n", section.name);
    return false;
  }
  const char* text = string_value(uci_lookup_option(context.get(), found, option));
  if (text == nullptr) {
    LOG("uci lookup error:%s\n\n", option);
    return false;
  }
  copy_text(value, text);
  return true;
}

bool option_is(Section section, const char* option, const char* value) {
  Text<64> stored;
  return read_option(section, option, stored.span()) && stored == value;
}

bool read_state_option(Section section, const char* option, std::span<char> value) {
  const ConfigContext context(kStateDirectory);
  if (!context) {
    LOG("uci alloc ctx err.\n\n");
    return false;
  }
  uci_package* package = context.load(section.package);
  if (package == nullptr) {
    LOG("uci load error.\n\n");
    return false;
  }
  uci_section* found = uci_lookup_section(context.get(), package, section.name);
  if (found == nullptr) {
    // The name is fixed whatever was looked for: the first table kept this way was that of the access points.
    LOG("uci lookup error:%s\n\n", "ap");
    return false;
  }
  const char* text = string_value(uci_lookup_option(context.get(), found, option));
  if (text == nullptr) return false;
  copy_text(value, text);
  return true;
}

bool write_option(Section section, const char* option, const char* value) {
  return uci_raw_set_value(section.package, section.name, option, value) == 0;
}

}  // namespace kova

using namespace kova;

int32_t uci_raw_extract_value(const char* package, const char* section, const char* option, char* output) {
  return read_option({package, section}, option, unbounded(output)) ? kSuccess : kFailure;
}

int32_t uci_raw_extract_value_By_path(const char* package, const char* section, const char* option, char* output) {
  return read_state_option({package, section}, option, unbounded(output)) ? kSuccess : kFailure;
}

int32_t uci_raw_set_value(const char* package, const char* section, const char* option, const char* value) {
  const Change change(package, section, option, value);
  LOG("SUCF.\n\n");
  const bool forced = change.is_forced();
  const char* mirror = forced ? kForcedMirrorDirectory : kMirrorDirectory;
  const bool room = mirror_has_room(mirror, change);
  if (!room) refuse_set(change, UCI_ERR_IO);
  if (!room || uci_write_option(change, nullptr) != kSuccess) {
    LOG("FTSUC.\n\n");
    return kFailure;
  }
  LOG("SSTBF.\n\n");
  LOG("FRSS.\n");
  LOG("AC %d\n\n", forced ? 0 : 1);
  return uci_write_option(change, mirror);
}

int32_t uci_raw_set_value_By_path(const char* package, const char* section, const char* option, const char* value) {
  const Change change(package, section, option, value);
  const ConfigContext context(kStateDirectory);
  if (!context) {
    LOG("uci alloc ctx err.\n\n");
    return kFailure;
  }
  if (!change.is_valid) {
    LOG("Invalid input arg.\n\n");
    return kFailure;
  }
  uci_package* loaded = context.load(package);
  if (loaded == nullptr) {
    LOG("uci load error!\n");
    return kFailure;
  }
  int error = set_option(context.get(), change);
  if (error == UCI_OK && !has_room(kStateDirectory, file_size(*loaded), size_of(change))) error = UCI_ERR_IO;
  if (error != UCI_OK) {
    LOG("uci set error:%s.%s.%s=%s %d\n\n", package, section, option, value, error);
    return kFailure;
  }
  uci_commit(context.get(), &loaded, false);
  return kSuccess;
}

int32_t uciRevert(const char* path) {
  if (path == nullptr) {
    LOG("Invalid input arg.\n");
    return kFailure;
  }
  const ConfigContext context(kMainDirectory);
  if (!context || uci_set_savedir(context.get(), kRevertDirectory) != UCI_OK) {
    LOG("uci alloc ctx err.\n\n");
    return kFailure;
  }

  Text<101> work(path);
  uci_ptr element = {};
  if (uci_lookup_ptr(context.get(), &element, work.data(), true) != UCI_OK) {
    LOG("uci get %s err\n", path);
    return kFailure;
  }
  if (const int error = uci_revert(context.get(), &element); error != UCI_OK) {
    LOG("uci rvt %s err %d\n", path, error);
    return kFailure;
  }
  return kSuccess;
}

int32_t uciGetProfileValue(const char* type, const char* option, char* output, int32_t length) {
  if (!is_plain(type) || !is_plain(option) || output == nullptr || length <= 0) {
    LOG("Invalid input arg.\n\n");
    return kFailure;
  }
  const ConfigContext context(kProfileDirectory);
  if (!context) {
    LOG("uci alloc cxt error.\n\n");
    return kFailure;
  }
  if (context.load("profile") == nullptr) {
    LOG("uci load error.\n\n");
    return kFailure;
  }
  Text<512> path;
  path.print("profile.@%s[0].%s", type, option);
  uci_ptr element = {};
  const char* value =
      uci_lookup_ptr(context.get(), &element, path.data(), true) == UCI_OK ? string_value(element.o) : nullptr;
  if (value == nullptr) {
    LOG("uci lookup error:%s.%s\n\n", type, option);
    return kFailure;
  }
  strncpy(output, value, static_cast<size_t>(length));
  output[length + 1] = '\0';
  return kSuccess;
}

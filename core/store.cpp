#include "store.hpp"

#include <errno.h>
#include <stdio.h>
#include <string.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <iterator>

#include "text.hpp"

namespace kova {
namespace {

constexpr int kSuccess = 0;
constexpr int kFailure = -1;

constexpr char kMainDirectory[] = "/etc/config";
constexpr char kRevertDirectory[] = "/var/state";
constexpr char kStateDirectory[] = "/tmp/tr069";
constexpr char kProfileDirectory[] = "/etc/profile.d";
constexpr char kMirrorDirectory[] = "/tmp/cwmp-config";
constexpr char kForcedMirrorDirectory[] = "/tmp/cwmp-config-force";

// Changes that the agent has to take over even where it would keep its own value.
constexpr const char* kForcedKeys[] = {"network.vlan.enable", "network.vlan", "wifi.ap.beamforming"};

using ElementName = Text<512>;

bool is_forced(const char* path) {
  return std::any_of(std::begin(kForcedKeys), std::end(kForcedKeys),
                     [path](const char* key) { return strcmp(path, key) == 0; });
}

const char* string_value(const uci_option* option) {
  return option != nullptr && option->type == UCI_TYPE_STRING ? option->v.string : nullptr;
}

// The agent's output buffers come without a size and are large enough by agreement.
std::span<char> unbounded(char* output) { return {output, SIZE_MAX - reinterpret_cast<uintptr_t>(output)}; }

// Sets the element that `path` names, as libuci sees it: with a value of any length.
int set_element(uci_context* context, ElementName path, const char* value) {
  uci_ptr element = {};
  const int error = uci_lookup_ptr(context, &element, path.data(), false);
  if (error != UCI_OK) return error;
  element.value = value;
  return uci_set(context, &element);
}

int set_option(uci_context* context, const char* package, const char* section, const char* option, const char* value) {
  ElementName path;
  if (!path.print("%s.%s.%s", package, section, option)) return UCI_ERR_INVAL;
  return set_element(context, path, value);
}

int create_section(uci_context* context, const char* package, const char* section) {
  ElementName path;
  if (!path.print("%s.%s", package, section)) return UCI_ERR_INVAL;
  return set_element(context, path, section);
}

int set_option_creating_section(uci_context* context, const char* package, const char* section, const char* option,
                                const char* value) {
  if (set_option(context, package, section, option, value) == UCI_OK) return kSuccess;
  LOG("uci set err\n");
  if (const int error = create_section(context, package, section); error != UCI_OK) {
    LOG("uci set err:%s.%s %d \n\n", package, section, error);
    return kFailure;
  }
  if (const int error = set_option(context, package, section, option, value); error != UCI_OK) {
    LOG("uci set err:%s.%s.%s=%s %d\n\n", package, section, option, value, error);
    return kFailure;
  }
  return kSuccess;
}

int create_empty_file(const char* path) {
  LOG("create file!\n\n");
  FILE* file = fopen(path, "w");
  if (file == nullptr) {
    LOG("create file %s failed!\n\n", path);
    return kFailure;
  }
  fclose(file);
  return kSuccess;
}

// Makes sure that a mirror has a file for the package, since libuci loads only existing ones.
int prepare_mirror(const char* directory, const char* package) {
  Text<512> path;
  const bool fits = path.print("%s/%s", directory, package);
  LOG("file %s\n\n", path.c_str());
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
  if (access(path.c_str(), F_OK) == 0) return kSuccess;
  return create_empty_file(path.c_str());
}

const char* shown(const char* text) { return text != nullptr ? text : "(null)"; }

// Writes and commits one option below `directory`, or in the main store when there is none.
int uci_write_option(const char* package, const char* section, const char* option, const char* value,
                     const char* directory) {
  LOG("uci set %s.%s.%s=%s.\n\n", shown(package), shown(section), shown(option), shown(value));
  const ConfigContext context;
  if (!context) {
    LOG("uci alloc ctx error.\n\n");
    return kFailure;
  }
  if (package == nullptr || section == nullptr || option == nullptr || value == nullptr) {
    LOG("invalid uci set arg.\n\n");
    return kFailure;
  }
  if (directory == nullptr) {
    LOG("DTSP.\n\n");
  } else {
    uci_set_confdir(context.get(), directory);
    if (prepare_mirror(directory, package) != kSuccess) return kFailure;
  }
  uci_package* loaded = context.load(package);
  if (loaded == nullptr) {
    LOG("uci_load err!\n");
    return kFailure;
  }
  if (set_option_creating_section(context.get(), package, section, option, value) != kSuccess) return kFailure;
  uci_commit(context.get(), &loaded, false);
  return kSuccess;
}

}  // namespace

uci_package* ConfigContext::load(const char* package) const {
  uci_package* loaded = nullptr;
  return uci_load(context_, package, &loaded) == UCI_OK ? loaded : nullptr;
}

WalkedPackage::WalkedPackage(const char* name, Origin origin, const LogMessage& load_failure) {
  static constexpr LogMessage kNoContext = "[ERR]failed to alloc uci ctx.\n";
  if (!context_) {
    kNoContext.print(origin);
    return;
  }
  package_ = context_.load(name);
  if (package_ == nullptr) load_failure.print(origin);
}

int read_option(Section section, const char* option, std::span<char> value) {
  const ConfigContext context;
  if (!context) {
    LOG("uci alloc ctx error.\n\n");
    return kFailure;
  }
  uci_package* package = context.load(section.package);
  if (package == nullptr) {
    LOG("uci load error.\n\n");
    return kFailure;
  }
  uci_section* found = uci_lookup_section(context.get(), package, section.name);
  if (found == nullptr) {
    LOG("uci lookup error:%s\n\n", section.name);
    return kFailure;
  }
  const char* text = string_value(uci_lookup_option(context.get(), found, option));
  if (text == nullptr) {
    LOG("uci lookup error:%s\n\n", option);
    return kFailure;
  }
  copy_text(value, text);
  return kSuccess;
}

bool option_is(Section section, const char* option, const char* value) {
  Text<64> stored;
  return read_option(section, option, stored.span()) == kSuccess && stored == value;
}

int read_state_option(Section section, const char* option, std::span<char> value) {
  const ConfigContext context;
  if (!context) {
    LOG("uci alloc ctx err.\n\n");
    return kFailure;
  }
  uci_set_confdir(context.get(), kStateDirectory);
  uci_package* package = context.load(section.package);
  if (package == nullptr) {
    LOG("uci load error.\n\n");
    return kFailure;
  }
  uci_section* found = uci_lookup_section(context.get(), package, section.name);
  if (found == nullptr) {
    // The name is fixed whatever was looked for: the first table kept this way was that of the access points.
    LOG("uci lookup error:%s\n\n", "ap");
    return kFailure;
  }
  const char* text = string_value(uci_lookup_option(context.get(), found, option));
  if (text == nullptr) return kFailure;
  copy_text(value, text);
  return kSuccess;
}

}  // namespace kova

using namespace kova;

int32_t uci_raw_extract_value(const char* package, const char* section, const char* option, char* output) {
  return read_option({package, section}, option, unbounded(output));
}

int32_t uci_raw_extract_value_By_path(const char* package, const char* section, const char* option, char* output) {
  return read_state_option({package, section}, option, unbounded(output));
}

int32_t uci_raw_set_value(const char* package, const char* section, const char* option, const char* value) {
  LOG("SUCF.\n\n");
  if (uci_write_option(package, section, option, value, nullptr) != kSuccess) {
    LOG("FTSUC.\n\n");
    return kFailure;
  }
  LOG("SSTBF.\n\n");
  Text<128> path;
  path.print("%s.%s.%s", package, section, option);
  LOG("FRSS.\n");
  const bool forced = is_forced(path.c_str());
  LOG("AC %d\n\n", forced ? 0 : 1);
  return uci_write_option(package, section, option, value, forced ? kForcedMirrorDirectory : kMirrorDirectory);
}

int32_t uci_raw_set_value_By_path(const char* package, const char* section, const char* option, const char* value) {
  const ConfigContext context;
  if (!context) {
    LOG("uci alloc ctx err.\n\n");
    return kFailure;
  }
  if (package == nullptr || section == nullptr || option == nullptr || value == nullptr) {
    LOG("Invalid input arg.\n\n");
    return kFailure;
  }
  uci_set_confdir(context.get(), kStateDirectory);
  uci_package* loaded = context.load(package);
  if (loaded == nullptr) {
    LOG("uci load error!\n");
    return kFailure;
  }
  if (const int error = set_option(context.get(), package, section, option, value); error != UCI_OK) {
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
  const ConfigContext context;
  if (!context) {
    LOG("uci alloc ctx err.\n\n");
    return kFailure;
  }
  uci_set_confdir(context.get(), kMainDirectory);
  uci_set_savedir(context.get(), kRevertDirectory);

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
  if (type == nullptr || option == nullptr || output == nullptr || length <= 0) {
    LOG("Invalid input arg.\n\n");
    return kFailure;
  }
  const ConfigContext context;
  if (!context) {
    LOG("uci alloc cxt error.\n\n");
    return kFailure;
  }
  uci_set_confdir(context.get(), kProfileDirectory);
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

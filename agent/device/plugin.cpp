#include "device/plugin.hpp"

#include <dlfcn.h>
#include <link.h>

#include <filesystem>
#include <system_error>

#include "seam/platform.hpp"

namespace kovadm {
namespace {

namespace fs = std::filesystem;

constexpr char kName[] = "libkova-datamodel.so";

std::string find_plugin() {
  std::error_code unknown;  // where there is no /proc
  const fs::path program = fs::read_symlink("/proc/self/exe", unknown);
  const fs::path here = unknown ? "/usr/bin" : program.parent_path();
  std::string tried;
  for (const fs::path& directory : {here, here / "../lib", fs::path("/usr/lib")}) {
    const fs::path file = (directory / kName).lexically_normal();
    if (fs::exists(file)) return file;
    tried += "\n  " + file.string();
  }
  throw SetupError("no plug-in; looked for" + tried);
}

}  // namespace

void Plugin::Closer::operator()(void* library) const { dlclose(library); }

Plugin::Plugin(const std::string& file)
    : file_(file.empty() ? find_plugin() : fs::absolute(file).string()),
      library_(dlopen(file_.c_str(), RTLD_NOW | RTLD_LOCAL)) {
  if (!library_) throw SetupError(std::string("cannot load the plug-in: ") + dlerror());
  const link_map* map = nullptr;
  if (dlinfo(library_.get(), RTLD_DI_LINKMAP, &map) == 0) seam::name_plugin(map->l_ld);
}

void Plugin::begin_look() const { call("kova_look_begin"); }
void Plugin::end_look() const { call("kova_look_end"); }

void Plugin::call(const char* function) const {
  if (void* const symbol = dlsym(library_.get(), function)) reinterpret_cast<void (*)()>(symbol)();
}

parameter_handler Plugin::handler(const std::string& name) const {
  return reinterpret_cast<parameter_handler>(dlsym(library_.get(), name.c_str()));
}

bool Plugin::store(const char* package, const char* section, const char* option, const std::string& value) const {
  const auto write = reinterpret_cast<decltype(&uci_raw_set_value)>(dlsym(library_.get(), "uci_raw_set_value"));
  return write != nullptr && write(package, section, option, value.c_str()) == 0;
}

}  // namespace kovadm

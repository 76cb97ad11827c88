// The functions of the C library's and the platform's that the plug-in works through. This process comes first when the
// plug-in's symbols are resolved: the plug-in's calls go to whoever answers for the platform, and are noted; all others
// go on.
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include "plugin.hpp"
#include "processes.hpp"
#include "seam/debug_switch.hpp"
#include "seam/interpose.hpp"
#include "seam/platform.hpp"
#include "seam/trace.hpp"

using namespace kovadm;

#define FROM_PLUGIN is_plugin_code(__builtin_return_address(0))

// The declarations are the C library's and the platform's, and so are their parameter names.
// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name)
extern "C" {

// ---- Commands ----

FILE* popen(const char* command, const char* mode) {
  REAL(popen);
  if (!FROM_PLUGIN) return real(command, mode);
  note::command(command);
  return platform().open_pipe(command, mode);
}

int pclose(FILE* pipe) {
  REAL(pclose);
  return FROM_PLUGIN ? platform().close_pipe(pipe) : end_with_child(real(pipe));
}

int system(const char* command) {
  if (command == nullptr) return 1;  // there is a shell
  if (!FROM_PLUGIN) return run_in_shell(command);
  note::command(command);
  return platform().run(command);
}

// ---- Files ----

FILE* fopen(const char* path, const char* mode) {
  REAL(fopen);
  if (!FROM_PLUGIN) return real(path, mode);
  FILE* file = platform().open_file(path, mode);
  note::file(path, file != nullptr ? "" : "cannot be opened");
  return file;
}

int access(const char* path, int mode) noexcept {
  REAL(access);
  if (!FROM_PLUGIN) return real(path, mode);
  if (path == DebugSwitch::kFile) return real(platform().place(path).c_str(), mode);
  const int result = platform().test_file(path, mode);
  note::file(path, result == 0 ? "exists" : "does not exist");
  return result;
}

int mkdir(const char* path, mode_t mode) noexcept {
  REAL(mkdir);
  return FROM_PLUGIN ? real(platform().place(path).c_str(), mode) : real(path, mode);
}

int stat(const char* path, struct stat* status) noexcept {
  REAL(stat);
  return FROM_PLUGIN ? real(platform().place(path).c_str(), status) : real(path, status);
}

int statvfs(const char* path, struct statvfs* status) noexcept {
  REAL(statvfs);
  return FROM_PLUGIN ? real(platform().place(path).c_str(), status) : real(path, status);
}

void vsyslog(int priority, const char* format, va_list arguments) {
  REAL(vsyslog);
  if (!FROM_PLUGIN) return real(priority, format, arguments);
  note::message(format, arguments);
  platform().log(priority, format, arguments);
}

// ---- Configuration ----

struct uci_context* uci_alloc_context() {
  REAL(uci_alloc_context);
  return FROM_PLUGIN ? platform().open_store() : real();
}

void uci_free_context(struct uci_context* context) {
  REAL(uci_free_context);
  note::context_end(context);
  return FROM_PLUGIN ? platform().close_store(context) : real(context);
}

int uci_set_confdir(struct uci_context* context, const char* directory) {
  REAL(uci_set_confdir);
  return FROM_PLUGIN ? platform().set_store_directory(context, directory) : real(context, directory);
}

int uci_set_savedir(struct uci_context* context, const char* directory) {
  REAL(uci_set_savedir);
  return FROM_PLUGIN ? platform().set_change_directory(context, directory) : real(context, directory);
}

int uci_load(struct uci_context* context, const char* name, struct uci_package** package) {
  REAL(uci_load);
  if (!FROM_PLUGIN) return real(context, name, package);
  const int result = platform().load(context, name, package);
  note::load(context, name, result == UCI_OK ? *package : nullptr);
  return result;
}

int uci_unload(struct uci_context* context, struct uci_package* package) {
  REAL(uci_unload);
  note::package_end(package);
  return real(context, package);
}

int uci_lookup_next(struct uci_context* context, struct uci_element** element, struct uci_list* list,
                    const char* name) {
  REAL(uci_lookup_next);
  const int result = real(context, element, list, name);
  if (FROM_PLUGIN) note::look_up(list, name, result == UCI_OK ? *element : nullptr);
  return result;
}

// ---- Bus ----

struct ubus_context* ubus_connect(const char* path) {
  REAL(ubus_connect);
  return FROM_PLUGIN ? platform().connect(path) : real(path);
}

void ubus_free(struct ubus_context* context) {
  REAL(ubus_free);
  return FROM_PLUGIN ? platform().disconnect(context) : real(context);
}

int ubus_lookup_id(struct ubus_context* context, const char* object, uint32_t* id) {
  REAL(ubus_lookup_id);
  if (!FROM_PLUGIN) return real(context, object, id);
  const int result = platform().look_up(context, object, id);
  note::bus_object(object, *id, result);
  return result;
}

int ubus_invoke_fd(struct ubus_context* context, uint32_t id, const char* method, struct blob_attr* message,
                   ubus_data_handler_t handler, void* handler_context, int timeout, int descriptor) {
  REAL(ubus_invoke_fd);
  if (!FROM_PLUGIN) return real(context, id, method, message, handler, handler_context, timeout, descriptor);
  const int result = platform().invoke(context, id, method, message, handler, handler_context, timeout);
  note::bus_call(id, method, message, result);
  return result;
}
}
// NOLINTEND(readability-inconsistent-declaration-parameter-name)

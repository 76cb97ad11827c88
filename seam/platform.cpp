#include "seam/platform.hpp"

#include <syslog.h>
#include <unistd.h>

#include "processes.hpp"
#include "seam/interpose.hpp"

namespace kovadm {
namespace {

Platform* answering = nullptr;

}  // namespace

// What this process defines of these itself is for the plug-in; a call from here, made last, would even look like one
// of the plug-in's.

FILE* Platform::open_pipe(const char* command, const char* mode) {
  REAL(popen);
  return real(command, mode);
}
int Platform::close_pipe(FILE* pipe) {
  REAL(pclose);
  return end_with_child(real(pipe));
}
int Platform::run(const char* command) { return run_in_shell(command); }

FILE* Platform::open_file(const char* path, const char* mode) {
  REAL(fopen);
  return real(path, mode);
}
int Platform::test_file(const char* path, int mode) {
  REAL(access);
  return real(path, mode);
}
void Platform::log(int priority, const char* format, va_list arguments) {
  REAL(vsyslog);
  real(priority, format, arguments);
}

uci_context* Platform::open_store() {
  REAL(uci_alloc_context);
  return real();
}
void Platform::close_store(uci_context* context) {
  REAL(uci_free_context);
  real(context);
}
int Platform::set_store_directory(uci_context* context, const char* directory) {
  REAL(uci_set_confdir);
  return real(context, directory);
}
int Platform::set_change_directory(uci_context* context, const char* directory) {
  REAL(uci_set_savedir);
  return real(context, directory);
}
int Platform::load(uci_context* context, const char* name, uci_package** package) {
  REAL(uci_load);
  return real(context, name, package);
}

ubus_context* Platform::connect(const char* path) {
  REAL(ubus_connect);
  return real(path);
}
void Platform::disconnect(ubus_context* bus) {
  REAL(ubus_free);
  real(bus);
}
int Platform::look_up(ubus_context* bus, const char* object, uint32_t* id) {
  REAL(ubus_lookup_id);
  return real(bus, object, id);
}
int Platform::invoke(ubus_context* bus, uint32_t id, const char* method, blob_attr* message,
                     ubus_data_handler_t handler, void* handler_context, int timeout) {
  REAL(ubus_invoke_fd);
  return real(bus, id, method, message, handler, handler_context, timeout, -1);
}

Platform& machine() {
  static Platform machine;
  return machine;
}
Platform& platform() { return answering != nullptr ? *answering : machine(); }

PlatformInUse::PlatformInUse(Platform& now) : before_(platform()) { answering = &now; }
PlatformInUse::~PlatformInUse() { answering = &before_; }

}  // namespace kovadm

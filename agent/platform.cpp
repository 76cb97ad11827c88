#include "platform.hpp"

#include <sys/stat.h>
#include <syslog.h>
#include <unistd.h>

#include "processes.hpp"

namespace kovadm {
namespace {

Platform& machine() {
  static Platform machine;
  return machine;
}

Platform* answering = nullptr;

}  // namespace

FILE* Platform::open_pipe(const char* command, const char* mode) { return popen(command, mode); }
int Platform::close_pipe(FILE* pipe) { return pclose(pipe); }
int Platform::run(const char* command) { return run_in_shell(command); }

FILE* Platform::open_file(const char* path, const char* mode) { return fopen(path, mode); }
int Platform::test_file(const char* path, int mode) { return access(path, mode); }
int Platform::make_directory(const char* path, mode_t mode) { return mkdir(path, mode); }
void Platform::log(int priority, const char* format, va_list arguments) { vsyslog(priority, format, arguments); }

uci_context* Platform::open_store() { return uci_alloc_context(); }
void Platform::close_store(uci_context* context) { uci_free_context(context); }
int Platform::set_store_directory(uci_context* context, const char* directory) {
  return uci_set_confdir(context, directory);
}
int Platform::set_change_directory(uci_context* context, const char* directory) {
  return uci_set_savedir(context, directory);
}
int Platform::load(uci_context* context, const char* name, uci_package** package) {
  return uci_load(context, name, package);
}

ubus_context* Platform::connect(const char* path) { return ubus_connect(path); }
void Platform::disconnect(ubus_context* bus) { ubus_free(bus); }
int Platform::look_up(ubus_context* bus, const char* object, uint32_t* id) { return ubus_lookup_id(bus, object, id); }
int Platform::invoke(ubus_context* bus, uint32_t id, const char* method, blob_attr* message,
                     ubus_data_handler_t handler, void* handler_context, int timeout) {
  return ubus_invoke(bus, id, method, message, handler, handler_context, timeout);
}

Platform& platform() { return answering != nullptr ? *answering : machine(); }

PlatformInUse::PlatformInUse(Platform& other) : before_(platform()) { answering = &other; }
PlatformInUse::~PlatformInUse() { answering = &before_; }

}  // namespace kovadm

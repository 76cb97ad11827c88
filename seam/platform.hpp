// Who answers what the plug-in asks of the platform: its files, commands, configuration and bus.
#pragma once

extern "C" {
#include <libubus.h>
#include <uci.h>
}
#include <cstdarg>
#include <cstdio>
#include <string>

namespace kovadm {

// The machine itself: each call is the C library's or the platform library's of a similar name.
class Platform {
 public:
  virtual ~Platform() = default;

  // Where a file of the router's lies on this machine.
  virtual std::string place(const std::string& path) const { return path; }

  virtual FILE* open_pipe(const char* command, const char* mode);
  virtual int close_pipe(FILE* pipe);
  virtual int run(const char* command);

  virtual FILE* open_file(const char* path, const char* mode);
  virtual int test_file(const char* path, int mode);
  virtual void log(int priority, const char* format, va_list arguments);

  virtual uci_context* open_store();
  virtual void close_store(uci_context* context);
  virtual int set_store_directory(uci_context* context, const char* directory);
  virtual int set_change_directory(uci_context* context, const char* directory);
  virtual int load(uci_context* context, const char* name, uci_package** package);

  virtual ubus_context* connect(const char* path);
  virtual void disconnect(ubus_context* bus);
  virtual int look_up(ubus_context* bus, const char* object, uint32_t* id);
  virtual int invoke(ubus_context* bus, uint32_t id, const char* method, blob_attr* message,
                     ubus_data_handler_t handler, void* handler_context, int timeout);
};

// The machine that kovadm runs on, and the platform that answers now.
Platform& machine();
Platform& platform();

// Has another one answer for its lifetime.
class PlatformInUse {
 public:
  explicit PlatformInUse(Platform& now);
  ~PlatformInUse();
  PlatformInUse(const PlatformInUse&) = delete;
  PlatformInUse& operator=(const PlatformInUse&) = delete;

 private:
  Platform& before_;
};

}  // namespace kovadm

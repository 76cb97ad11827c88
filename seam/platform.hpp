// Who answers what the plug-in asks of the world. The process that loads the plug-in comes first when symbols are
// resolved: a program that links this has all functions of functions.h go to the platforms that are in use.
#pragma once

#include <fcntl.h>
#include <regex.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <string>
extern "C" {
#include <libubox/blobmsg.h>
#include <libubus.h>
#include <uci.h>
}
#undef fallthrough  // libubox's, for C; others have functions of this name

namespace seam {

// Passes each call on to the platform below, and the lowest one to the machine. Others replace some of them.
class Platform {
 public:
  constexpr Platform() = default;
  virtual ~Platform() = default;
  Platform(const Platform&) = delete;
  Platform& operator=(const Platform&) = delete;

  // Where a file of the router's lies on this machine.
  virtual std::string place(const std::string& path) const { return below_ != nullptr ? below_->place(path) : path; }

#define KOVA_CALL(type, name, parameters, ...) virtual type name parameters;
#include "seam/functions.h"

 private:
  friend class InUse;
  Platform* below_ = nullptr;
};

// Who answers others than the plug-in, and who answers the plug-in now.
Platform& machine();
Platform& platform();

// Whose calls a platform answers: those of the library that was named as the plug-in's, or those of every library, the
// platform's among them, and of the program itself.
enum class Calls { OF_PLUGIN, OF_PROCESS };

// Has a platform answer for its lifetime, on top of those in use.
class InUse {
 public:
  explicit InUse(Platform& now, Calls calls = Calls::OF_PLUGIN);
  ~InUse();
  InUse(const InUse&) = delete;
  InUse& operator=(const InUse&) = delete;

 private:
  Platform& before_;
  Platform& before_others_;
};

// Has a context find no changes that wait in the usual directory: libuci goes on looking there when it is told another.
void leave_usual_changes(uci_context* context);

// Names the plug-in: the library in which this address lies.
void name_plugin(const void* address);

}  // namespace seam

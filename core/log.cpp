#include <stdio.h>
#include <syslog.h>
#include <unistd.h>

#include "descriptors.hpp"
#include "pkg-tool.h"

namespace {

// Only the file's existence counts, so that it switches logging at once, without a restart.
constexpr char kDebugSwitch[] = "/tmp/cwmp_debug";

}  // namespace

void normal_debug_print(const char* format, ...) {
  if (access(kDebugSwitch, F_OK) != 0) return;
  const kova::StandardDescriptors standard;  // the system log keeps what it opens

  va_list arguments;
  va_start(arguments, format);
  vfprintf(stderr, format, arguments);
  va_end(arguments);

  va_start(arguments, format);
  vsyslog(LOG_INFO, format, arguments);
  va_end(arguments);
}

void syslog_message(const char* format, ...) {
  const kova::StandardDescriptors standard;
  va_list arguments;
  va_start(arguments, format);
  vsyslog(LOG_INFO, format, arguments);
  va_end(arguments);
}

/* A plug-in whose platform takes its process's signals over, as the event loop of a bus library does. */
#include <signal.h>
#include <stddef.h>
#include <unistd.h>

#include "pkg-tool.h"

KOVA_API int32_t DeviceInfo_UpTime(int32_t operation, va_list arguments);

static void take(int number) { (void)number; }

int32_t DeviceInfo_UpTime(int32_t operation, va_list arguments) {
  const struct sigaction taken = {.sa_handler = take};
  (void)operation, (void)arguments;
  sigaction(SIGINT, &taken, NULL);
  sigaction(SIGTERM, &taken, NULL);
  sleep(3);
  return 0;
}

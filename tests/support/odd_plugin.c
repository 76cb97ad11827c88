/* A plug-in whose platform takes its process's signals over, as the event loop of a bus library does, and whose device
 * says that it has more rows than any; those of the one table fail. */
#include <signal.h>
#include <stddef.h>
#include <string.h>
#include <unistd.h>

#include "pkg-tool.h"

KOVA_API int32_t DeviceInfo_UpTime(int32_t operation, va_list arguments);
KOVA_API int32_t Users_UserNumberOfEntries(int32_t operation, va_list arguments);
KOVA_API int32_t LEDs_LEDNumberOfEntries(int32_t operation, va_list arguments);
KOVA_API int32_t LEDs_LED_Name(int32_t operation, va_list arguments);

static void take(int number) { (void)number; }

int32_t DeviceInfo_UpTime(int32_t operation, va_list arguments) {
  const struct sigaction taken = {.sa_handler = take};
  (void)operation, (void)arguments;
  sigaction(SIGINT, &taken, NULL);
  sigaction(SIGTERM, &taken, NULL);
  sleep(3);
  return 0;
}

static int32_t reply(va_list arguments, const char* text) {
  (void)va_arg(arguments, int32_t*);
  strcpy(va_arg(arguments, char*), text);
  return 0;
}

int32_t Users_UserNumberOfEntries(int32_t operation, va_list arguments) {
  (void)operation;
  return reply(arguments, "99999999999999999999");
}

int32_t LEDs_LEDNumberOfEntries(int32_t operation, va_list arguments) {
  (void)operation;
  return reply(arguments, "2147483648");
}

int32_t LEDs_LED_Name(int32_t operation, va_list arguments) {
  (void)operation;
  return reply(arguments, "led");
}

/*
 * The smallest management agent: loads the plug-in, gets a parameter or sets it, and does what the set asks for.
 *
 *   agent PLUGIN HANDLER [INSTANCE...]             prints the value
 *   agent PLUGIN HANDLER,HANDLER... [INSTANCE...]  prints the values, of one look
 *   agent PLUGIN HANDLER=VALUE [INSTANCE...]       sets it, and tells the raised bits
 *
 * Exit status 0; 1 for a fault; 2 when misused or not started.
 */
#define _GNU_SOURCE 1
#include <dlfcn.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/mman.h>
#include <unistd.h>

#include "pkg-tool.h"

enum { MOST_INSTANCES = 8 };

/* Handlers take a started argument list, made anew for each call. */
static int32_t call(parameter_handler handler, int32_t operation, ...) {
  va_list arguments;
  va_start(arguments, operation);
  const int32_t result = handler(operation, arguments);
  va_end(arguments);
  return result;
}

/* A buffer of 16 MiB, of which only what is used takes memory; behind it a page that nobody may touch. */
static char* make_output(void) {
  const size_t size = 16 << 20;
  const size_t page = (size_t)sysconf(_SC_PAGESIZE);
  char* const output =
      mmap(NULL, size + page, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
  if (output == MAP_FAILED) return NULL;
  return mprotect(output + size, page, PROT_NONE) == 0 ? output : NULL;
}

/* Prints a value. The handler may change the numbers. */
static int get(parameter_handler handler, const int32_t* numbers, char* output) {
  struct agent_state agent = {
      .connection_request_port = 7547,
      .connection_request_path = "/",
      .connection_request_host = "",
      .wan_interface = "eth0",
  };
  int32_t instances[MOST_INSTANCES + 1];
  memcpy(instances, numbers, sizeof instances);
  *output = '\0';
  if (call(handler, 0, instances, output, &agent) != 0) return fputs("agent: no such row\n", stderr), 1;
  puts(output);
  return 0;
}

/* A request of the server's for several values: each command is run once, each package loaded once. */
static int get_all(void* plugin, char* handlers, const int32_t* instances) {
  void (*const begin)(void) = (void (*)(void))dlsym(plugin, "kova_look_begin");
  void (*const end)(void) = (void (*)(void))dlsym(plugin, "kova_look_end");
  char* const output = make_output();
  char* rest = NULL; /* strtok's own place may be used by the libraries meanwhile */
  int status = 0;
  if (begin == NULL || end == NULL) return fputs("agent: the plug-in cannot take one look\n", stderr), 2;
  if (output == NULL) return perror("agent"), 2;
  begin();
  for (char* name = strtok_r(handlers, ",", &rest); name != NULL; name = strtok_r(NULL, ",", &rest)) {
    const parameter_handler handler = (parameter_handler)dlsym(plugin, name);
    if (handler == NULL) fprintf(stderr, "agent: no handler %s\n", name);
    if (handler == NULL || get(handler, instances, output) != 0) status = 1;
  }
  end();
  return status;
}

/* Runs a command line to the end of what it puts into the background. */
static void run(const char* line) {
  char* command = NULL;
  if (asprintf(&command, "%swait", line) < 0) return;
  if (system(command) != 0) fprintf(stderr, "agent: failed: %s", line);
  free(command);
}

/* One of the files of recorded commands: run line by line, and removed. A line that was cut has no end. */
static void run_recorded(const char* path) {
  FILE* const file = fopen(path, "r");
  char* line = NULL;
  size_t size = 0;
  if (file == NULL) return;
  while (getline(&line, &size, file) > 0) {
    if (strchr(line, '\n') != NULL) run(line);
  }
  free(line);
  fclose(file);
  unlink(path);
}

static int set(parameter_handler handler, int32_t* instances, const char* value) {
  uint32_t mask = 0;
  unlink("/tmp/tr069/check"); /* an older verdict would count */
  if (call(handler, 1, instances, value, &mask) != 0) return fputs("agent: refused\n", stderr), 1;
  if ((mask & APPLY_TASK_COMMANDS) != 0) {
    run_recorded("/tmp/tr069/cmd_record");
    run_recorded("/tmp/tr069/cmd_record_once");
  }
  /* Here an agent starts what the other bits stand for. */
  printf("0x%x\n", (unsigned)mask);
  return 0;
}

int main(int argc, char** argv) {
  if (argc < 3 || argc > 3 + MOST_INSTANCES)
    return fputs("usage: agent PLUGIN HANDLER[,HANDLER...|=VALUE] [INSTANCE...]\n", stderr), 2;
  void* const plugin = dlopen(argv[1], RTLD_NOW);
  if (plugin == NULL) return fprintf(stderr, "agent: %s\n", dlerror()), 2;

  char* const value = strchr(argv[2], '=');
  if (value != NULL) *value = '\0';
  int32_t instances[MOST_INSTANCES + 1] = {0};
  for (int i = 3; i < argc; ++i) instances[i - 3] = atoi(argv[i]);
  if (value == NULL) return get_all(plugin, argv[2], instances);

  const parameter_handler handler = (parameter_handler)dlsym(plugin, argv[2]);
  if (handler == NULL) return fprintf(stderr, "agent: no handler %s\n", argv[2]), 1;
  return set(handler, instances, value + 1);
}

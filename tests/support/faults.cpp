#include "support/faults.hpp"

#include <dlfcn.h>
#include <fcntl.h>
#include <regex.h>
#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/vfs.h>
#include <uci.h>
#include <unistd.h>

#include <cerrno>
extern "C" {
#include <libubus.h>
}

namespace kova::test {

Service* Service::first = nullptr;
bool Service::armed = false;

namespace {

int blocks_held = 0;
int pipes_held = 0;
// Memory does not fail inside the bus's stand-in, whose JSON library needs it even to give memory back.
bool memory_is_safe = false;

struct SafeMemory {
  SafeMemory() { memory_is_safe = true; }
  ~SafeMemory() { memory_is_safe = before; }
  const bool before = memory_is_safe;
};

// A command's output: one line that many handlers take for a value.
ssize_t read_pipe(void* place, char* buffer, size_t size) {
  static Service service("read of a pipe");
  if (service.strikes()) return errno = EIO, -1;
  static constexpr char kLine[] = {'1', '\n'};
  bool& done = *static_cast<bool*>(place);
  if (done || size < sizeof kLine) return 0;
  done = true;
  memcpy(buffer, kLine, sizeof kLine);
  return sizeof kLine;
}

int close_pipe(void* place) {
  free(place);
  --pipes_held;
  return 0;
}

}  // namespace

Held Held::now() {
  const int descriptor = dup(STDERR_FILENO);
  close(descriptor);
  return {blocks_held, pipes_held, descriptor};
}

}  // namespace kova::test

using namespace kova::test;

// The macros' arguments are names and lists of parameters, and the declarations the C library's and the platform's.
// NOLINTBEGIN(bugprone-macro-parentheses,bugprone-reserved-identifier,readability-inconsistent-declaration-parameter-name)

// Defines a service in the real one's place: its n-th call fails with this result and error.
#define REAL(name) static const auto real = reinterpret_cast<decltype(&(name))>(dlsym(RTLD_NEXT, #name))
#define FAILING(failure, error, type, name, parameters, arguments) \
  type name parameters {                                           \
    static Service service(#name);                                 \
    REAL(name);                                                    \
    if (service.strikes()) return errno = error, failure;          \
    return real arguments;                                         \
  }
#define FAILING_BUS(failure, type, name, parameters, arguments) \
  type name parameters {                                        \
    static Service service(#name);                              \
    REAL(name);                                                 \
    if (service.strikes()) return failure;                      \
    const SafeMemory safe;                                      \
    return real arguments;                                      \
  }
// The real ones under the names that need no look-up, which would need memory.
#define MEMORY(name, parameters, arguments, more)                             \
  void* __libc_##name parameters;                                             \
  void* name parameters {                                                     \
    static Service service(#name);                                            \
    if (!memory_is_safe && service.strikes()) return errno = ENOMEM, nullptr; \
    void* const block = __libc_##name arguments;                              \
    if (block != nullptr) blocks_held += more;                                \
    return block;                                                             \
  }

extern "C" {

#ifndef KOVA_SANITIZED  // which has these for itself, and finds leaks
MEMORY(malloc, (size_t size), (size), 1)
MEMORY(calloc, (size_t count, size_t size), (count, size), 1)
MEMORY(realloc, (void* block_before, size_t size), (block_before, size), block_before == nullptr ? 1 : 0)

void __libc_free(void* block);
void free(void* block) {
  if (block != nullptr) --blocks_held;
  __libc_free(block);
}
#endif

FAILING(nullptr, EMFILE, FILE*, fopen, (const char* path, const char* mode), (path, mode))
FAILING(EOF, ENOSPC, int, fputs, (const char* text, FILE* file), (text, file))
FAILING(0, ENOSPC, size_t, fwrite, (const void* block, size_t size, size_t count, FILE* file),
        (block, size, count, file))
FAILING(-1, ENOSPC, int, mkdir, (const char* path, mode_t mode), (path, mode))
FAILING(-1, EACCES, int, access, (const char* path, int mode), (path, mode))
FAILING(-1, EIO, int, stat, (const char* path, struct stat* status), (path, status))
FAILING(-1, EIO, int, statfs, (const char* path, struct statfs* status), (path, status))
FAILING(-1, EIO, ssize_t, read, (int file, void* block, size_t size), (file, block, size))
FAILING(-1, EIO, int, ftruncate, (int file, off_t size), (file, size))
FAILING(-1, ENOLCK, int, flock, (int file, int operation), (file, operation))
FAILING(-1, EIO, int, rename, (const char* from, const char* to), (from, to))

int open(const char* path, int flags, ...) {
  static Service service("open");
  REAL(open);
  va_list arguments;
  va_start(arguments, flags);
  const auto mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : mode_t{};
  va_end(arguments);
  return service.strikes() ? errno = EMFILE, -1 : real(path, flags, mode);
}

// Nothing is to outlive the machine here.
int fsync(int /*file*/) {
  static Service service("fsync");
  return service.strikes() ? errno = EIO, -1 : 0;
}

// The C library's own loses memory when that ends in the middle.
int regcomp(regex_t* expression, const char* pattern, int flags) {
  static Service service("regcomp");
  REAL(regcomp);
  const SafeMemory safe;
  return service.strikes() ? REG_ESPACE : real(expression, pattern, flags);
}

// A write that fails has written a part.
ssize_t write(int file, const void* block, size_t size) {
  static Service service("write");
  REAL(write);
  if (!service.strikes()) return real(file, block, size);
  [[maybe_unused]] const ssize_t part = real(file, block, size / 2);
  return errno = ENOSPC, -1;
}

// One that fails has closed the file.
int fclose(FILE* file) {
  static Service service("fclose");
  REAL(fclose);
  const int result = real(file);
  return service.strikes() ? errno = ENOSPC, EOF : result;
}

FILE* popen(const char* /*command*/, const char* /*mode*/) {
  static Service service("popen");
  if (service.strikes()) return errno = EMFILE, nullptr;
  const SafeMemory safe;
  ++pipes_held;
  return fopencookie(calloc(1, sizeof(bool)), "r", {read_pipe, nullptr, nullptr, close_pipe});
}

int pclose(FILE* pipe) { return fclose(pipe); }

int system(const char* /*command*/) {
  static Service service("system");
  return service.strikes() ? errno = EAGAIN, -1 : 0;
}

FAILING(nullptr, ENOMEM, uci_context*, uci_alloc_context, (), ())
FAILING(UCI_ERR_MEM, 0, int, uci_set_confdir, (uci_context * context, const char* directory), (context, directory))
FAILING(UCI_ERR_MEM, 0, int, uci_set_savedir, (uci_context * context, const char* directory), (context, directory))
FAILING(UCI_ERR_IO, 0, int, uci_load, (uci_context * context, const char* name, uci_package** package),
        (context, name, package))
FAILING(UCI_ERR_MEM, 0, int, uci_lookup_ptr, (uci_context * context, uci_ptr* element, char* path, bool extended),
        (context, element, path, extended))
FAILING(UCI_ERR_MEM, 0, int, uci_set, (uci_context * context, uci_ptr* element), (context, element))
// What one that breaks off leaves to be done, the next one of the package takes along, in whatever directory. That is
// as it has to be, and would be found everywhere; so it is dropped.
int uci_commit(uci_context* context, uci_package** package, bool overwrite) {
  static Service service("uci_commit");
  REAL(uci_commit);
  static char left[64];
  snprintf(left, sizeof left, "/tmp/.uci/%s", (*package)->e.name);
  const int error = service.strikes() ? UCI_ERR_IO : real(context, package, overwrite);
  unlink(left);
  return error;
}
FAILING(UCI_ERR_IO, 0, int, uci_revert, (uci_context * context, uci_ptr* element), (context, element))

FAILING(-1, 0, int, blob_buf_init, (blob_buf * buffer, int id), (buffer, id))
FAILING(-1, 0, int, blobmsg_add_string, (blob_buf * buffer, const char* name, const char* value), (buffer, name, value))
FAILING(-1, 0, int, blobmsg_parse,
        (const blobmsg_policy* policy, int count, blob_attr** fields, void* data, unsigned size),
        (policy, count, fields, data, size))
FAILING_BUS(nullptr, ubus_context*, ubus_connect, (const char* path), (path))
FAILING_BUS(UBUS_STATUS_NOT_FOUND, int, ubus_lookup_id, (ubus_context * bus, const char* object, uint32_t* id),
            (bus, object, id))
FAILING_BUS(UBUS_STATUS_TIMEOUT, int, ubus_invoke_fd,
            (ubus_context * bus, uint32_t id, const char* method, blob_attr* message, ubus_data_handler_t handler,
             void* context, int timeout, int file),
            (bus, id, method, message, handler, context, timeout, file))
}
// NOLINTEND(bugprone-macro-parentheses,bugprone-reserved-identifier,readability-inconsistent-declaration-parameter-name)

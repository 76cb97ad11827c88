#include "support/faults.hpp"

#include <string.h>

#include "seam/paths.hpp"
#include "seam/platform.hpp"

namespace kova::test {

Service* Service::first = nullptr;
bool Service::armed = false;

namespace {

int blocks_held = 0;
int pipes_held = 0;
// Memory does not fail inside the C library's regcomp, which loses some when that ends in the middle.
bool memory_is_safe = false;

struct SafeMemory {
  explicit SafeMemory(bool safe = true) { memory_is_safe = memory_is_safe || safe; }
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

constexpr bool is_of_platform(std::string_view function) {
  return function.starts_with("uci_") || function.starts_with("ubus_") || function.starts_with("blob");
}

// Nothing fails inside of the platform's libraries. They leave memory, temporary files and cut packages behind then,
// which is theirs, and what they ask of themselves would not come back as they have arranged it.
bool is_in_platform = false;

// Within a function of the platform, for its lifetime.
struct InPlatform {
  explicit InPlatform(bool is_there) { is_in_platform = is_in_platform || is_there; }
  ~InPlatform() { is_in_platform = before; }
  const bool before = is_in_platform;
};

// Each function's n-th call fails.
class Failing : public seam::Platform {
 public:
  // NOLINTBEGIN(bugprone-macro-parentheses): the arguments are names and lists of parameters
#define KOVA_CALL(type, name, parameters, arguments, failure, error) \
  type name parameters override {                                    \
    static Service service(#name);                                   \
    if (service.strikes()) return errno = error, failure;            \
    const InPlatform here(is_of_platform(#name));                    \
    const SafeMemory safe(#name == std::string_view("regcomp"));     \
    return Platform::name arguments;                                 \
  }
#define KOVA_SURE_CALL(...)
#include "seam/functions.h"
  // NOLINTEND(bugprone-macro-parentheses)
};

// What the plug-in does with a reply is not the platform's.
ubus_data_handler_t reply_handler = nullptr;
void take_reply(ubus_request* request, int type, blob_attr* reply) {
  is_in_platform = false;
  reply_handler(request, type, reply);
  is_in_platform = true;
}

// What goes otherwise than by failing or working.
class Router final : public Failing {
 public:
  FILE* popen(const char* /*command*/, const char* /*mode*/) override {
    static Service service("popen");
    if (service.strikes()) return errno = EMFILE, nullptr;
    const SafeMemory safe;
    ++pipes_held;
    return fopencookie(calloc(1, sizeof(bool)), "r", {read_pipe, nullptr, nullptr, close_pipe});
  }
  int pclose(FILE* pipe) override { return fclose(pipe); }
  int system(const char* /*command*/) override {
    static Service service("system");
    return service.strikes() ? errno = EAGAIN, -1 : 0;
  }

  // A write that fails has written a part.
  ssize_t write(int file, const void* block, size_t size) override {
    static Service service("write");
    if (!service.strikes()) return Platform::write(file, block, size);
    [[maybe_unused]] const ssize_t part = Platform::write(file, block, size / 2);
    return errno = ENOSPC, -1;
  }
  // One that fails has closed the file.
  int fclose(FILE* file) override {
    static Service service("fclose");
    const int result = Platform::fclose(file);
    return service.strikes() ? errno = ENOSPC, EOF : result;
  }
  // Nothing is to outlive the machine here.
  int fsync(int /*file*/) override {
    static Service service("fsync");
    return service.strikes() ? errno = EIO, -1 : 0;
  }

  int ubus_invoke_fd(ubus_context* bus, uint32_t id, const char* method, blob_attr* message,
                     ubus_data_handler_t handler, void* context, int timeout, int file) override {
    reply_handler = handler;
    return Failing::ubus_invoke_fd(bus, id, method, message, take_reply, context, timeout, file);
  }

  // What one that breaks off leaves to be done, the next one of the package takes along, in whatever directory. That is
  // as it has to be, and would be found everywhere; so it is dropped.
  int uci_commit(uci_context* context, uci_package** package, bool overwrite) override {
    char left[64];
    snprintf(left, sizeof left, "%s/%s", seam::kPendingChanges, (*package)->e.name);
    const int error = Failing::uci_commit(context, package, overwrite);
    unlink(left);
    return error;
  }
};

Router router;
const seam::InUse in_use(router, seam::Calls::OF_PROCESS);

}  // namespace

bool Service::may_fail() { return armed && !is_in_platform; }

Held Held::now() {
  const int descriptor = dup(STDERR_FILENO);
  close(descriptor);
  return {blocks_held, pipes_held, descriptor};
}

}  // namespace kova::test

using namespace kova::test;

#ifndef KOVA_SANITIZED  // which has these for itself, and finds leaks
// The real ones under the names that need no look-up, which would need memory.
// NOLINTBEGIN(bugprone-macro-parentheses,bugprone-reserved-identifier)
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

MEMORY(malloc, (size_t size), (size), 1)
MEMORY(calloc, (size_t count, size_t size), (count, size), 1)
MEMORY(realloc, (void* block_before, size_t size), (block_before, size), block_before == nullptr ? 1 : 0)

void __libc_free(void* block);
void free(void* block) {
  if (block != nullptr) --blocks_held;
  __libc_free(block);
}
}
// NOLINTEND(bugprone-macro-parentheses,bugprone-reserved-identifier)
#endif

#include "seam/platform.hpp"

#include <dlfcn.h>
#include <link.h>

namespace seam {
namespace {

constinit Platform the_machine;
constinit Platform* for_plugin = &the_machine;
constinit Platform* for_others = &the_machine;

struct Range {
  ElfW(Addr) start, end;
  bool contains(const void* address) const {
    const auto place = reinterpret_cast<ElfW(Addr)>(address);
    return start <= place && place < end;
  }
};
constinit Range plugin = {0, 0};

// Of a loaded library, when the address is in it.
int take_range(dl_phdr_info* library, std::size_t /*size*/, void* address) {
  Range range = {~ElfW(Addr){0}, 0};
  for (int i = 0; i < library->dlpi_phnum; ++i) {
    const ElfW(Phdr)& part = library->dlpi_phdr[i];
    if (part.p_type != PT_LOAD) continue;
    const ElfW(Addr) start = library->dlpi_addr + part.p_vaddr;
    range = {std::min(range.start, start), std::max(range.end, start + part.p_memsz)};
  }
  if (!range.contains(address)) return 0;
  plugin = range;
  return 1;
}

Platform& answering(const void* caller) {
  return for_plugin == for_others || plugin.contains(caller) ? *for_plugin : *for_others;
}

}  // namespace

Platform& machine() { return *for_others; }
Platform& platform() { return *for_plugin; }

InUse::InUse(Platform& now, Calls calls) : before_(*for_plugin), before_others_(*for_others) {
  now.below_ = for_plugin;
  for_plugin = &now;
  if (calls == Calls::OF_PROCESS) for_others = &now;
}

InUse::~InUse() {
  for_plugin->below_ = nullptr;
  for_plugin = &before_;
  for_others = &before_others_;
}

void name_plugin(const void* address) { dl_iterate_phdr(take_range, const_cast<void*>(address)); }

void leave_usual_changes(uci_context* context) {
  uci_list& paths = context->delta_path;
  while (paths.next != &paths) {
    uci_element* const path = list_to_element(paths.next);
    paths.next = path->list.next;
    path->list.next->prev = &paths;
    std::free(path->name);
    std::free(path);
  }
}

// The macros' arguments are names and lists of parameters, and the declarations the C library's and the platform's.
// NOLINTBEGIN(bugprone-macro-parentheses)
#define KOVA_CALL(type, name, parameters, arguments, ...)                                   \
  type Platform::name parameters {                                                          \
    if (below_ != nullptr) return below_->name arguments;                                   \
    static const auto real = reinterpret_cast<type(*) parameters>(dlsym(RTLD_NEXT, #name)); \
    return real arguments;                                                                  \
  }
#include "seam/functions.h"

}  // namespace seam

// Under names of their own for the compiler: it knows better than to let anybody define the C library's.
#define KOVA_CALL(type, name, parameters, arguments, ...) \
  extern "C" type seam_##name parameters __asm__(#name);  \
  type seam_##name parameters { return seam::answering(__builtin_return_address(0)).name arguments; }
#include "seam/functions.h"
// NOLINTEND(bugprone-macro-parentheses)

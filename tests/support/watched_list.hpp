// An argument list that tells whether its third argument was taken.
#pragma once

#include <signal.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstring>

#include "pkg-tool.h"

namespace kova::test {

// The first two arguments stand at the end of a page, and the third begins one that cannot be read. The fault tells.
// One list at a time.
class WatchedList {
 public:
  WatchedList(const void* first, const void* second, const void* third) {
    pages_ = static_cast<char*>(mmap(nullptr, 2 * kPage, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
    const void* arguments[] = {first, second, third};
    char* stack = pages_ + kPage - 2 * sizeof(void*);
    std::memcpy(stack, arguments, sizeof arguments);
    begin_at(stack);
    guarded_ = pages_ + kPage;
    mprotect(guarded_, kPage, PROT_NONE);
    struct sigaction fault = {};
    fault.sa_sigaction = on_fault;
    fault.sa_flags = SA_SIGINFO;
    sigaction(SIGSEGV, &fault, &before_);
  }
  ~WatchedList() {
    sigaction(SIGSEGV, &before_, nullptr);
    munmap(pages_, 2 * kPage);
  }
  WatchedList(const WatchedList&) = delete;
  WatchedList& operator=(const WatchedList&) = delete;

  int32_t call(parameter_handler handler, int32_t operation) { return handler(operation, list_); }
  bool third_was_taken() const { return guarded_ == nullptr; }

 private:
  // As after a call whose register arguments are used up: the rest stands on the stack.
  void begin_at(char* stack) {
#if defined(__x86_64__)
    const struct {
      unsigned gp_offset, fp_offset;
      void* overflow_arg_area;
      void* reg_save_area;
    } layout = {48, 176, stack, nullptr};
#elif defined(__aarch64__)
    const struct {
      void *stack, *gr_top, *vr_top;
      int gr_offs, vr_offs;
    } layout = {stack, nullptr, nullptr, 0, 0};
#else
    const char* const layout = stack;  // all arguments stand there
#endif
    static_assert(sizeof layout == sizeof list_, "the layout of this processor's va_list is not known");
    std::memcpy(&list_, &layout, sizeof list_);
  }

  static void on_fault(int signal, siginfo_t* fault, void* /*context*/) {
    const auto* address = static_cast<char*>(fault->si_addr);
    if (guarded_ == nullptr || address < guarded_ || address >= guarded_ + kPage) {
      ::signal(signal, SIG_DFL);  // it happens again
      return;
    }
    mprotect(guarded_, kPage, PROT_READ);
    guarded_ = nullptr;
  }

  static constexpr std::size_t kPage = 65536;  // the largest of any processor
  static inline char* guarded_ = nullptr;
  char* pages_;
  va_list list_;
  struct sigaction before_ = {};
};

}  // namespace kova::test

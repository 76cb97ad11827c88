#include "support/seams.hpp"

#include <dlfcn.h>
#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <syslog.h>
#include <uci.h>

#include <set>

namespace kova::test {
namespace {

std::set<FILE*>& replaced_pipes() {
  static std::set<FILE*> pipes;
  return pipes;
}

std::string formatted(const char* format, va_list arguments) {
  va_list copy;
  va_copy(copy, arguments);
  const int length = vsnprintf(nullptr, 0, format, copy);
  va_end(copy);
  std::string text(static_cast<size_t>(length) + 1, '\0');
  vsnprintf(text.data(), text.size(), format, arguments);
  text.pop_back();
  return text;
}

}  // namespace

Seams& seams() {
  static Seams recorder;
  return recorder;
}

void Seams::answer(const std::string& command, const std::string& output) {
  popen_answer = [earlier = popen_answer, command, output](const std::string& asked) -> const std::string* {
    if (asked == command) return &output;
    return earlier ? earlier(asked) : nullptr;
  };
}

int run(const std::string& command) {
  static const auto real = reinterpret_cast<int (*)(const char*)>(dlsym(RTLD_NEXT, "system"));
  return real(command.c_str());
}

}  // namespace kova::test

using kova::test::seams;

// The declarations are the C library's and the platform's, and so are their parameter names.
// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name)
extern "C" {

FILE* popen(const char* command, const char* mode) {
  static const auto real = reinterpret_cast<FILE* (*)(const char*, const char*)>(dlsym(RTLD_NEXT, "popen"));
  seams().commands.emplace_back(command);
  seams().popen_modes.emplace_back(mode);
  if (seams().popen_fails) return nullptr;
  const std::string* answer = seams().popen_answer ? seams().popen_answer(command) : nullptr;
  if (answer == nullptr) return real(command, mode);
  FILE* pipe = tmpfile();
  fwrite(answer->data(), 1, answer->size(), pipe);
  rewind(pipe);
  kova::test::replaced_pipes().insert(pipe);
  return pipe;
}

int pclose(FILE* pipe) {
  static const auto real = reinterpret_cast<int (*)(FILE*)>(dlsym(RTLD_NEXT, "pclose"));
  return kova::test::replaced_pipes().erase(pipe) != 0 ? fclose(pipe) : real(pipe);
}

int system(const char* command) {
  seams().commands.emplace_back(command);
  const int* status = seams().system_status ? seams().system_status(command) : nullptr;
  return status != nullptr ? *status : kova::test::run(command);
}

uci_context* uci_alloc_context() {
  static const auto real = reinterpret_cast<uci_context* (*)()>(dlsym(RTLD_NEXT, "uci_alloc_context"));
  return seams().config_context_fails ? nullptr : real();
}

int statfs(const char* path, struct statfs* status) noexcept {
  static const auto real = reinterpret_cast<int (*)(const char*, struct statfs*)>(dlsym(RTLD_NEXT, "statfs"));
  if (!seams().file_system) return real(path, status);
  *status = *seams().file_system;
  return 0;
}

void vsyslog(int priority, const char* format, va_list arguments) {
  if (priority != LOG_INFO) return;
  seams().syslog.push_back(kova::test::formatted(format, arguments));
  if (seams().on_log) seams().on_log(seams().syslog.back());
}

int vfprintf(FILE* stream, const char* format, va_list arguments) {
  static const auto real = reinterpret_cast<int (*)(FILE*, const char*, va_list)>(dlsym(RTLD_NEXT, "vfprintf"));
  if (stream != stderr) return real(stream, format, arguments);
  seams().stderr_log.push_back(kova::test::formatted(format, arguments));
  return 0;
}
}
// NOLINTEND(readability-inconsistent-declaration-parameter-name)

#include "support/seams.hpp"

#include <syslog.h>

#include <cerrno>
#include <set>
#include <utility>

#ifndef KOVA_STANDINS
#include "lab/bus/refresh.hpp"
#endif
#include "seam/platform.hpp"
#include "seam/trace.hpp"

namespace kova::test {
namespace {

// Observes, and replaces what a test has asked for.
class Scripted final : public seam::Platform {
 public:
  FILE* popen(const char* command, const char* mode) override {
    seams().commands.emplace_back(command);
    seams().popen_modes.emplace_back(mode);
    if (seams().popen_fails) return nullptr;
    const std::string* answer = seams().popen_answer ? seams().popen_answer(command) : nullptr;
    if (answer == nullptr) return Platform::popen(command, mode);
    FILE* pipe = tmpfile();
    fwrite(answer->data(), 1, answer->size(), pipe);
    rewind(pipe);
    return *replaced_.insert(pipe).first;
  }
  int pclose(FILE* pipe) override { return replaced_.erase(pipe) != 0 ? fclose(pipe) : Platform::pclose(pipe); }
  int system(const char* command) override {
    seams().commands.emplace_back(command);
    const int* status = seams().system_status ? seams().system_status(command) : nullptr;
    return status != nullptr ? *status : run(command);
  }

  int statfs(const char* path, struct statfs* status) override {
    if (!seams().file_system) return Platform::statfs(path, status);
    *status = *seams().file_system;
    return 0;
  }
  ubus_context* ubus_connect(const char* socket) override {
    refresh_bus();
    return Platform::ubus_connect(socket);
  }
  uci_context* uci_alloc_context() override {
    return seams().config_context_fails ? nullptr : Platform::uci_alloc_context();
  }

  void vsyslog(int priority, const char* format, va_list arguments) override {
    if (priority != LOG_INFO) return;
    seams().syslog.push_back(seam::formatted(format, arguments));
    if (seams().on_log) seams().on_log(seams().syslog.back());
  }
  int vfprintf(FILE* file, const char* format, va_list arguments) override {
    if (file != stderr) return Platform::vfprintf(file, format, arguments);
    seams().stderr_log.push_back(seam::formatted(format, arguments));
    return 0;
  }

  int run(const char* command) {
    refresh_bus();
    return Platform::system(command);
  }

 private:
  // The files may have changed, which a real bus does not see at once.
  void refresh_bus() {
#ifndef KOVA_STANDINS
    if (std::exchange(refreshing_, true)) return;
    const int error = errno;  // which logs tell
    lab::refresh_bus();
    errno = error;
    refreshing_ = false;
#endif
  }

  [[maybe_unused]] bool refreshing_ = false;
  std::set<FILE*> replaced_;
};

Scripted scripted;
const seam::InUse in_use(scripted, seam::Calls::OF_PROCESS);

}  // namespace

Seams& seams() {
  static Seams all;
  return all;
}

void Seams::answer(const std::string& command, const std::string& output) {
  popen_answer = [earlier = popen_answer, command, output](const std::string& asked) -> const std::string* {
    if (asked == command) return &output;
    return earlier ? earlier(asked) : nullptr;
  };
}

int run(const std::string& command) { return scripted.run(command.c_str()); }

}  // namespace kova::test

// A platform whose answers come from a recording. The router's files are copies in a directory of its own.
#pragma once

#include <functional>
#include <map>
#include <set>
#include <string>

#include "recording/recording.hpp"
#include "seam/placed.hpp"
#include "seam/work_directory.hpp"

namespace kovadm {

class RecordedPlatform final : private seam::WorkDirectory, public seam::Placed {
 public:
  // What the recording has no answer for: the machine is asked, and its answer added; every question has one answer
  // for the whole of a recording. A trial asks the machine too, but has only those commands run whose output is read,
  // and puts back what they change of the kept files; all others succeed.
  enum class Source { MACHINE, TRIAL, RECORDING };

  // With Source::RECORDING what has no answer counts as failing, and `missing` is told what that is.
  RecordedPlatform(Recording& recording, Source source, std::function<void(const std::string&)> missing = {});

  // The links among the machine's files: where they lead is no matter of a recording.
  const std::set<std::string>& left_out() const { return left_out_; }

  FILE* popen(const char* command, const char* mode) override;
  int pclose(FILE* pipe) override;
  int system(const char* command) override;

  FILE* fopen(const char* path, const char* mode) override;
  int open(const char* path, int flags, mode_t mode) override;
  int access(const char* path, int mode) override;
  int statfs(const char* path, struct statfs* status) override;
  void vsyslog(int priority, const char* format, va_list arguments) override;

  ubus_context* ubus_connect(const char* socket) override;
  void ubus_free(ubus_context* bus) override;
  int ubus_lookup_id(ubus_context* bus, const char* object, uint32_t* id) override;
  int ubus_invoke_fd(ubus_context* bus, uint32_t id, const char* method, blob_attr* asked, ubus_data_handler_t handler,
                     void* context, int timeout, int file) override;

 private:
  const CommandAnswer* answer(const std::string& command,
                              CommandAnswer (*ask)(Source source, const std::string& command));
  const BusAnswer* bus_answer(const std::string& call, const std::function<BusAnswer()>& ask);
  void read_directories();
  void write_files() const;
  void apply(const CommandAnswer& answer) const;
  bool asks_machine(const std::string& what) const;
  int open_recorded(const char* path, bool writes);

  Recording& recording_;
  Source source_;
  std::function<void(const std::string&)> missing_;
  std::set<std::string> left_out_;
  std::map<FILE*, int> pipes_;        // the exit statuses of their commands
  std::vector<std::string> objects_;  // of the bus; identified by number, from 1
};

}  // namespace kovadm

// A platform whose answers come from a recording. The router's files are copies in a directory of its own.
#pragma once

#include <functional>
#include <map>
#include <string>

#include "recording/recording.hpp"
#include "seam/platform.hpp"
#include "seam/work_directory.hpp"

namespace kovadm {

class RecordedPlatform final : public Platform {
 public:
  // What the recording has no answer for: the machine is asked, and its answer added; every question has one answer
  // for the whole of a recording.
  enum class Source { MACHINE, RECORDING };

  // With Source::RECORDING what has no answer counts as failing, and `missing` is told what that is.
  RecordedPlatform(Recording& recording, Source source, std::function<void(const std::string&)> missing = {});

  std::string place(const std::string& path) const override { return directory_.path() + path; }

  FILE* open_pipe(const char* command, const char* mode) override;
  int close_pipe(FILE* pipe) override;
  int run(const char* command) override;

  FILE* open_file(const char* path, const char* mode) override;
  int test_file(const char* path, int mode) override;
  void log(int priority, const char* format, va_list arguments) override;

  uci_context* open_store() override;
  int set_store_directory(uci_context* context, const char* directory) override;
  int set_change_directory(uci_context* context, const char* directory) override;

  ubus_context* connect(const char* path) override;
  void disconnect(ubus_context* bus) override;
  int look_up(ubus_context* bus, const char* object, uint32_t* id) override;
  int invoke(ubus_context* bus, uint32_t id, const char* method, blob_attr* asked, ubus_data_handler_t handler,
             void* handler_context, int timeout) override;

 private:
  const CommandAnswer* answer(const std::string& command, CommandAnswer (*ask)(const std::string& command));
  const BusAnswer* bus_answer(const std::string& call, const std::function<BusAnswer()>& ask);
  void write_files() const;
  void apply(const CommandAnswer& answer) const;
  bool asks_machine(const std::string& what) const;

  Recording& recording_;
  Source source_;
  std::function<void(const std::string&)> missing_;
  WorkDirectory directory_;
  std::map<FILE*, int> pipes_;        // the exit statuses of their commands
  std::vector<std::string> objects_;  // of the bus; identified by number, from 1
};

}  // namespace kovadm

#include "device/task_records.hpp"

#include <sstream>

#include "seam/paths.hpp"
#include "seam/platform.hpp"
#include "seam/snapshot.hpp"

namespace kovadm {
namespace {

namespace fs = std::filesystem;

using seam::kTaskRecord;
using seam::kTaskRecordOnce;

std::string read_record(const char* path) { return seam::read_file(seam::platform().place(path)); }

void add_lines(const std::string& text, std::vector<std::string>& lines) {
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
}

fs::file_time_type written(const char* path) {
  std::error_code missing;
  return fs::last_write_time(seam::platform().place(path), missing);
}

}  // namespace

TaskRecords::TaskRecords()
    : appended_(read_record(kTaskRecord)),
      once_(read_record(kTaskRecordOnce)),
      once_written_(written(kTaskRecordOnce)) {}

std::vector<std::string> TaskRecords::recorded_since() const {
  const TaskRecords now;
  std::vector<std::string> lines;
  const bool continued = now.appended_.starts_with(appended_);
  add_lines(continued ? now.appended_.substr(appended_.size()) : now.appended_, lines);
  if (now.once_ != once_ || now.once_written_ != once_written_) add_lines(now.once_, lines);
  return lines;
}

std::vector<std::string> recorded_commands() {
  std::vector<std::string> lines;
  add_lines(read_record(kTaskRecord), lines);
  add_lines(read_record(kTaskRecordOnce), lines);
  return lines;
}

void empty_task_records() {
  for (const char* path : {kTaskRecord, kTaskRecordOnce}) {
    if (fs::exists(path)) fs::resize_file(path, 0);
  }
}

}  // namespace kovadm

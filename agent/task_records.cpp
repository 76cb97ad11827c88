#include "task_records.hpp"

#include <fstream>
#include <sstream>

#include "seam/platform.hpp"

namespace kovadm {
namespace {

namespace fs = std::filesystem;

constexpr char kAppended[] = "/tmp/tr069/cmd_record";
constexpr char kOnce[] = "/tmp/tr069/cmd_record_once";

std::string read_file(const char* path) {
  std::ostringstream text;
  text << std::ifstream(platform().place(path)).rdbuf();
  return text.str();
}

void add_lines(const std::string& text, std::vector<std::string>& lines) {
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
}

fs::file_time_type written(const char* path) {
  std::error_code missing;
  return fs::last_write_time(platform().place(path), missing);
}

}  // namespace

bool is_task_record(const fs::path& file) { return file == kAppended || file == kOnce; }

TaskRecords::TaskRecords() : appended_(read_file(kAppended)), once_(read_file(kOnce)), once_written_(written(kOnce)) {}

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
  add_lines(read_file(kAppended), lines);
  add_lines(read_file(kOnce), lines);
  return lines;
}

void empty_task_records() {
  for (const char* path : {kAppended, kOnce}) {
    if (fs::exists(path)) fs::resize_file(path, 0);
  }
}

}  // namespace kovadm

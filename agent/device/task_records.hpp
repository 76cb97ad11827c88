// The command lines that setters leave for the agent to run after a set request.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace kovadm {

// The records as they stood at one time.
class TaskRecords {
 public:
  // Now.
  TaskRecords();

  // The lines that have been recorded since, in the order in which they are run.
  std::vector<std::string> recorded_since() const;

 private:
  std::string appended_;
  std::string once_;
  std::filesystem::file_time_type once_written_;
};

// All lines that are recorded now, in the order in which they are run.
std::vector<std::string> recorded_commands();

void empty_task_records();

}  // namespace kovadm

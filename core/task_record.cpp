// Command lines that the agent runs after a set request.
#include "file.hpp"
#include "log.hpp"

namespace {

using namespace kova;

constexpr char kRecord[] = "/tmp/tr069/cmd_record";
constexpr char kRecordOnce[] = "/tmp/tr069/cmd_record_once";

// Reports what came of recording a command.
int32_t report(const char* command, Left result) {
  if (result == Left::NOT_OPENED) {
    LOG("fopen error\n");
    return -1;
  }
  LOG("cmd %s\n", command);
  if (result == Left::DONE) return 0;
  LOG("fwrite error\n");
  return -1;
}

}  // namespace

int32_t record_task_cmd(const char* command) {
  const Effect effect;
  if (command == nullptr) {
    LOG("Invalid input arg\n");
    return -1;
  }
  return report(command, append_line(kRecord, command));
}

int32_t record_task_cmd_once(const char* command) {
  const Effect effect;
  if (command == nullptr) {
    LOG("NP\n");
    return -1;
  }
  return report(command, replace_file(kRecordOnce, command, "\n"));
}

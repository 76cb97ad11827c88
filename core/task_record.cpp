#include <stdio.h>
#include <string.h>

#include "log.hpp"

namespace {

constexpr char kRecord[] = "/tmp/tr069/cmd_record";
constexpr char kRecordOnce[] = "/tmp/tr069/cmd_record_once";

bool write_block(FILE* file, const char* text, size_t length) { return fwrite(text, 1, length, file) == length; }

int32_t record(const char* path, const char* mode, const char* command) {
  FILE* file = fopen(path, mode);
  if (file == nullptr) {
    LOG("fopen error\n");
    return -1;
  }
  LOG("cmd %s\n", command);
  const bool written = write_block(file, command, strlen(command)) && write_block(file, "\n", 1);
  if (!written) LOG("fwrite error\n");
  // What was buffered may fail only now, on a full file system.
  const bool closed = fclose(file) == 0;
  if (written && !closed) LOG("fwrite error\n");
  return written && closed ? 0 : -1;
}

}  // namespace

int32_t record_task_cmd(const char* command) {
  if (command == nullptr) {
    LOG("Invalid input arg\n");
    return -1;
  }
  return record(kRecord, "a+", command);
}

int32_t record_task_cmd_once(const char* command) {
  if (command == nullptr) {
    LOG("NP\n");
    return -1;
  }
  return record(kRecordOnce, "w+", command);
}

// Interface counters from the kernel.
#include <errno.h>
#include <stdio.h>
#include <string.h>

#include "command.hpp"
#include "log.hpp"
#include "text.hpp"

namespace {

// One word of a line of /proc/net/dev.
using Field = kova::Text<20>;
constexpr int kFields = 12;

// Where a line of /proc/net/dev has each counter, indexed by enum interface_counter; field 0 is the name.
constexpr int kFieldOfCounter[] = {9, 1, 10, 2, 11, 3};

bool split(const char* line, Field (&fields)[kFields]) {
  const int count = sscanf(line, "%17s%19s%19s%14s%14s%14s%14s%14s%14s%19s%19s%19s", fields[0].data(), fields[1].data(),
                           fields[2].data(), fields[3].data(), fields[4].data(), fields[5].data(), fields[6].data(),
                           fields[7].data(), fields[8].data(), fields[9].data(), fields[10].data(), fields[11].data());
  return count == kFields;
}

}  // namespace

int32_t get_TotalBytesAndPackets_by_name(const char* name, int32_t counter, char* output, int32_t length) {
  if (name == nullptr) {
    LOG("NP!\n");
    return -1;
  }
  kova::Text<256> command;
  command.print("cat /proc/net/dev|grep -w %s", name);
  kova::CommandOutput pipe(command.c_str());
  if (!pipe) {
    LOG("popen failed.\n");
    return -1;
  }
  kova::Text<256> line;
  if (!pipe.read_line(line.span())) {
    LOG("fgets error %s\n", strerror(errno));
    return -1;
  }
  Field fields[kFields];
  if (!split(line.c_str(), fields)) {
    LOG("interface txrx stats get failed.\n");
    return -1;
  }
  if (counter < COUNTER_BYTES_SENT || counter > COUNTER_ERRORS_RECEIVED) {
    LOG("EGBP.!\n");
    return -1;
  }
  const Field& value = fields[kFieldOfCounter[counter]];
  if (validityCheck(value.c_str(), 1) == 0 && output != nullptr && length > 0)
    kova::copy_text({output, static_cast<size_t>(length)}, value.view());
  return 0;
}

// DeviceInfo.ProcessStatus: from the process tools.
#include <stdio.h>

#include "command.hpp"
#include "parameter.hpp"
#include "pkg-dev.h"
#include "text.hpp"

namespace {

using namespace kova;

bool cpu_usage(Call& call) {
  Text<100> line;
  if (!first_line("top -n1 | grep idle | grep irq | awk '{print $8}' | sed 's/%//g'", line.span()))
    return call.refuse("FTGCU.\n");
  int idle = 0;
  if (sscanf(line.c_str(), "%d", &idle) != 1) idle = 95;
  return call.reply_number(100 - idle);
}

}  // namespace

PARAMETER(DeviceInfo_ProcessStatus_ProcessNumberOfEntries, command_line("ps | sed '1d' | sed -n '$='", "FTGPNE.\n"),
          read_only)
PARAMETER(DeviceInfo_ProcessStatus_CPUUsage, cpu_usage, read_only)

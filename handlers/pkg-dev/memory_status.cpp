// DeviceInfo.MemoryStatus: from the kernel, in kibibytes.
#include <stdio.h>
#include <string.h>

#include "command.hpp"
#include "parameter.hpp"
#include "pkg-dev.h"
#include "text.hpp"

namespace {

using namespace kova;

constexpr char kMemoryInfo[] = "cat /proc/meminfo";
constexpr LogMessage kNoMemoryInfo = "FTOMI.\n";

// The second word of the last line that contains `name`.
bool reply_amount(Call& call, const char* name) {
  CommandOutput output(kMemoryInfo);
  if (!output) return call.refuse(kNoMemoryInfo);
  Text<32> amount;
  for (Text<256> line; output.read_line(line.span());) {
    Text<32> word;
    if (strstr(line.c_str(), name) == nullptr) continue;
    if (sscanf(line.c_str(), "%*s %31[0-9]", word.data()) == 1) amount = word;
  }
  return call.reply(amount.c_str());
}

constexpr auto memory(const char* name) {
  return [=](Call& call) { return reply_amount(call, name); };
}

// A line counts for the first of these that it contains: "SwapCached" stands before "Cached" for that reason.
enum Amount { TOTAL, FREE, SWAP_CACHED, CACHED, BUFFERS, AMOUNTS };
constexpr const char* kAmountNames[AMOUNTS] = {"MemTotal", "MemFree", "SwapCached", "Cached", "Buffers"};

void take_amount(const char* line, long long (&amounts)[AMOUNTS]) {
  for (int i = 0; i < AMOUNTS; ++i) {
    if (strstr(line, kAmountNames[i]) == nullptr) continue;
    long long amount = 0;
    if (sscanf(line, "%*s %lld", &amount) == 1) amounts[i] = amount;
    return;
  }
}

bool used_memory(Call& call) {
  CommandOutput output(kMemoryInfo);
  if (!output) return call.refuse(kNoMemoryInfo);
  long long amounts[AMOUNTS] = {};
  for (Text<256> line; output.read_line(line.span());) take_amount(line.c_str(), amounts);
  const long long used = amounts[TOTAL] - amounts[FREE] - amounts[CACHED] - amounts[SWAP_CACHED] - amounts[BUFFERS];
  return call.reply_number(used > 0 ? used : 0);
}

}  // namespace

PARAMETER(DeviceInfo_MemoryStatus_Total, memory("MemTotal"), read_only)
PARAMETER(DeviceInfo_MemoryStatus_Free, memory("MemFree"), read_only)
PARAMETER(DeviceInfo_MemoryStatus_Used, used_memory, read_only)

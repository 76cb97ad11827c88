// X_KOVA_QoS: the limits of the WAN's bandwidth.
#include "command.hpp"
#include "parameter.hpp"
#include "pkg-br.h"

namespace {

using namespace kova;

constexpr Section qos{"qos", "wan"};

bool enabled(Call& call) {
  const Option stored(qos, "enabled");
  return call.reply(!stored || stored == "0" ? "0" : "1");
}

// Runs a program with the value, which is placed in the command line as it is. The program's exit status does not
// count.
bool run_with_value(Call& call, const char* form, LogMessage failure) {
  if (CommandLine(form, call.value()).run_for_status() == -1) return call.refuse(failure);
  return call.mark(APPLY_QOS);
}

constexpr auto run(const char* form, LogMessage failure) {
  return [=](Call& call) { return run_with_value(call, form, failure); };
}

bool set_enabled(Call& call) {
  if (!call.value_is("0") && !call.value_is("1")) return false;
  return run_with_value(call, "/usr/bin/tr069/cwmp-qos %s 0 0", "FTSQE.\n");
}

}  // namespace

// clang-format off
PARAMETER(X_KOVA_QoS_Enable,   enabled,                      set_enabled)
PARAMETER(X_KOVA_QoS_Upband,   option(qos, "upload", "0"),   run("/usr/bin/tr069/cwmp-qos 1 %s 0", "FTSQUB.\n"))
PARAMETER(X_KOVA_QoS_Downband, option(qos, "download", "0"), run("/usr/bin/tr069/cwmp-qos 1 0 %s", "FTSQDB.\n"))
// clang-format on

// UPnP: on or off.
#include "parameter.hpp"
#include "pkg-br.h"

namespace {

using namespace kova;

constexpr Section upnpd{"upnpd", "config"};

bool set_enabled(Call& call) {
  const bool on = call.value_is("1");
  if (!on && !call.value_is("0")) return false;
  if (!write_option(upnpd, "enabled", call.value())) return false;
  const char* command = on ? "/etc/init.d/miniupnpd restart" : "/etc/init.d/miniupnpd stop";
  return record_task_cmd(command) == 0 ? call.mark(APPLY_TASK_COMMANDS) : call.refuse("FTSUPED.\n");
}

}  // namespace

PARAMETER(UPnP_Device_Enable, required(upnpd, "enabled"), set_enabled)

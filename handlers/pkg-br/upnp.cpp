// UPnP: on or off.
#include "br.hpp"
#include "pkg-br.h"

namespace {

using namespace kova;

constexpr Section upnpd{"upnpd", "config"};

int set_enabled(Call& call) {
  const bool on = call.value_is("1");
  if (!on && !call.value_is("0")) return FAILURE;
  if (uci_raw_set_value(upnpd.package, upnpd.name, "enabled", call.value()) != 0) return FAILURE;
  if (record_task_cmd(on ? "/etc/init.d/miniupnpd restart" : "/etc/init.d/miniupnpd stop") == 0)
    return call.mark(APPLY_TASK_COMMANDS);
  LOG("FTSUPED.\n");
  return FAILURE;
}

}  // namespace

PARAMETER(UPnP_Device_Enable, stored(upnpd, "enabled"), set_enabled)

// UserInterface.RemoteAccess: the web interface as seen from the WAN.
#include "parameter.hpp"
#include "pkg-dev.h"
#include "text.hpp"

namespace {

using namespace kova;

constexpr Section remoteweb{"filter", "remoteweb"};

int enabled(Call& call) {
  Text<8> stored;
  const bool off = read_option(remoteweb, "enabled", stored.span()) != SUCCESS || stored == "0";
  return call.reply(off ? "0" : "1");
}

// Switched off, the option goes away: an empty value removes it.
int set_enabled(Call& call) {
  const bool on = call.value_is("1");
  if (!on && !call.value_is("0")) return FAILURE;
  if (uci_raw_set_value(remoteweb.package, remoteweb.name, "enabled", on ? "1" : "") != 0) return FAILURE;
  return call.mark(on ? APPLY_REMOTE_ACCESS : APPLY_REMOTE_ACCESS_OFF);
}

}  // namespace

PARAMETER(UserInterface_RemoteAccess_Enable, enabled, set_enabled)
PARAMETER(UserInterface_RemoteAccess_Port, text(remoteweb, "https_port", "443"),
          store(remoteweb, "https_port", APPLY_REMOTE_ACCESS))

// UserInterface.RemoteAccess: the web interface as seen from the WAN.
#include "parameter.hpp"
#include "pkg-dev.h"
#include "text.hpp"

namespace {

using namespace kova;

constexpr Section remoteweb{"filter", "remoteweb"};

bool enabled(Call& call) {
  const Option stored(remoteweb, "enabled");
  return call.reply(!stored || stored == "0" ? "0" : "1");
}

// Switched off, the option goes away: an empty value removes it.
bool set_enabled(Call& call) {
  const bool on = call.value_is("1");
  if (!on && !call.value_is("0")) return false;
  if (!write_option(remoteweb, "enabled", on ? "1" : "")) return false;
  return call.mark(on ? APPLY_REMOTE_ACCESS : APPLY_REMOTE_ACCESS_OFF);
}

}  // namespace

PARAMETER(UserInterface_RemoteAccess_Enable, enabled, set_enabled)
PARAMETER(UserInterface_RemoteAccess_Port, option(remoteweb, "https_port", "443"),
          store(remoteweb, "https_port", APPLY_REMOTE_ACCESS))

// X_KOVA_AppCfg: dynamic DNS with one of two providers, DynDNS or No-IP.
#include "command.hpp"
#include "parameter.hpp"
#include "pkg-diag.h"

namespace {

using namespace kova;

constexpr Section dyndns{"ddns", "dyndns"};
constexpr Section noip{"ddns", "noip"};

// An option that is on or off, and the store's words for these.
struct Switch {
  const char* option;
  const char* on;
  const char* off;
};
constexpr Switch kEnabled{.option = "enabled", .on = "on", .off = "off"};
constexpr Switch kWanBind{.option = "wan_bind", .on = "enable", .off = "disable"};

// Every stored text but the word for off is on. Without the option it is off.
bool reply_switch(Call& call, Section provider, const Switch& setting) {
  const Option stored(provider, setting.option);
  return call.reply(!stored || stored == setting.off ? "0" : "1");
}

bool store_switch(Call& call, Section provider, const Switch& setting) {
  const bool on = call.value_is("1");
  if (!on && !call.value_is("0")) return false;
  return write_option(provider, setting.option, on ? setting.on : setting.off);
}

// The provider that was switched last is the active one, also when it was switched off.
bool switch_provider(Call& call, Section provider, uint32_t bits) {
  if (!store_switch(call, provider, kEnabled)) return false;
  if (!write_option({"ddns", "provider"}, "provider", provider.name)) return false;
  return call.mark(bits);
}

bool set_wan_binding(Call& call) { return store_switch(call, noip, kWanBind) && call.mark(APPLY_DDNS); }

constexpr auto is_on(Section provider, Switch setting) {
  return [=](Call& call) { return reply_switch(call, provider, setting); };
}

constexpr auto activate(Section provider, uint32_t bits) {
  return [=](Call& call) { return switch_provider(call, provider, bits); };
}

constexpr auto state(const char* command) {
  return [=](Call& call) { return call.reply(logged_first_line<100>(command).c_str()); };
}

}  // namespace

// clang-format off
PARAMETER(X_KOVA_AppCfg_DynDnsCfg_Enable,     is_on(dyndns, kEnabled),        activate(dyndns, APPLY_DDNS))
ALIAS(X_KOVA_AppCfg_DynDnsCfg_Login,          X_KOVA_AppCfg_DynDnsCfg_Enable)
PARAMETER(X_KOVA_AppCfg_DynDnsCfg_State,      state("ddns state dyndns"),     read_only)
PARAMETER(X_KOVA_AppCfg_DynDnsCfg_Username,   option(dyndns, "username"),     store(dyndns, "username"))
PARAMETER(X_KOVA_AppCfg_DynDnsCfg_Password,   option(dyndns, "password"),     store(dyndns, "password"))
PARAMETER(X_KOVA_AppCfg_DynDnsCfg_UserDomain, option(dyndns, "domain"),       store(dyndns, "domain"))
PARAMETER(X_KOVA_AppCfg_DynDnsCfg_Server,     option(dyndns, "service_name"), read_only)

// Enable and Login differ only in the bit that they mark. That Enable marks the bit of the traceroute is on purpose.
PARAMETER(X_KOVA_AppCfg_NoipDnsCfg_Enable,       is_on(noip, kEnabled),        activate(noip, APPLY_TRACEROUTE_DIAG))
PARAMETER(X_KOVA_AppCfg_NoipDnsCfg_Login,        is_on(noip, kEnabled),        activate(noip, APPLY_DDNS))
PARAMETER(X_KOVA_AppCfg_NoipDnsCfg_State,        state("ddns state noip"),     read_only)
PARAMETER(X_KOVA_AppCfg_NoipDnsCfg_Username,     option(noip, "username"),     store(noip, "username"))
PARAMETER(X_KOVA_AppCfg_NoipDnsCfg_Password,     option(noip, "password"),     store(noip, "password"))
PARAMETER(X_KOVA_AppCfg_NoipDnsCfg_UserDomain,   option(noip, "domain"),       store(noip, "domain"))
PARAMETER(X_KOVA_AppCfg_NoipDnsCfg_Server,       option(noip, "service_name"), store(noip, "service_name", APPLY_DDNS))
PARAMETER(X_KOVA_AppCfg_NoipDnsCfg_WANIPBinding, is_on(noip, kWanBind),        set_wan_binding)
// clang-format on

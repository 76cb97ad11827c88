// X_KOVA_IPTV: the VLANs of the internet, IPTV and telephony services, and the service of each LAN port.
#include <strings.h>

#include "br.hpp"
#include "command.hpp"
#include "pkg-br.h"
#include "verify.hpp"

namespace {

using namespace kova;

bool in_any_case(const char* text, const char* wanted) { return strcasecmp(text, wanted) == 0; }

// ---- The service VLANs ----

bool reply_is_one(Call& call, const char* option) { return call.reply(Option(iptv, option) == "1" ? "1" : "0"); }

bool set_enabled(Call& call) {
  if (!call.value_is("0") && !call.value_is("1")) return call.refuse("Invalid param\n");
  if (!VerifyCommand(kVerifyQuoted, "iptv_vlan_enable", call.value()).run_unjudged()) return false;
  return call.mark(APPLY_ROUTES);
}

bool set_mode(Call& call) {
  const bool known = in_any_case(call.value(), "custom") || in_any_case(call.value(), "bridge");
  return known ? store_iptv(call, "mode", call.value()) : call.refuse("Unknown mode\n");
}

// Untagged is stored as an empty text.
bool set_internet_tag(Call& call) {
  if (call.value_is("0")) return store_iptv(call, "inet_tag", "");
  if (call.value_is("1")) return store_iptv(call, "inet_tag", "1");
  return call.refuse(" Unknown tag mode.\n");
}

bool store_fitting(Call& call, const char* option, bool (*fits)(const char*)) {
  return fits(call.value()) && store_iptv(call, option, call.value());
}

constexpr auto is_one(const char* option) {
  return [=](Call& call) { return reply_is_one(call, option); };
}

constexpr auto store_vlan_id(const char* option) {
  return [=](Call& call) { return store_fitting(call, option, is_vlan_id); };
}

constexpr auto store_priority(const char* option) {
  return [=](Call& call) { return store_fitting(call, option, is_priority); };
}

// ---- The LAN ports: the instance number is the port's ----

constexpr std::size_t kPort = 0;

constexpr Section info{"cwmp", "info"};

bool number_of_ports(Call& call) {
  const Option number(info, "lanport_num");
  if (!number) return call.reply("4");
  return leading_number(number.text()) > 0 && call.reply(number.text());
}

bool has_port(int32_t port) {
  const Option number(info, "lanport_num");
  return port > 0 && port <= (number ? leading_number(number.text()) : 4);
}

// What the verify script has found; empty for a port that the device does not have, which no command is run for.
Text<100> service_of(int32_t port) {
  if (!has_port(port)) return {};
  VerifyCommand("%s %s ", "iptv_type_LAN_read").run_unjudged();
  Text<512> command;
  command.print("cat /tmp/laninfo |  awk '{print $%lld}'", 2LL * port);
  return logged_first_line<100>(command.c_str());
}

bool port_service(Call& call) {
  if (!located(call, kPort)) return false;
  const int32_t port = call.instance(kPort);
  const Text<100> service = service_of(port);
  if (service.empty()) LOG("GILTF %lld.\n", port + 1LL);
  return reply_or(call, in_any_case(service.c_str(), "inet") ? "Internet" : service.c_str(), "UNKOWN");
}

// The verify script's name for a service. Telephony has that of IPTV while the services are bridged. nullptr when there
// is no such service, or the mode cannot be read.
const char* service_type(const char* service) {
  if (in_any_case(service, "Internet")) return "inet";
  if (in_any_case(service, "iptv")) return "iptv";
  if (!in_any_case(service, "voip")) {
    LOG("FTSIVT.\n");
    return nullptr;
  }
  const Option mode(iptv, "mode");
  if (!mode) return nullptr;
  return in_any_case(mode.text(), "bridge") ? "iptv" : "voip";
}

bool set_port_service(Call& call) {
  if (!located(call, kPort)) return false;
  const char* type = service_type(call.value());
  if (type == nullptr) return false;
  return VerifyCommand(R"(%s %s lan%d "%s")", "iptv_type_LAN_set", call.instance(kPort), type).run_unjudged();
}

}  // namespace

// clang-format off
PARAMETER(X_KOVA_IPTV_Enable,   is_one("enabled"),           set_enabled)
PARAMETER(X_KOVA_IPTV_Mode,     required(iptv, "mode"),      set_mode)
PARAMETER(X_KOVA_IPTV_INETTAG,  is_one("inet_tag"),          set_internet_tag)
PARAMETER(X_KOVA_IPTV_INETVID,  required(iptv, "inet_vlan"), store_vlan_id("inet_vlan"))
PARAMETER(X_KOVA_IPTV_INETPrio, required(iptv, "inet_prio"), store_priority("inet_prio"))
PARAMETER(X_KOVA_IPTV_IPTVVID,  required(iptv, "iptv_vlan"), store_vlan_id("iptv_vlan"))
PARAMETER(X_KOVA_IPTV_IPTVPrio, required(iptv, "iptv_prio"), store_priority("iptv_prio"))
PARAMETER(X_KOVA_IPTV_VOIPVID,  required(iptv, "voip_vlan"), store_vlan_id("voip_vlan"))
PARAMETER(X_KOVA_IPTV_VOIPPrio, required(iptv, "voip_prio"), store_priority("voip_prio"))

PARAMETER(X_KOVA_IPTV_VLANTYPENumberOfEntries, number_of_ports, read_only)
PARAMETER(X_KOVA_IPTV_VLANTYPE_LAN,            port_service,    set_port_service)
// clang-format on

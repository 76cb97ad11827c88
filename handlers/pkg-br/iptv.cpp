// X_KOVA_IPTV: the VLANs of the internet, IPTV and telephony services, and which of them each LAN port has.
#include <string.h>

#include "br.hpp"
#include "command.hpp"
#include "pkg-br.h"
#include "verify.hpp"

namespace {

using namespace kova;

bool is_text(const char* text, const char* wanted) { return strcasecmp(text, wanted) == 0; }

// ---- The service VLANs ----

bool reply_is_one(Call& call, const char* option) { return call.reply(option_is(iptv, option, "1") ? "1" : "0"); }

bool set_enabled(Call& call) {
  if (!call.value_is("0") && !call.value_is("1")) {
    LOG("Invalid param\n");
    return false;
  }
  if (!VerifyCommand(kVerifyQuoted, "iptv_vlan_enable", call.value()).run_unjudged()) return false;
  return call.mark(APPLY_ROUTES);
}

bool set_mode(Call& call) {
  if (is_text(call.value(), "custom") || is_text(call.value(), "bridge")) return store_iptv(call, "mode", call.value());
  LOG("Unknown mode\n");
  return false;
}

// Untagged is an empty text.
bool set_internet_tag(Call& call) {
  if (call.value_is("0")) return store_iptv(call, "inet_tag", "");
  if (call.value_is("1")) return store_iptv(call, "inet_tag", "1");
  LOG(" Unknown tag mode.\n");
  return false;
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

bool number_of_ports(Call& call) {
  static constexpr Section info{"cwmp", "info"};
  Text<32> number;
  if (!read_option(info, "lanport_num", number.span())) return call.reply("4");
  if (leading_number(number.c_str()) <= 0) return false;
  return reply_option(call, info, "lanport_num", "4");
}

bool port_service(Call& call) {
  if (!located(call, kPort)) return false;
  VerifyCommand("%s %s ", "iptv_type_LAN_read").run_unjudged();
  const long long port = call.instance(kPort);
  Text<512> command;
  command.print("cat /tmp/laninfo |  awk '{print $%lld}'", 2 * port);
  const Text<100> service = logged_first_line<100>(command.c_str());
  if (service.empty()) LOG("GILTF %lld.\n", port + 1);
  return reply_or(call, is_text(service.c_str(), "inet") ? "Internet" : service.c_str(), "UNKOWN");
}

// What the verify script calls a service; telephony is one with IPTV while the services are bridged. nullptr when there
// is no such service, or no mode to judge by.
const char* service_type(const char* service) {
  if (is_text(service, "Internet")) return "inet";
  if (is_text(service, "iptv")) return "iptv";
  if (!is_text(service, "voip")) {
    LOG("FTSIVT.\n");
    return nullptr;
  }
  Text<8> mode;
  if (!read_option(iptv, "mode", mode.span())) return nullptr;
  return is_text(mode.c_str(), "bridge") ? "iptv" : "voip";
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

// Layer2Bridging: the VLAN of the internet service as TR-098 has it. What is read and what is written differ on
// purpose.
#include "br.hpp"
#include "pkg-br.h"

namespace {

using namespace kova;

using Tag = Text<64>;

// Reads what an option holds. False when there is nothing in it: it cannot be read, or is "0".
bool read_tag(const char* option, Tag& tag) { return read_option(iptv, option, tag.span()) && !(tag == "0"); }

// Fills an option that has nothing in it.
void seed(const char* option, const char* value) {
  Tag tag;
  if (!read_tag(option, tag)) write_option(iptv, option, value);
}

// The same, and has the option make way when it holds the ID that was set.
void keep_apart(const char* option, const char* id, const char* value, const char* other_value) {
  Tag tag;
  if (!read_tag(option, tag)) {
    write_option(iptv, option, value);
  } else if (tag == Tag(id).view()) {
    write_option(iptv, option, other_value);
  }
}

bool vlan_enabled(Call& call) {
  Tag tag;
  if (read_option(iptv, "inet_tag", tag.span())) return call.reply(tag == "1" ? "1" : "0");
  LOG(" uci get error\n\n");
  return false;
}

// ---- Setters. The mode is written before the value is judged, and stays when that is refused. ----

bool set_vlan_enabled(Call& call) {
  if (!store_iptv(call, "mode", "custom")) return false;
  const bool on = call.value_is("1");
  if (!on && !call.value_is("0")) return false;
  if (!store_iptv(call, "internet_tag", on ? "on" : "off")) return false;
  return call.mark(APPLY_VLAN);
}

// The ID goes to the IPTV service, which then makes way for it itself: it ends with "31".
bool set_vlan_id(Call& call) {
  static constexpr LogMessage kIdNotStored = "uci set error.\n";
  if (!write_option(iptv, "mode", "custom")) return call.refuse(kIdNotStored);
  if (!is_vlan_id(call.value())) return false;
  if (!write_option(iptv, "iptv_vlan", call.value())) return call.refuse(kIdNotStored);
  keep_apart("voip_vlan", call.value(), "20", "21");
  keep_apart("iptv_vlan", call.value(), "30", "31");
  return call.mark(APPLY_VLAN);
}

// A priority that cannot be stored does not keep the IDs from being seeded.
bool set_vlan_priority(Call& call) {
  if (!store_iptv(call, "mode", "Custom")) return false;
  if (!is_priority(call.value())) return false;
  const bool stored = store_iptv(call, "internet_vprio", call.value());
  seed("internet_vid", "40");
  seed("ipphone_vid", "20");
  seed("iptv_vid", "30");
  return stored && call.mark(APPLY_VLAN);
}

}  // namespace

// clang-format off
PARAMETER(Layer2Bridging_Bridge_VLAN_VLANEnable,      vlan_enabled,                     set_vlan_enabled)
PARAMETER(Layer2Bridging_Bridge_VLAN_VLANID,          required(iptv, "inet_vlan"),      set_vlan_id)
PARAMETER(Layer2Bridging_Bridge_VLAN_X_KOVA_VLANPrio, required(iptv, "internet_vprio"), set_vlan_priority)
// clang-format on

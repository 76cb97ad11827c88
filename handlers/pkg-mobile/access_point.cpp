// Cellular.AccessPoint: how the modem logs in to the network. Each SIM slot has its own settings.
#include "mobile.hpp"
#include "pkg-mobile.h"
#include "text.hpp"

namespace {

using namespace kova;

// An option that each SIM slot has, named by `stem` and the slot.
struct SlotOption {
  const char* stem;
  int longest_slot;  // the slot's text is cut to this
  LogMessage no_slot;
  LogMessage not_stored;
};
constexpr int kAnyLength = Answer::capacity();
constexpr SlotOption apn{"apn", 5, "FTGSS.\n", "FTSAN.\n"};  // its name has at most 8 characters
constexpr SlotOption username{"username", kAnyLength, "FTGSS.\n", "FTSCAUN.\n"};
constexpr SlotOption password{"password", kAnyLength, "FTGSS. \n", "FTSCAPW.\n"};

using OptionName = Text<128>;

// The name of the option of the slot in use; the stem alone when the slot is not known.
OptionName option_in_use(const SlotOption& option, Origin origin) {
  const Answer slot = answer_of("cat /var/run/4g/simslot");
  if (slot.empty()) option.no_slot.print(origin);
  OptionName name;
  name.print("%s%.*s", option.stem, option.longest_slot, slot.c_str());
  return name;
}

// Leaves the output as it is when the option cannot be read.
bool reply_slot_option(Call& call, const SlotOption& option) {
  reply_option(call, mobile, option_in_use(option, call.origin()).c_str());
  return true;
}

bool store_slot_option(Call& call, const SlotOption& option) {
  const OptionName name = option_in_use(option, call.origin());
  return store_option(call, mobile, name.c_str(), call.value(), 0, option.not_stored);
}

constexpr auto slot_option(SlotOption option) {
  return [=](Call& call) { return reply_slot_option(call, option); };
}

constexpr auto store_slot(SlotOption option) {
  return [=](Call& call) { return store_slot_option(call, option); };
}

// ---- Access point name: the network's own, or one that the server has set ----

constexpr Switch isp{.option = "isp", .on = nullptr, .off = "auto"};

bool access_point_name(Call& call) {
  const Option stored(mobile, isp.option);
  if (stored && !(stored == isp.off)) return reply_slot_option(call, apn);
  return reply_answer(call, "cat /var/run/4g/getregsta", "FTGGR.\n");
}

bool set_access_point_name(Call& call) {
  if (!store_slot_option(call, apn)) return false;
  return write_option(mobile, isp.option, "manual") || call.refuse("FTSCAIM.\n");
}

}  // namespace

// clang-format off
PARAMETER(Cellular_AccessPoint_APN,       if_present(access_point_name),           if_present(set_access_point_name))
PARAMETER(Cellular_AccessPoint_Enable,    if_present(constant("1"), "0"),          switch_and_apply(isp, "FTSCAIA.\n"))
PARAMETER(Cellular_AccessPoint_Username,  if_present(slot_option(username)),       if_present(store_slot(username)))
PARAMETER(Cellular_AccessPoint_Password,  if_present(slot_option(password)),       if_present(store_slot(password)))
PARAMETER(Cellular_AccessPoint_Interface, constant("Device.Cellular.Interface.1"), read_only)
// clang-format on

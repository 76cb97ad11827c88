// LEDs: the board's status lights.
#include "command.hpp"
#include "parameter.hpp"
#include "pkg-dev.h"
#include "text.hpp"

namespace {

using namespace kova;

constexpr Section board{"system", "board"};

using Line = Text<128>;

Line line_of(const char* command) { return logged_first_line<Line::capacity()>(command); }

// ---- The switch for all lights, of a board that has one ----

bool leds_enabled(Call& call) {
  if (!(Option(board, "ledctl") == "1")) return call.reply("0");
  return reply_or(call, line_of("uci get system.@system[0].leds").c_str(), "1");
}

// Succeeds whatever comes of it. The agent applies the change wherever the board says whether it has a switch.
bool set_leds_enabled(Call& call) {
  const Option switchable(board, "ledctl");
  if (!switchable) return true;
  if (switchable == "1") logged_first_line<128>(CommandLine("uci set system.@system[0].leds='%s'", call.value()));
  return call.mark(APPLY_LEDS);
}

bool number_of_leds(Call& call) { return reply_or(call, line_of("ls /sys/class/leds/ | wc -l").c_str(), "2"); }

// ---- One light ----

// What `answer` replies for the call's light, whose name is empty when there is none.
bool reply_for_led(Call& call, bool (*answer)(Call& call, const Line& name)) {
  if (call.instance(0) == 0) return call.refuse("LE\n");
  Text<64> command;
  command.print("ls /sys/class/leds/ | sed -n %dp", call.instance(0));
  return answer(call, line_of(command.c_str()));
}

bool reply_name(Call& call, const Line& name) { return reply_or(call, name.c_str(), "led"); }

bool reply_status(Call& call, const Line& name) {
  Text<256> command;
  command.print("cat /sys/class/leds/%s/brightness", name.c_str());
  const Line brightness = name.empty() ? Line() : line_of(command.c_str());
  if (brightness.empty()) return call.reply("Error");
  return call.reply(brightness == "0" ? "Disabled" : "InUse");
}

constexpr auto of_led(bool (*answer)(Call& call, const Line& name)) {
  return [=](Call& call) { return reply_for_led(call, answer); };
}

}  // namespace

PARAMETER(LEDs_Enable, leds_enabled, set_leds_enabled)
PARAMETER(LEDs_LEDNumberOfEntries, number_of_leds, read_only)
PARAMETER(LEDs_LED_Name, of_led(reply_name), read_only)
PARAMETER(LEDs_LED_Status, of_led(reply_status), read_only)

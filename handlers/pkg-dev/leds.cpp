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

bool leds_enabled(Call& call) {
  Text<8> switchable;
  read_option(board, "ledctl", switchable.span());
  if (!(switchable == "1")) return call.reply("0");
  return reply_or(call, line_of("uci get system.@system[0].leds").c_str(), "1");
}

bool set_leds_enabled(Call& call) {
  Text<8> switchable;
  if (!read_option(board, "ledctl", switchable.span())) return true;
  Text<512> command;
  if (switchable == "1" && command.print("uci set system.@system[0].leds='%s'", call.value())) line_of(command.c_str());
  return call.mark(APPLY_LEDS);
}

bool number_of_leds(Call& call) { return reply_or(call, line_of("ls /sys/class/leds/ | wc -l").c_str(), "2"); }

// The name of the light that the call's row is, empty when there is none. False for instance 0.
bool find_led(const Call& call, Line& name) {
  if (call.instance(0) == 0) {
    LOG("LE\n");
    return false;
  }
  Text<64> command;
  command.print("ls /sys/class/leds/ | sed -n %dp", call.instance(0));
  name = line_of(command.c_str());
  return true;
}

bool led_name(Call& call) {
  Line name;
  if (!find_led(call, name)) return false;
  return reply_or(call, name.c_str(), "led");
}

bool led_status(Call& call) {
  Line name;
  if (!find_led(call, name)) return false;
  if (name.empty()) return call.reply("Error");
  Text<256> command;
  command.print("cat /sys/class/leds/%s/brightness", name.c_str());
  const Line brightness = line_of(command.c_str());
  if (brightness.empty()) return call.reply("Error");
  return call.reply(brightness == "0" ? "Disabled" : "InUse");
}

}  // namespace

PARAMETER(LEDs_Enable, leds_enabled, set_leds_enabled)
PARAMETER(LEDs_LEDNumberOfEntries, number_of_leds, read_only)
PARAMETER(LEDs_LED_Name, led_name, read_only)
PARAMETER(LEDs_LED_Status, led_status, read_only)

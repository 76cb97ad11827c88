// Time: clock, time zone and NTP servers. The script cwmp-ntp carries the changes out.
#include <stdio.h>
#include <string.h>

#include "command.hpp"
#include "file.hpp"
#include "parameter.hpp"
#include "pkg-dev.h"
#include "text.hpp"

namespace {

using namespace kova;

constexpr Section ntp{"system", "ntp"};

bool reply_line(Call& call, const char* command) { return call.reply(logged_first_line<256>(command).c_str()); }

bool local_time(Call& call) { return reply_line(call, "date '+%F %X'"); }

bool set_enable(Call& call) {
  CommandLine("/usr/bin/tr069/cwmp-ntp enable %s", call.value()).run();
  return true;
}

// ---- Time zone ----

bool time_zone(Call& call) {
  cwmp_system("/usr/bin/tr069/cwmp-ntp timezoneinfo get");
  return reply_line(call, "cat /tmp/tr069/curtimezone");
}

bool set_time_zone(Call& call) {
  return CommandLine("/usr/bin/tr069/cwmp-ntp timezoneinfo set %s", call.value()).run();
}

// Every zone is followed by ", ", the last one too.
bool time_zones(Call& call) {
  cwmp_system("/usr/bin/tr069/cwmp-ntp timezonelist");
  File list("/tmp/tr069/timezonelist", "r");
  if (!list) return call.refuse("read timezonelist error.\n");
  char* end = call.output();
  *end = '\0';
  for (Text<256> line; list.read_line(line.span());) {
    remove_newline(line.span());
    end = stpcpy(stpcpy(end, line.c_str()), ", ");
  }
  return true;
}

// ---- NTP servers ----

// The element of a list option at `position`, counted from 1; nullptr when it is shorter.
const char* list_element(uci_option* list, int position) {
  uci_element* element = nullptr;
  uci_foreach_element(&list->v.list, element) {
    if (--position == 0) return element->name;
  }
  return nullptr;
}

// The name of the server at `position`, in the first list that is long enough; nullptr when there is none.
const char* get_NTPtimeserver(const WalkedPackage& system, int position) {
  for (uci_section* timeserver : system.sections("timeserver")) {
    uci_option* servers = system.option(timeserver, "server");
    if (servers == nullptr) {
      LOG("[ERR]uci failed to get server option\n");
      return nullptr;
    }
    const char* name = servers->type == UCI_TYPE_LIST ? list_element(servers, position) : nullptr;
    if (name != nullptr) return name;
  }
  return nullptr;
}

bool reply_ntp_server(Call& call, int position) {
  const WalkedPackage system("system", HERE, "[ERR]uci failed to load config:system\n");
  const char* name = system ? get_NTPtimeserver(system, position) : nullptr;
  return call.reply(name != nullptr ? name : "");
}

constexpr auto ntp_server(int position) {
  return [=](Call& call) { return reply_ntp_server(call, position); };
}

bool change_ntp_server(const Call& call, int position) {
  if (call.value_is("")) {
    CommandLine("/usr/bin/tr069/cwmp-ntp ntpserver %d", position).run();
  } else {
    CommandLine("/usr/bin/tr069/cwmp-ntp ntpserver %d %s", position, call.value()).run();
  }
  return true;
}

constexpr auto set_ntp_server(int position) {
  return [=](Call& call) { return change_ntp_server(call, position); };
}

}  // namespace

PARAMETER(Time_Enable, option(ntp, "enabled", "0"), set_enable)
PARAMETER(Time_CurrentLocalTime, local_time, ignored)
PARAMETER(Time_LocalTimeZone, time_zone, set_time_zone)
PARAMETER(Time_TimeZoneList, time_zones, ignored)
PARAMETER(Time_NTPServer1, ntp_server(1), set_ntp_server(1))
PARAMETER(Time_NTPServer2, ntp_server(2), set_ntp_server(2))
PARAMETER(Time_NTPServer3, ntp_server(3), set_ntp_server(3))
PARAMETER(Time_NTPServer4, ntp_server(4), set_ntp_server(4))

// Prints what every handler answers and does on a simulated router in factory state, its commands real: the same text
// on every processor.
#include <sys/prctl.h>
#include <sys/wait.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>

#include "seam/snapshot.hpp"
#include "support/catalogue.hpp"
#include "support/handler.hpp"
#include "support/watched_list.hpp"

namespace kova::test {
namespace {

const Instances kFirstRow = {1, 1, 1, 1, 0, 0};

// What many handlers take, and numbers that 31 and 32 bits do not hold.
const char* const kValues[] = {"1",         "0",          "-1",         "192.168.1.100", "1400",
                               "Requested", "2147483648", "4294967297", "07 x"};

// What moves by itself stands still for the commands that begin so.
const struct {
  std::string command;
  const char* file;
  const char* text;
} kStill[] = {
    {"cat /proc/net/dev", "/tmp/still-counters",
     "    lo: 1 2 0 0 0 0 0 0 3 4 0 0 0 0 0 0\n"
     "  eth0: 4294967299 11 2147483648 0 0 0 0 0 18446744073709551615 21 3000000000 0 0 0 0 0\n"
     "br-lan: 2147483649 31 0 0 0 0 0 0 9223372036854775808 41 0 0 0 0 0 0\n"
     "   ra0: 51 52 53 0 0 0 0 0 61 62 63 0 0 0 0 0\n"
     "   ra1: 71 72 73 0 0 0 0 0 81 82 83 0 0 0 0 0\n"
     "  usb0: 91 92 93 0 0 0 0 0 94 95 96 0 0 0 0 0\n"},
    {"cat /proc/meminfo", "/tmp/still-memory",
     "MemTotal: 3145728 kB\nMemFree: 2621440 kB\nBuffers: 1024 kB\nCached: 4096 kB\nSwapCached: 0 kB\n"},
    {"cat /proc/uptime", "/tmp/still-uptime", "4294967300.25 1.00\n"},
    {"date '+%F %X'", "/tmp/still-date", "2026-01-02 03:04:05\n"},
    {"ps ", "/tmp/still-processes", "PID USER\n1 root\n2 root\n"},
    {"top -n1 ", "/tmp/still-load", "CPU: 2% usr 1% sys 0% nic 93% idle 0% io 0% irq 4% sirq\n"},
};

std::string on_one_line(std::string text) {
  std::replace(text.begin(), text.end(), '\n', ' ');
  return text;
}

void print_get(const Row& row) {
  static char output[65536];
  std::strcpy(output, kUntouched.c_str());
  Instances instances = kFirstRow;
  const agent_state agent = running_agent();
  WatchedList list(instances.data(), output, &agent);
  const int32_t result = list.call(row.handler, 0);
  printf("  get: %d \"%s\"%s\n", result, on_one_line(output).c_str(),
         list.third_was_taken() ? ", with the agent's record" : "");
}

std::multiset<std::string> lines_of(const std::string& text) {
  std::multiset<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.insert(line);
  return lines;
}

void print_lines(char sign, const std::string& of, const std::string& not_of) {
  const auto lines = lines_of(of);
  const auto others = lines_of(not_of);
  std::vector<std::string> more;
  std::set_difference(lines.begin(), lines.end(), others.begin(), others.end(), std::back_inserter(more));
  for (const std::string& line : more) printf("      %c%s\n", sign, line.c_str());
}

void print_changes(const seam::Texts& before, const seam::Texts& after) {
  for (const auto& [path, old_text, text] : seam::differences(before, after)) {
    printf("    %s %s\n", text ? "writes" : "removes", path.c_str());
    print_lines('-', old_text.value_or(""), text.value_or(""));
    print_lines('+', text.value_or(""), old_text.value_or(""));
  }
}

void print_set(const Row& row, const char* value, const seam::Snapshot& factory) {
  const Outcome outcome = set(row.handler, value, kFirstRow);
  while (wait(nullptr) > 0 || errno == EINTR) {  // what runs on in the background
  }
  printf("  set \"%s\": %d, mask 0x%x\n", value, outcome.result, outcome.mask);
  const seam::Snapshot now = seam::Snapshot::of_lab();
  if (now == factory) return;
  print_changes(factory.texts(), now.texts());
  print_get(row);
  factory.restore(now);
}

void print_refusal(const Row& row) {
  WatchedList list(kFirstRow.data(), "1", nullptr);
  printf("  set: %d%s\n", list.call(row.handler, 1), list.third_was_taken() ? ", with the mask" : "");
}

void print_all() {
  for (const auto& still : kStill) std::ofstream(still.file) << still.text;
  for (const Row& row : kCatalogue) get(row.handler, kFirstRow);  // for the files that scripts make once
  const seam::Snapshot factory = seam::Snapshot::of_lab();
  for (const Row& row : kCatalogue) {
    printf("%s\n", row.name.c_str());
    print_get(row);
    if (row.access == Access::READ_ONLY) {
      print_refusal(row);
    } else {
      for (const char* value : kValues) print_set(row, value, factory);
    }
  }
}

std::string stilled(const std::string& command) {
  for (const auto& still : kStill) {
    if (command.starts_with(still.command))
      return std::string("cat ") + still.file + " " + command.substr(still.command.size());
  }
  return command;
}

class Still : public seam::Platform {
  FILE* popen(const char* command, const char* mode) override {
    return Platform::popen(stilled(command).c_str(), mode);
  }
};

}  // namespace
}  // namespace kova::test

int main() {
  prctl(PR_SET_CHILD_SUBREAPER, 1);
  kova::test::Still still;
  const seam::InUse use(still, seam::Calls::OF_PROCESS);
  kova::test::print_all();
}

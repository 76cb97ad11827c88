// What command lines need of a device, and whether it is there.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace kovadm {

enum class Need { PROGRAM, FILE, PACKAGE, BUS_OBJECT };

struct Needed {
  Need need;
  std::string name;  // a program's may be a path; a file's is one

  auto operator<=>(const Needed&) const = default;
};

// What the text of a command line tells that it needs: its programs; files by their whole paths; the package that uci
// is to look at, and the object that ubus is to call.
std::vector<Needed> needs_of(const std::string& command_line);

// The programs that a shell missed, by what it wrote: "sh: iwinfo: not found".
std::vector<std::string> programs_missed_in(const std::string& errors);

// Looks for them on the platform in use, once for each.
class Inventory {
 public:
  bool has(const Needed& needed);

 private:
  std::map<Needed, bool> known_;
};

}  // namespace kovadm

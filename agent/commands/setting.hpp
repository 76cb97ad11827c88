// What is to be set, as it is given on the command line.
#pragma once

#include <string>
#include <vector>

namespace kovadm {

struct Setting {
  std::string path;
  std::string value;
};

// For the help.
inline constexpr char kSettingHelp[] = "VALUE @FILE is read from a file, @- from standard input; @@ stands for @";

// What a VALUE on the command line stands for. Throws SetupError.
std::string given_value(const std::string& text);

// From texts "PATH=VALUE"; a value may be empty and hold further equals signs. Throws SetupError.
std::vector<Setting> read_settings(const std::vector<std::string>& texts);

}  // namespace kovadm

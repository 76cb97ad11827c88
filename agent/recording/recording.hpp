// A recording: all that gets on a router depended on, and its form as a file (docs/recordings.md).
#pragma once

#include <map>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace kovadm {

// The directories of which all files are kept, as they were when the recording began: whether `path` is a file directly
// in one of them, or one of them.
bool is_in_kept_directory(const std::string& path);
bool is_kept_directory(const std::string& path);

std::string file_in(const std::string& directory, const std::string& name);

using Files = std::map<std::string, std::string>;  // by name or path: what is in it

struct CommandAnswer {
  std::string output;
  std::string errors;  // on standard error
  int status = 0;      // as the shell tells it; -1: could not be run
  // Files in the kept directories, by path, as they were afterwards; nothing: gone.
  std::map<std::string, std::optional<std::string>> changed;

  bool operator==(const CommandAnswer&) const = default;
};

struct BusAnswer {
  int status = 0;  // of the bus
  std::vector<nlohmann::ordered_json> replies;

  bool operator==(const BusAnswer&) const = default;
};

struct Recording {
  std::string time;
  std::vector<std::string> prefixes;  // of the parameters that were read; none: of all
  bool with_secrets = false;
  nlohmann::ordered_json agent = nlohmann::ordered_json::object();  // fields of the agent's record
  std::map<std::string, Files> directories;
  std::map<std::string, CommandAnswer> commands;
  std::map<std::string, std::optional<std::string>> files;  // others that were opened; nothing: could not be
  std::map<std::string, bool> tested;                       // others that were looked for
  // By "OBJECT METHOD MESSAGE"; an object alone is its look-up, and kBusConnection the way to the bus.
  std::map<std::string, BusAnswer> bus;
};

inline constexpr char kBusConnection[] = "(connection)";

// The file's text.
std::string to_text(const Recording& recording);

// The largest text that is looked at, bytes.
inline constexpr std::size_t kLargestRecording = 16UL * 1024 * 1024;

// A recording, or in one line why the text is none.
std::variant<Recording, std::string> parse_recording(const std::string& text);

}  // namespace kovadm

#include "recording/recording.hpp"

#include <algorithm>
#include <climits>
#include <iterator>
#include <stdexcept>

#include "recording/bus_message.hpp"
#include "recording/bytes_json.hpp"
#include "seam/paths.hpp"

namespace kovadm {
namespace {

using Json = nlohmann::ordered_json;

constexpr char kFormat[] = "kovadm recording";
constexpr int kVersion = 1;
constexpr int kDeepest = 64;                          // nested values
constexpr std::size_t kLargestReply = 1024UL * 1024;  // as text

// ---- To JSON ----

Json optional_bytes(const std::optional<std::string>& bytes) { return bytes ? bytes_to_json(*bytes) : Json(); }

template <typename Map, typename ToJson>
Json map_to_json(const Map& map, ToJson to_json) {
  Json object = Json::object();
  for (const auto& [name, value] : map) object[name] = to_json(value);
  return object;
}

Json files_to_json(const Files& files) { return map_to_json(files, bytes_to_json); }

Json command_to_json(const CommandAnswer& answer) {
  Json object = {{"status", answer.status}, {"output", bytes_to_json(answer.output)}};
  if (!answer.errors.empty()) object["errors"] = bytes_to_json(answer.errors);
  if (!answer.changed.empty()) object["changed"] = map_to_json(answer.changed, optional_bytes);
  return object;
}

Json bus_to_json(const BusAnswer& answer) {
  Json object = {{"status", answer.status}};
  if (!answer.replies.empty()) object["replies"] = answer.replies;
  return object;
}

// ---- From JSON ----

class Broken : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

void need(bool good, const std::string& fault) {
  if (!good) throw Broken(fault);
}

using Test = bool (Json::*)() const;

const Json& member(const Json& object, const char* name, Test is_right) {
  const auto found = object.find(name);
  need(found != object.end() && ((*found).*is_right)(), std::string("its \"") + name + "\" is missing or wrong");
  return *found;
}

constexpr Test kObject = &Json::is_object;
constexpr Test kNumber = &Json::is_number_integer;
constexpr Test kText = &Json::is_string;

std::string bytes_of(const Json& value, const std::string& what) {
  auto bytes = bytes_from_json(value);
  need(bytes.has_value(), what + " is no text");
  return *bytes;
}

std::optional<std::string> optional_bytes_of(const Json& value, const std::string& what) {
  return value.is_null() ? std::nullopt : std::optional(bytes_of(value, what));
}

int status_of(const Json& answer, const std::string& what) {
  need(answer.is_object(), what + " is no answer");
  const auto& status = member(answer, "status", kNumber);
  need(status >= -1 && status <= 255, what + " has a status out of range");
  return status.get<int>();
}

// Where files are written, so nothing but the names of files will do.
Files files_of(const Json& object, const std::string& directory) {
  need(is_kept_directory(directory), "directory " + directory + " is none that is recorded");
  need(object.is_object(), directory + " is no directory");
  Files files;
  for (const auto& [name, text] : object.items()) {
    const std::string path = file_in(directory, name);
    need(is_in_kept_directory(path), "\"" + name + "\" is no file's name");
    files[name] = bytes_of(text, path);
  }
  return files;
}

CommandAnswer command_of(const Json& object, const std::string& command) {
  CommandAnswer answer;
  answer.status = status_of(object, command);
  answer.output = bytes_of(object.value("output", Json("")), command);
  answer.errors = bytes_of(object.value("errors", Json("")), command);
  const Json changed = object.value("changed", Json::object());
  need(changed.is_object(), command + " has changed no files");
  for (const auto& [path, text] : changed.items()) {
    need(is_in_kept_directory(path), path + " is no file that is recorded");
    answer.changed[path] = optional_bytes_of(text, path);
  }
  return answer;
}

BusAnswer bus_answer_of(const Json& object, const std::string& call) {
  BusAnswer answer;
  answer.status = status_of(object, call);
  const Json replies = object.value("replies", Json::array());
  need(replies.is_array(), call + " has no list of replies");
  for (const Json& reply : replies) {
    need(is_message(reply) && reply.dump().size() <= kLargestReply, call + " has a reply that is no message");
    answer.replies.push_back(reply);
  }
  return answer;
}

Recording recording_of(const Json& document) {
  need(document.is_object() && document.value("format", Json()) == kFormat, "it is another JSON document");
  const int version = member(document, "version", kNumber).get<int>();
  need(version == kVersion,
       "it is of version " + std::to_string(version) + ", this kovadm reads version " + std::to_string(kVersion));
  Recording recording;
  recording.time = member(document, "time", kText).get<std::string>();
  for (const Json& prefix : member(document, "prefixes", &Json::is_array)) {
    need(prefix.is_string(), "a prefix is no text");
    recording.prefixes.push_back(prefix.get<std::string>());
  }
  recording.with_secrets = member(document, "with_secrets", &Json::is_boolean).get<bool>();
  recording.agent = member(document, "agent", kObject);
  for (const auto& [directory, files] : member(document, "directories", kObject).items())
    recording.directories[directory] = files_of(files, directory);
  for (const auto& [command, answer] : member(document, "commands", kObject).items())
    recording.commands[command] = command_of(answer, command);
  for (const auto& [path, text] : member(document, "files", kObject).items())
    recording.files[path] = optional_bytes_of(text, path);
  for (const auto& [path, there] : member(document, "tested", kObject).items()) {
    need(there.is_boolean(), path + " is neither true nor false");
    recording.tested[path] = there.get<bool>();
  }
  for (const auto& [call, answer] : member(document, "bus", kObject).items())
    recording.bus[call] = bus_answer_of(answer, call);
  return recording;
}

// What is in the text; discarded where that is no JSON.
Json parse(const std::string& text) {
  bool deep = false;
  const auto watch = [&deep](int depth, nlohmann::json::parse_event_t, nlohmann::json&) {
    deep |= depth > kDeepest;
    return !deep;
  };
  // In the order of names: members in their own order are looked up one by one while they are read.
  const auto document = nlohmann::json::parse(text, watch, false);
  need(!deep, "its values are nested too deeply");
  need(!document.is_discarded(), "it is no JSON, or cut off");
  return document;
}

}  // namespace

std::string file_in(const std::string& directory, const std::string& name) {
  std::string path = directory;
  return path.append("/").append(name);
}

bool is_kept_directory(const std::string& path) {
  return std::ranges::find(seam::kKeptDirectories, path) != std::end(seam::kKeptDirectories);
}

bool is_in_kept_directory(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  if (slash == std::string::npos || !is_kept_directory(path.substr(0, slash))) return false;
  const std::string name = path.substr(slash + 1);
  return !name.empty() && name != "." && name != ".." && name.find('\0') == std::string::npos &&
         name.size() <= NAME_MAX;
}

std::string to_text(const Recording& recording) {
  const Json document = {{"format", kFormat},
                         {"version", kVersion},
                         {"time", recording.time},
                         {"prefixes", recording.prefixes},
                         {"with_secrets", recording.with_secrets},
                         {"agent", recording.agent},
                         {"directories", map_to_json(recording.directories, files_to_json)},
                         {"commands", map_to_json(recording.commands, command_to_json)},
                         {"files", map_to_json(recording.files, optional_bytes)},
                         {"tested", map_to_json(recording.tested, [](bool there) { return Json(there); })},
                         {"bus", map_to_json(recording.bus, bus_to_json)}};
  return document.dump(1, ' ', false, Json::error_handler_t::replace) + "\n";
}

std::variant<Recording, std::string> parse_recording(const std::string& text) {
  if (text.size() > kLargestRecording) return "it is larger than " + std::to_string(kLargestRecording >> 20) + " MiB";
  try {
    return recording_of(parse(text));
  } catch (const Broken& broken) {
    return std::string(broken.what());
  }
}

}  // namespace kovadm

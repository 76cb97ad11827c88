#include "page/sources.hpp"

#include <algorithm>
#include <sstream>
#include <string>

#include "page/html.hpp"

namespace kovadm {
namespace {

using Json = nlohmann::ordered_json;

class Sources {
 public:
  explicit Sources(const Redaction& redaction) : redaction_(redaction) {}

  void add(const char* kind, const std::string& name, const std::string& found = "") {
    Json source = {kind, text(name)};
    if (!found.empty()) source.push_back(text(found));
    if (std::find(list_.begin(), list_.end(), source) == list_.end()) list_.push_back(source);
  }

  Json take() { return std::move(list_); }

 private:
  std::string text(const std::string& text) const { return readable(redaction_.text(text)); }

  const Redaction& redaction_;
  Json list_ = Json::array();
};

std::string finding_of(const seam::LookUp& look_up) {
  return look_up.value ? "= " + *look_up.value : look_up.broken ? "cannot be parsed" : "is not there";
}

void add_lines(const char* kind, const std::string& text, Sources& sources) {
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) sources.add(kind, line);
}

}  // namespace

Json sources_of(const WatchedReading& reading, const Redaction& redaction) {
  const seam::Trace& trace = reading.trace;
  Sources sources(redaction);
  for (const Cause& cause : reading.causes) {
    if (is_missing_source(cause)) sources.add("missing", to_text(cause));
  }
  for (const seam::LookUp& look_up : trace.look_ups) sources.add("option", look_up.path, finding_of(look_up));
  for (const std::string& package : trace.walked_packages) sources.add("package", package, "searched");
  for (const std::string& command : trace.commands) sources.add("command", command);
  for (const auto& [path, finding] : trace.files) sources.add("file", path, finding);
  for (const std::string& call : trace.bus_calls) sources.add("bus", call);
  for (const std::string& message : trace.log)
    sources.add("log", message.substr(0, message.find_last_not_of('\n') + 1));
  add_lines("printed", trace.printed, sources);
  return sources.take();
}

// A fault is told as such.
bool is_missing_source(const Cause& cause) { return is_missing(cause) && cause.kind != Cause::Kind::FAULT; }

}  // namespace kovadm

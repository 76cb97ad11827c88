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

  void add(const char* kind, const std::string& name, const std::string& found = "", bool missing = false) {
    Json source = {kind, text(name)};
    if (!found.empty()) source.push_back(text(found));
    if (missing) source.push_back(true);
    if (std::find(list_.begin(), list_.end(), source) == list_.end()) list_.push_back(source);
  }

  Json take() { return std::move(list_); }

 private:
  std::string text(const std::string& text) const { return readable(redaction_.text(text)); }

  const Redaction& redaction_;
  Json list_ = Json::array();
};

// "PACKAGE" or "PACKAGE.SECTION", where the package may be a file's path.
bool is_whole_section(const std::string& path) {
  return std::count(path.begin() + static_cast<std::ptrdiff_t>(path.rfind('/') + 1), path.end(), '.') < 2;
}

void add_option(const seam::LookUp& look_up, Sources& sources) {
  if (look_up.value) {
    sources.add("option", look_up.path, "= " + *look_up.value);
  } else if (look_up.broken) {
    sources.add("package", look_up.path, "cannot be parsed", true);
  } else if (is_whole_section(look_up.path)) {
    const bool package = look_up.path.find('.', look_up.path.rfind('/') + 1) == std::string::npos;
    sources.add(package ? "package" : "section", look_up.path, "is not there", true);
  } else {
    sources.add("option", look_up.path, "is not set");
  }
}

// A state file may have been made since, when it was found not to be there.
bool was_read_since(const std::string& path, const seam::Trace& trace) {
  return std::any_of(trace.look_ups.begin(), trace.look_ups.end(), [&](const seam::LookUp& look_up) {
    return look_up.value && look_up.path.starts_with(path + ".");
  });
}

void add_printed(const std::string& printed, Sources& sources) {
  std::istringstream lines(printed);
  for (std::string line; std::getline(lines, line);) {
    const bool missing = line.ends_with("not found") || line.ends_with("No such file or directory");
    sources.add("printed", line, missing ? "(missing)" : "", missing);
  }
}

}  // namespace

Json sources_of(const seam::Trace& trace, const Redaction& redaction) {
  Sources sources(redaction);
  for (const seam::LookUp& look_up : trace.look_ups) add_option(look_up, sources);
  for (const std::string& package : trace.walked_packages) sources.add("package", package, "searched");
  for (const std::string& command : trace.commands) sources.add("command", command);
  for (const auto& [path, finding] : trace.files)
    sources.add("file", path, finding, !finding.empty() && finding != "exists" && !was_read_since(path, trace));
  for (const std::string& call : trace.bus_calls) {
    const std::size_t status = call.rfind(" (status ");
    const bool failed = status != std::string::npos && call.ends_with(')');
    sources.add("bus", call.substr(0, status), failed ? call.substr(status + 1) : "", failed);
  }
  for (const std::string& message : trace.log)
    sources.add("log", message.substr(0, message.find_last_not_of('\n') + 1));
  add_printed(trace.printed, sources);
  return sources.take();
}

bool misses_source(const Json& sources) {
  return std::any_of(sources.begin(), sources.end(), [](const Json& source) { return source.back().is_boolean(); });
}

}  // namespace kovadm

#include <CLI/CLI.hpp>
#include <algorithm>
#include <map>
#include <sstream>

#include "commands/command.hpp"
#include "commands/compared.hpp"
#include "device/changes.hpp"
#include "recording/pairs.hpp"
#include "seam/paths.hpp"

namespace kovadm {
namespace {

using Text = std::optional<std::string>;

// Something that differs between two devices, and may explain why a parameter does.
struct Difference {
  std::string kind;  // "option", "command", "file" or "bus"
  std::string name;
  Text before;
  Text after;
  std::string field;  // of a bus reply

  bool is_secret() const {
    const std::string& named = kind == "bus" ? field : name;
    return (kind == "bus" || kind == "option") && is_secret_name(named.substr(named.find_last_of("./") + 1));
  }
};

// A recorded device, and what it answers.
class Device {
 public:
  Device(Recording recording, const std::string& plugin, Output& output)
      : recording_(std::move(recording)),
        agent_(plugin, recording_.agent, output.to_warn()),
        platform_(recording_, RecordedPlatform::Source::RECORDING) {}

  const Recording& recording() const { return recording_; }
  const std::vector<Reading>& readings() const { return readings_; }

  void read(const std::vector<std::string>& prefixes, Output& output) {
    const seam::InUse in_use(platform_);
    readings_ = read_all(agent_, prefixes, output, nullptr);
  }

  // The stores as they are now; gets may have made some of them.
  seam::Texts stores() const { return seam::kept_files(platform_); }

  seam::Trace trace_of(const Parameter& parameter) {
    const seam::InUse in_use(platform_);
    return seam::trace([&] { agent_.get(parameter); });
  }

 private:
  Recording recording_;
  Agent agent_;
  RecordedPlatform platform_;
  std::vector<Reading> readings_;
};

// ---- What differs between the devices ----

template <typename Map, typename Add>
void for_each_difference(const Map& some, const Map& others, Add add) {
  std::map<std::string, bool> names;
  for (const Map* map : {&some, &others}) {
    for (const auto& [name, ignored] : *map) names[name] = true;
  }
  for (const auto& [name, ignored] : names) {
    const auto one = some.find(name);
    const auto other = others.find(name);
    const auto* before = one != some.end() ? &one->second : nullptr;
    const auto* after = other != others.end() ? &other->second : nullptr;
    if (before == nullptr || after == nullptr || *before != *after) add(name, before, after);
  }
}

// As explanations name options.
void add_options(Device& a, Device& b, std::vector<Difference>& causes) {
  const seam::Texts before = a.stores();
  for (const Change& change : changes(before, b.stores(), before)) {
    if (change.store == "store") causes.push_back({"option", change.path, change.before, change.after, ""});
    if (change.store == "state")
      causes.push_back({"option", seam::kStateFiles + ("/" + change.path), change.before, change.after, ""});
    if (change.store == "file") causes.push_back({"file", change.path, change.before, change.after, ""});
  }
}

Text output_of(const CommandAnswer* answer) {
  if (answer == nullptr) return std::nullopt;
  return answer->output + (answer->status == 0 ? "" : " (status " + std::to_string(answer->status) + ")");
}

std::map<std::string, std::string> fields_of(const BusAnswer* answer) {
  std::map<std::string, std::string> fields;
  if (answer == nullptr) return fields;
  fields["status"] = std::to_string(answer->status);
  for (const auto& reply : answer->replies) {
    const nlohmann::ordered_json flat = reply.flatten();
    for (const auto& [pointer, value] : flat.items())
      fields[pointer.substr(0, 1) == "/" ? pointer.substr(1) : pointer] =
          value.is_string() ? value.get<std::string>() : value.dump();
  }
  return fields;
}

std::vector<Difference> find_causes(Device& a, Device& b) {
  std::vector<Difference> causes;
  add_options(a, b, causes);
  for_each_difference(a.recording().commands, b.recording().commands, [&](auto& name, auto* before, auto* after) {
    causes.push_back({"command", name, output_of(before), output_of(after), ""});
  });
  for_each_difference(a.recording().files, b.recording().files, [&](auto& name, auto* before, auto* after) {
    causes.push_back({"file", name, before ? *before : std::nullopt, after ? *after : std::nullopt, ""});
  });
  for_each_difference(a.recording().bus, b.recording().bus, [&](auto& call, auto* before, auto* after) {
    for_each_difference(fields_of(before), fields_of(after), [&](auto& field, auto* was, auto* is) {
      causes.push_back({"bus", call, was ? Text(*was) : std::nullopt, is ? Text(*is) : std::nullopt, field});
    });
  });
  return causes;
}

// ---- What of it a parameter depends on ----

bool begins_with(const std::string& text, const std::string& start, char end) {
  return text.starts_with(start) && (text.size() == start.size() || text[start.size()] == end);
}

bool depends_on(const seam::Trace& trace, const Difference& cause) {
  const auto any = [](const auto& list, auto test) { return std::any_of(list.begin(), list.end(), test); };
  if (cause.kind == "command") return any(trace.commands, [&](auto& command) { return command == cause.name; });
  if (cause.kind == "file") return any(trace.files, [&](auto& file) { return file.path == cause.name; });
  if (cause.kind == "bus") return any(trace.bus_calls, [&](auto& call) { return begins_with(call, cause.name, ' '); });
  return any(trace.look_ups, [&](auto& look_up) { return begins_with(cause.name, look_up.path, '.'); }) ||
         any(trace.walked_packages, [&](auto& package) { return begins_with(cause.name, package, '.'); });
}

using ReadPair = Pair<Reading>;

std::vector<Difference> causes_of(const ReadPair& pair, Device& a, Device& b, const std::vector<Difference>& all) {
  std::vector<seam::Trace> traces;
  if (pair.a != nullptr) traces.push_back(a.trace_of(pair.parameter()));
  if (pair.b != nullptr) traces.push_back(b.trace_of(pair.parameter()));
  std::vector<Difference> causes;
  for (const Difference& cause : all) {
    if (std::any_of(traces.begin(), traces.end(), [&](const seam::Trace& trace) { return depends_on(trace, cause); }))
      causes.push_back(cause);
  }
  return causes;
}

// ---- Telling ----

std::string quoted(const Text& text) {
  constexpr std::size_t kLongest = 80;
  if (!text) return "(none)";
  return '"' + one_line(text->size() <= kLongest ? *text : text->substr(0, kLongest) + "...") + '"';
}

std::string change_text(const Text& before, const Text& after) {
  if (before == kSecretMark && after == kSecretMark) return "changed";
  return quoted(before) + " -> " + quoted(after);
}

void redact(Text& before, Text& after, Redaction& redaction) {
  for (Text* text : {&before, &after}) {
    if (*text) *text = redaction.secret(**text);
  }
}

std::vector<std::string> lines_of(const Text& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text.value_or(""));
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

// Of texts of several lines, the first lines that differ.
std::string cause_text(const Difference& cause) {
  std::string text = cause.kind + " " + one_line(cause.name + (cause.field.empty() ? "" : " " + cause.field)) + ": ";
  const std::vector<std::string> before = lines_of(cause.before);
  const std::vector<std::string> after = lines_of(cause.after);
  const auto [was, is] = std::mismatch(before.begin(), before.end(), after.begin(), after.end());
  if (!cause.before || !cause.after || (was == before.end() && is == after.end()))
    return text + change_text(cause.before, cause.after);
  return text +
         change_text(was != before.end() ? Text(*was) : std::nullopt, is != after.end() ? Text(*is) : std::nullopt);
}

Json json_of(const Text& text) { return text ? Json(*text) : Json(); }

Text value_of(const Reading* reading) { return reading != nullptr ? reading->value : std::nullopt; }

Json json_of(const Difference& cause) {
  Json json = {{"kind", cause.kind}, {"name", cause.name}};
  if (!cause.field.empty()) json["field"] = cause.field;
  json["before"] = json_of(cause.before);
  json["after"] = json_of(cause.after);
  return json;
}

// Tells one parameter after the other; what explains several in a row stands once, below them.
class Teller {
 public:
  explicit Teller(Output& output) : output_(output) { output.document()["differences"] = Json::array(); }

  void tell(const ReadPair& pair, const std::vector<Difference>& causes) {
    std::vector<std::string> lines;
    Json list = Json::array();
    for (const Difference& cause : causes) {
      lines.push_back(cause_text(cause));
      list.push_back(json_of(cause));
    }
    if (lines != lines_) tell_causes();
    lines_ = lines;
    Text before = value_of(pair.a);
    Text after = value_of(pair.b);
    if (is_secret(*pair.parameter().row)) redact(before, after, output_.redaction());
    const std::string& path = pair.parameter().path;
    output_.line(path + ": " + change_text(before, after));
    output_.document()["differences"].push_back(
        {{"path", path}, {"before", json_of(before)}, {"after", json_of(after)}, {"causes", list}});
  }

  void leave_out() { ++left_out_; }

  int finish() {
    tell_causes();
    if (left_out_ > 0)
      output_.line("left out: " + std::to_string(left_out_) +
                   " clocks, counters and loads that moved; --all tells them");
    output_.document()["left_out"] = left_out_;
    return output_.finish(output_.document()["differences"].empty() ? 0 : 1);
  }

 private:
  void tell_causes() {
    for (const std::string& line : lines_) output_.line("     " + line);
    lines_.clear();
  }

  Output& output_;
  std::vector<std::string> lines_;
  int left_out_ = 0;
};

// What a command or a file says of them is told, too.
void note_secrets(const Device& device, Redaction& redaction) {
  for (const Reading& reading : device.readings()) {
    if (is_secret(*reading.parameter.row)) redaction.secret(reading.value.value_or(""));
  }
}

struct Options {
  std::vector<std::string> files;
  bool all = false;  // what moves by itself, too
};

int diff(Compared compared, const std::string& plugin, bool all, Output& output) {
  Device a(std::move(compared.before), plugin, output);
  Device b(std::move(compared.after), plugin, output);
  a.read(compared.prefixes, output);
  b.read(compared.prefixes, output);
  for (const Device* device : {&a, &b}) note_secrets(*device, output.redaction());
  std::vector<Difference> causes = find_causes(a, b);
  for (Difference& cause : causes) {
    if (cause.is_secret()) redact(cause.before, cause.after, output.redaction());
  }
  Teller teller(output);
  for (const ReadPair& pair : pairs_of(a.readings(), b.readings())) {
    if (!pair.differs()) continue;
    if (!all && pair.moved()) {
      teller.leave_out();
    } else {
      teller.tell(pair, causes_of(pair, a, b, causes));
    }
  }
  return teller.finish();
}

int run(Context& context, const Options& options) {
  return diff(read_compared(context, options.files), context.options().plugin, options.all, context.output());
}

Run define(CLI::App& line) {
  auto options = std::make_shared<Options>();
  line.add_flag("--all", options->all, "Tell clocks, counters and loads too, which move by themselves");
  line.add_option("RECORDING", options->files, "Two files; one is compared with this router")
      ->required()
      ->expected(1, 2);
  return [options](Context& context) { return run(context, *options); };
}

}  // namespace

const Command kDiff = {"diff", "Parameters that differ between two recordings, and why", false, define};

}  // namespace kovadm

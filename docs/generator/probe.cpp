#include "probe.hpp"

#include <algorithm>
#include <cstdlib>
#include <regex>
#include <stdexcept>

#include "device/apply_mask.hpp"
#include "device/changes.hpp"
#include "device/task_records.hpp"
#include "model/value_type.hpp"
#include "seam/paths.hpp"
#include "seam/snapshot.hpp"
#include "seam/trace.hpp"

namespace kova::documents {
namespace {

using namespace kovadm;

void run(const char* command) {
  if (std::system(command) != 0) throw std::runtime_error(std::string("failed: ") + command);
}

seam::Snapshot factory_files() {
  run("/sbin/lab-reset >/dev/null");
  return seam::Snapshot::of_lab();
}

// Without what libuci makes up for the name of a section.
std::string stable(const std::string& path) {
  static const std::regex made_up(R"(\bcfg[0-9a-f]{6}\b)");
  return std::regex_replace(path, made_up, "*");
}

std::vector<std::string> stable(std::vector<std::string> lines) {
  for (std::string& line : lines) line = stable(line);
  return lines;
}

void add(std::vector<std::string>& texts, const std::string& text) {
  if (std::find(texts.begin(), texts.end(), text) == texts.end()) texts.push_back(text);
}

std::vector<std::string> sources_of(const seam::Trace& trace) {
  std::vector<std::string> sources;
  for (const seam::LookUp& look_up : trace.look_ups) add(sources, code(stable(look_up.path)));
  for (const std::string& package : trace.walked_packages) add(sources, "sections of " + code(package));
  for (const std::string& command : trace.commands) add(sources, "command " + code(stable(command)));
  for (const seam::FileUse& file : trace.files) add(sources, "file " + code(file.path));
  for (const std::string& call : trace.bus_calls) add(sources, "bus " + code(call));
  return sources;
}

Commands set(Agent& agent, const Parameter& parameter, const std::string& value, uint32_t& mask) {
  const TaskRecords records;
  bool accepted = false;
  const seam::Trace seen = seam::trace([&] { accepted = !agent.set(parameter, value, mask); });
  return {accepted, stable(seen.commands), stable(records.recorded_since())};
}

// Options and files by path, without the agent's copies, and without sections of which an option is there.
std::vector<std::string> changed_paths(const std::vector<Change>& all) {
  std::vector<std::string> paths;
  for (const Change& change : all) {
    const bool is_told = std::any_of(all.begin(), all.end(), [&](const Change& other) {
      return other.store == change.store && other.path.starts_with(change.path + ".");
    });
    if (is_told || change.store.ends_with("mirror")) continue;
    add(paths, (change.store == "state" ? seam::kStateFiles + std::string("/") : "") + stable(change.path));
  }
  return paths;
}

// Of a set that was accepted, from factory state.
Effects effects_of(const std::string& value, const Commands& commands, uint32_t mask, const seam::Texts& factory) {
  Effects effects = {value, commands, changed_paths(changes(factory, seam::kept_files(), factory)), {}};
  for (const ApplyBit& bit : raised_bits(mask)) effects.bits.push_back(bit.name);
  return effects;
}

}  // namespace

const std::vector<std::string>& accepted_texts() {
  static const std::vector<std::string> texts = {"kova-value",
                                                 "192.168.1.9",
                                                 "255.255.0.0",
                                                 "http://acs.example.net/kova",
                                                 "2026-01-01T00:00:00Z",
                                                 "600",
                                                 "36",
                                                 "1",
                                                 "0",
                                                 "20",
                                                 "12345678",
                                                 "Requested",
                                                 "DHCP",
                                                 "tcp",
                                                 "CET-1CEST,M3.5.0,M10.5.0/3",
                                                 "Device.IP.Interface.1.",
                                                 "20MHz",
                                                 "11i",
                                                 "None",
                                                 "AESEncryption",
                                                 "PSKAuthentication",
                                                 "n",
                                                 "bridge",
                                                 "iptv",
                                                 "Auto",
                                                 "WPA2-Personal"};
  return texts;
}

Parameter at_instance(const Row& row, int number) {
  static const std::regex placeholder(R"(\{i\})");
  return find_parameter(std::regex_replace(row.paths.front(), placeholder, std::to_string(number))).value();
}

void reset_router() {
  static const seam::Snapshot factory = factory_files();
  factory.restore();
}

void make_results() {
  run("printf Requested >/tmp/diag/neighboringwifi_state && /usr/bin/tr069/apply/neighbor-wifi-diag >/dev/null");
  run("printf 'Hops=1\n1 4 5 6 gw.example 192.0.2.1\n' >/tmp/diag/trace_result");
}

Reading read(Agent& agent, const Parameter& parameter) {
  std::variant<std::string, Fault> answer;
  const seam::Trace seen = seam::trace([&] { answer = agent.get(parameter); });
  const auto* value = std::get_if<std::string>(&answer);
  return {sources_of(seen), seen.commands, value != nullptr ? std::optional(*value) : std::nullopt};
}

Commands set(Agent& agent, const Parameter& parameter, const std::string& value) {
  uint32_t mask = 0;
  return set(agent, parameter, value, mask);
}

std::optional<Effects> accepted_set(Agent& agent, const Row& row) {
  std::optional<Effects> accepted;
  const seam::Texts factory = seam::kept_files();
  for (const int number : {1, 2}) {
    for (const std::string& text : accepted_texts()) {
      if (!is_of_type(text, row.type)) continue;
      uint32_t mask = 0;
      const Commands commands = set(agent, at_instance(row, number), text, mask);
      std::optional<Effects> effects;
      if (commands.accepted) effects = effects_of(text, commands, mask, factory);
      if (effects ? !effects->none() : !commands.none()) reset_router();
      if (effects && effects->lasting()) return effects;
      if (effects && (!accepted || accepted->none())) accepted = effects;
    }
    if (accepted) break;
  }
  return accepted;
}

std::string code(const std::string& text) {
  const bool plain = text.find('`') == std::string::npos;
  std::string cell;
  for (const char letter : text) cell += letter == '|' ? std::string("\\|") : std::string(1, letter);
  return plain ? "`" + cell + "`" : "`` " + cell + " ``";
}

std::string joined(const std::vector<std::string>& cells) {
  std::string text;
  for (const std::string& cell : cells) text += (text.empty() ? "" : "<br>") + cell;
  return text;
}

}  // namespace kova::documents

#include "recording/replay.hpp"

#include <ctime>
#include <fstream>
#include <sstream>

#include "device/causes.hpp"
#include "recording/reading.hpp"

namespace kovadm {
namespace {

// Has a replay know what a check asks beside the gets.
void look_for_needs(const Recording& recording) {
  std::vector<std::string> lines;
  for (const auto& [command, answer] : recording.commands) lines.push_back(command);
  for (const auto& [path, commands] : set_commands(recording.prefixes))
    lines.insert(lines.end(), commands.begin(), commands.end());
  Inventory inventory;
  for (const std::string& line : lines) causes_of_commands({line}, inventory);
}

}  // namespace

std::string now() {
  const std::time_t time = std::time(nullptr);
  std::tm utc = {};
  gmtime_r(&time, &utc);
  char text[32] = {};
  std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%SZ", &utc);
  return text;
}

Recording read_recording(const std::string& file) {
  std::ifstream stream(file, std::ios::binary);
  stream.peek();  // a directory can be opened, but not read
  if (stream.bad() || !stream.is_open()) throw SetupError("cannot read " + file);
  std::string text(kLargestRecording + 1, '\0');
  stream.clear();
  stream.read(text.data(), static_cast<std::streamsize>(text.size()));
  text.resize(static_cast<std::size_t>(stream.gcount()));
  auto parsed = parse_recording(text);
  if (const auto* fault = std::get_if<std::string>(&parsed))
    throw SetupError(one_line(file + " cannot be read as a recording: " + *fault));
  return std::get<Recording>(std::move(parsed));
}

Made make_recording(Agent& agent, Recording& recording, Output& output) {
  recording.time = now();
  recording.agent = agent.fields();
  RecordedPlatform platform(recording, RecordedPlatform::Source::MACHINE);
  const seam::InUse in_use(platform);
  Secrets secrets;
  Made made;
  made.parameters = read_all(agent, recording.prefixes, output, recording.with_secrets ? nullptr : &secrets).size();
  look_for_needs(recording);
  made.left_out = platform.left_out();
  if (!recording.with_secrets) made.replaced = secrets.replace_in(recording);
  return made;
}

void remove_secrets(Agent& agent, Recording& recording, Output& output) {
  if (!recording.with_secrets) return;
  Secrets secrets;
  {
    RecordedPlatform platform(recording, RecordedPlatform::Source::RECORDING);
    const seam::InUse in_use(platform);
    read_all(agent, recording.prefixes, output, &secrets);
  }
  secrets.replace_in(recording);
}

}  // namespace kovadm

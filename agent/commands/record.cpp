#include <ctime>
#include <tuple>

#include "commands/commands.hpp"
#include "recording/own_file.hpp"
#include "recording/reading.hpp"
#include "recording/replay.hpp"

namespace kovadm {
namespace {

std::string now() {
  const std::time_t time = std::time(nullptr);
  std::tm utc = {};
  gmtime_r(&time, &utc);
  char text[32] = {};
  std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%SZ", &utc);
  return text;
}

std::size_t count_files(const Recording& recording) {
  std::size_t count = recording.files.size() + recording.tested.size();
  for (const auto& [directory, files] : recording.directories) count += files.size();
  return count;
}

}  // namespace

Made make_recording(Agent& agent, Recording& recording, Output& output) {
  recording.time = now();
  recording.agent = agent.fields();
  RecordedPlatform platform(recording, RecordedPlatform::Source::MACHINE);
  const seam::InUse in_use(platform);
  Secrets secrets;
  Made made;
  made.parameters = read_all(agent, recording.prefixes, output, recording.with_secrets ? nullptr : &secrets).size();
  made.left_out = platform.left_out();
  if (!recording.with_secrets) made.replaced = secrets.replace_in(recording);
  return made;
}

int record(Agent& agent, const std::string& file, const std::vector<std::string>& prefixes, bool with_secrets,
           Output& output) {
  expect_to_write(file);
  Recording recording;
  recording.prefixes = prefixes;
  recording.with_secrets = with_secrets;
  const Made made = make_recording(agent, recording, output);
  if (output.has_faults()) return output.finish();  // of prefixes: it would not be what was meant
  write_own_file(file, to_text(recording));
  const std::tuple<const char*, const char*, std::size_t> counts[] = {{"parameters", "", made.parameters},
                                                                      {"commands", "", recording.commands.size()},
                                                                      {"files", "", count_files(recording)},
                                                                      {"bus", " answers", recording.bus.size()}};
  std::string told;
  for (const auto& [what, unit, count] : counts) {
    told += (told.empty() ? "recorded: " : ", ") + std::to_string(count) + " " + what + unit;
    output.document()[what] = count;
  }
  output.line(told);
  for (const std::string& link : made.left_out) output.line("left out: " + one_line(link) + " (a link)");
  for (const std::string& secret : made.replaced) output.line("replaced: " + secret);
  output.document()["left_out"] = made.left_out;
  output.document()["replaced"] = made.replaced;
  return output.finish();
}

}  // namespace kovadm

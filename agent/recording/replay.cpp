#include "recording/replay.hpp"

#include <filesystem>
#include <fstream>
#include <sstream>

#include "recording/reading.hpp"

namespace kovadm {

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

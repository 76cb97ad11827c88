#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <ctime>
#include <system_error>
#include <tuple>

#include "commands.hpp"
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

// A file for its owner alone; until it is written, one that was there stays as it was.
class OutputFile {
 public:
  explicit OutputFile(const std::string& path)
      : path_(path), descriptor_(open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR)) {
    if (descriptor_ < 0) fail();
  }
  ~OutputFile() { close(descriptor_); }
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;

  void write(const std::string& text) const {
    if (ftruncate(descriptor_, 0) != 0 && errno != EINVAL) fail();  // a device has no length
    for (std::size_t written = 0; written < text.size();) {
      const ssize_t length = ::write(descriptor_, text.data() + written, text.size() - written);
      if (length < 0) fail();
      written += static_cast<std::size_t>(length);
    }
  }

 private:
  [[noreturn]] void fail() const { throw std::system_error(errno, std::generic_category(), path_); }

  std::string path_;
  int descriptor_;
};

std::size_t count_files(const Recording& recording) {
  std::size_t count = recording.files.size() + recording.tested.size();
  for (const auto& [directory, files] : recording.directories) count += files.size();
  return count;
}

}  // namespace

std::size_t make_recording(Agent& agent, Recording& recording, std::set<std::string>& replaced, Output& output) {
  recording.time = now();
  recording.agent = agent.fields();
  RecordedPlatform platform(recording, RecordedPlatform::Source::MACHINE);
  const seam::InUse in_use(platform);
  Secrets secrets;
  const std::size_t count =
      read_all(agent, recording.prefixes, output, recording.with_secrets ? nullptr : &secrets).size();
  if (!recording.with_secrets) replaced = secrets.replace_in(recording);
  return count;
}

int record(Agent& agent, const std::string& file, const std::vector<std::string>& prefixes, bool with_secrets,
           Output& output) {
  const OutputFile target(file);
  Recording recording;
  recording.prefixes = prefixes;
  recording.with_secrets = with_secrets;
  std::set<std::string> replaced;
  const std::size_t parameters = make_recording(agent, recording, replaced, output);
  target.write(to_text(recording));
  const std::tuple<const char*, const char*, std::size_t> counts[] = {{"parameters", "", parameters},
                                                                      {"commands", "", recording.commands.size()},
                                                                      {"files", "", count_files(recording)},
                                                                      {"bus", " answers", recording.bus.size()}};
  std::string told;
  for (const auto& [what, unit, count] : counts) {
    told += (told.empty() ? "recorded: " : ", ") + std::to_string(count) + " " + what + unit;
    output.document()[what] = count;
  }
  output.line(told);
  for (const std::string& secret : replaced) output.line("replaced: " + secret);
  output.document()["replaced"] = replaced;
  return output.finish();
}

}  // namespace kovadm

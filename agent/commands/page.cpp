#include "page/page.hpp"

#include <CLI/CLI.hpp>

#include "commands/command.hpp"
#include "commands/compared.hpp"
#include "recording/own_file.hpp"
#include "recording/replay.hpp"

namespace kovadm {
namespace {

struct Options {
  std::string file;
  std::vector<std::string> recordings;
};

// A recording's, without its directory.
std::string name_of(const std::string& file) { return file.substr(file.rfind('/') + 1); }

// This router, or the one that is replayed.
std::vector<Side> one_side(Context& context) {
  Agent& agent = context.agent_alone();
  const Recording* recording = context.recording();
  Side side = {"this router", now(), {}};
  if (recording != nullptr) side = {name_of(context.options().replay), recording->time, {}};
  side.readings =
      watch_all(agent, recording != nullptr ? recording->prefixes : std::vector<std::string>(), context.output());
  return {side};
}

Side recorded_side(const std::string& name, Recording& recording, const std::vector<std::string>& prefixes,
                   Context& context) {
  Agent agent(context.options().plugin, recording.agent, context.output().to_warn());
  RecordedPlatform platform(recording, RecordedPlatform::Source::RECORDING);
  const seam::InUse in_use(platform);
  return {name, recording.time, watch_all(agent, prefixes, context.output())};
}

std::vector<Side> two_sides(Context& context, const std::vector<std::string>& files) {
  if (context.replays()) throw SetupError("--replay is of one router, and a comparison of two: name two recordings");
  Compared compared = read_compared(context, files);
  const std::string after = files.size() == 2 ? name_of(files.back()) : "this router";
  return {recorded_side(name_of(files.front()), compared.before, compared.prefixes, context),
          recorded_side(after, compared.after, compared.prefixes, context)};
}

void tell(const Page& page, const Options& options, Output& output) {
  static const std::pair<const char*, const char*> kMarks[] = {{"fault", "faults"},
                                                               {"invalid", "invalid"},
                                                               {"missing", "with a source missing"},
                                                               {"changed", "changed"},
                                                               {"moved", "moved by themselves"}};
  std::string told = "wrote " + one_line(options.file) + ": " + std::to_string(page.values) + " values";
  output.document()["values"] = page.values;
  for (const auto& [mark, words] : kMarks) {
    const auto count = page.marks.find(mark);
    output.document()[mark] = count != page.marks.end() ? count->second : 0;
    if (count != page.marks.end()) told += ", " + std::to_string(count->second) + " " + words;
  }
  output.line(told);
}

int page(Context& context, const Options& options) {
  expect_to_write(options.file);
  Output& output = context.output();
  const std::vector<Side> sides =
      options.recordings.empty() ? one_side(context) : two_sides(context, options.recordings);
  if (output.has_faults()) return output.finish();  // of a recording's prefixes: there is nothing to look at
  const Page page = page_of(sides, output.redaction());
  write_own_file(options.file, page.html);
  tell(page, options, output);
  return output.finish();
}

Run define(CLI::App& line) {
  auto options = std::make_shared<Options>();
  line.add_option("FILE", options->file)->required();
  line.add_option("RECORDING", options->recordings, "To compare: two files; one is compared with this router")
      ->expected(0, 2);
  return [options](Context& context) { return page(context, *options); };
}

}  // namespace

const Command kPage = {"page", "A router to look at, in one HTML file; or two compared", true, define};

}  // namespace kovadm

#include <CLI/CLI.hpp>
#include <tuple>

#include "commands/command.hpp"
#include "recording/own_file.hpp"
#include "recording/replay.hpp"

namespace kovadm {
namespace {

std::size_t count_files(const Recording& recording) {
  std::size_t count = recording.files.size() + recording.tested.size();
  for (const auto& [directory, files] : recording.directories) count += files.size();
  return count;
}

struct Options {
  std::string file;
  std::vector<std::string> prefixes;
  bool with_secrets = false;
};

int record(Agent& agent, const Options& options, Output& output) {
  expect_to_write(options.file);
  Recording recording;
  recording.prefixes = options.prefixes;
  recording.with_secrets = options.with_secrets;
  const Made made = make_recording(agent, recording, output);
  if (output.has_faults()) return output.finish();  // of prefixes: it would not be what was meant
  write_own_file(options.file, to_text(recording));
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

Run define(CLI::App& line) {
  auto options = std::make_shared<Options>();
  line.add_option("FILE", options->file)->required();
  line.add_option("PREFIX", options->prefixes, kPrefixHelp);
  line.add_flag("--with-secrets", options->with_secrets, "Keep passwords and keys; else a mark replaces them");
  return [options](Context& context) { return record(context.agent_alone(), *options, context.output()); };
}

}  // namespace

const Command kRecord = {"record", "Keep in FILE all that gets depend on, to be replayed elsewhere", false, define};

}  // namespace kovadm

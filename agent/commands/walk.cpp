#include <CLI/CLI.hpp>

#include "commands/command.hpp"
#include "commands/reader.hpp"

namespace kovadm {
namespace {

struct Options {
  std::vector<std::string> prefixes;
  bool check = false;  // tell what is wrong only
};

int walk(Context& context, const Options& options) {
  Reader reader(context.agent_alone(), context.output(), options.check ? Tell::INVALID : Tell::ALL);
  for (const std::string& prefix : options.prefixes) reader.below(prefix);
  if (options.prefixes.empty()) reader.below("");
  return context.output().finish(reader.invalid() > 0 ? 1 : 0);
}

Run define(CLI::App& line) {
  auto options = std::make_shared<Options>();
  line.add_option("PREFIX", options->prefixes, kPrefixHelp);
  line.add_flag("--check", options->check, "Tell faults, and values that are none of their type; no others");
  return [options](Context& context) { return walk(context, *options); };
}

}  // namespace

const Command kWalk = {"walk", "Values of all parameters below PREFIX, instances expanded", true, define};

}  // namespace kovadm

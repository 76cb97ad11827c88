#include <CLI/CLI.hpp>

#include "commands/command.hpp"
#include "commands/reader.hpp"

namespace kovadm {
namespace {

int walk(Context& context, const std::vector<std::string>& prefixes) {
  Reader reader(context.agent(), context.output());
  for (const std::string& prefix : prefixes) reader.below(prefix);
  if (prefixes.empty()) reader.below("");
  return context.output().finish();
}

Run define(CLI::App& line) {
  auto prefixes = std::make_shared<std::vector<std::string>>();
  line.add_option("PREFIX", *prefixes, kPrefixHelp);
  return [prefixes](Context& context) { return walk(context, *prefixes); };
}

}  // namespace

const Command kWalk = {"walk", "Values of all parameters below PREFIX, instances expanded", true, define};

}  // namespace kovadm

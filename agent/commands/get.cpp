#include <CLI/CLI.hpp>

#include "commands/command.hpp"
#include "commands/reader.hpp"

namespace kovadm {
namespace {

int get(Context& context, const std::vector<std::string>& paths) {
  Reader reader(context.agent(), context.output());
  for (const std::string& path : paths) {
    if (path.ends_with('.')) {
      reader.below(path);
    } else {
      reader.parameter(path);
    }
  }
  return context.output().finish();
}

Run define(CLI::App& line) {
  auto paths = std::make_shared<std::vector<std::string>>();
  line.add_option("PATH", *paths)->required();
  return [paths](Context& context) { return get(context, *paths); };
}

}  // namespace

const Command kGet = {"get", "Values; a PATH that ends in \".\" stands for all parameters below", true, define};

}  // namespace kovadm

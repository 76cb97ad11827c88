#include "commands/command_line.hpp"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <string_view>

#include "commands/completion.hpp"

namespace kovadm {
namespace {

void define_options(CLI::App& app, CommonOptions& options) {
  app.add_flag("--json", options.json, "Write one JSON document, faults included");
  app.add_flag("--debug", options.debug, "Switch the plug-in's log on for this run; it goes to standard error");
  app.add_flag("--no-look", options.no_look, "Have each get look at the router itself, as if it were the only one");
  app.add_option("--plugin", options.plugin, "Plug-in to load instead of the installed libkova-datamodel.so")
      ->option_text("FILE");
  app.add_option("--agent-state", options.agent_state, "JSON file with fields of the agent's record")
      ->option_text("FILE");
  app.add_option("--replay", options.replay, "Answer from a recording instead of this machine")->option_text("FILE");
  app.add_flag("--show-secrets", options.show_secrets, "Tell passwords and keys too, instead of \"(secret)\"");
  app.add_option("--wait", options.wait, "How long for another kovadm that is at work (60)")
      ->option_text("SECONDS")
      ->check(CLI::Range(0, 24 * 60 * 60));
  app.set_version_flag("--version", "kovadm " KOVADM_VERSION);
  app.require_subcommand(1);
  app.fallthrough();
}

constexpr char kSeeHelp[] = "Run with --help for more information.\n";

// A command's part of the command line.
struct Defined {
  const Command* command;
  CLI::App* line;
  Run run;
};

Defined define(const Command& command, CLI::App& app) {
  CLI::App* line = app.add_subcommand(command.name, command.help);
  return {&command, line, command.define(*line)};
}

[[noreturn]] void refuse_replay() {
  std::string names;
  for (const Command* command : kCommands) {
    if (command->replays) names += (names.empty() ? "" : ", ") + std::string(command->name);
  }
  throw SetupError("--replay is for " + names);
}

bool lacks_command(const CLI::App& app, const CLI::ParseError& error) {
  return dynamic_cast<const CLI::RequiredError*>(&error) != nullptr && app.get_subcommands().empty();
}

// For the shell's completion: "complete" and the words so far, which need not make a command line yet.
int tell_completions(const CLI::App& app, const std::vector<std::string>& words) {
  for (const std::string& completion : completions(app, words)) std::cout << completion << '\n';
  return 0;
}

void tell_parse_error(int argc, char** argv, const CLI::ParseError& error, const CLI::App& app) {
  const std::vector<std::string> words = app.remaining();
  if (!lacks_command(app, error)) {
    tell_misuse(argc, argv, error.what(), kSeeHelp);
  } else if (words.empty()) {
    tell_misuse(argc, argv, "no command", app.help());
  } else {
    tell_misuse(argc, argv, "no command \"" + words.front() + '"', kSeeHelp);
  }
}

}  // namespace

std::variant<Invocation, int> read_command_line(int argc, char** argv) {
  CLI::App app("Reads and sets the device's data model through its plug-in", "kovadm");
  Invocation invocation;
  define_options(app, invocation.options);
  std::vector<Defined> defined;
  for (const Command* command : kCommands) defined.push_back(define(*command, app));
  if (argc > 1 && std::string_view(argv[1]) == "complete") return tell_completions(app, {argv + 2, argv + argc});
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    if (error.get_exit_code() == 0) return app.exit(error);  // which tells the help or the version
    tell_parse_error(argc, argv, error, app);
    return kUsage;
  }
  for (Defined& each : defined) {
    if (!each.line->parsed()) continue;
    if (!each.command->replays && !invocation.options.replay.empty()) refuse_replay();
    invocation.run = std::move(each.run);
  }
  return invocation;
}

void tell_misuse(int argc, char** argv, const std::string& error, const std::string& help) {
  std::cerr << "kovadm: " << error << '\n' << help;
  if (std::find(argv, argv + argc, std::string_view("--json")) != argv + argc)
    std::cout << Json({{"error", error}}).dump(2, ' ', false, Json::error_handler_t::replace) << std::endl;
}

}  // namespace kovadm

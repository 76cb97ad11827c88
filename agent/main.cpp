// kovadm: the command-line agent that loads the data-model plug-in.
#include <fcntl.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <iostream>
#include <system_error>

#include "commands.hpp"
#include "debug_switch.hpp"

namespace {

using namespace kovadm;

constexpr int kUsage = 2;

struct Arguments {
  bool json = false;
  bool debug = false;
  bool apply = false;
  std::string plugin;
  std::string agent_state;
  std::string prefix;
  std::string path;
  std::vector<std::string> paths;
  std::vector<std::string> settings;
};

// "PATH=VALUE"; the value may be empty and hold further equals signs.
Setting split_setting(const std::string& text) {
  const std::size_t equals = text.find('=');
  if (equals == 0 || equals == std::string::npos) throw CLI::ValidationError("set", "not PATH=VALUE: " + text);
  return {text.substr(0, equals), text.substr(equals + 1)};
}

std::vector<Setting> split_settings(const std::vector<std::string>& texts) {
  std::vector<Setting> settings(texts.size());
  std::transform(texts.begin(), texts.end(), settings.begin(), split_setting);
  return settings;
}

void define(CLI::App& app, Arguments& arguments) {
  app.require_subcommand(1);
  app.fallthrough();
  app.add_flag("--json", arguments.json, "Write one JSON document, faults included");
  app.add_flag("--debug", arguments.debug, "Switch the plug-in's log on for this run; it goes to standard error");
  app.add_option("--plugin", arguments.plugin, "Plug-in to load instead of the installed libkova-datamodel.so")
      ->option_text("FILE");
  app.add_option("--agent-state", arguments.agent_state, "JSON file with fields of the agent's record")
      ->option_text("FILE");

  CLI::App* list = app.add_subcommand("list", "The catalogue: path, access, type");
  list->add_option("PREFIX", arguments.prefix, "Beginning of paths; everything when left out");
  CLI::App* get = app.add_subcommand("get", "Values; a PATH that ends in \".\" stands for all parameters below");
  get->add_option("PATH", arguments.paths)->required();
  CLI::App* set = app.add_subcommand("set", "One set request, and what it raised, recorded and changed");
  set->add_option("PATH=VALUE", arguments.settings)->required();
  set->add_flag("--apply", arguments.apply, "Do the agent's part too: run the recorded commands and the services");
  CLI::App* walk = app.add_subcommand("walk", "Values of all parameters below PREFIX, instances expanded");
  walk->add_option("PREFIX", arguments.prefix, "Beginning of paths; everything when left out");
  CLI::App* explain = app.add_subcommand("explain", "What one get of PATH really does");
  explain->add_option("PATH", arguments.path)->required();
}

void need_router() {
  if (!std::filesystem::is_directory("/etc/config"))
    throw SetupError("this is no router, it has no /etc/config; the simulated one: lab/launch -- kovadm ...");
}

int run(const CLI::App& app, const Arguments& arguments) {
  const std::vector<Setting> settings = split_settings(arguments.settings);
  std::optional<Agent> agent;
  if (!app.got_subcommand("list")) {
    need_router();
    agent.emplace(arguments.plugin, arguments.agent_state);
  }
  std::optional<DebugSwitch> debug;
  if (arguments.debug) debug.emplace();

  Output output(arguments.json);
  if (app.got_subcommand("list")) return list(arguments.prefix, output);
  if (app.got_subcommand("get")) return get(*agent, arguments.paths, output);
  if (app.got_subcommand("set")) return set(*agent, settings, arguments.apply, output);
  if (app.got_subcommand("walk")) return walk(*agent, arguments.prefix, output);
  return explain(*agent, arguments.path, output);
}

// What was written, when it was.
void finish_standard_output() {
  if (!std::cout.flush()) throw std::system_error(errno, std::generic_category(), "standard output");
}

// A file that is opened must not become a standard stream that was closed. What is to be told needs somewhere to go.
void open_standard_streams() {
  const bool told = fcntl(STDOUT_FILENO, F_GETFD) >= 0;
  int descriptor = open("/dev/null", O_RDWR);
  while (descriptor >= 0 && descriptor <= STDERR_FILENO) descriptor = open("/dev/null", O_RDWR);
  if (descriptor >= 0) close(descriptor);
  if (!told) throw std::system_error(EBADF, std::generic_category(), "standard output");
}

}  // namespace

int main(int argc, char** argv) try {
  std::signal(SIGCHLD, SIG_DFL);  // else nothing is known of a child's end
  open_standard_streams();
  CLI::App app("Reads and sets the device's data model through its plug-in", "kovadm");
  Arguments arguments;
  define(app, arguments);
  try {
    app.parse(argc, argv);
    return run(app, arguments);
  } catch (const CLI::RequiredError& error) {
    const std::vector<std::string> words = app.remaining();
    if (!words.empty()) std::cerr << "kovadm: no command \"" << words.front() << "\"\n";
    return app.exit(error), kUsage;
  } catch (const CLI::ParseError& error) {
    const int status = app.exit(error);
    finish_standard_output();
    return status == 0 ? 0 : kUsage;
  }
} catch (const std::exception& error) {
  std::cerr << "kovadm: " << error.what() << '\n';
  return kUsage;
}

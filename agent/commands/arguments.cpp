#include "commands/arguments.hpp"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string_view>

#include "commands/completion.hpp"

namespace kovadm {
namespace {

// The whole stream but a newline at its end.
std::string read_value(std::istream& stream, const std::string& name) {
  std::string value(std::istreambuf_iterator<char>(stream), {});
  if (value.ends_with('\n')) value.pop_back();
  if (value.find('\0') != std::string::npos) throw SetupError(name + " holds a zero byte, no value can");
  return value;
}

std::string read_standard_input() {
  if (std::cin.eof()) throw SetupError("standard input gives one value only");
  return read_value(std::cin, "standard input");
}

std::string read_file(const std::string& file) {
  std::ifstream stream(file, std::ios::binary);
  stream.peek();  // a directory can be opened, but not read
  if (stream.bad() || !stream.is_open()) throw SetupError("cannot read " + file);
  return read_value(stream, file);
}

// "@FILE" and "@-" stand for what is read there, "@@" for a value's own "@".
std::string value_of(const std::string& text) {
  if (!text.starts_with('@')) return text;
  if (text == "@-") return read_standard_input();
  return text.starts_with("@@") ? text.substr(1) : read_file(text.substr(1));
}

// "PATH=VALUE"; the value may be empty and hold further equals signs.
Setting split_setting(const std::string& text) {
  const std::size_t equals = text.find('=');
  if (equals == 0 || equals == std::string::npos) throw CLI::ValidationError("set", "not PATH=VALUE: " + text);
  return {text.substr(0, equals), value_of(text.substr(equals + 1))};
}

std::vector<Setting> split_settings(const std::vector<std::string>& texts) {
  std::vector<Setting> settings(texts.size());
  std::transform(texts.begin(), texts.end(), settings.begin(), split_setting);
  return settings;
}

void define_options(CLI::App& app, Arguments& arguments) {
  app.add_flag("--json", arguments.json, "Write one JSON document, faults included");
  app.add_flag("--debug", arguments.debug, "Switch the plug-in's log on for this run; it goes to standard error");
  app.add_option("--plugin", arguments.plugin, "Plug-in to load instead of the installed libkova-datamodel.so")
      ->option_text("FILE");
  app.add_option("--agent-state", arguments.agent_state, "JSON file with fields of the agent's record")
      ->option_text("FILE");
  app.add_option("--replay", arguments.replay, "Answer from a recording instead of this machine")->option_text("FILE");
  app.set_version_flag("--version", "kovadm " KOVADM_VERSION);
}

void define_commands(CLI::App& app, Arguments& arguments, std::vector<std::string>& settings) {
  constexpr char kPrefixes[] = "Beginnings of paths; everything when left out";
  app.require_subcommand(1);
  app.fallthrough();
  CLI::App* list = app.add_subcommand("list", "The catalogue: path, access, type");
  list->add_option("PREFIX", arguments.prefixes, kPrefixes);
  CLI::App* get = app.add_subcommand("get", "Values; a PATH that ends in \".\" stands for all parameters below");
  get->add_option("PATH", arguments.paths)->required();
  CLI::App* set = app.add_subcommand("set", "One set request, and what it raised, recorded and changed");
  set->add_option("PATH=VALUE", settings, "VALUE @FILE is read from a file, @- from standard input; @@ stands for @")
      ->required();
  set->add_flag("--apply", arguments.set.apply, "Do the agent's part too: run the recorded commands and the services");
  set->add_flag("--force", arguments.set.force, "Pass on what was typed, a value of the parameter's type or not");
  CLI::App* walk = app.add_subcommand("walk", "Values of all parameters below PREFIX, instances expanded");
  walk->add_option("PREFIX", arguments.prefixes, kPrefixes);
  CLI::App* explain = app.add_subcommand("explain", "What one get of PATH, or one set, really does");
  explain->add_option("PATH[=VALUE]", arguments.path, "VALUE as with set; nothing is left changed")->required();
  CLI::App* record = app.add_subcommand("record", "Keep in FILE all that gets depend on, to be replayed elsewhere");
  record->add_option("FILE", arguments.recording)->required();
  record->add_option("PREFIX", arguments.prefixes, kPrefixes);
  record->add_flag("--with-secrets", arguments.with_secrets, "Keep passwords and keys; else a mark replaces them");
  CLI::App* diff = app.add_subcommand("diff", "Parameters that differ between two recordings, and why");
  diff->add_option("RECORDING", arguments.recordings, "Two files; one is compared with this router")
      ->required()
      ->expected(1, 2);
  CLI::App* profiles = app.add_subcommand("profiles", "What is served of the published data models' profiles");
  profiles->add_option("NAME", arguments.profiles, "A profile, to be told of parameter by parameter");
  profiles->add_flag("--live", arguments.live, "Ask the device too whether the parameters answer");
}

constexpr char kSeeHelp[] = "Run with --help for more information.\n";

bool lacks_command(const CLI::App& app, const CLI::ParseError& error) {
  return dynamic_cast<const CLI::RequiredError*>(&error) != nullptr && app.get_subcommands().empty();
}

// For the shell's completion: "complete" and the words so far, which need not make a command line yet.
int tell_completions(const CLI::App& app, const std::vector<std::string>& words) {
  for (const std::string& completion : completions(app, words)) std::cout << completion << '\n';
  return 0;
}

}  // namespace

std::variant<Arguments, int> parse_arguments(int argc, char** argv) {
  CLI::App app("Reads and sets the device's data model through its plug-in", "kovadm");
  Arguments arguments;
  std::vector<std::string> settings;
  define_options(app, arguments);
  define_commands(app, arguments, settings);
  if (argc > 1 && std::string_view(argv[1]) == "complete") return tell_completions(app, {argv + 2, argv + argc});
  try {
    app.parse(argc, argv);
    arguments.command = app.get_subcommands().front()->get_name();
    if (arguments.path.find('=') != std::string::npos) settings = {arguments.path};
    arguments.settings = split_settings(settings);
    return arguments;
  } catch (const CLI::ParseError& error) {
    if (error.get_exit_code() == 0) return app.exit(error);  // which tells the help or the version
    const std::vector<std::string> words = app.remaining();
    if (!lacks_command(app, error)) {
      tell_misuse(argc, argv, error.what(), kSeeHelp);
    } else if (words.empty()) {
      tell_misuse(argc, argv, "no command", app.help());
    } else {
      tell_misuse(argc, argv, "no command \"" + words.front() + '"', kSeeHelp);
    }
    return kUsage;
  }
}

void tell_misuse(int argc, char** argv, const std::string& error, const std::string& help) {
  std::cerr << "kovadm: " << error << '\n' << help;
  if (std::find(argv, argv + argc, std::string_view("--json")) != argv + argc)
    std::cout << Json({{"error", error}}).dump(2, ' ', false, Json::error_handler_t::replace) << std::endl;
}

}  // namespace kovadm

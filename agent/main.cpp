// kovadm: the command-line agent that loads the data-model plug-in.
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <iostream>
#include <system_error>

#include "arguments.hpp"
#include "debug_switch.hpp"

namespace {

using namespace kovadm;

void need_router() {
  if (!std::filesystem::is_directory("/etc/config"))
    throw SetupError("this is no router, it has no /etc/config; the simulated one: lab/launch -- kovadm ...");
}

int run_without_router(const Arguments& arguments) {
  Output output(arguments.json);
  if (arguments.command == "list") return list(arguments.prefixes, output);
  return profiles(nullptr, arguments.profiles, output);
}

int run(const Arguments& arguments) {
  const std::string& command = arguments.command;
  if (command == "list" || (command == "profiles" && !arguments.live)) return run_without_router(arguments);
  need_router();
  Agent agent(arguments.plugin, arguments.agent_state);
  std::optional<DebugSwitch> debug;
  if (arguments.debug) debug.emplace();

  Output output(arguments.json);
  if (command == "get") return get(agent, arguments.paths, output);
  if (command == "set") return set(agent, arguments.settings, arguments.set, output);
  if (command == "walk") return walk(agent, arguments.prefixes, output);
  if (command == "profiles") return profiles(&agent, arguments.profiles, output);
  return explain(agent, arguments.path, output);
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
  const auto parsed = parse_arguments(argc, argv);
  if (const auto* arguments = std::get_if<Arguments>(&parsed)) return run(*arguments);
  finish_standard_output();
  return std::get<int>(parsed);
} catch (const std::exception& error) {
  std::cerr << "kovadm: " << error.what() << '\n';
  return kUsage;
}

// kovadm: the command-line agent that loads the data-model plug-in.
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <iostream>
#include <system_error>

#include "commands/arguments.hpp"
#include "recording/replay.hpp"
#include "seam/debug_switch.hpp"

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

// A recording made of this router now, as far and as discreet as another one.
Recording record_like(const Recording& other, const Arguments& arguments, Output& output) {
  need_router();
  Recording recording;
  recording.prefixes = other.prefixes;
  Agent agent(arguments.plugin, read_agent_fields(arguments.agent_state), output.to_warn());
  make_recording(agent, recording, output);
  return recording;
}

int run_diff(const Arguments& arguments) {
  Output output(arguments.json);
  Recording before = read_recording(arguments.recordings.front());
  Recording after = arguments.recordings.size() == 2 ? read_recording(arguments.recordings.back())
                                                     : record_like(before, arguments, output);
  return diff(std::move(before), std::move(after), arguments.plugin, output);
}

int run_command(Agent& agent, const Arguments& arguments, Output& output) {
  std::optional<seam::DebugSwitch> debug;
  if (arguments.debug) debug.emplace();
  const std::string& command = arguments.command;
  if (command == "get") return get(agent, arguments.paths, output);
  if (command == "set") return set(agent, arguments.settings, arguments.set, output);
  if (command == "walk") return walk(agent, arguments.prefixes, output);
  if (command == "record")
    return record(agent, arguments.recording, arguments.prefixes, arguments.with_secrets, output);
  if (command == "profiles") return profiles(&agent, arguments.profiles, output);
  if (arguments.settings.empty()) return explain(agent, arguments.path, output);
  // A replay's stores are copies.
  const Setting& setting = arguments.settings.front();
  return arguments.replay.empty() ? explain_on_copy(agent, setting, output) : explain(agent, setting, output);
}

int run_replay(const Arguments& arguments) {
  if (arguments.set.apply) throw SetupError("--apply runs commands, and a replay runs none");
  Recording recording = read_recording(arguments.replay);
  Output output(arguments.json);
  Agent agent(
      arguments.plugin,
      arguments.agent_state.empty() ? nlohmann::json(recording.agent) : read_agent_fields(arguments.agent_state),
      output.to_warn());
  RecordedPlatform platform(recording, RecordedPlatform::Source::RECORDING,
                            [&](const std::string& what) { output.not_recorded(what); });
  const seam::InUse in_use(platform);
  return run_command(agent, arguments, output);
}

int run(const Arguments& arguments) {
  const std::string& command = arguments.command;
  if (command == "list" || (command == "profiles" && !arguments.live)) return run_without_router(arguments);
  if (!arguments.replay.empty() && (command == "record" || command == "diff"))
    throw SetupError("--replay is for get, set, walk, explain and profiles");
  if (command == "diff") return run_diff(arguments);
  if (!arguments.replay.empty()) return run_replay(arguments);
  need_router();
  Output output(arguments.json);
  Agent agent(arguments.plugin, read_agent_fields(arguments.agent_state), output.to_warn());
  return run_command(agent, arguments, output);
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
  tell_misuse(argc, argv, error.what());
  return kUsage;
}

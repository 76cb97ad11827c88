#include "session/session.hpp"

#include <CLI/CLI.hpp>

#include "commands/command.hpp"
#include "commands/setting.hpp"
#include "session/device.hpp"
#include "session/interrupt.hpp"
#include "session/stay.hpp"

namespace kovadm {
namespace {

using namespace session;

// One session, and the one that tells of the tests that it has asked for.
int hold_session(Device& device, const Options& options, Output& output) {
  const std::set<std::string> events(options.events.begin(), options.events.end());
  if (device.hold(events, 0) && device.finish_sets()) device.hold({kDiagnosticsComplete}, 0);
  return output.finish();
}

int run_session(Context& context, Options& options) {
  if (options.apply && context.replays()) throw SetupError("--apply runs commands, and a replay runs none");
  if (!options.listen.empty() && !options.stay) throw SetupError("--listen is for --stay");
  options.server.password = given_value(options.server.password);
  context.output().redaction().note_word(options.server.password);
  const Interrupt noted;
  Device device(context, options);
  return options.stay ? stay(device, context, options) : hold_session(device, options, context.output());
}

Run define(CLI::App& line) {
  auto options = std::make_shared<Options>();
  line.add_option("URL", options->server.url,
                  "The server's address, http or https; that in ManagementServer.URL, with its name and "
                  "password, when left out");
  line.add_option("--event", options->events, "Why it calls: \"1 BOOT\" when left out")
      ->option_text("CODE")
      ->allow_extra_args(false);
  line.add_option("--tree", options->tree, "The one that the session shows: Device or InternetGatewayDevice")
      ->check(CLI::IsMember({"Device", "InternetGatewayDevice"}));
  line.add_option("--user", options->server.user, "Who it is to the server, Basic or Digest")->option_text("NAME");
  line.add_option("--password", options->server.password, "@FILE is read from a file, @- from standard input");
  line.add_option("--cacert", options->server.cacert, "Whom to trust, instead of the system's authorities")
      ->option_text("FILE");
  line.add_flag("--insecure", options->server.insecure, "Trust any server");
  line.add_option("--timeout", options->server.timeout, "For an answer of the server's; 60 when left out")
      ->option_text("SECONDS")
      ->check(CLI::Range(1, 3600));
  line.add_option("--transcript", options->transcript, "Keep the messages as they went")->option_text("FILE");
  line.add_flag("--apply", options->apply, "Do the agent's part after the session, and tell when tests are done");
  line.add_flag("--stay", options->stay, "Be a device that stays: periodic informs, connection requests, retries");
  line.add_option("--listen", options->listen, "Where connection requests are taken; any port of 127.0.0.1 otherwise")
      ->option_text("ADDRESS:PORT");
  return [options](Context& context) { return run_session(context, *options); };
}

}  // namespace

const Command kSession = {"session", "Answers an auto-configuration server, as the device's agent does", true, define};

}  // namespace kovadm

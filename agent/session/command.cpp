#include "commands/command.hpp"

#include <CLI/CLI.hpp>

#include "session/session.hpp"

namespace kovadm {
namespace {

using namespace session;

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

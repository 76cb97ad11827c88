#include "session/session.hpp"

#include "commands/setting.hpp"
#include "session/device.hpp"
#include "session/interrupt.hpp"
#include "session/stay.hpp"

namespace kovadm::session {
namespace {

// One session, and the one that tells of the tests that it has asked for.
int hold_session(Device& device, const Options& options, Output& output) {
  const std::set<std::string> events(options.events.begin(), options.events.end());
  if (device.hold(events, 0) && device.finish_sets()) device.hold({kDiagnosticsComplete}, 0);
  const int status = output.finish();
  return interrupted() != 0 ? 128 + interrupted() : status;
}

}  // namespace

int run_session(Context& context, Options& options) {
  if (options.apply && context.replays()) throw SetupError("--apply runs commands, and a replay runs none");
  if (!options.listen.empty() && !options.stay) throw SetupError("--listen is for --stay");
  options.server.password = given_value(options.server.password);
  context.output().redaction().secret(options.server.password);
  const Interrupt noted;
  Device device(context, options);
  return options.stay ? stay(device, context, options) : hold_session(device, options, context.output());
}

}  // namespace kovadm::session

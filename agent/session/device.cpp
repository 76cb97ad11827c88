#include "session/device.hpp"

#include "device/apply.hpp"
#include "device/apply_mask.hpp"
#include "pkg-tool.h"

namespace kovadm::session {
namespace {

// Tests whose end the server waits for.
constexpr uint32_t kTests = APPLY_IPPING_DIAG | APPLY_TRACEROUTE_DIAG | APPLY_UPLOAD_DIAG | APPLY_DOWNLOAD_DIAG |
                            APPLY_NSLOOKUP_DIAG | APPLY_NEIGHBOR_WIFI_DIAG;

}  // namespace

Device::Device(Context& context, const Options& options)
    : context_(context),
      options_(options),
      agent_(context.agent()),
      tree_(agent_, options.tree),
      methods_(agent_, tree_, context.output()),
      transcript_(options.transcript, context.output().redaction()) {
  ServerOptions& server = options_.server;
  if (!server.url.empty()) return;
  const auto lock = alone();
  server.url = tree_.value("ManagementServer.URL");
  if (server.url.empty()) throw SetupError("no URL, and none in " + tree_.path("ManagementServer.URL"));
  if (!server.user.empty()) return;
  server.user = tree_.value("ManagementServer.Username");
  server.password = tree_.value("ManagementServer.Password");
  context.output().redaction().secret(server.password);
}

std::unique_ptr<DeviceLock> Device::alone() const {
  return context_.replays() ? nullptr : std::make_unique<DeviceLock>(context_.options().wait);
}

bool Device::hold(const std::set<std::string>& events, int retries) {
  const auto lock = alone();
  return Conversation(agent_, tree_, methods_, transcript_, context_.output()).hold(options_.server, events, retries);
}

bool Device::finish_sets() {
  const uint32_t raised = methods_.raised();
  methods_.forget_raised();
  if (!options_.apply) {
    for (const ApplyBit& bit : raised_bits(raised)) {
      context_.output().line("to apply: " + bit.name + ": the agent " + bit.work);
      context_.output().document()["to_apply"].push_back(bit.name);
    }
    return false;
  }
  const auto lock = alone();
  apply(raised, context_.output());
  return (raised & kTests) != 0;
}

}  // namespace kovadm::session

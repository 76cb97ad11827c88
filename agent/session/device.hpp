// The device that holds sessions.
#pragma once

#include <memory>

#include "commands/context.hpp"
#include "device/lock.hpp"
#include "session/conversation.hpp"
#include "session/session.hpp"

namespace kovadm::session {

class Device {
 public:
  // Without a server's address it is the one in the data model. Throws SetupError where that has none.
  Device(Context& context, const Options& options);

  Agent& agent() { return agent_; }
  const Tree& tree() const { return tree_; }

  // One session; nobody else's calls meet its own. Whether it came to its end.
  bool hold(const std::set<std::string>& events, int retries);

  // What the session's sets have raised is applied, or told. Whether tests were done that the server waits for.
  bool finish_sets();

  // Nobody else calls handlers meanwhile. A replay is alone.
  std::unique_ptr<DeviceLock> alone() const;

 private:
  Context& context_;
  Options options_;
  Agent& agent_;
  Tree tree_;
  Methods methods_;
  Transcript transcript_;
};

}  // namespace kovadm::session

// The message that begins a session: who the device is, and why it calls.
#pragma once

#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "session/tree.hpp"

namespace kovadm::session {

// The events that are told on their own.
inline constexpr char kBoot[] = "1 BOOT";
inline constexpr char kPeriodic[] = "2 PERIODIC";
inline constexpr char kValueChange[] = "4 VALUE CHANGE";
inline constexpr char kConnectionRequest[] = "6 CONNECTION REQUEST";
inline constexpr char kDiagnosticsComplete[] = "8 DIAGNOSTICS COMPLETE";

// The ID of the message.
inline constexpr char kInformId[] = "1";

// The parameter that has the address by which the internet knows the device, and what it says; nothing where none has.
struct WanAddress {
  std::string path;
  std::string value;

  bool operator==(const WanAddress&) const = default;
};
std::optional<WanAddress> wan_address(Agent& agent, const Tree& tree);

// The message's text.
std::string inform(Agent& agent, const Tree& tree, const std::set<std::string>& events, int retries,
                   const std::string& version);

}  // namespace kovadm::session

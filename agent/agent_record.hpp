// The agent's own record that a few getters read: defaults, or the fields of a JSON file over them.
#pragma once

#include <string>

#include "pkg-tool.h"

namespace kovadm {

class AgentRecord {
 public:
  // An empty `file` leaves the defaults. Throws SetupError for a file that cannot be read, an unknown field, or a value
  // out of range.
  explicit AgentRecord(const std::string& file);
  AgentRecord(const AgentRecord&) = delete;
  AgentRecord& operator=(const AgentRecord&) = delete;

  agent_state* get() { return &state_; }

 private:
  // The record only points to these.
  std::string path_ = "/";
  std::string host_ = "127.0.0.1";
  std::string wan_interface_ = "eth0";
  agent_state state_ = {};
};

}  // namespace kovadm

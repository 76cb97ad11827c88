// The agent's own record that a few getters read: defaults, or given fields over them.
#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "pkg-tool.h"

namespace kovadm {

// The fields that a file gives, none without a file. Throws SetupError for a file that cannot be read or is no object.
nlohmann::json read_agent_fields(const std::string& file);

class AgentRecord {
 public:
  // Throws SetupError for an unknown field, or a value out of range.
  explicit AgentRecord(const nlohmann::json& fields);
  AgentRecord(const AgentRecord&) = delete;
  AgentRecord& operator=(const AgentRecord&) = delete;

  // Where connection requests are taken.
  void listens_at(const std::string& host, uint16_t port, const std::string& path);

  agent_state* get() { return &state_; }

 private:
  // The record only points to these.
  std::string path_ = "/";
  std::string host_ = "127.0.0.1";
  std::string wan_interface_ = "eth0";
  agent_state state_ = {};
};

}  // namespace kovadm

// The agent: calls handlers as the management agent does, and speaks of failures in the protocol's faults.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <variant>

#include "device/agent_record.hpp"
#include "device/plugin.hpp"
#include "model/data_model.hpp"
#include "model/fault.hpp"

namespace kovadm {

// The numbers as handlers expect them: padded with zeros, for those that read one more than the path has.
std::vector<int32_t> instance_array(const Parameter& parameter);

// What is odd about a device, in one line.
using Warn = std::function<void(const std::string&)>;

class Agent {
 public:
  // `fields` are of the agent's record. What many gets see may come from one look, if it `looks`.
  Agent(const std::string& plugin_file, const nlohmann::json& fields, Warn warn = {}, bool looks = false)
      : plugin_(plugin_file), fields_(fields), record_(fields), warn_(std::move(warn)), looks_(looks) {}

  const Plugin& plugin() const { return plugin_; }
  const nlohmann::json& fields() const { return fields_; }
  void warn(const std::string& text) const {
    if (warn_) warn_(text);
  }

  // What gets see until the end comes from one look, which begins now, if the agent looks.
  void begin_look() const {
    if (looks_) plugin_.begin_look();
  }
  void end_look() const {
    if (looks_) plugin_.end_look();
  }

  // Where it takes connection requests from now on.
  void listens_at(const std::string& host, uint16_t port, const std::string& path) {
    record_.listens_at(host, port, path);
  }

  // The parameter's value, or the fault.
  std::variant<std::string, Fault> get(const Parameter& parameter);

  // Sets the value, ORing into `mask` what is to be applied; the fault when it was refused.
  std::optional<Fault> set(const Parameter& parameter, const std::string& value, uint32_t& mask);

 private:
  Plugin plugin_;
  nlohmann::json fields_;
  AgentRecord record_;
  Warn warn_;
  bool looks_;
};

// One look for its lifetime.
class Look {
 public:
  explicit Look(const Agent& agent) : agent_(agent) { agent_.begin_look(); }
  ~Look() { agent_.end_look(); }
  Look(const Look&) = delete;
  Look& operator=(const Look&) = delete;

 private:
  const Agent& agent_;
};

}  // namespace kovadm

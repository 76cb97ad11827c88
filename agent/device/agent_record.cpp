#include "device/agent_record.hpp"

#include <fstream>
#include <functional>
#include <limits>
#include <map>
#include <nlohmann/json.hpp>

#include "device/plugin.hpp"

namespace kovadm {
namespace {

using nlohmann::json;

// Takes a value from the file; what it expected when that is not it, else an empty text.
using Taker = std::function<std::string(const json& value)>;

template <typename Number>
Taker number(Number& target, Number most = std::numeric_limits<Number>::max()) {
  return [&target, most](const json& value) -> std::string {
    if (!value.is_number_integer() || value < 0 || value > most) return "a number from 0 to " + std::to_string(most);
    target = value.get<Number>();
    return "";
  };
}

Taker text(std::string& target, const std::string& start = "") {
  return [&target, start](const json& value) -> std::string {
    if (!value.is_string() || !value.get<std::string>().starts_with(start))
      return start.empty() ? "a text" : "a text that begins with " + start;
    target = value.get<std::string>();
    return "";
  };
}

template <std::size_t Size>
Taker text(char (&target)[Size]) {
  return [&target](const json& value) -> std::string {
    if (!value.is_string() || value.get<std::string>().size() >= Size)
      return "a text of at most " + std::to_string(Size - 1) + " bytes";
    target[value.get<std::string>().copy(target, Size - 1)] = '\0';
    return "";
  };
}

void take_fields(const json& object, const std::map<std::string, Taker>& takers) {
  for (const auto& [name, value] : object.items()) {
    const auto taker = takers.find(name);
    if (taker == takers.end()) throw SetupError("agent state: unknown field " + name);
    const std::string expected = taker->second(value);
    if (expected.empty()) continue;
    throw SetupError(std::string("agent state: ")
                         .append(name)
                         .append(" must be ")
                         .append(expected)
                         .append(", not ")
                         .append(value.dump()));
  }
}

}  // namespace

json read_agent_fields(const std::string& file) {
  if (file.empty()) return json::object();
  std::ifstream stream(file);
  stream.peek();  // a directory can be opened, but not read
  if (stream.fail()) throw SetupError("agent state: cannot read " + file);
  json object = json::parse(stream, nullptr, false);
  if (!object.is_object()) throw SetupError("agent state: " + file + " is no JSON object");
  return object;
}

AgentRecord::AgentRecord(const json& fields) {
  state_.connection_request_port = 7547;
  state_.stun_max_keepalive = 60;
  state_.stun_min_keepalive = 30;
  state_.stun_server_port = 3478;
  take_fields(fields, {{"connection_request_port", number(state_.connection_request_port)},
                       {"connection_request_path", text(path_, "/")},
                       {"connection_request_host", text(host_)},
                       {"stun_enabled", number(state_.stun_enabled, uint8_t{1})},
                       {"nat_detected", number(state_.nat_detected)},
                       {"stun_max_keepalive", number(state_.stun_max_keepalive)},
                       {"stun_min_keepalive", number(state_.stun_min_keepalive)},
                       {"stun_username", text(state_.stun_username)},
                       {"stun_password", text(state_.stun_password)},
                       {"udp_connection_request_address", text(state_.udp_connection_request_address)},
                       {"stun_server_address", text(state_.stun_server_address)},
                       {"stun_server_port", number(state_.stun_server_port)},
                       {"wan_interface", text(wan_interface_)}});
  state_.connection_request_path = path_.c_str();
  state_.connection_request_host = host_.c_str();
  state_.wan_interface = wan_interface_.c_str();
}

void AgentRecord::listens_at(const std::string& host, uint16_t port, const std::string& path) {
  host_ = host;
  path_ = path;
  state_.connection_request_port = port;
  state_.connection_request_host = host_.c_str();
  state_.connection_request_path = path_.c_str();
}

}  // namespace kovadm

#include "session/inform.hpp"

#include <ctime>

#include "device/walk.hpp"
#include "session/envelope.hpp"
#include "session/value.hpp"

namespace kovadm::session {
namespace {

// What each of them carries, as far as the tree has it.
constexpr const char* kForced[] = {"DeviceSummary",
                                   "RootDataModelVersion",
                                   "DeviceInfo.SpecVersion",
                                   "DeviceInfo.HardwareVersion",
                                   "DeviceInfo.SoftwareVersion",
                                   "DeviceInfo.ProvisioningCode",
                                   "ManagementServer.ParameterKey",
                                   "ManagementServer.ConnectionRequestURL"};

constexpr char kConnections[] = "InternetGatewayDevice.WANDevice.1.WANConnectionDevice.1.";

std::string now() {
  const std::time_t time = std::time(nullptr);
  std::tm parts = {};
  char text[32] = {};
  std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%SZ", gmtime_r(&time, &parts));
  return text;
}

std::string read(Agent& agent, const Parameter& parameter) {
  const auto answer = agent.get(parameter);
  const auto* value = std::get_if<std::string>(&answer);
  return value != nullptr ? *value : "";
}

// The first parameter below a path whose name ends so, and whose value is not empty or, where one is given, that one.
std::optional<WanAddress> first_address(Agent& agent, const std::string& below, std::string_view name,
                                        const std::string& wanted = "") {
  std::optional<WanAddress> found;
  walk(agent, below, [&](const Parameter& parameter) {
    if (found || !parameter.path.ends_with(name)) return true;
    const std::string value = read(agent, parameter);
    if (wanted.empty() ? !value.empty() : value == wanted) found = {parameter.path, value};
    return true;
  });
  return found;
}

std::optional<WanAddress> default_connection(Agent& agent) {
  const Tree tree(agent, "InternetGatewayDevice");
  std::string service = tree.value("Layer3Forwarding.DefaultConnectionService");
  if (!service.ends_with('.')) service += '.';
  const std::string path = service + "ExternalIPAddress";
  const auto parameter = tree.unknown(path) ? std::nullopt : find_parameter(path);
  if (parameter) return WanAddress{path, read(agent, *parameter)};
  return first_address(agent, kConnections, ".ExternalIPAddress");
}

void add_device(pugi::xml_node inform, const Tree& tree) {
  pugi::xml_node device = inform.append_child("DeviceId");
  constexpr std::pair<const char*, const char*> kParts[] = {{"Manufacturer", "DeviceInfo.Manufacturer"},
                                                            {"OUI", "DeviceInfo.ManufacturerOUI"},
                                                            {"ProductClass", "DeviceInfo.ProductClass"},
                                                            {"SerialNumber", "DeviceInfo.SerialNumber"}};
  for (const auto& [name, path] : kParts) add_text(device, name, tree.value(path));
}

void add_events(pugi::xml_node inform, const std::set<std::string>& events) {
  pugi::xml_node list = add_array(inform, "Event", "cwmp:EventStruct", events.size());
  for (const std::string& event : events) {
    pugi::xml_node element = list.append_child("EventStruct");
    add_text(element, "EventCode", event);
    add_text(element, "CommandKey", "");
  }
}

}  // namespace

// The other tree tells which of the connections is the default one; both are of the same device.
std::optional<WanAddress> wan_address(Agent& agent, const Tree& tree) {
  const auto address = default_connection(agent);
  if (tree.root() != "Device" || !address || address->value.empty())
    return tree.root() != "Device" ? address : std::nullopt;
  return first_address(agent, "Device.IP.Interface.", ".IPAddress", address->value);
}

std::string inform(Agent& agent, const Tree& tree, const std::set<std::string>& events, int retries,
                   const std::string& version) {
  const Look look(agent);
  Envelope envelope(version, kInformId);
  pugi::xml_node message = envelope.add("Inform");
  add_device(message, tree);
  add_events(message, events);
  add_text(message, "MaxEnvelopes", "1");
  add_text(message, "CurrentTime", now());
  add_text(message, "RetryCount", std::to_string(retries));
  std::vector<std::pair<Parameter, std::string>> values;
  const auto add = [&](const std::string& path) {
    const auto parameter = find_parameter(path);
    if (parameter) values.emplace_back(*parameter, read(agent, *parameter));
  };
  for (const char* path : kForced) add(tree.path(path));
  if (const auto address = wan_address(agent, tree)) add(address->path);
  add_values(message, values);
  return envelope.text();
}

}  // namespace kovadm::session

// Values and attributes of parameters, as servers ask for them and set them.
#include "commands/shell_ways.hpp"
#include "device/call.hpp"
#include "device/task_records.hpp"
#include "device/undo.hpp"
#include "device/walk.hpp"
#include "model/value_type.hpp"
#include "output/progress.hpp"
#include "session/interrupt.hpp"
#include "session/methods.hpp"
#include "session/value.hpp"

namespace kovadm::session {
namespace {

constexpr std::size_t kLongestKey = 32;

// Reads parameters for one answer.
class Reading {
 public:
  Reading(Agent& agent, Output& output) : agent_(agent), output_(output) {}

  void one(const Parameter& parameter) {
    const auto fault = read(parameter);
    if (fault) throw Refused{{*fault}};
  }

  void below(const std::string& path) {
    const auto fault = walk(agent_, path, [this](const Parameter& parameter) {
      const auto failed = read(parameter);
      if (failed) output_.warning("left out: " + failed->path + " (" + failed->detail + ")");
      return !failed;
    });
    if (fault) throw Refused{{*fault}};
  }

  std::vector<std::pair<Parameter, std::string>> values;

 private:
  std::optional<Fault> read(const Parameter& parameter) {
    if (values.size() == kMostNames)
      throw Refused{{{FaultCode::RESOURCES_EXCEEDED, "", "more than " + std::to_string(kMostNames) + " values", ""}}};
    progress_.show(std::to_string(values.size() + 1) + " " + parameter.path);
    auto answer = agent_.get(parameter);
    progress_.clear();
    if (auto* fault = std::get_if<Fault>(&answer)) return *fault;
    auto& value = std::get<std::string>(answer);
    values.emplace_back(parameter, std::move(value));
    return std::nullopt;
  }

  Agent& agent_;
  Output& output_;
  Progress progress_;
};

// The fault of a value that says of itself that it is of another type than the parameter.
std::optional<Fault> wrong_type(const pugi::xml_node& value, const Parameter& parameter) {
  for (const pugi::xml_attribute& attribute : value.attributes()) {
    if (!std::string_view(attribute.name()).ends_with(":type")) continue;
    const std::string_view given = attribute.value();
    const std::string type(given.substr(given.find(':') + 1));
    if (!may_be(type, parameter.row->type))
      return Fault{FaultCode::INVALID_PARAMETER_TYPE, parameter.path, to_text(parameter.row->type) + ", not " + type,
                   ""};
  }
  return std::nullopt;
}

}  // namespace

std::string Methods::get_values(const pugi::xml_node& request, pugi::xml_node response) {
  const Look look(agent_);
  Reading reading(agent_, output_);
  const auto names = elements_of(request, "ParameterNames");
  for (const pugi::xml_node& name : names) {
    const std::string path = element_text(name);
    const std::string start = path.empty() ? tree_.root() + "." : path;
    if (const auto fault = tree_.unknown(start)) throw Refused{{*fault}};
    if (start.ends_with('.')) {
      reading.below(start);
    } else {
      reading.one(*find_parameter(start));
    }
  }
  add_values(response, reading.values);
  const std::string what = names.size() == 1 ? '"' + element_text(names.front()) + '"' : counted(names.size(), "name");
  return what + ": " + counted(reading.values.size(), "value");
}

std::string Methods::set_values(const pugi::xml_node& request, pugi::xml_node response) {
  const std::string key = required_text(request, "ParameterKey");
  if (key.size() > kLongestKey) throw Refused{{{FaultCode::INVALID_ARGUMENTS, "ParameterKey", "too long", ""}}};
  std::vector<Fault> faults = {{FaultCode::INVALID_ARGUMENTS, "", "", ""}};
  RequestCheck check(agent_);
  std::vector<Call> calls;
  for (const pugi::xml_node& element : elements_of(request, "ParameterList")) {
    const std::string path = required_text(element, "Name");
    const std::string value = required_text(element, "Value");
    const auto parameter = find_parameter(path);
    auto fault = path.starts_with(tree_.root() + ".") ? std::nullopt : tree_.unknown(path);
    if (!fault && parameter) fault = wrong_type(child(element, "Value"), *parameter);
    auto checked = fault ? *fault : check.call(path, value);
    if (const auto* bad = std::get_if<Fault>(&checked)) {
      note_refused(parameter, value);
      faults.push_back(*bad);
    } else {
      calls.push_back(std::get<Call>(std::move(checked)));
      warn_of_shell(calls.back().parameter, value, output_);
    }
  }
  if (faults.size() > 1) throw Refused{faults};
  const bool waits = make_calls(calls, key);
  add_text(response, "Status", waits ? "1" : "0");
  return counted(calls.size(), "value") + ": " + (waits ? "stored, to be applied" : "applied");
}

// The fault tells the value.
void Methods::note_refused(const std::optional<Parameter>& parameter, const std::string& value) {
  if (parameter && is_secret(*parameter->row)) output_.redaction().note_word(value);
}

bool Methods::make_calls(const std::vector<Call>& calls, const std::string& key) {
  const Uninterrupted whole;
  const Undo undo;
  const TaskRecords records;
  uint32_t raised = 0;
  for (const Call& call : calls) {
    if (const auto fault = agent_.set(call.parameter, call.passed, raised)) {
      note_refused(call.parameter, call.passed);
      undo.put_back();
      throw Refused{{{FaultCode::INVALID_ARGUMENTS, "", "", ""}, *fault}};
    }
  }
  if (!agent_.plugin().store("cwmp", "info", "parameterKey", key)) {
    undo.put_back();
    throw Refused{{{FaultCode::INTERNAL_ERROR, "ParameterKey", "it cannot be stored", ""}}};
  }
  raised_ |= raised;
  return raised != 0 || !records.recorded_since().empty();
}

// ---- Attributes: there are none but those that everything has ----

std::string Methods::get_attributes(const pugi::xml_node& request, pugi::xml_node response) {
  std::vector<std::string> paths;
  for (const pugi::xml_node& name : elements_of(request, "ParameterNames")) {
    const auto found = tree_.names(element_text(name), false);
    if (const auto* fault = std::get_if<Fault>(&found)) throw Refused{{*fault}};
    for (const Name& each : std::get<std::vector<Name>>(found)) {
      if (!each.path.ends_with('.')) paths.push_back(each.path);
    }
    if (paths.size() > kMostNames) throw Refused{{{FaultCode::RESOURCES_EXCEEDED, "", "too many attributes", ""}}};
  }
  pugi::xml_node list = add_array(response, "ParameterList", "cwmp:ParameterAttributeStruct", paths.size());
  for (const std::string& path : paths) {
    pugi::xml_node attributes = list.append_child("ParameterAttributeStruct");
    add_text(attributes, "Name", path);
    add_text(attributes, "Notification", "0");
    add_text(add_array(attributes, "AccessList", "xsd:string", 1), "string", "Subscriber");
  }
  return counted(paths.size(), "parameter");
}

std::string Methods::set_attributes(const pugi::xml_node& request, pugi::xml_node) {
  const auto elements = elements_of(request, "ParameterList");
  for (const pugi::xml_node& element : elements) {
    const std::string path = required_text(element, "Name");
    if (const auto fault = tree_.unknown(path.empty() ? tree_.root() + "." : path)) throw Refused{{*fault}};
    if (required_boolean(element, "NotificationChange") && required_text(element, "Notification") != "0")
      throw Refused{{{FaultCode::NOTIFICATION_REJECTED, path, "no notification is offered", ""}}};
  }
  return counted(elements.size(), "path") + ": nothing to keep";
}

}  // namespace kovadm::session

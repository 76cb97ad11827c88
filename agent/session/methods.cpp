#include "session/methods.hpp"

#include <algorithm>

namespace kovadm::session {
namespace {

std::string fault_text(const Fault& fault) {
  std::string text = to_text(fault.code);
  if (!fault.path.empty()) text += ": " + fault.path;
  if (!fault.detail.empty()) text += " (" + fault.detail + ")";
  if (!fault.nearest.empty()) text += "; nearest: " + fault.nearest;
  return text;
}

std::string to_fault(const std::vector<Fault>& faults, const std::string& version, const std::string& id) {
  Envelope envelope(version, id);
  pugi::xml_node told = envelope.add_fault(static_cast<int>(faults.front().code), fault_text(faults.front()).c_str());
  for (auto fault = faults.begin() + 1; fault != faults.end(); ++fault) {
    pugi::xml_node of_parameter = told.append_child("SetParameterValuesFault");
    add_text(of_parameter, "ParameterName", fault->path);
    add_text(of_parameter, "FaultCode", std::to_string(static_cast<int>(fault->code)));
    add_text(of_parameter, "FaultString", fault_text(*fault));
  }
  return envelope.text();
}

[[noreturn]] void refuse(FaultCode code, const std::string& detail) { throw Refused{{{code, "", detail, ""}}}; }

// The path of a table, or of one of its rows, which the device has.
void expect_table(const Tree& tree, const std::string& path, bool row) {
  if (!path.ends_with('.')) throw Refused{{{FaultCode::INVALID_ARGUMENTS, path, "no object's path", ""}}};
  if (const auto fault = tree.unknown(path)) throw Refused{{*fault}};
  const std::vector<std::string> components = split_path(path);
  if (row != instance_number(components.back()).has_value())
    throw Refused{{{FaultCode::INVALID_PARAMETER_NAME, path, row ? "no row of a table" : "no table", ""}}};
}

}  // namespace

std::string counted(std::size_t number, const std::string& thing) {
  return std::to_string(number) + " " + thing + (number == 1 ? "" : "s");
}

std::string fault_line(const Fault& fault) {
  return std::to_string(static_cast<int>(fault.code)) + " " + fault_text(fault);
}

struct Methods::Method {
  const char* name;
  std::function<std::string(Methods&, const pugi::xml_node& request, pugi::xml_node response)> answer;
};

const std::vector<Methods::Method>& Methods::table() {
  static const std::vector<Method> methods = {{"GetRPCMethods", &Methods::get_rpc_methods},
                                              {"GetParameterNames", &Methods::get_names},
                                              {"GetParameterValues", &Methods::get_values},
                                              {"SetParameterValues", &Methods::set_values},
                                              {"GetParameterAttributes", &Methods::get_attributes},
                                              {"SetParameterAttributes", &Methods::set_attributes},
                                              {"AddObject", &Methods::add_object},
                                              {"DeleteObject", &Methods::delete_object},
                                              {"Reboot", &Methods::leave_undone},
                                              {"FactoryReset", &Methods::leave_undone},
                                              {"ScheduleInform", &Methods::leave_undone}};
  return methods;
}

Answer Methods::answer(const Message& request, const std::string& version) {
  const std::string name(request.method());
  try {
    const auto method =
        std::find_if(table().begin(), table().end(), [&](const Method& each) { return each.name == name; });
    if (method == table().end()) throw Refused{{{FaultCode::METHOD_NOT_SUPPORTED, name, "", ""}}};
    Envelope envelope(version, request.id);
    const std::string told = method->answer(*this, request.content, envelope.add((name + "Response").c_str()));
    std::string text = envelope.text();
    if (text.size() > kLargestMessage) refuse(FaultCode::RESOURCES_EXCEEDED, "the answer is too large");
    return {std::move(text), told, {}};
  } catch (const Refused& refused) {
    return {to_fault(refused.faults, version, request.id), "", refused.faults};
  }
}

Answer Methods::refusal(const Fault& fault, const std::string& version) {
  return {to_fault({fault}, version, ""), "", {fault}};
}

std::vector<pugi::xml_node> elements_of(const pugi::xml_node& request, const char* array) {
  const pugi::xml_node list = child(request, array);
  if (!list) refuse(FaultCode::INVALID_ARGUMENTS, std::string("no ") + array);
  std::vector<pugi::xml_node> elements;
  for (const pugi::xml_node& element : list) {
    if (element.type() == pugi::node_element) elements.push_back(element);
  }
  if (elements.size() > kMostAsked)
    refuse(FaultCode::RESOURCES_EXCEEDED,
           counted(elements.size(), "parameter") + ", of at most " + std::to_string(kMostAsked));
  return elements;
}

std::string required_text(const pugi::xml_node& node, const char* name) {
  if (!child(node, name)) refuse(FaultCode::INVALID_ARGUMENTS, std::string("no ") + name);
  return child_text(node, name);
}

bool required_boolean(const pugi::xml_node& node, const char* name) {
  const std::string text = required_text(node, name);
  if (!is_true(text) && text != "0" && text != "false")
    refuse(FaultCode::INVALID_ARGUMENTS, std::string(name) + " is no boolean: \"" + text + '"');
  return is_true(text);
}

std::string Methods::get_rpc_methods(Methods&, const pugi::xml_node&, pugi::xml_node response) {
  pugi::xml_node list = add_array(response, "MethodList", "xsd:string", table().size());
  for (const Method& method : table()) add_text(list, "string", method.name);
  return counted(table().size(), "method");
}

std::string Methods::get_names(const pugi::xml_node& request, pugi::xml_node response) {
  const std::string path = required_text(request, "ParameterPath");
  const bool next_level = required_boolean(request, "NextLevel");
  const Look look(agent_);
  const auto found = tree_.names(path, next_level);
  if (const auto* fault = std::get_if<Fault>(&found)) throw Refused{{*fault}};
  const auto& names = std::get<std::vector<Name>>(found);
  pugi::xml_node list = add_array(response, "ParameterList", "cwmp:ParameterInfoStruct", names.size());
  for (const Name& name : names) {
    pugi::xml_node info = list.append_child("ParameterInfoStruct");
    add_text(info, "Name", name.path);
    add_text(info, "Writable", name.writable ? "1" : "0");
  }
  return '"' + path + (next_level ? "\", next level: " : "\": ") + counted(names.size(), "name");
}

std::string Methods::add_object(const pugi::xml_node& request, pugi::xml_node) {
  const std::string path = required_text(request, "ObjectName");
  expect_table(tree_, path, false);
  throw Refused{{{FaultCode::INVALID_PARAMETER_NAME, path, "no table takes rows", ""}}};
}

std::string Methods::delete_object(const pugi::xml_node& request, pugi::xml_node) {
  const std::string path = required_text(request, "ObjectName");
  expect_table(tree_, path, true);
  throw Refused{{{FaultCode::INVALID_PARAMETER_NAME, path, "no table gives up rows", ""}}};
}

std::string Methods::leave_undone(Methods&, const pugi::xml_node&, pugi::xml_node) { return "said, not done"; }

}  // namespace kovadm::session

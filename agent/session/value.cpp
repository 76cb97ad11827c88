#include "session/value.hpp"

#include <set>

#include "model/value_type.hpp"

namespace kovadm::session {
namespace {

const char* type_name(Type type) {
  switch (type) {
    case Type::BOOLEAN:
      return "boolean";
    case Type::UNSIGNED_INT:
      return "unsignedInt";
    case Type::INT:
      return "int";
    case Type::UNSIGNED_LONG:
      return "unsignedLong";
    case Type::DATE_TIME:
      return "dateTime";
    default:
      return "string";
  }
}

bool is_number(const std::string& schema_type) {
  static const std::set<std::string> numbers = {"int", "unsignedInt", "long", "unsignedLong", "integer"};
  return numbers.contains(schema_type);
}

}  // namespace

bool may_be(const std::string& given, Type type) {
  const std::string expected = type_name(type);
  return given == expected || given == "string" || given == "anySimpleType" ||
         (is_number(given) && is_number(expected));
}

void add_values(pugi::xml_node parent, const std::vector<std::pair<Parameter, std::string>>& values) {
  pugi::xml_node list = add_array(parent, "ParameterList", "cwmp:ParameterValueStruct", values.size());
  for (const auto& [parameter, value] : values) {
    pugi::xml_node element = list.append_child("ParameterValueStruct");
    add_text(element, "Name", parameter.path);
    const Type type = is_of_type(value, parameter.row->type) ? parameter.row->type : Type::STRING;
    add_text(element, "Value", value).append_attribute("xsi:type") = (std::string("xsd:") + type_name(type)).c_str();
  }
}

}  // namespace kovadm::session

// Which texts are values of a type.
#pragma once

#include <string>

#include "model/catalogue.hpp"

namespace kovadm {

// Whether the data models allow the text as a value of the type, whatever else a parameter may ask of it: a boolean is
// 0, 1, false or true, a number fits into its type, an address may be empty or of either kind. Texts, secrets, lists
// and MAC addresses are not looked at.
bool is_of_type(const std::string& value, Type type);

// Why a text is no value of the type, for people: "out of range"; empty where it is one.
std::string type_error(const std::string& value, Type type);

// The text as handlers know it: a server may spell a boolean in two ways, of which they know "1" and "0".
std::string as_handlers_know(const std::string& value, Type type);

}  // namespace kovadm

// The text of configuration packages and of files of uncommitted changes, apart from their meaning: what is replaced
// in them leaves all the rest as it is.
#pragma once

#include <functional>
#include <optional>
#include <string>

namespace kovadm {

// What an option's value is to be instead; nothing to leave it. Must need no quoting but single quotes.
using NewValue = std::function<std::optional<std::string>(const std::string& option, const std::string& value)>;

// Asks for each value of each option and list, of those that are commented out, too.
std::string replace_option_values(const std::string& text, const NewValue& new_value);

}  // namespace kovadm

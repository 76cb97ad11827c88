// The documents that are made from the catalogue and from what the handlers are seen to do.
#pragma once

#include <ostream>

namespace kova::documents {

void write_parameters(std::ostream& out);
void write_set_commands(std::ostream& out);
void write_invalid_values(std::ostream& out);
void write_security(std::ostream& out);
void write_shell_ways(std::ostream& out);

}  // namespace kova::documents

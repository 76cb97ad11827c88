// What a value was read from, for the page.
#pragma once

#include <nlohmann/json.hpp>

#include "output/redaction.hpp"
#include "seam/trace.hpp"

namespace kovadm {

// Arrays of a kind ("option", "command", ...), a name, what was found there, and whether that is that it is missing.
nlohmann::ordered_json sources_of(const seam::Trace& trace, const Redaction& redaction);

bool misses_source(const nlohmann::ordered_json& sources);

}  // namespace kovadm

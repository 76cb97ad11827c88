// What a value was read from, for the page.
#pragma once

#include <nlohmann/json.hpp>

#include "output/redaction.hpp"
#include "recording/reading.hpp"

namespace kovadm {

// Arrays of a kind ("missing", "option", "command", ...), a name, and what was found there.
nlohmann::ordered_json sources_of(const WatchedReading& reading, const Redaction& redaction);

// Whether what keeps a parameter from answering is a source that is not there or fails.
bool is_missing_source(const Cause& cause);

}  // namespace kovadm

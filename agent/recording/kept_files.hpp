// The machine's files in the directories that a recording keeps whole. The agent's recorded commands are no part of
// them: they are work that waits, and may have passwords in them.
#pragma once

#include <map>
#include <optional>
#include <string>

#include "recording/recording.hpp"

namespace kovadm {

// By directory, then by name; without the directories that do not exist.
using KeptFiles = std::map<std::string, Files>;
KeptFiles read_kept_files();

// The files that differ, by path, as they were `after`; nothing: gone.
std::map<std::string, std::optional<std::string>> changes(const KeptFiles& before, const KeptFiles& after);

// Throws std::system_error.
void write_file(const std::string& path, const std::string& text);

}  // namespace kovadm

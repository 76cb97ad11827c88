// The data files that kovadm has in it: profiles.tsv, access-differences.tsv, extensions.tsv, set-commands.tsv,
// shell-ways.tsv and moving.tsv.
#pragma once

#include <string>
#include <vector>

namespace kovadm {

extern const char kProfileTable[];
extern const char kAccessDifferenceTable[];
extern const char kExtensionTable[];
extern const char kSetCommandTable[];
extern const char kShellWayTable[];
extern const char kMovingTable[];

// A file's lines, cell by cell, without comments.
std::vector<std::vector<std::string>> read_table(const char* text);

}  // namespace kovadm

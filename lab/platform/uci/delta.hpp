// Changes, and the text form in which they wait in a save directory: one line each.
#pragma once

#include <string>
#include <vector>

namespace standin {

struct Package;

struct Change {
  enum Kind : char { SET = '=', REMOVE = '-', ADD = '+', RENAME = '@', ADD_TO_LIST = '|', REMOVE_FROM_LIST = '~' };
  Kind kind;
  std::string section;
  std::string option;  // empty: the section itself
  std::string value;   // of what is removed: the place of a list's item, or empty
};

// The changes of a delta file. Lines that make no sense are left out, and so is a last one that was not written whole;
// `whole` says whether there are none.
std::vector<Change> parse_delta(const std::string& text, bool* whole = nullptr);
std::string format_delta(const std::string& package, const std::vector<Change>& changes);

// Carries a change out; false for one that does not fit the package and is left out, as with a stale delta.
bool apply(Package& package, const Change& change);

}  // namespace standin

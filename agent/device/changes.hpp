// What a set request changed on the device.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "output/output.hpp"
#include "seam/snapshot.hpp"

namespace kovadm {

struct Change {
  std::string store;                  // "store", "pending", "mirror", "forced mirror", "state" or "file"
  std::string path;                   // "package.section.option", "package.section" for the section's type; of a file
  std::optional<std::string> before;  // nothing: it was not there; pending: what is committed
  std::optional<std::string> after;   // nothing: it is gone
  bool was_pending;                   // store: committed now, but changed before the request

  // Whether the request stored something with it: more than the agent's copy of a change, or a script's verdict.
  bool stores() const { return !was_pending && (store == "store" || store == "pending" || store == "file"); }
};

// From one time's seam::kept_files() to another's, in the order of the stores, then by path. `start` are those before
// the request.
std::vector<Change> changes(const seam::Texts& before, const seam::Texts& after, const seam::Texts& start);

// For people; of a secret, that it changed.
std::string to_text(const Change& change, const Redaction& redaction);

// Tells the changes, and makes their part of the document.
Json tell_changes(const std::vector<Change>& changes, Output& output);

}  // namespace kovadm

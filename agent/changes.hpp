// What a set request changed on the device.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "output.hpp"

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

// All that requests change, at one time.
class Snapshot {
 public:
  // Now.
  Snapshot();

  // From the earlier snapshot to this one, in the order of the stores, then by path. `start` is the one before the
  // request.
  std::vector<Change> changes_since(const Snapshot& earlier, const Snapshot& start) const;

 private:
  using Values = std::map<std::string, std::string>;

  bool is_pending(const std::string& path) const;
  void add_pending(const Snapshot& earlier, std::vector<Change>& changes) const;

  std::vector<Values> stores_;
  Values with_pending_;  // the main store as it is when all is committed
};

// Tells the changes, and makes their part of the document.
Json tell_changes(const std::vector<Change>& changes, Output& output);

}  // namespace kovadm

// What a set request changed in the configuration stores.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace kovadm {

struct Change {
  std::string store;                  // "store", "mirror", "forced mirror" or "state"
  std::string path;                   // "package.section.option", or "package.section" for the section's type
  std::optional<std::string> before;  // nothing: it was not there
  std::optional<std::string> after;   // nothing: it is gone
};

// All options of all stores at one time.
class Snapshot {
 public:
  // Now.
  Snapshot();

  // From the earlier snapshot to this one, in the order of the stores, then by path.
  std::vector<Change> changes_since(const Snapshot& earlier) const;

 private:
  using Options = std::map<std::string, std::string>;
  std::vector<Options> stores_;
};

}  // namespace kovadm

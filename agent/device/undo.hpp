// The device's stores as they were, to be put back when a request is refused half way.
#pragma once

#include <filesystem>
#include <map>
#include <string>

#include "seam/snapshot.hpp"

namespace kovadm {

class Undo {
 public:
  // Notes what the stores and the records of commands hold now.
  Undo();

  // Puts back what has changed since. What a handler's command did elsewhere stays. Throws std::system_error.
  void put_back() const;

 private:
  seam::Texts texts_;
  std::map<std::string, std::filesystem::perms> permissions_;
};

}  // namespace kovadm

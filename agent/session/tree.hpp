// The one tree that a session shows.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "device/agent.hpp"

namespace kovadm::session {

// No device has more.
inline constexpr std::size_t kMostNames = 20000;

struct Name {
  std::string path;  // an object's with a dot at its end
  bool writable;
};

class Tree {
 public:
  // `root` is a root object's name.
  Tree(Agent& agent, std::string root) : agent_(agent), root_(std::move(root)) {}

  const std::string& root() const { return root_; }

  // The path of a parameter of every device.
  std::string path(const std::string& below) const { return root_ + "." + below; }

  // The value of a parameter; empty where there is none.
  std::string value(const std::string& below) const;

  // The fault of a path that is none of this tree's parameters or, with a dot at its end, objects.
  std::optional<Fault> unknown(const std::string& path) const;

  // What is below a path, which is told too, or one level below it. The empty path stands above the tree.
  std::variant<std::vector<Name>, Fault> names(const std::string& path, bool next_level) const;

 private:
  Agent& agent_;
  std::string root_;
};

}  // namespace kovadm::session

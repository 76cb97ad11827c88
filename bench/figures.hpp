// What is measured: some of the plug-in's work, beside the bare calls of the platform that the same work takes.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace kova::bench {

struct Figure {
  std::string name;
  std::function<void()> plugin;
  std::function<void()> platform;
};

// All figures; whatever they need on the router is there afterwards.
std::vector<Figure> figures();

}  // namespace kova::bench

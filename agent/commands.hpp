// The tool's commands. Each returns the exit status: 0, or 1 after a fault or a failure. PATH is a parameter's path
// with its instance numbers; PREFIX the beginning of paths.
#pragma once

#include <string>
#include <vector>

#include "agent.hpp"
#include "output.hpp"

namespace kovadm {

struct Setting {
  std::string path;
  std::string value;
};

// The catalogue's rows below the prefixes; all where there is no prefix.
int list(const std::vector<std::string>& prefixes, Output& output);

// Values of parameters, and for a path that ends in "." of all parameters below.
int get(Agent& agent, const std::vector<std::string>& paths, Output& output);

// Values of all parameters below the prefixes; of all where there is no prefix.
int walk(Agent& agent, const std::vector<std::string>& prefixes, Output& output);

// One set request: nothing is called unless all parameters exist and are writable; what the calls raise is collected.
// When `applying` and no value was refused, does the agent's part afterwards. At the end reads the parameters back.
// Returns 3 when all was accepted and some of it in vain.
int set(Agent& agent, const std::vector<Setting>& settings, bool applying, Output& output);

// Gets the parameter once and tells what that did.
int explain(Agent& agent, const std::string& path, Output& output);

}  // namespace kovadm

// The tool's commands. Each returns the exit status: 0, or 1 after a fault or a failure. PATH is a parameter's path
// with its instance numbers; PREFIX the beginning of paths.
#pragma once

#include <string>
#include <vector>

#include "device/agent.hpp"
#include "output/output.hpp"
#include "recording/recording.hpp"

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

struct SetOptions {
  bool apply = false;  // do the agent's part once all values were accepted
  bool force = false;  // pass on what is no value of the parameter's type, too
};

// One set request: nothing is called unless all parameters exist, are writable, and are given values of their types;
// what the calls raise is collected. At the end reads the parameters back. Returns 3 when all was accepted, but for
// some value nothing changed.
int set(Agent& agent, const std::vector<Setting>& settings, const SetOptions& options, Output& output);

// What is served of the profiles of the published data models; with names, what of their parameters. Asks the device
// for its answers where there is an `agent`. Throws SetupError for an unknown name.
int profiles(Agent* agent, const std::vector<std::string>& names, Output& output);

// Keeps in `file` what gets of the parameters below the prefixes depend on, of all where there is no prefix. Secrets
// are replaced unless they are to be kept. Throws std::system_error for a file that cannot be written.
int record(Agent& agent, const std::string& file, const std::vector<std::string>& prefixes, bool with_secrets,
           Output& output);

// The parameters that differ between two recorded devices, and what explains that. Returns 1 where some do. Throws
// SetupError for recordings that cannot be compared.
int diff(Recording before, Recording after, const std::string& plugin, Output& output);

// Gets the parameter once and tells what that did.
int explain(Agent& agent, const std::string& path, Output& output);

// Tells what one set of the parameter does to the platform in use; see explain_on_copy().
int explain(Agent& agent, const Setting& setting, Output& output);

// The same to a copy of this machine's stores, so that nothing is left changed: no command is run but those whose
// output is read, and what they change of the stores is put back.
int explain_on_copy(Agent& agent, const Setting& setting, Output& output);

}  // namespace kovadm

// What a shell offers to complete a command line with.
#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace kovadm {

// What may stand for the last of the words behind "kovadm", of which the beginning is given: options, commands,
// parameter paths up to their next dot, profiles. Empty where a file or a value is wanted. Needs no router: where a
// path wants an instance number, 1 stands for it.
std::vector<std::string> completions(const CLI::App& app, const std::vector<std::string>& words);

}  // namespace kovadm

// Two recordings that commands compare.
#pragma once

#include <string>
#include <vector>

#include "commands/context.hpp"
#include "recording/recording.hpp"

namespace kovadm {

struct Compared {
  Recording before;
  Recording after;
  std::vector<std::string> prefixes;  // of what both have
};

// The recordings in two files; one is compared with this router as it is now. Secrets are in both or in none. Throws
// SetupError for what cannot be compared.
Compared read_compared(Context& context, const std::vector<std::string>& files);

}  // namespace kovadm

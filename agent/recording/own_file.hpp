// A file for its owner alone to read, that is there whole or as it was before.
#pragma once

#include <string>

namespace kovadm {

// Throws std::system_error, or SetupError where `path` is something else than a plain file: nothing but such a one is
// replaced, and no link followed.
void expect_to_write(const std::string& path);

// Puts a new file in the place of the one that was there. Throws std::system_error.
void write_own_file(const std::string& path, const std::string& text);

}  // namespace kovadm

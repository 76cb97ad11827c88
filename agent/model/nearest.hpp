// What may have been meant with a path that the catalogue does not have.
#pragma once

#include <string>
#include <string_view>

namespace kovadm {

// The known path, of a parameter or (with a dot at its end) of an object, that is spelled most alike, with the instance
// numbers of `path`; empty when none is alike. Alike are misspelled paths, and those whose names are abbreviated or
// whose first names are left out.
std::string nearest_path(std::string_view path);

}  // namespace kovadm

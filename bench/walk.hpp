// A get of every parameter.
#pragma once

#include "figures.hpp"

namespace kova::bench {

// Of tables it is the first row. The bare platform's part of it is recorded in a walk before: the packages that are
// loaded, the commands that are run, and the calls of the bus.
Figure walk_of_everything();

}  // namespace kova::bench

// A get of every parameter.
#pragma once

#include "figures.hpp"

namespace kova::bench {

// Of tables it is the first row. The bare platform's part of it is recorded in a walk before: the packages that are
// loaded, the commands that are run, and the calls of the bus.
Figure walk_of_everything();

// The same in one look, where the bare platform is asked everything once.
Figure walk_in_one_look();

// All rows in one look, with so many hosts and static leases on the router.
Figure walk_of_household(int hosts, int leases);

}  // namespace kova::bench

#include "commands/command.hpp"

namespace kovadm {

const std::vector<const Command*> kCommands = {&kList,   &kGet,  &kSet,      &kWalk, &kExplain,
                                               &kRecord, &kDiff, &kProfiles, &kPage, &kSession};

}  // namespace kovadm

#include "commands/command.hpp"

namespace kovadm {

const std::vector<const Command*> kCommands = {&kList,   &kGet,  &kSet,      &kWalk,   &kCheck, &kExplain,
                                               &kRecord, &kDiff, &kProfiles, &kExport, &kPage,  &kSession};

}  // namespace kovadm

// Parameters of the root object itself.
#include "parameter.hpp"
#include "pkg-dev.h"

using namespace kova;

PARAMETER(DeviceSummary, constant("InternetGatewayDevice:1.1[](Baseline:1,EthernetLAN:1)"), read_only)
PARAMETER(LANDeviceNumberOfEntries, constant("1"), read_only)
PARAMETER(WANDeviceNumberOfEntries, constant("1"), read_only)

// WANDevice and its WANCommonInterfaceConfig: there is one WAN, and it is an Ethernet port.
#include "parameter.hpp"
#include "pkg-wan.h"
#include "wan.hpp"

using namespace kova;

// clang-format off
PARAMETER(WANDevice_WANConnectionNumberOfEntries,                  constant("1"),                                read_only)
PARAMETER(WANDevice_WANCommonInterfaceConfig_EnabledForInternet,   constant("1"),                                read_only)
PARAMETER(WANDevice_WANCommonInterfaceConfig_WANAccessType,        constant("Ethernet"),                         read_only)
PARAMETER(WANDevice_WANCommonInterfaceConfig_TotalBytesSent,       link_counter(kWan, COUNTER_BYTES_SENT),       read_only)
PARAMETER(WANDevice_WANCommonInterfaceConfig_TotalBytesReceived,   link_counter(kWan, COUNTER_BYTES_RECEIVED),   read_only)
PARAMETER(WANDevice_WANCommonInterfaceConfig_TotalPacketsSent,     link_counter(kWan, COUNTER_PACKETS_SENT),     read_only)
PARAMETER(WANDevice_WANCommonInterfaceConfig_TotalPacketsReceived, link_counter(kWan, COUNTER_PACKETS_RECEIVED), read_only)
PARAMETER(WANDevice_WANCommonInterfaceConfig_TotalErrorsSent,      link_counter(kWan, COUNTER_ERRORS_SENT),      read_only)
PARAMETER(WANDevice_WANCommonInterfaceConfig_TotalErrorsReceived,  link_counter(kWan, COUNTER_ERRORS_RECEIVED),  read_only)
// clang-format on

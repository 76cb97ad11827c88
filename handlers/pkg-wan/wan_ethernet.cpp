// WANEthernetInterfaceConfig: the port itself, as far as it differs from the connections on it.
#include "parameter.hpp"
#include "pkg-wan.h"
#include "wan.hpp"

using namespace kova;

// clang-format off
PARAMETER(WANDevice_WANEthernetInterfaceConfig_Enable,     constant("1"),                                        read_only)
PARAMETER(WANDevice_WANEthernetInterfaceConfig_Status,     up_flag(kWan, {"Up", "NoLink", "Disabled", "Error"}), read_only)
PARAMETER(WANDevice_WANEthernetInterfaceConfig_MaxBitRate, constant("Auto"),                                     read_only)
PARAMETER(WANDevice_WANEthernetInterfaceConfig_DuplexMode, constant("Auto"),                                     read_only)
// clang-format on

ALIAS(WANDevice_WANEthernetInterfaceConfig_MACAddress, WANDevice_WANConnectionDevice_WANIPConnection_MACAddress)
ALIAS(WANDevice_WANEthernetInterfaceConfig_Stats_BytesSent, WANDevice_WANCommonInterfaceConfig_TotalBytesSent)
ALIAS(WANDevice_WANEthernetInterfaceConfig_Stats_BytesReceived, WANDevice_WANCommonInterfaceConfig_TotalBytesReceived)
ALIAS(WANDevice_WANEthernetInterfaceConfig_Stats_PacketsSent, WANDevice_WANCommonInterfaceConfig_TotalPacketsSent)
ALIAS(WANDevice_WANEthernetInterfaceConfig_Stats_PacketsReceived,
      WANDevice_WANCommonInterfaceConfig_TotalPacketsReceived)

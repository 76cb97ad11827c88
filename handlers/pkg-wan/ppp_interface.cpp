// PPP and PPP.Interface: the WAN's PPP connection, of which there is one, whatever the instance numbers.
#include "parameter.hpp"
#include "pkg-wan.h"
#include "wan.hpp"

using namespace kova;

// clang-format off
PARAMETER(PPP_SupportedNCPs,             constant("IPCP"),                                                            read_only)
PARAMETER(PPP_InterfaceNumberOfEntries,  constant("1"),                                                               read_only)
PARAMETER(PPP_Interface_Name,            constant("wan_pppoe"),                                                       read_only)
PARAMETER(PPP_Interface_LowerLayers,     constant("Device.Ethernet.Link.1"),                                          read_only)
PARAMETER(PPP_Interface_Status,          if_protocol(in_any_case("pppoe"), up_flag(kWan, kUpOrDown), "Disconnected"), read_only)
PARAMETER(PPP_Interface_IPCP_DNSServers, if_protocol(exactly("pppoe"), live_dns_servers, "0.0.0.0"),                  read_only)

ALIAS(PPP_Interface_Enable,               WANDevice_WANConnectionDevice_WANPPPConnection_Enable)
ALIAS(PPP_Interface_ConnectionStatus,     WANDevice_WANConnectionDevice_WANPPPConnection_ConnectionStatus)
ALIAS(PPP_Interface_Username,             WANDevice_WANConnectionDevice_WANPPPConnection_Username)
ALIAS(PPP_Interface_Password,             WANDevice_WANConnectionDevice_WANPPPConnection_Password)
ALIAS(PPP_Interface_MaxMRUSize,           WANDevice_WANConnectionDevice_WANPPPConnection_MaxMRUSize)
// Forwards to MaxMRUSize: it shows what is configured, not what was negotiated, and it can be set.
ALIAS(PPP_Interface_CurrentMRUSize,       WANDevice_WANConnectionDevice_WANPPPConnection_MaxMRUSize)
ALIAS(PPP_Interface_PPPoE_ACName,         WANDevice_WANConnectionDevice_WANPPPConnection_PPPoEACName)
ALIAS(PPP_Interface_PPPoE_ServiceName,    WANDevice_WANConnectionDevice_WANPPPConnection_PPPoEServiceName)
ALIAS(PPP_Interface_IPCP_LocalIPAddress,  WANDevice_WANConnectionDevice_WANPPPConnection_ExternalIPAddress)
ALIAS(PPP_Interface_IPCP_RemoteIPAddress, WANDevice_WANConnectionDevice_WANPPPConnection_RemoteIPAddress)

ALIAS(PPP_Interface_Stats_BytesSent,       WANDevice_WANConnectionDevice_WANPPPConnection_Stats_EthernetBytesSent)
ALIAS(PPP_Interface_Stats_BytesReceived,   WANDevice_WANConnectionDevice_WANPPPConnection_Stats_EthernetBytesReceived)
ALIAS(PPP_Interface_Stats_PacketsSent,     WANDevice_WANConnectionDevice_WANPPPConnection_Stats_EthernetPacketsSent)
ALIAS(PPP_Interface_Stats_PacketsReceived, WANDevice_WANConnectionDevice_WANPPPConnection_Stats_EthernetPacketsReceived)
ALIAS(PPP_Interface_Stats_ErrorsSent,      WANDevice_WANConnectionDevice_WANPPPConnection_Stats_EthernetErrorsSent)
ALIAS(PPP_Interface_Stats_ErrorsReceived,  WANDevice_WANConnectionDevice_WANPPPConnection_Stats_EthernetErrorsReceived)
// clang-format on

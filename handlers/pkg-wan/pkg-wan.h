/*
 * pkg-wan.h: the WAN: its one link as the IP and PPP connections of WANDevice, and the port mappings from it. Each row
 * declares a handler of the form described in pkg-tool.h.
 */
#include "pkg-tool.h"

#ifndef KOVA_PORT_MAPPING_WORKERS
#define KOVA_PORT_MAPPING_WORKERS
/*
 * One field of a port mapping each, for all places of the data model that show it: handlers but for `position`, which
 * says where the instance numbers have that of the mapping, 0 for the first.
 */
KOVA_API int32_t PortMapping_ExternalPort(int32_t operation, va_list arguments, int32_t position);
KOVA_API int32_t PortMapping_InternalPort(int32_t operation, va_list arguments, int32_t position);
KOVA_API int32_t PortMapping_PortMappingProtocol(int32_t operation, va_list arguments, int32_t position);
KOVA_API int32_t PortMapping_InternalClient(int32_t operation, va_list arguments, int32_t position);
KOVA_API int32_t PortMapping_PortMappingDescription(int32_t operation, va_list arguments, int32_t position);
#endif

KOVA_PARAMETER(WANDevice_WANConnectionNumberOfEntries, READ_ONLY, UNSIGNED_INT,
               "InternetGatewayDevice.WANDevice.{i}.WANConnectionNumberOfEntries")
KOVA_PARAMETER(WANDevice_WANCommonInterfaceConfig_EnabledForInternet, READ_ONLY, BOOLEAN,
               "InternetGatewayDevice.WANDevice.{i}.WANCommonInterfaceConfig.EnabledForInternet")
KOVA_PARAMETER(WANDevice_WANCommonInterfaceConfig_WANAccessType, READ_ONLY, STRING,
               "InternetGatewayDevice.WANDevice.{i}.WANCommonInterfaceConfig.WANAccessType")
KOVA_PARAMETER(WANDevice_WANCommonInterfaceConfig_TotalBytesSent, READ_ONLY, UNSIGNED_INT,
               "InternetGatewayDevice.WANDevice.{i}.WANCommonInterfaceConfig.TotalBytesSent")
KOVA_PARAMETER(WANDevice_WANCommonInterfaceConfig_TotalBytesReceived, READ_ONLY, UNSIGNED_INT,
               "InternetGatewayDevice.WANDevice.{i}.WANCommonInterfaceConfig.TotalBytesReceived")
KOVA_PARAMETER(WANDevice_WANCommonInterfaceConfig_TotalPacketsSent, READ_ONLY, UNSIGNED_INT,
               "InternetGatewayDevice.WANDevice.{i}.WANCommonInterfaceConfig.TotalPacketsSent")
KOVA_PARAMETER(WANDevice_WANCommonInterfaceConfig_TotalPacketsReceived, READ_ONLY, UNSIGNED_INT,
               "InternetGatewayDevice.WANDevice.{i}.WANCommonInterfaceConfig.TotalPacketsReceived")
KOVA_PARAMETER(WANDevice_WANCommonInterfaceConfig_TotalErrorsSent, READ_ONLY, STRING,
               "InternetGatewayDevice.WANDevice.{i}.WANCommonInterfaceConfig.TotalErrorsSent")
KOVA_PARAMETER(WANDevice_WANCommonInterfaceConfig_TotalErrorsReceived, READ_ONLY, STRING,
               "InternetGatewayDevice.WANDevice.{i}.WANCommonInterfaceConfig.TotalErrorsReceived")

KOVA_PARAMETER(WANDevice_WANEthernetInterfaceConfig_Enable, READ_ONLY, BOOLEAN,
               "InternetGatewayDevice.WANDevice.{i}.WANEthernetInterfaceConfig.Enable")
KOVA_PARAMETER(WANDevice_WANEthernetInterfaceConfig_Status, READ_ONLY, STRING,
               "InternetGatewayDevice.WANDevice.{i}.WANEthernetInterfaceConfig.Status")
KOVA_PARAMETER(WANDevice_WANEthernetInterfaceConfig_MACAddress, READ_ONLY, MAC_ADDRESS,
               "InternetGatewayDevice.WANDevice.{i}.WANEthernetInterfaceConfig.MACAddress")
KOVA_PARAMETER(WANDevice_WANEthernetInterfaceConfig_MaxBitRate, READ_ONLY, STRING,
               "InternetGatewayDevice.WANDevice.{i}.WANEthernetInterfaceConfig.MaxBitRate")
KOVA_PARAMETER(WANDevice_WANEthernetInterfaceConfig_DuplexMode, READ_ONLY, STRING,
               "InternetGatewayDevice.WANDevice.{i}.WANEthernetInterfaceConfig.DuplexMode")
KOVA_PARAMETER(WANDevice_WANEthernetInterfaceConfig_Stats_BytesSent, READ_ONLY, UNSIGNED_INT,
               "InternetGatewayDevice.WANDevice.{i}.WANEthernetInterfaceConfig.Stats.BytesSent")
KOVA_PARAMETER(WANDevice_WANEthernetInterfaceConfig_Stats_BytesReceived, READ_ONLY, UNSIGNED_INT,
               "InternetGatewayDevice.WANDevice.{i}.WANEthernetInterfaceConfig.Stats.BytesReceived")
KOVA_PARAMETER(WANDevice_WANEthernetInterfaceConfig_Stats_PacketsSent, READ_ONLY, UNSIGNED_INT,
               "InternetGatewayDevice.WANDevice.{i}.WANEthernetInterfaceConfig.Stats.PacketsSent")
KOVA_PARAMETER(WANDevice_WANEthernetInterfaceConfig_Stats_PacketsReceived, READ_ONLY, UNSIGNED_INT,
               "InternetGatewayDevice.WANDevice.{i}.WANEthernetInterfaceConfig.Stats.PacketsReceived")

KOVA_PARAMETER(WANDevice_WANConnectionDevice_WANIPConnection_Name, READ_ONLY, STRING,
               "InternetGatewayDevice.WANDevice.{i}.WANConnectionDevice.{i}.WANIPConnection.{i}.Name")
KOVA_PARAMETER(WANDevice_WANConnectionDevice_WANIPConnection_ConnectionStatus, READ_ONLY, STRING,
               "InternetGatewayDevice.WANDevice.{i}.WANConnectionDevice.{i}.WANIPConnection.{i}.ConnectionStatus")
KOVA_PARAMETER(WANDevice_WANConnectionDevice_WANIPConnection_Uptime, READ_ONLY, UNSIGNED_INT,
               "InternetGatewayDevice.WANDevice.{i}.WANConnectionDevice.{i}.WANIPConnection.{i}.Uptime")
KOVA_PARAMETER(WANDevice_WANConnectionDevice_WANIPConnection_MACAddress, READ_ONLY, MAC_ADDRESS,
               "InternetGatewayDevice.WANDevice.{i}.WANConnectionDevice.{i}.WANIPConnection.{i}.MACAddress")
KOVA_PARAMETER(WANDevice_WANConnectionDevice_WANIPConnection_AddressingType, READ_WRITE, STRING,
               "InternetGatewayDevice.WANDevice.{i}.WANConnectionDevice.{i}.WANIPConnection.{i}.AddressingType")
KOVA_PARAMETER(WANDevice_WANConnectionDevice_WANIPConnection_ExternalIPAddress, READ_WRITE, IP_ADDRESS,
               "InternetGatewayDevice.WANDevice.{i}.WANConnectionDevice.{i}.WANIPConnection.{i}.ExternalIPAddress")
KOVA_PARAMETER(WANDevice_WANConnectionDevice_WANIPConnection_SubnetMask, READ_WRITE, IP_ADDRESS,
               "InternetGatewayDevice.WANDevice.{i}.WANConnectionDevice.{i}.WANIPConnection.{i}.SubnetMask")
KOVA_PARAMETER(WANDevice_WANConnectionDevice_WANIPConnection_DefaultGateway, READ_WRITE, STRING,
               "InternetGatewayDevice.WANDevice.{i}.WANConnectionDevice.{i}.WANIPConnection.{i}.DefaultGateway")
KOVA_PARAMETER(WANDevice_WANConnectionDevice_WANIPConnection_DNSServers, READ_WRITE, LIST,
               "InternetGatewayDevice.WANDevice.{i}.WANConnectionDevice.{i}.WANIPConnection.{i}.DNSServers")
KOVA_PARAMETER(WANDevice_WANConnectionDevice_WANIPConnection_MaxMTUSize, READ_WRITE, UNSIGNED_INT,
               "InternetGatewayDevice.WANDevice.{i}.WANConnectionDevice.{i}.WANIPConnection.{i}.MaxMTUSize")

KOVA_PARAMETER(WANDevice_WANConnectionDevice_WANPPPConnection_Enable, READ_WRITE, BOOLEAN,
               "InternetGatewayDevice.WANDevice.{i}.WANConnectionDevice.{i}.WANPPPConnection.{i}.Enable")
KOVA_PARAMETER(WANDevice_WANConnectionDevice_WANPPPConnection_Username, READ_WRITE, STRING,
               "InternetGatewayDevice.WANDevice.{i}.WANConnectionDevice.{i}.WANPPPConnection.{i}.Username")
KOVA_PARAMETER(WANDevice_WANConnectionDevice_WANPPPConnection_Password, READ_WRITE, SECRET,
               "InternetGatewayDevice.WANDevice.{i}.WANConnectionDevice.{i}.WANPPPConnection.{i}.Password")
KOVA_PARAMETER(WANDevice_WANConnectionDevice_WANPPPConnection_MaxMRUSize, READ_WRITE, UNSIGNED_INT,
               "InternetGatewayDevice.WANDevice.{i}.WANConnectionDevice.{i}.WANPPPConnection.{i}.MaxMRUSize")
KOVA_PARAMETER(WANDevice_WANConnectionDevice_WANPPPConnection_CurrentMRUSize, READ_ONLY, UNSIGNED_INT,
               "InternetGatewayDevice.WANDevice.{i}.WANConnectionDevice.{i}.WANPPPConnection.{i}.CurrentMRUSize")
KOVA_PARAMETER(WANDevice_WANConnectionDevice_WANPPPConnection_PPPoEServiceName, READ_WRITE, STRING,
               "InternetGatewayDevice.WANDevice.{i}.WANConnectionDevice.{i}.WANPPPConnection.{i}.PPPoEServiceName")
KOVA_PARAMETER(WANDevice_WANConnectionDevice_WANPPPConnection_PPPoEACName, READ_WRITE, STRING,
               "InternetGatewayDevice.WANDevice.{i}.WANConnectionDevice.{i}.WANPPPConnection.{i}.PPPoEACName")
KOVA_PARAMETER(
    WANDevice_WANConnectionDevice_WANPPPConnection_PPPAuthenticationProtocol, READ_ONLY, STRING,
    "InternetGatewayDevice.WANDevice.{i}.WANConnectionDevice.{i}.WANPPPConnection.{i}.PPPAuthenticationProtocol")
KOVA_PARAMETER(WANDevice_WANConnectionDevice_WANPPPConnection_Name, READ_ONLY, STRING,
               "InternetGatewayDevice.WANDevice.{i}.WANConnectionDevice.{i}.WANPPPConnection.{i}.Name")
KOVA_PARAMETER(WANDevice_WANConnectionDevice_WANPPPConnection_ConnectionType, READ_ONLY, STRING,
               "InternetGatewayDevice.WANDevice.{i}.WANConnectionDevice.{i}.WANPPPConnection.{i}.ConnectionType")
KOVA_PARAMETER(WANDevice_WANConnectionDevice_WANPPPConnection_TransportType, READ_ONLY, STRING,
               "InternetGatewayDevice.WANDevice.{i}.WANConnectionDevice.{i}.WANPPPConnection.{i}.TransportType")
KOVA_PARAMETER(WANDevice_WANConnectionDevice_WANPPPConnection_ConnectionStatus, READ_ONLY, STRING,
               "InternetGatewayDevice.WANDevice.{i}.WANConnectionDevice.{i}.WANPPPConnection.{i}.ConnectionStatus")
KOVA_PARAMETER(WANDevice_WANConnectionDevice_WANPPPConnection_Uptime, READ_ONLY, UNSIGNED_INT,
               "InternetGatewayDevice.WANDevice.{i}.WANConnectionDevice.{i}.WANPPPConnection.{i}.Uptime")
KOVA_PARAMETER(WANDevice_WANConnectionDevice_WANPPPConnection_ExternalIPAddress, READ_ONLY, IP_ADDRESS,
               "InternetGatewayDevice.WANDevice.{i}.WANConnectionDevice.{i}.WANPPPConnection.{i}.ExternalIPAddress")
KOVA_PARAMETER(WANDevice_WANConnectionDevice_WANPPPConnection_RemoteIPAddress, READ_ONLY, IP_ADDRESS,
               "InternetGatewayDevice.WANDevice.{i}.WANConnectionDevice.{i}.WANPPPConnection.{i}.RemoteIPAddress")
KOVA_PARAMETER(WANDevice_WANConnectionDevice_WANPPPConnection_DefaultGateway, READ_ONLY, STRING,
               "InternetGatewayDevice.WANDevice.{i}.WANConnectionDevice.{i}.WANPPPConnection.{i}.DefaultGateway")
KOVA_PARAMETER(WANDevice_WANConnectionDevice_WANPPPConnection_MACAddress, READ_ONLY, MAC_ADDRESS,
               "InternetGatewayDevice.WANDevice.{i}.WANConnectionDevice.{i}.WANPPPConnection.{i}.MACAddress")

KOVA_PARAMETER(
    WANDevice_WANConnectionDevice_WANPPPConnection_Stats_EthernetBytesSent, READ_ONLY, UNSIGNED_INT,
    "InternetGatewayDevice.WANDevice.{i}.WANConnectionDevice.{i}.WANPPPConnection.{i}.Stats.EthernetBytesSent")
KOVA_PARAMETER(
    WANDevice_WANConnectionDevice_WANPPPConnection_Stats_EthernetBytesReceived, READ_ONLY, UNSIGNED_INT,
    "InternetGatewayDevice.WANDevice.{i}.WANConnectionDevice.{i}.WANPPPConnection.{i}.Stats.EthernetBytesReceived")
KOVA_PARAMETER(
    WANDevice_WANConnectionDevice_WANPPPConnection_Stats_EthernetPacketsSent, READ_ONLY, UNSIGNED_INT,
    "InternetGatewayDevice.WANDevice.{i}.WANConnectionDevice.{i}.WANPPPConnection.{i}.Stats.EthernetPacketsSent")
KOVA_PARAMETER(
    WANDevice_WANConnectionDevice_WANPPPConnection_Stats_EthernetPacketsReceived, READ_ONLY, UNSIGNED_INT,
    "InternetGatewayDevice.WANDevice.{i}.WANConnectionDevice.{i}.WANPPPConnection.{i}.Stats.EthernetPacketsReceived")
KOVA_PARAMETER(
    WANDevice_WANConnectionDevice_WANPPPConnection_Stats_EthernetErrorsSent, READ_ONLY, UNSIGNED_INT,
    "InternetGatewayDevice.WANDevice.{i}.WANConnectionDevice.{i}.WANPPPConnection.{i}.Stats.EthernetErrorsSent")
KOVA_PARAMETER(
    WANDevice_WANConnectionDevice_WANPPPConnection_Stats_EthernetErrorsReceived, READ_ONLY, UNSIGNED_INT,
    "InternetGatewayDevice.WANDevice.{i}.WANConnectionDevice.{i}.WANPPPConnection.{i}.Stats.EthernetErrorsReceived")

KOVA_PARAMETER(
    WANDevice_WANConnectionDevice_WANIPConnection_PortMappingNumberOfEntries, READ_ONLY, UNSIGNED_INT,
    "InternetGatewayDevice.WANDevice.{i}.WANConnectionDevice.{i}.WANIPConnection.{i}.PortMappingNumberOfEntries")
KOVA_PARAMETER(
    WANDevice_WANConnectionDevice_WANIPConnection_PortMapping_ExternalPort, READ_WRITE, UNSIGNED_INT,
    "InternetGatewayDevice.WANDevice.{i}.WANConnectionDevice.{i}.WANIPConnection.{i}.PortMapping.{i}.ExternalPort")
KOVA_PARAMETER(
    WANDevice_WANConnectionDevice_WANIPConnection_PortMapping_InternalPort, READ_WRITE, UNSIGNED_INT,
    "InternetGatewayDevice.WANDevice.{i}.WANConnectionDevice.{i}.WANIPConnection.{i}.PortMapping.{i}.InternalPort")
KOVA_PARAMETER(WANDevice_WANConnectionDevice_WANIPConnection_PortMapping_PortMappingProtocol, READ_WRITE, STRING,
               "InternetGatewayDevice.WANDevice.{i}.WANConnectionDevice.{i}.WANIPConnection.{i}.PortMapping.{i}."
               "PortMappingProtocol")
KOVA_PARAMETER(
    WANDevice_WANConnectionDevice_WANIPConnection_PortMapping_InternalClient, READ_WRITE, STRING,
    "InternetGatewayDevice.WANDevice.{i}.WANConnectionDevice.{i}.WANIPConnection.{i}.PortMapping.{i}.InternalClient")
KOVA_PARAMETER(WANDevice_WANConnectionDevice_WANIPConnection_PortMapping_PortMappingDescription, READ_WRITE, STRING,
               "InternetGatewayDevice.WANDevice.{i}.WANConnectionDevice.{i}.WANIPConnection.{i}.PortMapping.{i}."
               "PortMappingDescription")

KOVA_PARAMETER(
    WANDevice_WANConnectionDevice_WANPPPConnection_PortMappingNumberOfEntries, READ_ONLY, UNSIGNED_INT,
    "InternetGatewayDevice.WANDevice.{i}.WANConnectionDevice.{i}.WANPPPConnection.{i}.PortMappingNumberOfEntries")
KOVA_PARAMETER(
    WANDevice_WANConnectionDevice_WANPPPConnection_PortMapping_ExternalPort, READ_WRITE, UNSIGNED_INT,
    "InternetGatewayDevice.WANDevice.{i}.WANConnectionDevice.{i}.WANPPPConnection.{i}.PortMapping.{i}.ExternalPort")
KOVA_PARAMETER(
    WANDevice_WANConnectionDevice_WANPPPConnection_PortMapping_InternalPort, READ_WRITE, UNSIGNED_INT,
    "InternetGatewayDevice.WANDevice.{i}.WANConnectionDevice.{i}.WANPPPConnection.{i}.PortMapping.{i}.InternalPort")
KOVA_PARAMETER(WANDevice_WANConnectionDevice_WANPPPConnection_PortMapping_PortMappingProtocol, READ_WRITE, STRING,
               "InternetGatewayDevice.WANDevice.{i}.WANConnectionDevice.{i}.WANPPPConnection.{i}.PortMapping.{i}."
               "PortMappingProtocol")
KOVA_PARAMETER(
    WANDevice_WANConnectionDevice_WANPPPConnection_PortMapping_InternalClient, READ_WRITE, STRING,
    "InternetGatewayDevice.WANDevice.{i}.WANConnectionDevice.{i}.WANPPPConnection.{i}.PortMapping.{i}.InternalClient")

KOVA_PARAMETER(NAT_PortMappingNumberOfEntries, READ_ONLY, UNSIGNED_INT, "Device.NAT.PortMappingNumberOfEntries")
KOVA_PARAMETER(NAT_PortMapping_ExternalPort, READ_WRITE, UNSIGNED_INT, "Device.NAT.PortMapping.{i}.ExternalPort")
KOVA_PARAMETER(NAT_PortMapping_InternalPort, READ_WRITE, UNSIGNED_INT, "Device.NAT.PortMapping.{i}.InternalPort")
KOVA_PARAMETER(NAT_PortMapping_Protocol, READ_WRITE, STRING, "Device.NAT.PortMapping.{i}.Protocol")
KOVA_PARAMETER(NAT_PortMapping_InternalClient, READ_WRITE, STRING, "Device.NAT.PortMapping.{i}.InternalClient")
KOVA_PARAMETER(NAT_PortMapping_Description, READ_WRITE, STRING, "Device.NAT.PortMapping.{i}.Description")

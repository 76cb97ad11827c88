/*
 * pkg-wan.h: the WAN: its one link as the IP and PPP connections of WANDevice, and the port mappings from it; the
 * router's network interfaces as IP, PPP, DHCP client and Ethernet objects; its static routes. Each row declares a
 * handler of the form described in pkg-tool.h.
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

#ifndef KOVA_FORWARDING_WORKERS
#define KOVA_FORWARDING_WORKERS
/* The static routes, for every place of the data model that shows them. `position` is that of the route's number. */
KOVA_API int32_t Router_IPv4ForwardingNumberOfEntries(int32_t operation, va_list arguments);
KOVA_API int32_t Router_IPv4Forwarding_StaticRoute(int32_t operation, va_list arguments, int32_t position);
KOVA_API int32_t Router_IPv4Forwarding_Interface(int32_t operation, va_list arguments, int32_t position);
KOVA_API int32_t Router_IPv4Forwarding_DestIPAddress(int32_t operation, va_list arguments, int32_t position);
KOVA_API int32_t Router_IPv4Forwarding_DestSubnetMask(int32_t operation, va_list arguments, int32_t position);
KOVA_API int32_t Router_IPv4Forwarding_GatewayIPAddress(int32_t operation, va_list arguments, int32_t position);
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

KOVA_PARAMETER(Layer3Forwarding_DefaultConnectionService, READ_ONLY, STRING,
               "InternetGatewayDevice.Layer3Forwarding.DefaultConnectionService")

KOVA_PARAMETER(PPP_SupportedNCPs, READ_ONLY, LIST, "Device.PPP.SupportedNCPs")
KOVA_PARAMETER(PPP_InterfaceNumberOfEntries, READ_ONLY, UNSIGNED_INT, "Device.PPP.InterfaceNumberOfEntries")
KOVA_PARAMETER(PPP_Interface_Enable, READ_WRITE, BOOLEAN, "Device.PPP.Interface.{i}.Enable")
KOVA_PARAMETER(PPP_Interface_Status, READ_ONLY, STRING, "Device.PPP.Interface.{i}.Status")
KOVA_PARAMETER(PPP_Interface_Name, READ_ONLY, STRING, "Device.PPP.Interface.{i}.Name")
KOVA_PARAMETER(PPP_Interface_LowerLayers, READ_ONLY, LIST, "Device.PPP.Interface.{i}.LowerLayers")
KOVA_PARAMETER(PPP_Interface_ConnectionStatus, READ_ONLY, STRING, "Device.PPP.Interface.{i}.ConnectionStatus")
KOVA_PARAMETER(PPP_Interface_Username, READ_WRITE, STRING, "Device.PPP.Interface.{i}.Username")
KOVA_PARAMETER(PPP_Interface_Password, READ_WRITE, SECRET, "Device.PPP.Interface.{i}.Password")
KOVA_PARAMETER(PPP_Interface_MaxMRUSize, READ_WRITE, UNSIGNED_INT, "Device.PPP.Interface.{i}.MaxMRUSize")
KOVA_PARAMETER(PPP_Interface_CurrentMRUSize, READ_WRITE, UNSIGNED_INT, "Device.PPP.Interface.{i}.CurrentMRUSize")
KOVA_PARAMETER(PPP_Interface_PPPoE_ACName, READ_WRITE, STRING, "Device.PPP.Interface.{i}.PPPoE.ACName")
KOVA_PARAMETER(PPP_Interface_PPPoE_ServiceName, READ_WRITE, STRING, "Device.PPP.Interface.{i}.PPPoE.ServiceName")
KOVA_PARAMETER(PPP_Interface_IPCP_LocalIPAddress, READ_ONLY, IP_ADDRESS, "Device.PPP.Interface.{i}.IPCP.LocalIPAddress")
KOVA_PARAMETER(PPP_Interface_IPCP_RemoteIPAddress, READ_ONLY, IP_ADDRESS,
               "Device.PPP.Interface.{i}.IPCP.RemoteIPAddress")
KOVA_PARAMETER(PPP_Interface_IPCP_DNSServers, READ_ONLY, LIST, "Device.PPP.Interface.{i}.IPCP.DNSServers")
KOVA_PARAMETER(PPP_Interface_Stats_BytesSent, READ_ONLY, UNSIGNED_LONG, "Device.PPP.Interface.{i}.Stats.BytesSent")
KOVA_PARAMETER(PPP_Interface_Stats_BytesReceived, READ_ONLY, UNSIGNED_LONG,
               "Device.PPP.Interface.{i}.Stats.BytesReceived")
KOVA_PARAMETER(PPP_Interface_Stats_PacketsSent, READ_ONLY, UNSIGNED_LONG, "Device.PPP.Interface.{i}.Stats.PacketsSent")
KOVA_PARAMETER(PPP_Interface_Stats_PacketsReceived, READ_ONLY, UNSIGNED_LONG,
               "Device.PPP.Interface.{i}.Stats.PacketsReceived")
KOVA_PARAMETER(PPP_Interface_Stats_ErrorsSent, READ_ONLY, UNSIGNED_INT, "Device.PPP.Interface.{i}.Stats.ErrorsSent")
KOVA_PARAMETER(PPP_Interface_Stats_ErrorsReceived, READ_ONLY, UNSIGNED_INT,
               "Device.PPP.Interface.{i}.Stats.ErrorsReceived")

KOVA_PARAMETER(DHCPv4_ClientNumberOfEntries, READ_ONLY, UNSIGNED_INT, "Device.DHCPv4.ClientNumberOfEntries")
KOVA_PARAMETER(DHCPv4_Client_Enable, READ_WRITE, BOOLEAN, "Device.DHCPv4.Client.{i}.Enable")
KOVA_PARAMETER(DHCPv4_Client_Interface, READ_ONLY, STRING, "Device.DHCPv4.Client.{i}.Interface")
KOVA_PARAMETER(DHCPv4_Client_Status, READ_ONLY, STRING, "Device.DHCPv4.Client.{i}.Status")
KOVA_PARAMETER(DHCPv4_Client_DHCPStatus, READ_ONLY, STRING, "Device.DHCPv4.Client.{i}.DHCPStatus")
KOVA_PARAMETER(DHCPv4_Client_IPAddress, READ_ONLY, IP_ADDRESS, "Device.DHCPv4.Client.{i}.IPAddress")
KOVA_PARAMETER(DHCPv4_Client_SubnetMask, READ_ONLY, IP_ADDRESS, "Device.DHCPv4.Client.{i}.SubnetMask")
KOVA_PARAMETER(DHCPv4_Client_IPRouters, READ_ONLY, LIST, "Device.DHCPv4.Client.{i}.IPRouters")
KOVA_PARAMETER(DHCPv4_Client_DNSServers, READ_ONLY, LIST, "Device.DHCPv4.Client.{i}.DNSServers")

KOVA_PARAMETER(IP_IPv4Capable, READ_ONLY, BOOLEAN, "Device.IP.IPv4Capable")
KOVA_PARAMETER(IP_IPv4Enable, READ_ONLY, BOOLEAN, "Device.IP.IPv4Enable")
KOVA_PARAMETER(IP_IPv4Status, READ_ONLY, STRING, "Device.IP.IPv4Status")
KOVA_PARAMETER(IP_InterfaceNumberOfEntries, READ_ONLY, UNSIGNED_INT, "Device.IP.InterfaceNumberOfEntries")
KOVA_PARAMETER(IP_Interface_Enable, READ_ONLY, BOOLEAN, "Device.IP.Interface.{i}.Enable")
KOVA_PARAMETER(IP_Interface_IPv4Enable, READ_ONLY, BOOLEAN, "Device.IP.Interface.{i}.IPv4Enable")
KOVA_PARAMETER(IP_Interface_Status, READ_ONLY, STRING, "Device.IP.Interface.{i}.Status")
KOVA_PARAMETER(IP_Interface_Name, READ_ONLY, STRING, "Device.IP.Interface.{i}.Name")
KOVA_PARAMETER(IP_Interface_LowerLayers, READ_ONLY, LIST, "Device.IP.Interface.{i}.LowerLayers")
KOVA_PARAMETER(IP_Interface_Type, READ_ONLY, STRING, "Device.IP.Interface.{i}.Type")
KOVA_PARAMETER(IP_Interface_X_KOVA_IGMPProxy, READ_WRITE, STRING, "Device.IP.Interface.{i}.X_KOVA_IGMPProxy")
KOVA_PARAMETER(IP_Interface_Stats_BytesSent, READ_ONLY, UNSIGNED_LONG, "Device.IP.Interface.{i}.Stats.BytesSent")
KOVA_PARAMETER(IP_Interface_Stats_BytesReceived, READ_ONLY, UNSIGNED_LONG,
               "Device.IP.Interface.{i}.Stats.BytesReceived")
KOVA_PARAMETER(IP_Interface_Stats_PacketsSent, READ_ONLY, UNSIGNED_LONG, "Device.IP.Interface.{i}.Stats.PacketsSent")
KOVA_PARAMETER(IP_Interface_Stats_PacketsReceived, READ_ONLY, UNSIGNED_LONG,
               "Device.IP.Interface.{i}.Stats.PacketsReceived")
KOVA_PARAMETER(IP_Interface_Stats_ErrorsSent, READ_ONLY, UNSIGNED_INT, "Device.IP.Interface.{i}.Stats.ErrorsSent")
KOVA_PARAMETER(IP_Interface_Stats_ErrorsReceived, READ_ONLY, UNSIGNED_INT,
               "Device.IP.Interface.{i}.Stats.ErrorsReceived")

KOVA_PARAMETER(IP_Interface_IPv4AddressNumberOfEntries, READ_ONLY, UNSIGNED_INT,
               "Device.IP.Interface.{i}.IPv4AddressNumberOfEntries")
KOVA_PARAMETER(IP_Interface_IPv4Address_Enable, READ_WRITE, BOOLEAN, "Device.IP.Interface.{i}.IPv4Address.{i}.Enable")
KOVA_PARAMETER(IP_Interface_IPv4Address_Status, READ_ONLY, STRING, "Device.IP.Interface.{i}.IPv4Address.{i}.Status")
KOVA_PARAMETER(IP_Interface_IPv4Address_IPAddress, READ_WRITE, IP_ADDRESS,
               "Device.IP.Interface.{i}.IPv4Address.{i}.IPAddress")
KOVA_PARAMETER(IP_Interface_IPv4Address_SubnetMask, READ_WRITE, IP_ADDRESS,
               "Device.IP.Interface.{i}.IPv4Address.{i}.SubnetMask")
KOVA_PARAMETER(IP_Interface_IPv4Address_AddressingType, READ_ONLY, STRING,
               "Device.IP.Interface.{i}.IPv4Address.{i}.AddressingType")

KOVA_PARAMETER(Ethernet_LinkNumberOfEntries, READ_ONLY, UNSIGNED_INT, "Device.Ethernet.LinkNumberOfEntries")
KOVA_PARAMETER(Ethernet_Link_Enable, READ_ONLY, BOOLEAN, "Device.Ethernet.Link.{i}.Enable")
KOVA_PARAMETER(Ethernet_Link_Status, READ_ONLY, STRING, "Device.Ethernet.Link.{i}.Status")
KOVA_PARAMETER(Ethernet_Link_LowerLayers, READ_ONLY, LIST, "Device.Ethernet.Link.{i}.LowerLayers")
KOVA_PARAMETER(Ethernet_Link_MACAddress, READ_ONLY, MAC_ADDRESS, "Device.Ethernet.Link.{i}.MACAddress")
KOVA_PARAMETER(Ethernet_Link_Stats_BytesSent, READ_ONLY, UNSIGNED_LONG, "Device.Ethernet.Link.{i}.Stats.BytesSent")
KOVA_PARAMETER(Ethernet_Link_Stats_BytesReceived, READ_ONLY, UNSIGNED_LONG,
               "Device.Ethernet.Link.{i}.Stats.BytesReceived")
KOVA_PARAMETER(Ethernet_Link_Stats_PacketsSent, READ_ONLY, UNSIGNED_LONG, "Device.Ethernet.Link.{i}.Stats.PacketsSent")
KOVA_PARAMETER(Ethernet_Link_Stats_PacketsReceived, READ_ONLY, UNSIGNED_LONG,
               "Device.Ethernet.Link.{i}.Stats.PacketsReceived")
KOVA_PARAMETER(Ethernet_Link_Stats_ErrorsSent, READ_ONLY, UNSIGNED_INT, "Device.Ethernet.Link.{i}.Stats.ErrorsSent")
KOVA_PARAMETER(Ethernet_Link_Stats_ErrorsReceived, READ_ONLY, UNSIGNED_INT,
               "Device.Ethernet.Link.{i}.Stats.ErrorsReceived")

KOVA_PARAMETER(Ethernet_InterfaceNumberOfEntries, READ_ONLY, UNSIGNED_INT, "Device.Ethernet.InterfaceNumberOfEntries")
KOVA_PARAMETER(Ethernet_Interface_Enable, READ_ONLY, BOOLEAN, "Device.Ethernet.Interface.{i}.Enable")
KOVA_PARAMETER(Ethernet_Interface_Status, READ_ONLY, STRING, "Device.Ethernet.Interface.{i}.Status")
KOVA_PARAMETER(Ethernet_Interface_Name, READ_ONLY, STRING, "Device.Ethernet.Interface.{i}.Name")
KOVA_PARAMETER(Ethernet_Interface_MACAddress, READ_ONLY, MAC_ADDRESS, "Device.Ethernet.Interface.{i}.MACAddress")
KOVA_PARAMETER(Ethernet_Interface_Stats_BytesSent, READ_ONLY, UNSIGNED_LONG,
               "Device.Ethernet.Interface.{i}.Stats.BytesSent")
KOVA_PARAMETER(Ethernet_Interface_Stats_BytesReceived, READ_ONLY, UNSIGNED_LONG,
               "Device.Ethernet.Interface.{i}.Stats.BytesReceived")
KOVA_PARAMETER(Ethernet_Interface_Stats_PacketsSent, READ_ONLY, UNSIGNED_LONG,
               "Device.Ethernet.Interface.{i}.Stats.PacketsSent")
KOVA_PARAMETER(Ethernet_Interface_Stats_PacketsReceived, READ_ONLY, UNSIGNED_LONG,
               "Device.Ethernet.Interface.{i}.Stats.PacketsReceived")
KOVA_PARAMETER(Ethernet_Interface_Stats_ErrorsSent, READ_ONLY, UNSIGNED_INT,
               "Device.Ethernet.Interface.{i}.Stats.ErrorsSent")
KOVA_PARAMETER(Ethernet_Interface_Stats_ErrorsReceived, READ_ONLY, UNSIGNED_INT,
               "Device.Ethernet.Interface.{i}.Stats.ErrorsReceived")

KOVA_PARAMETER(Routing_RouterNumberOfEntries, READ_ONLY, UNSIGNED_INT, "Device.Routing.RouterNumberOfEntries")
KOVA_PARAMETER(Routing_Router_IPv4ForwardingNumberOfEntries, READ_ONLY, UNSIGNED_INT,
               "Device.Routing.Router.{i}.IPv4ForwardingNumberOfEntries")
KOVA_PARAMETER(Routing_Router_IPv4Forwarding_StaticRoute, READ_ONLY, BOOLEAN,
               "Device.Routing.Router.{i}.IPv4Forwarding.{i}.StaticRoute")
KOVA_PARAMETER(Routing_Router_IPv4Forwarding_Interface, READ_WRITE, STRING,
               "Device.Routing.Router.{i}.IPv4Forwarding.{i}.Interface")
KOVA_PARAMETER(Routing_Router_IPv4Forwarding_DestIPAddress, READ_WRITE, IP_ADDRESS,
               "Device.Routing.Router.{i}.IPv4Forwarding.{i}.DestIPAddress")
KOVA_PARAMETER(Routing_Router_IPv4Forwarding_DestSubnetMask, READ_WRITE, IP_ADDRESS,
               "Device.Routing.Router.{i}.IPv4Forwarding.{i}.DestSubnetMask")
KOVA_PARAMETER(Routing_Router_IPv4Forwarding_GatewayIPAddress, READ_WRITE, IP_ADDRESS,
               "Device.Routing.Router.{i}.IPv4Forwarding.{i}.GatewayIPAddress")

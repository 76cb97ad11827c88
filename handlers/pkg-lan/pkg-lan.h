/*
 * pkg-lan.h: the LAN: its address, its DHCP server and its hosts, in both trees. Each row declares a handler of the
 * form described in pkg-tool.h.
 */
#include "pkg-tool.h"

KOVA_PARAMETER(LANDevice_LANHostConfigManagement_DHCPServerEnable, READ_WRITE, BOOLEAN,
               "InternetGatewayDevice.LANDevice.{i}.LANHostConfigManagement.DHCPServerEnable")
KOVA_PARAMETER(LANDevice_LANHostConfigManagement_MinAddress, READ_WRITE, IP_ADDRESS,
               "InternetGatewayDevice.LANDevice.{i}.LANHostConfigManagement.MinAddress")
KOVA_PARAMETER(LANDevice_LANHostConfigManagement_MaxAddress, READ_WRITE, IP_ADDRESS,
               "InternetGatewayDevice.LANDevice.{i}.LANHostConfigManagement.MaxAddress")
KOVA_PARAMETER(LANDevice_LANHostConfigManagement_Subnetmask, READ_ONLY, STRING,
               "InternetGatewayDevice.LANDevice.{i}.LANHostConfigManagement.Subnetmask")
KOVA_PARAMETER(LANDevice_LANHostConfigManagement_DNSServers, READ_WRITE, LIST,
               "InternetGatewayDevice.LANDevice.{i}.LANHostConfigManagement.DNSServers")
KOVA_PARAMETER(LANDevice_LANHostConfigManagement_IPRouters, READ_WRITE, LIST,
               "InternetGatewayDevice.LANDevice.{i}.LANHostConfigManagement.IPRouters")
KOVA_PARAMETER(LANDevice_LANHostConfigManagement_DHCPLeaseTime, READ_WRITE, INT,
               "InternetGatewayDevice.LANDevice.{i}.LANHostConfigManagement.DHCPLeaseTime")
KOVA_PARAMETER(LANDevice_LANHostConfigManagement_IPInterfaceNumberOfEntries, READ_ONLY, UNSIGNED_INT,
               "InternetGatewayDevice.LANDevice.{i}.LANHostConfigManagement.IPInterfaceNumberOfEntries")

KOVA_PARAMETER(LANDevice_LANHostConfigManagement_IPInterface_IPInterfaceIPAddress, READ_WRITE, IP_ADDRESS,
               "InternetGatewayDevice.LANDevice.{i}.LANHostConfigManagement.IPInterface.{i}.IPInterfaceIPAddress")
KOVA_PARAMETER(LANDevice_LANHostConfigManagement_IPInterface_IPInterfaceSubnetMask, READ_WRITE, IP_ADDRESS,
               "InternetGatewayDevice.LANDevice.{i}.LANHostConfigManagement.IPInterface.{i}.IPInterfaceSubnetMask")
KOVA_PARAMETER(LANDevice_LANHostConfigManagement_IPInterface_IPInterfaceAddressingType, READ_ONLY, STRING,
               "InternetGatewayDevice.LANDevice.{i}.LANHostConfigManagement.IPInterface.{i}.IPInterfaceAddressingType")
KOVA_PARAMETER(LANDevice_LANHostConfigManagement_IPInterface_MACAddress, READ_ONLY, STRING,
               "InternetGatewayDevice.LANDevice.{i}.LANHostConfigManagement.IPInterface.{i}.MACAddress")
KOVA_PARAMETER(LANDevice_LANHostConfigManagement_IPInterface_DHCPServerEnable, READ_WRITE, STRING,
               "InternetGatewayDevice.LANDevice.{i}.LANHostConfigManagement.IPInterface.{i}.DHCPServerEnable")
KOVA_PARAMETER(LANDevice_LANHostConfigManagement_IPInterface_MinAddress, READ_WRITE, STRING,
               "InternetGatewayDevice.LANDevice.{i}.LANHostConfigManagement.IPInterface.{i}.MinAddress")
KOVA_PARAMETER(LANDevice_LANHostConfigManagement_IPInterface_MaxAddress, READ_WRITE, STRING,
               "InternetGatewayDevice.LANDevice.{i}.LANHostConfigManagement.IPInterface.{i}.MaxAddress")
KOVA_PARAMETER(LANDevice_LANHostConfigManagement_IPInterface_DHCPLeaseTime, READ_WRITE, STRING,
               "InternetGatewayDevice.LANDevice.{i}.LANHostConfigManagement.IPInterface.{i}.DHCPLeaseTime")

KOVA_PARAMETER(DHCPv4_Server_Enable, READ_WRITE, BOOLEAN, "Device.DHCPv4.Server.Enable")
KOVA_PARAMETER(DHCPv4_Server_PoolNumberOfEntries, READ_ONLY, UNSIGNED_INT, "Device.DHCPv4.Server.PoolNumberOfEntries")
KOVA_PARAMETER(DHCPv4_Server_Pool_Enable, READ_WRITE, BOOLEAN, "Device.DHCPv4.Server.Pool.{i}.Enable")
KOVA_PARAMETER(DHCPv4_Server_Pool_Status, READ_ONLY, STRING, "Device.DHCPv4.Server.Pool.{i}.Status")
KOVA_PARAMETER(DHCPv4_Server_Pool_Interface, READ_ONLY, STRING, "Device.DHCPv4.Server.Pool.{i}.Interface")
KOVA_PARAMETER(DHCPv4_Server_Pool_MinAddress, READ_WRITE, IP_ADDRESS, "Device.DHCPv4.Server.Pool.{i}.MinAddress")
KOVA_PARAMETER(DHCPv4_Server_Pool_MaxAddress, READ_WRITE, IP_ADDRESS, "Device.DHCPv4.Server.Pool.{i}.MaxAddress")
KOVA_PARAMETER(DHCPv4_Server_Pool_SubnetMask, READ_ONLY, IP_ADDRESS, "Device.DHCPv4.Server.Pool.{i}.SubnetMask")
KOVA_PARAMETER(DHCPv4_Server_Pool_DNSServers, READ_WRITE, LIST, "Device.DHCPv4.Server.Pool.{i}.DNSServers")
KOVA_PARAMETER(DHCPv4_Server_Pool_IPRouters, READ_WRITE, LIST, "Device.DHCPv4.Server.Pool.{i}.IPRouters")
KOVA_PARAMETER(DHCPv4_Server_Pool_LeaseTime, READ_WRITE, INT, "Device.DHCPv4.Server.Pool.{i}.LeaseTime")

KOVA_PARAMETER(LANDevice_Hosts_HostNumberOfEntries, READ_ONLY, UNSIGNED_INT,
               "InternetGatewayDevice.LANDevice.{i}.Hosts.HostNumberOfEntries")
KOVA_PARAMETER(LANDevice_Hosts_Host_IPAddress, READ_ONLY, IP_ADDRESS,
               "InternetGatewayDevice.LANDevice.{i}.Hosts.Host.{i}.IPAddress")
KOVA_PARAMETER(LANDevice_Hosts_Host_MACAddress, READ_ONLY, MAC_ADDRESS,
               "InternetGatewayDevice.LANDevice.{i}.Hosts.Host.{i}.MACAddress")
KOVA_PARAMETER(LANDevice_Hosts_Host_HostName, READ_ONLY, STRING,
               "InternetGatewayDevice.LANDevice.{i}.Hosts.Host.{i}.HostName")
KOVA_PARAMETER(LANDevice_Hosts_Host_AddressSource, READ_ONLY, STRING,
               "InternetGatewayDevice.LANDevice.{i}.Hosts.Host.{i}.AddressSource")
KOVA_PARAMETER(LANDevice_Hosts_Host_LeaseTimeRemaining, READ_ONLY, INT,
               "InternetGatewayDevice.LANDevice.{i}.Hosts.Host.{i}.LeaseTimeRemaining")
KOVA_PARAMETER(LANDevice_Hosts_Host_InterfaceType, READ_ONLY, STRING,
               "InternetGatewayDevice.LANDevice.{i}.Hosts.Host.{i}.InterfaceType")
KOVA_PARAMETER(LANDevice_Hosts_Host_Active, READ_ONLY, BOOLEAN,
               "InternetGatewayDevice.LANDevice.{i}.Hosts.Host.{i}.Active")
KOVA_PARAMETER(LANDevice_Hosts_Host_Layer2Interface, READ_ONLY, STRING,
               "InternetGatewayDevice.LANDevice.{i}.Hosts.Host.{i}.Layer2Interface")

KOVA_PARAMETER(Hosts_HostNumberOfEntries, READ_ONLY, UNSIGNED_INT, "Device.Hosts.HostNumberOfEntries")
KOVA_PARAMETER(Hosts_Host_IPAddress, READ_ONLY, IP_ADDRESS, "Device.Hosts.Host.{i}.IPAddress")
KOVA_PARAMETER(Hosts_Host_PhysAddress, READ_ONLY, STRING, "Device.Hosts.Host.{i}.PhysAddress")
KOVA_PARAMETER(Hosts_Host_HostName, READ_ONLY, STRING, "Device.Hosts.Host.{i}.HostName")
KOVA_PARAMETER(Hosts_Host_AddressSource, READ_ONLY, STRING, "Device.Hosts.Host.{i}.AddressSource")
KOVA_PARAMETER(Hosts_Host_LeaseTimeRemaining, READ_ONLY, INT, "Device.Hosts.Host.{i}.LeaseTimeRemaining")
KOVA_PARAMETER(Hosts_Host_InterfaceType, READ_ONLY, STRING, "Device.Hosts.Host.{i}.InterfaceType")
KOVA_PARAMETER(Hosts_Host_Active, READ_ONLY, BOOLEAN, "Device.Hosts.Host.{i}.Active")
KOVA_PARAMETER(Hosts_Host_Layer1Interface, READ_ONLY, STRING, "Device.Hosts.Host.{i}.Layer1Interface")
KOVA_PARAMETER(Hosts_Host_Layer3Interface, READ_ONLY, STRING, "Device.Hosts.Host.{i}.Layer3Interface")

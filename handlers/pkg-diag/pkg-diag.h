/*
 * pkg-diag.h: the dynamic DNS settings and the LAN Ethernet interface. Each row declares a handler of the form
 * described in pkg-tool.h.
 */
#include "pkg-tool.h"

KOVA_PARAMETER(X_KOVA_AppCfg_DynDnsCfg_Enable, READ_WRITE, STRING,
               "InternetGatewayDevice.X_KOVA_AppCfg.DynDnsCfg.Enable")
KOVA_PARAMETER(X_KOVA_AppCfg_DynDnsCfg_Login, READ_WRITE, STRING, "InternetGatewayDevice.X_KOVA_AppCfg.DynDnsCfg.Login")
KOVA_PARAMETER(X_KOVA_AppCfg_DynDnsCfg_State, READ_ONLY, STRING, "InternetGatewayDevice.X_KOVA_AppCfg.DynDnsCfg.State")
KOVA_PARAMETER(X_KOVA_AppCfg_DynDnsCfg_Username, READ_WRITE, STRING,
               "InternetGatewayDevice.X_KOVA_AppCfg.DynDnsCfg.Username")
KOVA_PARAMETER(X_KOVA_AppCfg_DynDnsCfg_Password, READ_WRITE, STRING,
               "InternetGatewayDevice.X_KOVA_AppCfg.DynDnsCfg.Password")
KOVA_PARAMETER(X_KOVA_AppCfg_DynDnsCfg_UserDomain, READ_WRITE, STRING,
               "InternetGatewayDevice.X_KOVA_AppCfg.DynDnsCfg.UserDomain")
KOVA_PARAMETER(X_KOVA_AppCfg_DynDnsCfg_Server, READ_ONLY, STRING,
               "InternetGatewayDevice.X_KOVA_AppCfg.DynDnsCfg.Server")

KOVA_PARAMETER(X_KOVA_AppCfg_NoipDnsCfg_Enable, READ_WRITE, STRING,
               "InternetGatewayDevice.X_KOVA_AppCfg.NoipDnsCfg.Enable")
KOVA_PARAMETER(X_KOVA_AppCfg_NoipDnsCfg_Login, READ_WRITE, STRING,
               "InternetGatewayDevice.X_KOVA_AppCfg.NoipDnsCfg.Login")
KOVA_PARAMETER(X_KOVA_AppCfg_NoipDnsCfg_State, READ_ONLY, STRING,
               "InternetGatewayDevice.X_KOVA_AppCfg.NoipDnsCfg.State")
KOVA_PARAMETER(X_KOVA_AppCfg_NoipDnsCfg_Username, READ_WRITE, STRING,
               "InternetGatewayDevice.X_KOVA_AppCfg.NoipDnsCfg.Username")
KOVA_PARAMETER(X_KOVA_AppCfg_NoipDnsCfg_Password, READ_WRITE, STRING,
               "InternetGatewayDevice.X_KOVA_AppCfg.NoipDnsCfg.Password")
KOVA_PARAMETER(X_KOVA_AppCfg_NoipDnsCfg_UserDomain, READ_WRITE, STRING,
               "InternetGatewayDevice.X_KOVA_AppCfg.NoipDnsCfg.UserDomain")
KOVA_PARAMETER(X_KOVA_AppCfg_NoipDnsCfg_Server, READ_WRITE, STRING,
               "InternetGatewayDevice.X_KOVA_AppCfg.NoipDnsCfg.Server")
KOVA_PARAMETER(X_KOVA_AppCfg_NoipDnsCfg_WANIPBinding, READ_WRITE, STRING,
               "InternetGatewayDevice.X_KOVA_AppCfg.NoipDnsCfg.WANIPBinding")

KOVA_PARAMETER(LANDevice_LANEthernetInterfaceConfig_MACAddress, READ_ONLY, MAC_ADDRESS,
               "InternetGatewayDevice.LANDevice.{i}.LANEthernetInterfaceConfig.{i}.MACAddress")
KOVA_PARAMETER(LANDevice_LANEthernetInterfaceConfig_Stats_BytesSent, READ_ONLY, UNSIGNED_INT,
               "InternetGatewayDevice.LANDevice.{i}.LANEthernetInterfaceConfig.{i}.Stats.BytesSent")
KOVA_PARAMETER(LANDevice_LANEthernetInterfaceConfig_Stats_BytesReceived, READ_ONLY, UNSIGNED_INT,
               "InternetGatewayDevice.LANDevice.{i}.LANEthernetInterfaceConfig.{i}.Stats.BytesReceived")
KOVA_PARAMETER(LANDevice_LANEthernetInterfaceConfig_Stats_PacketsSent, READ_ONLY, UNSIGNED_INT,
               "InternetGatewayDevice.LANDevice.{i}.LANEthernetInterfaceConfig.{i}.Stats.PacketsSent")
KOVA_PARAMETER(LANDevice_LANEthernetInterfaceConfig_Stats_PacketsReceived, READ_ONLY, UNSIGNED_INT,
               "InternetGatewayDevice.LANDevice.{i}.LANEthernetInterfaceConfig.{i}.Stats.PacketsReceived")
KOVA_PARAMETER(LANDevice_LANEthernetInterfaceConfig_Stats_ErrorsSent, READ_ONLY, UNSIGNED_INT,
               "InternetGatewayDevice.LANDevice.{i}.LANEthernetInterfaceConfig.{i}.Stats.ErrorsSent")
KOVA_PARAMETER(LANDevice_LANEthernetInterfaceConfig_Stats_ErrorsReceived, READ_ONLY, UNSIGNED_INT,
               "InternetGatewayDevice.LANDevice.{i}.LANEthernetInterfaceConfig.{i}.Stats.ErrorsReceived")

/*
 * pkg-diag.h: the tests that the server asks for, the dynamic DNS settings and the LAN Ethernet interface. Each row
 * declares a handler of the form described in pkg-tool.h.
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

KOVA_PARAMETER(IPPingDiagnostics_DiagnosticsState, READ_WRITE, STRING,
               "InternetGatewayDevice.IPPingDiagnostics.DiagnosticsState")
KOVA_PARAMETER(IPPingDiagnostics_Host, READ_WRITE, STRING, "InternetGatewayDevice.IPPingDiagnostics.Host")
KOVA_PARAMETER(IPPingDiagnostics_NumberOfRepetitions, READ_WRITE, UNSIGNED_INT,
               "InternetGatewayDevice.IPPingDiagnostics.NumberOfRepetitions")
KOVA_PARAMETER(IPPingDiagnostics_Timeout, READ_WRITE, UNSIGNED_INT, "InternetGatewayDevice.IPPingDiagnostics.Timeout")
KOVA_PARAMETER(IPPingDiagnostics_DataBlockSize, READ_WRITE, UNSIGNED_INT,
               "InternetGatewayDevice.IPPingDiagnostics.DataBlockSize")
KOVA_PARAMETER(IPPingDiagnostics_SuccessCount, READ_ONLY, UNSIGNED_INT,
               "InternetGatewayDevice.IPPingDiagnostics.SuccessCount")
KOVA_PARAMETER(IPPingDiagnostics_FailureCount, READ_ONLY, UNSIGNED_INT,
               "InternetGatewayDevice.IPPingDiagnostics.FailureCount")
KOVA_PARAMETER(IPPingDiagnostics_AverageResponseTime, READ_ONLY, UNSIGNED_INT,
               "InternetGatewayDevice.IPPingDiagnostics.AverageResponseTime")
KOVA_PARAMETER(IPPingDiagnostics_MinimumResponseTime, READ_ONLY, UNSIGNED_INT,
               "InternetGatewayDevice.IPPingDiagnostics.MinimumResponseTime")
KOVA_PARAMETER(IPPingDiagnostics_MaximumResponseTime, READ_ONLY, UNSIGNED_INT,
               "InternetGatewayDevice.IPPingDiagnostics.MaximumResponseTime")

KOVA_PARAMETER(IP_Diagnostics_IPv4PingSupported, READ_ONLY, BOOLEAN, "Device.IP.Diagnostics.IPv4PingSupported")
KOVA_PARAMETER(IP_Diagnostics_IPPing_DiagnosticsState, READ_WRITE, STRING,
               "Device.IP.Diagnostics.IPPing.DiagnosticsState")
KOVA_PARAMETER(IP_Diagnostics_IPPing_Host, READ_WRITE, STRING, "Device.IP.Diagnostics.IPPing.Host")
KOVA_PARAMETER(IP_Diagnostics_IPPing_NumberOfRepetitions, READ_WRITE, UNSIGNED_INT,
               "Device.IP.Diagnostics.IPPing.NumberOfRepetitions")
KOVA_PARAMETER(IP_Diagnostics_IPPing_Timeout, READ_WRITE, UNSIGNED_INT, "Device.IP.Diagnostics.IPPing.Timeout")
KOVA_PARAMETER(IP_Diagnostics_IPPing_DataBlockSize, READ_WRITE, UNSIGNED_INT,
               "Device.IP.Diagnostics.IPPing.DataBlockSize")
KOVA_PARAMETER(IP_Diagnostics_IPPing_SuccessCount, READ_ONLY, UNSIGNED_INT, "Device.IP.Diagnostics.IPPing.SuccessCount")
KOVA_PARAMETER(IP_Diagnostics_IPPing_FailureCount, READ_ONLY, UNSIGNED_INT, "Device.IP.Diagnostics.IPPing.FailureCount")
KOVA_PARAMETER(IP_Diagnostics_IPPing_AverageResponseTime, READ_ONLY, UNSIGNED_INT,
               "Device.IP.Diagnostics.IPPing.AverageResponseTime")
KOVA_PARAMETER(IP_Diagnostics_IPPing_MinimumResponseTime, READ_ONLY, UNSIGNED_INT,
               "Device.IP.Diagnostics.IPPing.MinimumResponseTime")
KOVA_PARAMETER(IP_Diagnostics_IPPing_MaximumResponseTime, READ_ONLY, UNSIGNED_INT,
               "Device.IP.Diagnostics.IPPing.MaximumResponseTime")

KOVA_PARAMETER(TraceRouteDiagnostics_DiagnosticsState, READ_WRITE, STRING,
               "InternetGatewayDevice.TraceRouteDiagnostics.DiagnosticsState")
KOVA_PARAMETER(TraceRouteDiagnostics_Host, READ_WRITE, STRING, "InternetGatewayDevice.TraceRouteDiagnostics.Host")
KOVA_PARAMETER(TraceRouteDiagnostics_NumberOfTries, READ_WRITE, UNSIGNED_INT,
               "InternetGatewayDevice.TraceRouteDiagnostics.NumberOfTries")
KOVA_PARAMETER(TraceRouteDiagnostics_MaxHopCount, READ_WRITE, UNSIGNED_INT,
               "InternetGatewayDevice.TraceRouteDiagnostics.MaxHopCount")
KOVA_PARAMETER(TraceRouteDiagnostics_ResponseTime, READ_ONLY, UNSIGNED_INT,
               "InternetGatewayDevice.TraceRouteDiagnostics.ResponseTime")
KOVA_PARAMETER(TraceRouteDiagnostics_RouteHopsNumberOfEntries, READ_ONLY, UNSIGNED_INT,
               "InternetGatewayDevice.TraceRouteDiagnostics.RouteHopsNumberOfEntries")
KOVA_PARAMETER(TraceRouteDiagnostics_RouteHops_HopHost, READ_ONLY, STRING,
               "InternetGatewayDevice.TraceRouteDiagnostics.RouteHops.{i}.HopHost")
KOVA_PARAMETER(TraceRouteDiagnostics_RouteHops_HopHostAddress, READ_ONLY, STRING,
               "InternetGatewayDevice.TraceRouteDiagnostics.RouteHops.{i}.HopHostAddress")
KOVA_PARAMETER(TraceRouteDiagnostics_RouteHops_HopErrorCode, READ_ONLY, UNSIGNED_INT,
               "InternetGatewayDevice.TraceRouteDiagnostics.RouteHops.{i}.HopErrorCode")
KOVA_PARAMETER(TraceRouteDiagnostics_RouteHops_HopRTTimes, READ_ONLY, LIST,
               "InternetGatewayDevice.TraceRouteDiagnostics.RouteHops.{i}.HopRTTimes")

KOVA_PARAMETER(IP_Diagnostics_IPv4TraceRouteSupported, READ_ONLY, BOOLEAN,
               "Device.IP.Diagnostics.IPv4TraceRouteSupported")
KOVA_PARAMETER(IP_Diagnostics_TraceRoute_DiagnosticsState, READ_WRITE, STRING,
               "Device.IP.Diagnostics.TraceRoute.DiagnosticsState")
KOVA_PARAMETER(IP_Diagnostics_TraceRoute_Host, READ_WRITE, STRING, "Device.IP.Diagnostics.TraceRoute.Host")
KOVA_PARAMETER(IP_Diagnostics_TraceRoute_NumberOfTries, READ_WRITE, UNSIGNED_INT,
               "Device.IP.Diagnostics.TraceRoute.NumberOfTries")
KOVA_PARAMETER(IP_Diagnostics_TraceRoute_MaxHopCount, READ_WRITE, UNSIGNED_INT,
               "Device.IP.Diagnostics.TraceRoute.MaxHopCount")
KOVA_PARAMETER(IP_Diagnostics_TraceRoute_ResponseTime, READ_ONLY, UNSIGNED_INT,
               "Device.IP.Diagnostics.TraceRoute.ResponseTime")
KOVA_PARAMETER(IP_Diagnostics_TraceRoute_RouteHopsNumberOfEntries, READ_ONLY, UNSIGNED_INT,
               "Device.IP.Diagnostics.TraceRoute.RouteHopsNumberOfEntries")
KOVA_PARAMETER(IP_Diagnostics_TraceRoute_RouteHops_Host, READ_ONLY, STRING,
               "Device.IP.Diagnostics.TraceRoute.RouteHops.{i}.Host")
KOVA_PARAMETER(IP_Diagnostics_TraceRoute_RouteHops_HostAddress, READ_ONLY, STRING,
               "Device.IP.Diagnostics.TraceRoute.RouteHops.{i}.HostAddress")
KOVA_PARAMETER(IP_Diagnostics_TraceRoute_RouteHops_ErrorCode, READ_ONLY, UNSIGNED_INT,
               "Device.IP.Diagnostics.TraceRoute.RouteHops.{i}.ErrorCode")
KOVA_PARAMETER(IP_Diagnostics_TraceRoute_RouteHops_RTTimes, READ_ONLY, LIST,
               "Device.IP.Diagnostics.TraceRoute.RouteHops.{i}.RTTimes")

KOVA_PARAMETER(NSLookupDiagnostics_DiagnosticsState, READ_WRITE, STRING,
               "InternetGatewayDevice.NSLookupDiagnostics.DiagnosticsState")
KOVA_PARAMETER(NSLookupDiagnostics_HostName, READ_WRITE, STRING, "InternetGatewayDevice.NSLookupDiagnostics.HostName")
KOVA_PARAMETER(NSLookupDiagnostics_DNSServer, READ_WRITE, STRING, "InternetGatewayDevice.NSLookupDiagnostics.DNSServer")
KOVA_PARAMETER(NSLookupDiagnostics_NumberOfRepetitions, READ_ONLY, UNSIGNED_INT,
               "InternetGatewayDevice.NSLookupDiagnostics.NumberOfRepetitions")
KOVA_PARAMETER(NSLookupDiagnostics_SuccessCount, READ_ONLY, UNSIGNED_INT,
               "InternetGatewayDevice.NSLookupDiagnostics.SuccessCount")
KOVA_PARAMETER(NSLookupDiagnostics_ResultNumberOfEntries, READ_ONLY, UNSIGNED_INT,
               "InternetGatewayDevice.NSLookupDiagnostics.ResultNumberOfEntries")
KOVA_PARAMETER(NSLookupDiagnostics_Result_Status, READ_ONLY, STRING,
               "InternetGatewayDevice.NSLookupDiagnostics.Result.{i}.Status")
KOVA_PARAMETER(NSLookupDiagnostics_Result_IPAddresses, READ_ONLY, LIST,
               "InternetGatewayDevice.NSLookupDiagnostics.Result.{i}.IPAddresses")
KOVA_PARAMETER(NSLookupDiagnostics_Result_DNSServerIP, READ_ONLY, IP_ADDRESS,
               "InternetGatewayDevice.NSLookupDiagnostics.Result.{i}.DNSServerIP")

KOVA_PARAMETER(DNS_Diagnostics_NSLookupDiagnostics_DiagnosticsState, READ_WRITE, STRING,
               "Device.DNS.Diagnostics.NSLookupDiagnostics.DiagnosticsState")
KOVA_PARAMETER(DNS_Diagnostics_NSLookupDiagnostics_HostName, READ_WRITE, STRING,
               "Device.DNS.Diagnostics.NSLookupDiagnostics.HostName")
KOVA_PARAMETER(DNS_Diagnostics_NSLookupDiagnostics_DNSServer, READ_WRITE, STRING,
               "Device.DNS.Diagnostics.NSLookupDiagnostics.DNSServer")
KOVA_PARAMETER(DNS_Diagnostics_NSLookupDiagnostics_NumberOfRepetitions, READ_ONLY, UNSIGNED_INT,
               "Device.DNS.Diagnostics.NSLookupDiagnostics.NumberOfRepetitions")
KOVA_PARAMETER(DNS_Diagnostics_NSLookupDiagnostics_SuccessCount, READ_ONLY, UNSIGNED_INT,
               "Device.DNS.Diagnostics.NSLookupDiagnostics.SuccessCount")
KOVA_PARAMETER(DNS_Diagnostics_NSLookupDiagnostics_ResultNumberOfEntries, READ_ONLY, UNSIGNED_INT,
               "Device.DNS.Diagnostics.NSLookupDiagnostics.ResultNumberOfEntries")
KOVA_PARAMETER(DNS_Diagnostics_NSLookupDiagnostics_Result_Status, READ_ONLY, STRING,
               "Device.DNS.Diagnostics.NSLookupDiagnostics.Result.{i}.Status")
KOVA_PARAMETER(DNS_Diagnostics_NSLookupDiagnostics_Result_IPAddresses, READ_ONLY, LIST,
               "Device.DNS.Diagnostics.NSLookupDiagnostics.Result.{i}.IPAddresses")
KOVA_PARAMETER(DNS_Diagnostics_NSLookupDiagnostics_Result_DNSServerIP, READ_ONLY, IP_ADDRESS,
               "Device.DNS.Diagnostics.NSLookupDiagnostics.Result.{i}.DNSServerIP")

KOVA_PARAMETER(UploadDiagnostics_DiagnosticsState, READ_WRITE, STRING,
               "InternetGatewayDevice.UploadDiagnostics.DiagnosticsState")
KOVA_PARAMETER(UploadDiagnostics_UploadURL, READ_WRITE, STRING, "InternetGatewayDevice.UploadDiagnostics.UploadURL")
KOVA_PARAMETER(UploadDiagnostics_UploadTransports, READ_ONLY, STRING,
               "InternetGatewayDevice.UploadDiagnostics.UploadTransports")
KOVA_PARAMETER(UploadDiagnostics_UploadDiagnosticsMaxConnections, READ_ONLY, STRING,
               "InternetGatewayDevice.UploadDiagnostics.UploadDiagnosticsMaxConnections")
KOVA_PARAMETER(UploadDiagnostics_TestFileLength, READ_WRITE, UNSIGNED_INT,
               "InternetGatewayDevice.UploadDiagnostics.TestFileLength")
KOVA_PARAMETER(UploadDiagnostics_NumberOfConnections, READ_WRITE, STRING,
               "InternetGatewayDevice.UploadDiagnostics.NumberOfConnections")
KOVA_PARAMETER(UploadDiagnostics_TotalBytesSent, READ_ONLY, UNSIGNED_INT,
               "InternetGatewayDevice.UploadDiagnostics.TotalBytesSent")
KOVA_PARAMETER(UploadDiagnostics_BOMTime, READ_ONLY, DATE_TIME, "InternetGatewayDevice.UploadDiagnostics.BOMTime")
KOVA_PARAMETER(UploadDiagnostics_EOMTime, READ_ONLY, DATE_TIME, "InternetGatewayDevice.UploadDiagnostics.EOMTime")
KOVA_PARAMETER(UploadDiagnostics_ROMTime, READ_ONLY, DATE_TIME, "InternetGatewayDevice.UploadDiagnostics.ROMTime")
KOVA_PARAMETER(UploadDiagnostics_TCPOpenRequestTime, READ_ONLY, DATE_TIME,
               "InternetGatewayDevice.UploadDiagnostics.TCPOpenRequestTime")
KOVA_PARAMETER(UploadDiagnostics_TCPOpenResponseTime, READ_ONLY, DATE_TIME,
               "InternetGatewayDevice.UploadDiagnostics.TCPOpenResponseTime")

KOVA_PARAMETER(IP_Diagnostics_IPv4UploadDiagnosticsSupported, READ_ONLY, BOOLEAN,
               "Device.IP.Diagnostics.IPv4UploadDiagnosticsSupported")
KOVA_PARAMETER(IP_Diagnostics_UploadDiagnostics_DiagnosticsState, READ_WRITE, STRING,
               "Device.IP.Diagnostics.UploadDiagnostics.DiagnosticsState")
KOVA_PARAMETER(IP_Diagnostics_UploadDiagnostics_UploadURL, READ_WRITE, STRING,
               "Device.IP.Diagnostics.UploadDiagnostics.UploadURL")
KOVA_PARAMETER(IP_Diagnostics_UploadDiagnostics_UploadTransports, READ_ONLY, LIST,
               "Device.IP.Diagnostics.UploadDiagnostics.UploadTransports")
KOVA_PARAMETER(IP_Diagnostics_UploadDiagnostics_UploadDiagnosticsMaxConnections, READ_ONLY, UNSIGNED_INT,
               "Device.IP.Diagnostics.UploadDiagnostics.UploadDiagnosticsMaxConnections")
KOVA_PARAMETER(IP_Diagnostics_UploadDiagnostics_TestFileLength, READ_WRITE, UNSIGNED_LONG,
               "Device.IP.Diagnostics.UploadDiagnostics.TestFileLength")
KOVA_PARAMETER(IP_Diagnostics_UploadDiagnostics_NumberOfConnections, READ_WRITE, UNSIGNED_INT,
               "Device.IP.Diagnostics.UploadDiagnostics.NumberOfConnections")
KOVA_PARAMETER(IP_Diagnostics_UploadDiagnostics_ROMTime, READ_ONLY, DATE_TIME,
               "Device.IP.Diagnostics.UploadDiagnostics.ROMTime")
KOVA_PARAMETER(IP_Diagnostics_UploadDiagnostics_BOMTime, READ_ONLY, DATE_TIME,
               "Device.IP.Diagnostics.UploadDiagnostics.BOMTime")
KOVA_PARAMETER(IP_Diagnostics_UploadDiagnostics_EOMTime, READ_ONLY, DATE_TIME,
               "Device.IP.Diagnostics.UploadDiagnostics.EOMTime")
KOVA_PARAMETER(IP_Diagnostics_UploadDiagnostics_TotalBytesSent, READ_ONLY, UNSIGNED_LONG,
               "Device.IP.Diagnostics.UploadDiagnostics.TotalBytesSent")
KOVA_PARAMETER(IP_Diagnostics_UploadDiagnostics_TCPOpenRequestTime, READ_ONLY, DATE_TIME,
               "Device.IP.Diagnostics.UploadDiagnostics.TCPOpenRequestTime")
KOVA_PARAMETER(IP_Diagnostics_UploadDiagnostics_TCPOpenResponseTime, READ_ONLY, DATE_TIME,
               "Device.IP.Diagnostics.UploadDiagnostics.TCPOpenResponseTime")

KOVA_PARAMETER(DownloadDiagnostics_DiagnosticsState, READ_WRITE, STRING,
               "InternetGatewayDevice.DownloadDiagnostics.DiagnosticsState")
KOVA_PARAMETER(DownloadDiagnostics_DownloadURL, READ_WRITE, STRING,
               "InternetGatewayDevice.DownloadDiagnostics.DownloadURL")
KOVA_PARAMETER(DownloadDiagnostics_DownloadTransports, READ_ONLY, STRING,
               "InternetGatewayDevice.DownloadDiagnostics.DownloadTransports")
KOVA_PARAMETER(DownloadDiagnostics_BOMTime, READ_ONLY, DATE_TIME, "InternetGatewayDevice.DownloadDiagnostics.BOMTime")
KOVA_PARAMETER(DownloadDiagnostics_EOMTime, READ_ONLY, DATE_TIME, "InternetGatewayDevice.DownloadDiagnostics.EOMTime")
KOVA_PARAMETER(DownloadDiagnostics_TotalBytesReceived, READ_ONLY, UNSIGNED_INT,
               "InternetGatewayDevice.DownloadDiagnostics.TotalBytesReceived")
KOVA_PARAMETER(DownloadDiagnostics_TestBytesReceived, READ_ONLY, UNSIGNED_INT,
               "InternetGatewayDevice.DownloadDiagnostics.TestBytesReceived")
KOVA_PARAMETER(DownloadDiagnostics_DownloadDiagnosticMaxConnections, READ_ONLY, STRING,
               "InternetGatewayDevice.DownloadDiagnostics.DownloadDiagnosticMaxConnections")
KOVA_PARAMETER(DownloadDiagnostics_NumberOfConnections, READ_WRITE, STRING,
               "InternetGatewayDevice.DownloadDiagnostics.NumberOfConnections")
KOVA_PARAMETER(DownloadDiagnostics_ROMTime, READ_ONLY, DATE_TIME, "InternetGatewayDevice.DownloadDiagnostics.ROMTime")
KOVA_PARAMETER(DownloadDiagnostics_TCPOpenRequestTime, READ_ONLY, DATE_TIME,
               "InternetGatewayDevice.DownloadDiagnostics.TCPOpenRequestTime")
KOVA_PARAMETER(DownloadDiagnostics_TCPOpenResponseTime, READ_ONLY, DATE_TIME,
               "InternetGatewayDevice.DownloadDiagnostics.TCPOpenResponseTime")

KOVA_PARAMETER(IP_Diagnostics_IPv4DownloadDiagnosticsSupported, READ_ONLY, BOOLEAN,
               "Device.IP.Diagnostics.IPv4DownloadDiagnosticsSupported")
KOVA_PARAMETER(IP_Diagnostics_DownloadDiagnostics_DiagnosticsState, READ_WRITE, STRING,
               "Device.IP.Diagnostics.DownloadDiagnostics.DiagnosticsState")
KOVA_PARAMETER(IP_Diagnostics_DownloadDiagnostics_DownloadURL, READ_WRITE, STRING,
               "Device.IP.Diagnostics.DownloadDiagnostics.DownloadURL")
KOVA_PARAMETER(IP_Diagnostics_DownloadDiagnostics_DownloadTransports, READ_ONLY, LIST,
               "Device.IP.Diagnostics.DownloadDiagnostics.DownloadTransports")
KOVA_PARAMETER(IP_Diagnostics_DownloadDiagnostics_DownloadDiagnosticMaxConnections, READ_ONLY, UNSIGNED_INT,
               "Device.IP.Diagnostics.DownloadDiagnostics.DownloadDiagnosticMaxConnections")
KOVA_PARAMETER(IP_Diagnostics_DownloadDiagnostics_NumberOfConnections, READ_WRITE, UNSIGNED_INT,
               "Device.IP.Diagnostics.DownloadDiagnostics.NumberOfConnections")
KOVA_PARAMETER(IP_Diagnostics_DownloadDiagnostics_ROMTime, READ_ONLY, DATE_TIME,
               "Device.IP.Diagnostics.DownloadDiagnostics.ROMTime")
KOVA_PARAMETER(IP_Diagnostics_DownloadDiagnostics_BOMTime, READ_ONLY, DATE_TIME,
               "Device.IP.Diagnostics.DownloadDiagnostics.BOMTime")
KOVA_PARAMETER(IP_Diagnostics_DownloadDiagnostics_EOMTime, READ_ONLY, DATE_TIME,
               "Device.IP.Diagnostics.DownloadDiagnostics.EOMTime")
KOVA_PARAMETER(IP_Diagnostics_DownloadDiagnostics_TotalBytesReceived, READ_ONLY, UNSIGNED_LONG,
               "Device.IP.Diagnostics.DownloadDiagnostics.TotalBytesReceived")
KOVA_PARAMETER(IP_Diagnostics_DownloadDiagnostics_TestBytesReceived, READ_ONLY, UNSIGNED_LONG,
               "Device.IP.Diagnostics.DownloadDiagnostics.TestBytesReceived")
KOVA_PARAMETER(IP_Diagnostics_DownloadDiagnostics_TCPOpenRequestTime, READ_ONLY, DATE_TIME,
               "Device.IP.Diagnostics.DownloadDiagnostics.TCPOpenRequestTime")
KOVA_PARAMETER(IP_Diagnostics_DownloadDiagnostics_TCPOpenResponseTime, READ_ONLY, DATE_TIME,
               "Device.IP.Diagnostics.DownloadDiagnostics.TCPOpenResponseTime")

KOVA_PARAMETER(UDPEchoConfig_Enable, READ_WRITE, BOOLEAN, "InternetGatewayDevice.UDPEchoConfig.Enable")
KOVA_PARAMETER(UDPEchoConfig_SourceIPAddress, READ_WRITE, IP_ADDRESS,
               "InternetGatewayDevice.UDPEchoConfig.SourceIPAddress")
KOVA_PARAMETER(UDPEchoConfig_UDPPort, READ_WRITE, UNSIGNED_INT, "InternetGatewayDevice.UDPEchoConfig.UDPPort")

KOVA_PARAMETER(IP_Diagnostics_IPv4UDPEchoDiagnosticsSupported, READ_ONLY, BOOLEAN,
               "Device.IP.Diagnostics.IPv4UDPEchoDiagnosticsSupported")
KOVA_PARAMETER(IP_Diagnostics_UDPEchoConfig_Enable, READ_WRITE, BOOLEAN, "Device.IP.Diagnostics.UDPEchoConfig.Enable")
KOVA_PARAMETER(IP_Diagnostics_UDPEchoConfig_SourceIPAddress, READ_WRITE, IP_ADDRESS,
               "Device.IP.Diagnostics.UDPEchoConfig.SourceIPAddress")
KOVA_PARAMETER(IP_Diagnostics_UDPEchoConfig_UDPPort, READ_WRITE, UNSIGNED_INT,
               "Device.IP.Diagnostics.UDPEchoConfig.UDPPort")

/*
 * pkg-br.h: bridges and their ports, the service VLANs of the WAN side, bandwidth limits, and UPnP. Each row declares a
 * handler of the form described in pkg-tool.h.
 */
#include "pkg-tool.h"

KOVA_PARAMETER(Bridging_MaxBridgeEntries, READ_ONLY, UNSIGNED_INT, "Device.Bridging.MaxBridgeEntries")
KOVA_PARAMETER(Bridging_BridgeNumberOfEntries, READ_ONLY, UNSIGNED_INT, "Device.Bridging.BridgeNumberOfEntries")
KOVA_PARAMETER(Bridging_MaxVLANEntries, READ_ONLY, UNSIGNED_INT, "Device.Bridging.MaxVLANEntries")

KOVA_PARAMETER(Bridging_Bridge_Enable, READ_ONLY, BOOLEAN, "Device.Bridging.Bridge.{i}.Enable")
KOVA_PARAMETER(Bridging_Bridge_Status, READ_ONLY, STRING, "Device.Bridging.Bridge.{i}.Status")
KOVA_PARAMETER(Bridging_Bridge_PortNumberOfEntries, READ_ONLY, UNSIGNED_INT,
               "Device.Bridging.Bridge.{i}.PortNumberOfEntries")

KOVA_PARAMETER(Bridging_Bridge_Port_Enable, READ_ONLY, BOOLEAN, "Device.Bridging.Bridge.{i}.Port.{i}.Enable")
KOVA_PARAMETER(Bridging_Bridge_Port_Name, READ_ONLY, STRING, "Device.Bridging.Bridge.{i}.Port.{i}.Name")
KOVA_PARAMETER(Bridging_Bridge_Port_Status, READ_ONLY, STRING, "Device.Bridging.Bridge.{i}.Port.{i}.Status")
KOVA_PARAMETER(Bridging_Bridge_Port_LowerLayers, READ_ONLY, LIST, "Device.Bridging.Bridge.{i}.Port.{i}.LowerLayers")
KOVA_PARAMETER(Bridging_Bridge_Port_Stats_BytesSent, READ_ONLY, UNSIGNED_LONG,
               "Device.Bridging.Bridge.{i}.Port.{i}.Stats.BytesSent")
KOVA_PARAMETER(Bridging_Bridge_Port_Stats_BytesReceived, READ_ONLY, UNSIGNED_LONG,
               "Device.Bridging.Bridge.{i}.Port.{i}.Stats.BytesReceived")
KOVA_PARAMETER(Bridging_Bridge_Port_Stats_PacketsSent, READ_ONLY, UNSIGNED_LONG,
               "Device.Bridging.Bridge.{i}.Port.{i}.Stats.PacketsSent")
KOVA_PARAMETER(Bridging_Bridge_Port_Stats_PacketsReceived, READ_ONLY, UNSIGNED_LONG,
               "Device.Bridging.Bridge.{i}.Port.{i}.Stats.PacketsReceived")
KOVA_PARAMETER(Bridging_Bridge_Port_Stats_ErrorsSent, READ_ONLY, UNSIGNED_INT,
               "Device.Bridging.Bridge.{i}.Port.{i}.Stats.ErrorsSent")
KOVA_PARAMETER(Bridging_Bridge_Port_Stats_ErrorsReceived, READ_ONLY, UNSIGNED_INT,
               "Device.Bridging.Bridge.{i}.Port.{i}.Stats.ErrorsReceived")

KOVA_PARAMETER(Layer2Bridging_Bridge_VLAN_VLANEnable, READ_WRITE, BOOLEAN,
               "InternetGatewayDevice.Layer2Bridging.Bridge.{i}.VLAN.{i}.VLANEnable")
KOVA_PARAMETER(Layer2Bridging_Bridge_VLAN_VLANID, READ_WRITE, INT,
               "InternetGatewayDevice.Layer2Bridging.Bridge.{i}.VLAN.{i}.VLANID")
KOVA_PARAMETER(Layer2Bridging_Bridge_VLAN_X_KOVA_VLANPrio, READ_WRITE, STRING,
               "InternetGatewayDevice.Layer2Bridging.Bridge.{i}.VLAN.{i}.X_KOVA_VLANPrio")

KOVA_PARAMETER(X_KOVA_IPTV_Enable, READ_WRITE, STRING, "InternetGatewayDevice.X_KOVA_IPTV.Enable")
KOVA_PARAMETER(X_KOVA_IPTV_Mode, READ_WRITE, STRING, "InternetGatewayDevice.X_KOVA_IPTV.Mode")
KOVA_PARAMETER(X_KOVA_IPTV_INETTAG, READ_WRITE, STRING, "InternetGatewayDevice.X_KOVA_IPTV.INETTAG")
KOVA_PARAMETER(X_KOVA_IPTV_INETVID, READ_WRITE, STRING, "InternetGatewayDevice.X_KOVA_IPTV.INETVID")
KOVA_PARAMETER(X_KOVA_IPTV_INETPrio, READ_WRITE, STRING, "InternetGatewayDevice.X_KOVA_IPTV.INETPrio")
KOVA_PARAMETER(X_KOVA_IPTV_IPTVVID, READ_WRITE, STRING, "InternetGatewayDevice.X_KOVA_IPTV.IPTVVID")
KOVA_PARAMETER(X_KOVA_IPTV_IPTVPrio, READ_WRITE, STRING, "InternetGatewayDevice.X_KOVA_IPTV.IPTVPrio")
KOVA_PARAMETER(X_KOVA_IPTV_VOIPVID, READ_WRITE, STRING, "InternetGatewayDevice.X_KOVA_IPTV.VOIPVID")
KOVA_PARAMETER(X_KOVA_IPTV_VOIPPrio, READ_WRITE, STRING, "InternetGatewayDevice.X_KOVA_IPTV.VOIPPrio")
KOVA_PARAMETER(X_KOVA_IPTV_VLANTYPENumberOfEntries, READ_ONLY, STRING,
               "InternetGatewayDevice.X_KOVA_IPTV.VLANTYPENumberOfEntries")
KOVA_PARAMETER(X_KOVA_IPTV_VLANTYPE_LAN, READ_WRITE, STRING, "InternetGatewayDevice.X_KOVA_IPTV.VLANTYPE.{i}.LAN")

KOVA_PARAMETER(X_KOVA_QoS_Enable, READ_WRITE, STRING, "InternetGatewayDevice.X_KOVA_QoS.Enable")
KOVA_PARAMETER(X_KOVA_QoS_Upband, READ_WRITE, STRING, "InternetGatewayDevice.X_KOVA_QoS.Upband")
KOVA_PARAMETER(X_KOVA_QoS_Downband, READ_WRITE, STRING, "InternetGatewayDevice.X_KOVA_QoS.Downband")

KOVA_PARAMETER(UPnP_Device_Enable, READ_WRITE, BOOLEAN, KOVA_BOTH_TREES("UPnP.Device.Enable"))

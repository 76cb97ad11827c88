/*
 * pkg-mobile.h: the Cellular object: one interface and one access point. Each row declares a handler of the form
 * described in pkg-tool.h.
 */
#include "pkg-tool.h"

KOVA_PARAMETER(Cellular_RoamingEnabled, READ_WRITE, BOOLEAN, "Device.Cellular.RoamingEnabled")
KOVA_PARAMETER(Cellular_RoamingStatus, READ_ONLY, STRING, "Device.Cellular.RoamingStatus")
KOVA_PARAMETER(Cellular_InterfaceNumberOfEntries, READ_ONLY, UNSIGNED_INT, "Device.Cellular.InterfaceNumberOfEntries")
KOVA_PARAMETER(Cellular_AccessPointNumberOfEntries, READ_ONLY, UNSIGNED_INT,
               "Device.Cellular.AccessPointNumberOfEntries")

KOVA_PARAMETER(Cellular_Interface_Enable, READ_WRITE, BOOLEAN, "Device.Cellular.Interface.{i}.Enable")
KOVA_PARAMETER(Cellular_Interface_Status, READ_ONLY, STRING, "Device.Cellular.Interface.{i}.Status")
KOVA_PARAMETER(Cellular_Interface_IPAddress, READ_ONLY, STRING, "Device.Cellular.Interface.{i}.IPAddress")
KOVA_PARAMETER(Cellular_Interface_SubnetMask, READ_ONLY, STRING, "Device.Cellular.Interface.{i}.SubnetMask")
KOVA_PARAMETER(Cellular_Interface_AddressingType, READ_ONLY, STRING, "Device.Cellular.Interface.{i}.AddressingType")
KOVA_PARAMETER(Cellular_Interface_IMEI, READ_ONLY, STRING, "Device.Cellular.Interface.{i}.IMEI")
KOVA_PARAMETER(Cellular_Interface_USIM_IMSI, READ_ONLY, STRING, "Device.Cellular.Interface.{i}.USIM.IMSI")
KOVA_PARAMETER(Cellular_Interface_USIM_ICCID, READ_ONLY, STRING, "Device.Cellular.Interface.{i}.USIM.ICCID")
KOVA_PARAMETER(Cellular_Interface_RSSI, READ_ONLY, INT, "Device.Cellular.Interface.{i}.RSSI")
KOVA_PARAMETER(Cellular_Interface_CurrentAccessTechnology, READ_ONLY, STRING,
               "Device.Cellular.Interface.{i}.CurrentAccessTechnology")
KOVA_PARAMETER(Cellular_Interface_RSRP, READ_ONLY, INT, "Device.Cellular.Interface.{i}.RSRP")
KOVA_PARAMETER(Cellular_Interface_RSRQ, READ_ONLY, INT, "Device.Cellular.Interface.{i}.RSRQ")
KOVA_PARAMETER(Cellular_Interface_SINR, READ_ONLY, STRING, "Device.Cellular.Interface.{i}.SINR")
KOVA_PARAMETER(Cellular_Interface_CELLID, READ_ONLY, STRING, "Device.Cellular.Interface.{i}.CELLID")
KOVA_PARAMETER(Cellular_Interface_Stats_BytesSent, READ_ONLY, UNSIGNED_LONG,
               "Device.Cellular.Interface.{i}.Stats.BytesSent")
KOVA_PARAMETER(Cellular_Interface_Stats_BytesReceived, READ_ONLY, UNSIGNED_LONG,
               "Device.Cellular.Interface.{i}.Stats.BytesReceived")
KOVA_PARAMETER(Cellular_Interface_Stats_PacketsSent, READ_ONLY, UNSIGNED_LONG,
               "Device.Cellular.Interface.{i}.Stats.PacketsSent")
KOVA_PARAMETER(Cellular_Interface_Stats_PacketsReceived, READ_ONLY, UNSIGNED_LONG,
               "Device.Cellular.Interface.{i}.Stats.PacketsReceived")
KOVA_PARAMETER(Cellular_Interface_Stats_ErrorsSent, READ_ONLY, UNSIGNED_LONG,
               "Device.Cellular.Interface.{i}.Stats.ErrorsSent")
KOVA_PARAMETER(Cellular_Interface_Stats_ErrorsReceived, READ_ONLY, UNSIGNED_LONG,
               "Device.Cellular.Interface.{i}.Stats.ErrorsReceived")

KOVA_PARAMETER(Cellular_AccessPoint_APN, READ_WRITE, STRING, "Device.Cellular.AccessPoint.{i}.APN")
KOVA_PARAMETER(Cellular_AccessPoint_Enable, READ_WRITE, BOOLEAN, "Device.Cellular.AccessPoint.{i}.Enable")
KOVA_PARAMETER(Cellular_AccessPoint_Username, READ_WRITE, STRING, "Device.Cellular.AccessPoint.{i}.Username")
KOVA_PARAMETER(Cellular_AccessPoint_Password, READ_WRITE, STRING, "Device.Cellular.AccessPoint.{i}.Password")
KOVA_PARAMETER(Cellular_AccessPoint_Interface, READ_ONLY, STRING, "Device.Cellular.AccessPoint.{i}.Interface")

/*
 * pkg-dev.h: the device itself: root counters, DeviceInfo, UserInterface, Users, LEDs and Time. Each row declares a
 * handler of the form described in pkg-tool.h.
 */
#include "pkg-tool.h"

KOVA_PARAMETER(DeviceSummary, READ_ONLY, STRING, "InternetGatewayDevice.DeviceSummary")
KOVA_PARAMETER(LANDeviceNumberOfEntries, READ_ONLY, UNSIGNED_INT, "InternetGatewayDevice.LANDeviceNumberOfEntries")
KOVA_PARAMETER(WANDeviceNumberOfEntries, READ_ONLY, UNSIGNED_INT, "InternetGatewayDevice.WANDeviceNumberOfEntries")

KOVA_PARAMETER(DeviceInfo_Manufacturer, READ_ONLY, STRING, KOVA_BOTH_TREES("DeviceInfo.Manufacturer"))
KOVA_PARAMETER(DeviceInfo_ManufacturerOUI, READ_ONLY, STRING, KOVA_BOTH_TREES("DeviceInfo.ManufacturerOUI"))
KOVA_PARAMETER(DeviceInfo_OUI, READ_ONLY, STRING, KOVA_BOTH_TREES("DeviceInfo.OUI"))
KOVA_PARAMETER(DeviceInfo_ProductClass, READ_ONLY, STRING, KOVA_BOTH_TREES("DeviceInfo.ProductClass"))
KOVA_PARAMETER(DeviceInfo_ModelName, READ_ONLY, STRING, KOVA_BOTH_TREES("DeviceInfo.ModelName"))
KOVA_PARAMETER(DeviceInfo_Description, READ_ONLY, STRING, KOVA_BOTH_TREES("DeviceInfo.Description"))
KOVA_PARAMETER(DeviceInfo_HardwareVersion, READ_ONLY, STRING, KOVA_BOTH_TREES("DeviceInfo.HardwareVersion"))
KOVA_PARAMETER(DeviceInfo_SpecVersion, READ_ONLY, STRING, "InternetGatewayDevice.DeviceInfo.SpecVersion")
KOVA_PARAMETER(DeviceInfo_SoftwareVersion, READ_ONLY, STRING, KOVA_BOTH_TREES("DeviceInfo.SoftwareVersion"))
KOVA_PARAMETER(DeviceInfo_ModemFirmwareVersion, READ_ONLY, STRING,
               "InternetGatewayDevice.DeviceInfo.ModemFirmwareVersion")
KOVA_PARAMETER(DeviceInfo_SerialNumber, READ_ONLY, STRING, KOVA_BOTH_TREES("DeviceInfo.SerialNumber"))
KOVA_PARAMETER(DeviceInfo_FirstUseDate, READ_ONLY, DATE_TIME, KOVA_BOTH_TREES("DeviceInfo.FirstUseDate"))
KOVA_PARAMETER(DeviceInfo_ProvisioningCode, READ_WRITE, STRING, KOVA_BOTH_TREES("DeviceInfo.ProvisioningCode"))
KOVA_PARAMETER(DeviceInfo_DeviceLog, READ_ONLY, STRING, "InternetGatewayDevice.DeviceInfo.DeviceLog")
KOVA_PARAMETER(DeviceInfo_UpTime, READ_ONLY, UNSIGNED_INT, KOVA_BOTH_TREES("DeviceInfo.UpTime"))
KOVA_PARAMETER(DeviceInfo_MemoryStatus_Total, READ_ONLY, UNSIGNED_INT, KOVA_BOTH_TREES("DeviceInfo.MemoryStatus.Total"))
KOVA_PARAMETER(DeviceInfo_MemoryStatus_Free, READ_ONLY, UNSIGNED_INT, KOVA_BOTH_TREES("DeviceInfo.MemoryStatus.Free"))
KOVA_PARAMETER(DeviceInfo_MemoryStatus_Used, READ_ONLY, STRING, KOVA_BOTH_TREES("DeviceInfo.MemoryStatus.Used"))
KOVA_PARAMETER(DeviceInfo_ProcessStatus_ProcessNumberOfEntries, READ_ONLY, UNSIGNED_INT,
               KOVA_BOTH_TREES("DeviceInfo.ProcessStatus.ProcessNumberOfEntries"))
KOVA_PARAMETER(DeviceInfo_ProcessStatus_CPUUsage, READ_ONLY, UNSIGNED_INT,
               KOVA_BOTH_TREES("DeviceInfo.ProcessStatus.CPUUsage"))

KOVA_PARAMETER(UserInterface_RemoteAccess_Enable, READ_WRITE, BOOLEAN,
               KOVA_BOTH_TREES("UserInterface.RemoteAccess.Enable"))
KOVA_PARAMETER(UserInterface_RemoteAccess_Port, READ_WRITE, UNSIGNED_INT,
               KOVA_BOTH_TREES("UserInterface.RemoteAccess.Port"))

KOVA_PARAMETER(Users_UserNumberOfEntries, READ_WRITE, UNSIGNED_INT, "Device.Users.UserNumberOfEntries")
KOVA_PARAMETER(Users_User_Username, READ_ONLY, STRING, "Device.Users.User.{i}.Username")
KOVA_PARAMETER(Users_User_Password, READ_WRITE, STRING, "Device.Users.User.{i}.Password")

KOVA_PARAMETER(LEDs_Enable, READ_WRITE, STRING, "Device.LEDs.Enable")
KOVA_PARAMETER(LEDs_LEDNumberOfEntries, READ_ONLY, UNSIGNED_INT, "Device.LEDs.LEDNumberOfEntries")
KOVA_PARAMETER(LEDs_LED_Name, READ_ONLY, STRING, "Device.LEDs.LED.{i}.Name")
KOVA_PARAMETER(LEDs_LED_Status, READ_ONLY, STRING, "Device.LEDs.LED.{i}.Status")

KOVA_PARAMETER(Time_Enable, READ_WRITE, BOOLEAN, KOVA_BOTH_TREES("Time.Enable"))
KOVA_PARAMETER(Time_CurrentLocalTime, READ_WRITE, DATE_TIME, KOVA_BOTH_TREES("Time.CurrentLocalTime"))
KOVA_PARAMETER(Time_LocalTimeZone, READ_WRITE, STRING, KOVA_BOTH_TREES("Time.LocalTimeZone"))
KOVA_PARAMETER(Time_TimeZoneList, READ_WRITE, STRING, KOVA_BOTH_TREES("Time.TimeZoneList"))
KOVA_PARAMETER(Time_NTPServer1, READ_WRITE, STRING, KOVA_BOTH_TREES("Time.NTPServer1"))
KOVA_PARAMETER(Time_NTPServer2, READ_WRITE, STRING, KOVA_BOTH_TREES("Time.NTPServer2"))
KOVA_PARAMETER(Time_NTPServer3, READ_WRITE, STRING, KOVA_BOTH_TREES("Time.NTPServer3"))
KOVA_PARAMETER(Time_NTPServer4, READ_WRITE, STRING, KOVA_BOTH_TREES("Time.NTPServer4"))

/*
 * pkg-wl.h: wireless: the radios and their main and extra networks in both trees, and the scan for neighbouring
 * networks. Each row declares a handler of the form described in pkg-tool.h.
 */
#include "pkg-tool.h"

KOVA_PARAMETER(LANDevice_LANWLANConfigurationNumberOfEntries, READ_ONLY, UNSIGNED_INT,
               "InternetGatewayDevice.LANDevice.{i}.LANWLANConfigurationNumberOfEntries")
KOVA_PARAMETER(LANDevice_WLANConfiguration_SSID, READ_WRITE, STRING,
               "InternetGatewayDevice.LANDevice.{i}.WLANConfiguration.{i}.SSID")
KOVA_PARAMETER(LANDevice_WLANConfiguration_Enable, READ_WRITE, BOOLEAN,
               "InternetGatewayDevice.LANDevice.{i}.WLANConfiguration.{i}.Enable")
KOVA_PARAMETER(LANDevice_WLANConfiguration_Status, READ_ONLY, STRING,
               "InternetGatewayDevice.LANDevice.{i}.WLANConfiguration.{i}.Status")
KOVA_PARAMETER(LANDevice_WLANConfiguration_BSSID, READ_ONLY, STRING,
               "InternetGatewayDevice.LANDevice.{i}.WLANConfiguration.{i}.BSSID")
KOVA_PARAMETER(LANDevice_WLANConfiguration_SSIDAdvertisementEnabled, READ_WRITE, BOOLEAN,
               "InternetGatewayDevice.LANDevice.{i}.WLANConfiguration.{i}.SSIDAdvertisementEnabled")
KOVA_PARAMETER(LANDevice_WLANConfiguration_Channel, READ_WRITE, UNSIGNED_INT,
               "InternetGatewayDevice.LANDevice.{i}.WLANConfiguration.{i}.Channel")
KOVA_PARAMETER(LANDevice_WLANConfiguration_ChannelsInUse, READ_ONLY, LIST,
               "InternetGatewayDevice.LANDevice.{i}.WLANConfiguration.{i}.ChannelsInUse")
KOVA_PARAMETER(LANDevice_WLANConfiguration_AutoChannelEnable, READ_WRITE, BOOLEAN,
               "InternetGatewayDevice.LANDevice.{i}.WLANConfiguration.{i}.AutoChannelEnable")
KOVA_PARAMETER(LANDevice_WLANConfiguration_TransmitPowerSupported, READ_ONLY, LIST,
               "InternetGatewayDevice.LANDevice.{i}.WLANConfiguration.{i}.TransmitPowerSupported")
KOVA_PARAMETER(LANDevice_WLANConfiguration_TransmitPower, READ_WRITE, UNSIGNED_INT,
               "InternetGatewayDevice.LANDevice.{i}.WLANConfiguration.{i}.TransmitPower")
KOVA_PARAMETER(LANDevice_WLANConfiguration_X_KOVA_Bandwidth, READ_WRITE, STRING,
               "InternetGatewayDevice.LANDevice.{i}.WLANConfiguration.{i}.X_KOVA_Bandwidth")
KOVA_PARAMETER(LANDevice_WLANConfiguration_X_KOVA_FrequencyInuse, READ_ONLY, STRING,
               "InternetGatewayDevice.LANDevice.{i}.WLANConfiguration.{i}.X_KOVA_FrequencyInuse")
KOVA_PARAMETER(LANDevice_WLANConfiguration_X_KOVA_Band, READ_ONLY, STRING,
               "InternetGatewayDevice.LANDevice.{i}.WLANConfiguration.{i}.X_KOVA_Band")
KOVA_PARAMETER(LANDevice_WLANConfiguration_TotalBytesSent, READ_ONLY, UNSIGNED_INT,
               "InternetGatewayDevice.LANDevice.{i}.WLANConfiguration.{i}.TotalBytesSent")
KOVA_PARAMETER(LANDevice_WLANConfiguration_TotalBytesReceived, READ_ONLY, UNSIGNED_INT,
               "InternetGatewayDevice.LANDevice.{i}.WLANConfiguration.{i}.TotalBytesReceived")
KOVA_PARAMETER(LANDevice_WLANConfiguration_TotalPacketsSent, READ_ONLY, UNSIGNED_INT,
               "InternetGatewayDevice.LANDevice.{i}.WLANConfiguration.{i}.TotalPacketsSent")
KOVA_PARAMETER(LANDevice_WLANConfiguration_TotalPacketsReceived, READ_ONLY, UNSIGNED_INT,
               "InternetGatewayDevice.LANDevice.{i}.WLANConfiguration.{i}.TotalPacketsReceived")
KOVA_PARAMETER(LANDevice_WLANConfiguration_TotalErrorsSent, READ_ONLY, STRING,
               "InternetGatewayDevice.LANDevice.{i}.WLANConfiguration.{i}.TotalErrorsSent")
KOVA_PARAMETER(LANDevice_WLANConfiguration_TotalErrorsReceived, READ_ONLY, STRING,
               "InternetGatewayDevice.LANDevice.{i}.WLANConfiguration.{i}.TotalErrorsReceived")
KOVA_PARAMETER(LANDevice_WLANConfiguration_BeaconType, READ_WRITE, STRING,
               "InternetGatewayDevice.LANDevice.{i}.WLANConfiguration.{i}.BeaconType")
KOVA_PARAMETER(LANDevice_WLANConfiguration_BasicEncryptionModes, READ_WRITE, STRING,
               "InternetGatewayDevice.LANDevice.{i}.WLANConfiguration.{i}.BasicEncryptionModes")
KOVA_PARAMETER(LANDevice_WLANConfiguration_BasicAuthenticationMode, READ_WRITE, STRING,
               "InternetGatewayDevice.LANDevice.{i}.WLANConfiguration.{i}.BasicAuthenticationMode")
KOVA_PARAMETER(LANDevice_WLANConfiguration_WPAEncryptionModes, READ_WRITE, STRING,
               "InternetGatewayDevice.LANDevice.{i}.WLANConfiguration.{i}.WPAEncryptionModes")
KOVA_PARAMETER(LANDevice_WLANConfiguration_WPAAuthenticationMode, READ_WRITE, STRING,
               "InternetGatewayDevice.LANDevice.{i}.WLANConfiguration.{i}.WPAAuthenticationMode")
KOVA_PARAMETER(LANDevice_WLANConfiguration_IEEE11iEncryptionModes, READ_WRITE, STRING,
               "InternetGatewayDevice.LANDevice.{i}.WLANConfiguration.{i}.IEEE11iEncryptionModes")
KOVA_PARAMETER(LANDevice_WLANConfiguration_IEEE11iAuthenticationMode, READ_WRITE, STRING,
               "InternetGatewayDevice.LANDevice.{i}.WLANConfiguration.{i}.IEEE11iAuthenticationMode")
KOVA_PARAMETER(LANDevice_WLANConfiguration_X_KOVA_Password, READ_WRITE, STRING,
               "InternetGatewayDevice.LANDevice.{i}.WLANConfiguration.{i}.X_KOVA_Password")
KOVA_PARAMETER(LANDevice_WLANConfiguration_AssociatedDeviceNumberOfEntries, READ_ONLY, STRING,
               "InternetGatewayDevice.LANDevice.{i}.WLANConfiguration.{i}.AssociatedDeviceNumberOfEntries")
KOVA_PARAMETER(
    LANDevice_WLANConfiguration_AssociatedDevice_AssociatedDeviceMACAddress, READ_ONLY, MAC_ADDRESS,
    "InternetGatewayDevice.LANDevice.{i}.WLANConfiguration.{i}.AssociatedDevice.{i}.AssociatedDeviceMACAddress")
KOVA_PARAMETER(
    LANDevice_WLANConfiguration_AssociatedDevice_AssociatedDeviceIPAddress, READ_ONLY, STRING,
    "InternetGatewayDevice.LANDevice.{i}.WLANConfiguration.{i}.AssociatedDevice.{i}.AssociatedDeviceIPAddress")

KOVA_PARAMETER(LANDevice_WLANConfiguration_WPS_Enable, READ_WRITE, BOOLEAN,
               "InternetGatewayDevice.LANDevice.{i}.WLANConfiguration.{i}.WPS.Enable")
KOVA_PARAMETER(LANDevice_WLANConfiguration_WPS_DeviceName, READ_ONLY, STRING,
               "InternetGatewayDevice.LANDevice.{i}.WLANConfiguration.{i}.WPS.DeviceName")
KOVA_PARAMETER(LANDevice_WLANConfiguration_WPS_DevicePassword, READ_WRITE, UNSIGNED_INT,
               "InternetGatewayDevice.LANDevice.{i}.WLANConfiguration.{i}.WPS.DevicePassword")

KOVA_PARAMETER(LANDevice_WLANConfiguration_MultiSSID_SSID, READ_WRITE, STRING,
               "InternetGatewayDevice.LANDevice.{i}.WLANConfiguration.{i}.MultiSSID.SSID")
KOVA_PARAMETER(LANDevice_WLANConfiguration_MultiSSID_Enable, READ_WRITE, STRING,
               "InternetGatewayDevice.LANDevice.{i}.WLANConfiguration.{i}.MultiSSID.Enable")
KOVA_PARAMETER(LANDevice_WLANConfiguration_MultiSSID_Status, READ_ONLY, STRING,
               "InternetGatewayDevice.LANDevice.{i}.WLANConfiguration.{i}.MultiSSID.Status")
KOVA_PARAMETER(LANDevice_WLANConfiguration_MultiSSID_BSSID, READ_ONLY, STRING,
               "InternetGatewayDevice.LANDevice.{i}.WLANConfiguration.{i}.MultiSSID.BSSID")
KOVA_PARAMETER(LANDevice_WLANConfiguration_MultiSSID_SSIDAdvertisementEnabled, READ_WRITE, STRING,
               "InternetGatewayDevice.LANDevice.{i}.WLANConfiguration.{i}.MultiSSID.SSIDAdvertisementEnabled")
KOVA_PARAMETER(LANDevice_WLANConfiguration_MultiSSID_TotalBytesSent, READ_ONLY, STRING,
               "InternetGatewayDevice.LANDevice.{i}.WLANConfiguration.{i}.MultiSSID.TotalBytesSent")
KOVA_PARAMETER(LANDevice_WLANConfiguration_MultiSSID_TotalBytesReceived, READ_ONLY, STRING,
               "InternetGatewayDevice.LANDevice.{i}.WLANConfiguration.{i}.MultiSSID.TotalBytesReceived")
KOVA_PARAMETER(LANDevice_WLANConfiguration_MultiSSID_TotalPacketsSent, READ_ONLY, STRING,
               "InternetGatewayDevice.LANDevice.{i}.WLANConfiguration.{i}.MultiSSID.TotalPacketsSent")
KOVA_PARAMETER(LANDevice_WLANConfiguration_MultiSSID_TotalPacketsReceived, READ_ONLY, STRING,
               "InternetGatewayDevice.LANDevice.{i}.WLANConfiguration.{i}.MultiSSID.TotalPacketsReceived")
KOVA_PARAMETER(LANDevice_WLANConfiguration_MultiSSID_TotalErrorsSent, READ_ONLY, STRING,
               "InternetGatewayDevice.LANDevice.{i}.WLANConfiguration.{i}.MultiSSID.TotalErrorsSent")
KOVA_PARAMETER(LANDevice_WLANConfiguration_MultiSSID_TotalErrorsReceived, READ_ONLY, STRING,
               "InternetGatewayDevice.LANDevice.{i}.WLANConfiguration.{i}.MultiSSID.TotalErrorsReceived")
KOVA_PARAMETER(LANDevice_WLANConfiguration_MultiSSID_BeaconType, READ_WRITE, STRING,
               "InternetGatewayDevice.LANDevice.{i}.WLANConfiguration.{i}.MultiSSID.BeaconType")
KOVA_PARAMETER(LANDevice_WLANConfiguration_MultiSSID_WPAEncryptionModes, READ_WRITE, STRING,
               "InternetGatewayDevice.LANDevice.{i}.WLANConfiguration.{i}.MultiSSID.WPAEncryptionModes")
KOVA_PARAMETER(LANDevice_WLANConfiguration_MultiSSID_WPAAuthenticationMode, READ_WRITE, STRING,
               "InternetGatewayDevice.LANDevice.{i}.WLANConfiguration.{i}.MultiSSID.WPAAuthenticationMode")
KOVA_PARAMETER(LANDevice_WLANConfiguration_MultiSSID_IEEE11iEncryptionModes, READ_WRITE, STRING,
               "InternetGatewayDevice.LANDevice.{i}.WLANConfiguration.{i}.MultiSSID.IEEE11iEncryptionModes")
KOVA_PARAMETER(LANDevice_WLANConfiguration_MultiSSID_IEEE11iAuthenticationMode, READ_WRITE, STRING,
               "InternetGatewayDevice.LANDevice.{i}.WLANConfiguration.{i}.MultiSSID.IEEE11iAuthenticationMode")
KOVA_PARAMETER(LANDevice_WLANConfiguration_MultiSSID_X_KOVA_Password, READ_WRITE, STRING,
               "InternetGatewayDevice.LANDevice.{i}.WLANConfiguration.{i}.MultiSSID.X_KOVA_Password")
KOVA_PARAMETER(LANDevice_WLANConfiguration_MultiSSID_AssociatedDeviceNumberOfEntries, READ_ONLY, STRING,
               "InternetGatewayDevice.LANDevice.{i}.WLANConfiguration.{i}.MultiSSID.AssociatedDeviceNumberOfEntries")
KOVA_PARAMETER(LANDevice_WLANConfiguration_MultiSSID_AssociatedDevice_AssociatedDeviceMACAddress, READ_ONLY, STRING,
               "InternetGatewayDevice.LANDevice.{i}.WLANConfiguration.{i}.MultiSSID.AssociatedDevice.{i}."
               "AssociatedDeviceMACAddress")
KOVA_PARAMETER(LANDevice_WLANConfiguration_MultiSSID_AssociatedDevice_AssociatedDeviceIPAddress, READ_ONLY, STRING,
               "InternetGatewayDevice.LANDevice.{i}.WLANConfiguration.{i}.MultiSSID.AssociatedDevice.{i}."
               "AssociatedDeviceIPAddress")

KOVA_PARAMETER(WiFi_RadioNumberOfEntries, READ_ONLY, UNSIGNED_INT, "Device.WiFi.RadioNumberOfEntries")
KOVA_PARAMETER(WiFi_Radio_Enable, READ_WRITE, BOOLEAN, "Device.WiFi.Radio.{i}.Enable")
KOVA_PARAMETER(WiFi_Radio_Status, READ_ONLY, STRING, "Device.WiFi.Radio.{i}.Status")
KOVA_PARAMETER(WiFi_Radio_SupportedFrequencyBands, READ_ONLY, LIST, "Device.WiFi.Radio.{i}.SupportedFrequencyBands")
KOVA_PARAMETER(WiFi_Radio_OperatingFrequencyBand, READ_ONLY, STRING, "Device.WiFi.Radio.{i}.OperatingFrequencyBand")
KOVA_PARAMETER(WiFi_Radio_SupportedStandards, READ_ONLY, LIST, "Device.WiFi.Radio.{i}.SupportedStandards")
KOVA_PARAMETER(WiFi_Radio_OperatingStandards, READ_WRITE, LIST, "Device.WiFi.Radio.{i}.OperatingStandards")
KOVA_PARAMETER(LANDevice_WLANConfiguration_Standard, READ_WRITE, STRING,
               "InternetGatewayDevice.LANDevice.{i}.WLANConfiguration.{i}.Standard")
KOVA_PARAMETER(WiFi_Radio_SupportedOperatingChannelBandwidths, READ_ONLY, LIST,
               "Device.WiFi.Radio.{i}.SupportedOperatingChannelBandwidths")
KOVA_PARAMETER(WiFi_Radio_OperatingChannelBandwidth, READ_WRITE, STRING,
               "Device.WiFi.Radio.{i}.OperatingChannelBandwidth")
KOVA_PARAMETER(WiFi_Radio_CurrentOperatingChannelBandwidth, READ_ONLY, STRING,
               "Device.WiFi.Radio.{i}.CurrentOperatingChannelBandwidth")
KOVA_PARAMETER(WiFi_Radio_ChannelsInUse, READ_ONLY, LIST, "Device.WiFi.Radio.{i}.ChannelsInUse")
KOVA_PARAMETER(WiFi_Radio_Channel, READ_WRITE, UNSIGNED_INT, "Device.WiFi.Radio.{i}.Channel")
KOVA_PARAMETER(WiFi_Radio_AutoChannelSupported, READ_ONLY, BOOLEAN, "Device.WiFi.Radio.{i}.AutoChannelSupported")
KOVA_PARAMETER(WiFi_Radio_AutoChannelEnable, READ_WRITE, BOOLEAN, "Device.WiFi.Radio.{i}.AutoChannelEnable")
KOVA_PARAMETER(WiFi_Radio_TransmitPowerSupported, READ_ONLY, LIST, "Device.WiFi.Radio.{i}.TransmitPowerSupported")
KOVA_PARAMETER(WiFi_Radio_TransmitPower, READ_WRITE, INT, "Device.WiFi.Radio.{i}.TransmitPower")

KOVA_PARAMETER(WiFi_SSIDNumberOfEntries, READ_ONLY, UNSIGNED_INT, "Device.WiFi.SSIDNumberOfEntries")
KOVA_PARAMETER(WiFi_SSID_Enable, READ_WRITE, BOOLEAN, "Device.WiFi.SSID.{i}.Enable")
KOVA_PARAMETER(WiFi_SSID_Status, READ_ONLY, STRING, "Device.WiFi.SSID.{i}.Status")
KOVA_PARAMETER(WiFi_SSID_LowerLayers, READ_ONLY, LIST, "Device.WiFi.SSID.{i}.LowerLayers")
KOVA_PARAMETER(WiFi_SSID_BSSID, READ_ONLY, MAC_ADDRESS, "Device.WiFi.SSID.{i}.BSSID")
KOVA_PARAMETER(WiFi_SSID_MACAddress, READ_ONLY, MAC_ADDRESS, "Device.WiFi.SSID.{i}.MACAddress")
KOVA_PARAMETER(WiFi_SSID_SSID, READ_WRITE, STRING, "Device.WiFi.SSID.{i}.SSID")
KOVA_PARAMETER(WiFi_SSID_Stats_BytesSent, READ_ONLY, UNSIGNED_LONG, "Device.WiFi.SSID.{i}.Stats.BytesSent")
KOVA_PARAMETER(WiFi_SSID_Stats_BytesReceived, READ_ONLY, UNSIGNED_LONG, "Device.WiFi.SSID.{i}.Stats.BytesReceived")
KOVA_PARAMETER(WiFi_SSID_Stats_PacketsSent, READ_ONLY, UNSIGNED_LONG, "Device.WiFi.SSID.{i}.Stats.PacketsSent")
KOVA_PARAMETER(WiFi_SSID_Stats_PacketsReceived, READ_ONLY, UNSIGNED_LONG, "Device.WiFi.SSID.{i}.Stats.PacketsReceived")
KOVA_PARAMETER(WiFi_SSID_Stats_ErrorsSent, READ_ONLY, UNSIGNED_INT, "Device.WiFi.SSID.{i}.Stats.ErrorsSent")
KOVA_PARAMETER(WiFi_SSID_Stats_ErrorsReceived, READ_ONLY, UNSIGNED_INT, "Device.WiFi.SSID.{i}.Stats.ErrorsReceived")

KOVA_PARAMETER(WiFi_AccessPointNumberOfEntries, READ_ONLY, UNSIGNED_INT, "Device.WiFi.AccessPointNumberOfEntries")
KOVA_PARAMETER(WiFi_AccessPoint_Enable, READ_WRITE, BOOLEAN, "Device.WiFi.AccessPoint.{i}.Enable")
KOVA_PARAMETER(WiFi_AccessPoint_Status, READ_ONLY, STRING, "Device.WiFi.AccessPoint.{i}.Status")
KOVA_PARAMETER(WiFi_AccessPoint_SSIDReference, READ_ONLY, STRING, "Device.WiFi.AccessPoint.{i}.SSIDReference")
KOVA_PARAMETER(WiFi_AccessPoint_SSIDAdvertisementEnabled, READ_WRITE, BOOLEAN,
               "Device.WiFi.AccessPoint.{i}.SSIDAdvertisementEnabled")
KOVA_PARAMETER(WiFi_AccessPoint_AssociatedDeviceNumberOfEntries, READ_ONLY, UNSIGNED_INT,
               "Device.WiFi.AccessPoint.{i}.AssociatedDeviceNumberOfEntries")
KOVA_PARAMETER(WiFi_AccessPoint_AssociatedDevice_MACAddress, READ_ONLY, MAC_ADDRESS,
               "Device.WiFi.AccessPoint.{i}.AssociatedDevice.{i}.MACAddress")
KOVA_PARAMETER(WiFi_AccessPoint_AssociatedDevice_SignalStrength, READ_ONLY, INT,
               "Device.WiFi.AccessPoint.{i}.AssociatedDevice.{i}.SignalStrength")
KOVA_PARAMETER(WiFi_AccessPoint_Security_ModesSupported, READ_ONLY, LIST,
               "Device.WiFi.AccessPoint.{i}.Security.ModesSupported")
KOVA_PARAMETER(WiFi_AccessPoint_Security_ModeEnabled, READ_WRITE, STRING,
               "Device.WiFi.AccessPoint.{i}.Security.ModeEnabled")
KOVA_PARAMETER(WiFi_AccessPoint_Security_KeyPassphrase, READ_WRITE, STRING,
               "Device.WiFi.AccessPoint.{i}.Security.KeyPassphrase")
KOVA_PARAMETER(WiFi_AccessPoint_Security_EncryptionMode, READ_ONLY, LIST,
               "Device.WiFi.AccessPoint.{i}.Security.EncryptionMode")

KOVA_PARAMETER(WiFi_NeighboringWiFiDiagnostic_DiagnosticsState, READ_WRITE, STRING,
               "Device.WiFi.NeighboringWiFiDiagnostic.DiagnosticsState")
KOVA_PARAMETER(WiFi_NeighboringWiFiDiagnostic_ResultNumberOfEntries, READ_ONLY, UNSIGNED_INT,
               "Device.WiFi.NeighboringWiFiDiagnostic.ResultNumberOfEntries")
KOVA_PARAMETER(WiFi_NeighboringWiFiDiagnostic_Result_SSID, READ_ONLY, STRING,
               "Device.WiFi.NeighboringWiFiDiagnostic.Result.{i}.SSID")
KOVA_PARAMETER(WiFi_NeighboringWiFiDiagnostic_Result_BSSID, READ_ONLY, MAC_ADDRESS,
               "Device.WiFi.NeighboringWiFiDiagnostic.Result.{i}.BSSID")
KOVA_PARAMETER(WiFi_NeighboringWiFiDiagnostic_Result_Channel, READ_ONLY, UNSIGNED_INT,
               "Device.WiFi.NeighboringWiFiDiagnostic.Result.{i}.Channel")
KOVA_PARAMETER(WiFi_NeighboringWiFiDiagnostic_Result_SignalStrength, READ_ONLY, INT,
               "Device.WiFi.NeighboringWiFiDiagnostic.Result.{i}.SignalStrength")
KOVA_PARAMETER(WiFi_NeighboringWiFiDiagnostic_Result_Radio, READ_ONLY, STRING,
               "Device.WiFi.NeighboringWiFiDiagnostic.Result.{i}.Radio")
KOVA_PARAMETER(WiFi_NeighboringWiFiDiagnostic_Result_OperatingFrequencyBand, READ_ONLY, STRING,
               "Device.WiFi.NeighboringWiFiDiagnostic.Result.{i}.OperatingFrequencyBand")
KOVA_PARAMETER(WiFi_NeighboringWiFiDiagnostic_Result_OperatingChannelBandwidth, READ_ONLY, STRING,
               "Device.WiFi.NeighboringWiFiDiagnostic.Result.{i}.OperatingChannelBandwidth")

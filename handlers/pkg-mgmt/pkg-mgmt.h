/*
 * pkg-mgmt.h: the ManagementServer object, which both trees have under one name. Each row declares a handler of the
 * form described in pkg-tool.h.
 */
#include "pkg-tool.h"

KOVA_PARAMETER(ManagementServer_EnableCWMP, READ_WRITE, BOOLEAN, KOVA_BOTH_TREES("ManagementServer.EnableCWMP"))
KOVA_PARAMETER(ManagementServer_URL, READ_WRITE, STRING, KOVA_BOTH_TREES("ManagementServer.URL"))
KOVA_PARAMETER(ManagementServer_Username, READ_WRITE, STRING, KOVA_BOTH_TREES("ManagementServer.Username"))
KOVA_PARAMETER(ManagementServer_Password, READ_WRITE, SECRET, KOVA_BOTH_TREES("ManagementServer.Password"))
KOVA_PARAMETER(ManagementServer_PeriodicInformEnable, READ_WRITE, BOOLEAN,
               KOVA_BOTH_TREES("ManagementServer.PeriodicInformEnable"))
KOVA_PARAMETER(ManagementServer_PeriodicInformInterval, READ_WRITE, UNSIGNED_INT,
               KOVA_BOTH_TREES("ManagementServer.PeriodicInformInterval"))
KOVA_PARAMETER(ManagementServer_ParameterKey, READ_ONLY, STRING, KOVA_BOTH_TREES("ManagementServer.ParameterKey"))
KOVA_PARAMETER(ManagementServer_ConnectionRequestURL, READ_ONLY, STRING,
               KOVA_BOTH_TREES("ManagementServer.ConnectionRequestURL"))
KOVA_PARAMETER(ManagementServer_ConnectionRequestUsername, READ_WRITE, STRING,
               KOVA_BOTH_TREES("ManagementServer.ConnectionRequestUsername"))
KOVA_PARAMETER(ManagementServer_ConnectionRequestPassword, READ_WRITE, SECRET,
               KOVA_BOTH_TREES("ManagementServer.ConnectionRequestPassword"))
KOVA_PARAMETER(ManagementServer_KickURL, READ_WRITE, STRING, KOVA_BOTH_TREES("ManagementServer.KickURL"))
KOVA_PARAMETER(ManagementServer_UDPConnectionRequestAddress, READ_ONLY, STRING,
               KOVA_BOTH_TREES("ManagementServer.UDPConnectionRequestAddress"))
KOVA_PARAMETER(ManagementServer_NATDetected, READ_ONLY, BOOLEAN, KOVA_BOTH_TREES("ManagementServer.NATDetected"))
KOVA_PARAMETER(ManagementServer_STUNEnable, READ_WRITE, BOOLEAN, KOVA_BOTH_TREES("ManagementServer.STUNEnable"))
KOVA_PARAMETER(ManagementServer_STUNServerAddress, READ_WRITE, STRING,
               KOVA_BOTH_TREES("ManagementServer.STUNServerAddress"))
KOVA_PARAMETER(ManagementServer_STUNServerPort, READ_WRITE, UNSIGNED_INT,
               KOVA_BOTH_TREES("ManagementServer.STUNServerPort"))
KOVA_PARAMETER(ManagementServer_STUNUsername, READ_WRITE, STRING, KOVA_BOTH_TREES("ManagementServer.STUNUsername"))
KOVA_PARAMETER(ManagementServer_STUNPassword, READ_WRITE, SECRET, KOVA_BOTH_TREES("ManagementServer.STUNPassword"))
KOVA_PARAMETER(ManagementServer_STUNMinimumKeepAlivePeriod, READ_WRITE, UNSIGNED_INT,
               KOVA_BOTH_TREES("ManagementServer.STUNMinimumKeepAlivePeriod"))
KOVA_PARAMETER(ManagementServer_STUNMaximumKeepAlivePeriod, READ_WRITE, INT,
               KOVA_BOTH_TREES("ManagementServer.STUNMaximumKeepAlivePeriod"))
KOVA_PARAMETER(ManagementServer_EnableResetFactory, READ_WRITE, STRING,
               KOVA_BOTH_TREES("ManagementServer.EnableResetFactory"))

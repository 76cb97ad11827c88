// Where the router keeps what the plug-in works with.
#pragma once

namespace seam {

inline constexpr char kMainStore[] = "/etc/config";
inline constexpr char kPendingChanges[] = "/tmp/.uci";  // until they are committed
inline constexpr char kMirror[] = "/tmp/cwmp-config";   // the agent's copies of changes
inline constexpr char kForcedMirror[] = "/tmp/cwmp-config-force";
inline constexpr char kStateFiles[] = "/tmp/tr069";
inline constexpr char kTestFiles[] = "/tmp/diag";
inline constexpr char kTaskRecord[] = "/tmp/tr069/cmd_record";
inline constexpr char kTaskRecordOnce[] = "/tmp/tr069/cmd_record_once";
inline constexpr char kDebugFile[] = "/tmp/cwmp_debug";  // while it is there, the plug-in logs

// The directories of files that handlers read and write.
inline constexpr const char* kKeptDirectories[] = {
    kMainStore, "/etc/profile.d", kPendingChanges, kMirror, kForcedMirror, kTestFiles, kStateFiles, "/var/state",
};

// All that the simulated router makes anew when it is reset.
inline constexpr const char* kLabFiles[] = {kMainStore,        "/etc/lab",       "/etc/profile.d",  "/etc/rom_version",
                                            "/etc/TZ",         "/etc/localtime", "/sys/class/leds", "/tmp",
                                            "/usr/bin/bdinfo", "/usr/bin/ddns",  "/usr/bin/iwinfo", "/usr/bin/tr069",
                                            "/var/etc",        "/var/run",       "/var/state"};

}  // namespace seam

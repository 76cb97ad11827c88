/*
 * pkg-tool.h: the public header of the data-model plug-in, for C and C++.
 *
 * The management agent loads libkova-datamodel.so and calls one exported function, the parameter handler, for each
 * parameter of the data model that it reads or writes. This header has the form of a handler, the bits through which a
 * set tells the agent what to apply, the record of the agent's that some getters read, and the helpers that the
 * library offers beside its handlers. The handlers themselves are declared in the family headers (pkg-mgmt.h, ...).
 *
 * The library keeps nothing between calls, but within one look (kova_look_begin), and takes no locks: calls must not
 * overlap.
 */
#ifndef KOVA_PKG_TOOL_H
#define KOVA_PKG_TOOL_H

#include <stdarg.h>
#include <stdint.h>

#ifdef KOVA_BUILDING_PLUGIN
#define KOVA_VISIBILITY "protected" /* the library's own calls stay in it */
#else
#define KOVA_VISIBILITY "default"
#endif
#ifdef __cplusplus
#define KOVA_API extern "C" __attribute__((visibility(KOVA_VISIBILITY)))
#else
#define KOVA_API extern __attribute__((visibility(KOVA_VISIBILITY)))
#endif
#define KOVA_PRINTF(format, first) __attribute__((__format__(__printf__, format, first)))

/*
 * A parameter handler. `operation` 0 gets, every other value sets. `arguments` is a started list that holds, in this
 * order:
 *   1. int32_t *         instance numbers of the path, outermost first, 1-based, one per placeholder, no count; a zero
 *                        behind them. The wireless handlers may leave other numbers in it.
 *   2. char *            get: output buffer; it must hold the longest value of the parameter (the size is not passed)
 *      const char *      set: the new value, NUL-terminated
 *   3. struct agent_state *   get: the agent's record
 *      uint32_t *             set: the apply mask, into which the handler ORs APPLY_ bits
 * The handler reads a copy; the caller's list is as it was afterwards only where va_list is passed by value, so start a
 * fresh one for each call. Returns 0, or -1 when the row does not exist, the value is refused or the parameter is
 * read-only; a failed set marks nothing.
 */
typedef int32_t (*parameter_handler)(int32_t operation, va_list arguments);

/* What the agent has to apply after a set request, collected over all its calls. */
enum apply_mask {
  APPLY_TASK_COMMANDS = 0x1, /* run the recorded task commands */
  APPLY_WLAN = 0x2,
  APPLY_MANAGEMENT = 0x4,
  APPLY_ROUTES = 0x10,
  APPLY_IPPING_DIAG = 0x40,
  APPLY_TRACEROUTE_DIAG = 0x80,
  APPLY_DDNS = 0x100,
  APPLY_REMOTE_ACCESS = 0x200,
  APPLY_REMOTE_ACCESS_OFF = 0x400,
  APPLY_VLAN = 0x800,
  APPLY_QOS = 0x1000,
  APPLY_CELLULAR = 0x2000,
  APPLY_MULTI_SSID = 0x4000,
  APPLY_UPLOAD_DIAG = 0x8000,
  APPLY_DOWNLOAD_DIAG = 0x10000,
  APPLY_UDP_ECHO = 0x20000,
  APPLY_NSLOOKUP_DIAG = 0x40000,
  APPLY_NEIGHBOR_WIFI_DIAG = 0x80000,
  APPLY_LEDS = 0x100000,
  APPLY_IGMP_PROXY = 0x200000
};

/* What the running agent uses, as opposed to what is configured. Texts are NUL-terminated; periods are in seconds. */
struct agent_state {
  uint16_t connection_request_port;
  const char* connection_request_path; /* begins with "/" */
  const char* connection_request_host;
  uint8_t stun_enabled; /* 0 or 1 */
  uint8_t nat_detected; /* 1: detected */
  uint16_t stun_max_keepalive;
  uint16_t stun_min_keepalive;
  char stun_username[64];
  char stun_password[64];
  char udp_connection_request_address[64];
  char stun_server_address[64];
  uint16_t stun_server_port;
  const char* wan_interface; /* kernel device name */
};

/*
 * A row of a family's catalogue. Plainly included, a row declares its handler; a program that wants the catalogue
 * itself includes this header, redefines KOVA_PARAMETER, and includes the family headers again.
 *   handler  the exported function
 *   access   READ_ONLY or READ_WRITE
 *   type     the value's data type, as the data model names it: STRING, BOOLEAN, UNSIGNED_INT, ...
 *   ...      the path or paths that the handler serves, {i} for an instance number; KOVA_BOTH_TREES(path) where the
 *            two trees have the same object
 */
#define KOVA_PARAMETER(handler, access, type, ...) KOVA_API int32_t handler(int32_t operation, va_list arguments);
#define KOVA_BOTH_TREES(path) "InternetGatewayDevice." path, "Device." path

/* ---- One look ----
 *
 * What a request gets may come from one look at the router: between the begin and the end a command line that is read
 * is run once, to its end, a package of the configuration and a text file are read once, and the bus is asked once for
 * each object, method and message; a script that gets run for the files it leaves is run once. Results are those without
 * a look. A set and whatever else is run or written for its effect is safe in between: the next get looks anew. So it
 * does after 60 seconds, and at sources that are too large to keep: all of them take at most 1 MiB.
 */

/* From now on gets share what they see, until the end. A second begin looks anew. */
KOVA_API void kova_look_begin(void);

/* Keeps nothing any more. Does nothing without a begin; unloading the library does it, too. */
KOVA_API void kova_look_end(void);

/* ---- Log ---- */

/*
 * The debug log. While the file /tmp/cwmp_debug exists the message goes to standard error and to the system log
 * (LOG_INFO); otherwise nothing happens. Every format begins with "%s, %d: " and is followed by the calling module's
 * source-file name and line.
 */
KOVA_API void normal_debug_print(const char* format, ...) KOVA_PRINTF(1, 2);

/* Writes the message to the system log at LOG_INFO, whether or not the debug log is on. For the agent. */
KOVA_API void syslog_message(const char* format, ...) KOVA_PRINTF(1, 2);

/* ---- Configuration store ----
 *
 * All return 0, or -1 after logging why. Sections are named; list options count as missing. Texts are NUL-terminated.
 */

/* Copies package.section.option of /etc/config whole into `output`, which must have room; untouched on failure. */
KOVA_API int32_t uci_raw_extract_value(const char* package, const char* section, const char* option, char* output);

/*
 * Writes and commits the option in /etc/config, creating the section (typed by its own name) when it is missing, then
 * does the same in the change mirror /tmp/cwmp-config, or for a forced key in /tmp/cwmp-config-force. An empty value
 * removes the option. -1 from the mirror step leaves the main store committed.
 */
KOVA_API int32_t uci_raw_set_value(const char* package, const char* section, const char* option, const char* value);

/* As uci_raw_extract_value, on the state files below /tmp/tr069. */
KOVA_API int32_t uci_raw_extract_value_By_path(const char* package, const char* section, const char* option,
                                               char* output);

/* Writes and commits an option of an existing section of an existing state file below /tmp/tr069. */
KOVA_API int32_t uci_raw_set_value_By_path(const char* package, const char* section, const char* option,
                                           const char* value);

/*
 * Drops the saved, uncommitted changes (/var/state) of a package, section or option of /etc/config. `path` is
 * "package[.section[.option]]", "@type[n]" allowed; at most 100 characters of it are used.
 */
KOVA_API int32_t uciRevert(const char* path);

/*
 * Reads `option` of the first section of `type` in /etc/profile.d/profile. At most `length` (> 0) characters are
 * copied and a zero is stored at output[length + 1]: `output` must hold length + 2 bytes, and the caller clears it
 * beforehand, as a value of `length` characters or more leaves output[length] as it was.
 */
KOVA_API int32_t uciGetProfileValue(const char* type, const char* option, char* output, int32_t length);

/* ---- Commands and task records ---- */

/*
 * Runs `command` in the shell and reads the first line of its output, at most length - 1 characters, into `output`.
 * Returns the line's length without the newline; -1 when the command cannot be started or prints nothing, in which
 * case `output` is untouched.
 */
KOVA_API int32_t util_exec(const char* command, char* output, int32_t length);

/* Runs `command` in the shell: 0 exit status 0, -2 other status or a signal, -1 it could not be run. */
KOVA_API int32_t cwmp_system(const char* command);

/*
 * The whole of a read-only handler whose value is the first line (at most 99 characters) of a command's output.
 * Returns 0 on a get (also when nothing was printed: empty value), -1 when the command cannot be started or on a set.
 */
KOVA_API int32_t GetFirmDeviceInfo(int32_t operation, va_list arguments, const char* command);

/* Appends a command line to /tmp/tr069/cmd_record, which the agent runs after the set request. 0 or -1. */
KOVA_API int32_t record_task_cmd(const char* command);

/* Makes the command line the only one of /tmp/tr069/cmd_record_once. 0 or -1. */
KOVA_API int32_t record_task_cmd_once(const char* command);

/* ---- State files below /tmp/tr069 ---- */

/* Makes the hosts table /tmp/tr069/hosts with its generator. 0 when it is there already, else as cwmp_system. */
KOVA_API int32_t generate_host_info(void);

/* The same for the mesh list /tmp/tr069/meshlist. */
KOVA_API int32_t generate_mesh_info(void);

/* Removes the hosts table, so that the next reader has it made anew. As cwmp_system; -1 when there is none. */
KOVA_API int32_t delete_host_info(void);

/* ---- Bus ---- */

struct blob_attr;
struct ubus_request;
typedef void (*bus_reply_handler)(struct ubus_request* request, int type, struct blob_attr* reply);

/*
 * Calls `method` of the bus object `path` with `message` (NULL for none) and hands the reply to `reply_handler`, whose
 * request carries `context` as priv. Waits at most `timeout` milliseconds. Returns 0, the bus's error code of the
 * look-up or the call, or -1 for a missing argument or no bus.
 */
KOVA_API int32_t ubus_call(const char* path, const char* method, struct blob_attr* message,
                           bus_reply_handler reply_handler, void* context, int32_t timeout);

/* What the status queries can ask for. */
enum bus_status_query {
  INTERFACE_UP = 0,     /* "1" or "0" */
  INTERFACE_UPTIME = 1, /* seconds */
  INTERFACE_DEVICE = 2,
  INTERFACE_L3_DEVICE = 3,
  INTERFACE_PROTO = 4,
  INTERFACE_ADDRESS = 5,     /* the first IPv4 address */
  INTERFACE_MASK = 6,        /* its netmask, dotted quad; a prefix of 0 reads as 255.255.255.255 */
  INTERFACE_NEXTHOP = 7,     /* of the first route */
  INTERFACE_DNS_SERVERS = 8, /* joined with "," */
  DEVICE_MAC = 9,
  DEVICE_TX_BYTES = 10,
  DEVICE_TX_PACKETS = 11,
  DEVICE_TX_ERRORS = 12,
  DEVICE_RX_BYTES = 13,
  DEVICE_RX_PACKETS = 14,
  DEVICE_RX_ERRORS = 15,
  DEVICE_BRIDGE_MEMBERS = 16 /* joined with "," */
};

/*
 * Writes one field of a network interface's status (queries 0 to 8) into `output`, cut to `length` bytes. Returns as
 * ubus_call, -1 also without name or output. A field that the reply lacks leaves `output` as it was: fill in a default
 * first.
 */
KOVA_API int32_t netif_get_interface_status(const char* name, uint32_t query, char* output, int32_t length);

/* The same for a network device (queries 9 to 16). */
KOVA_API int32_t netif_get_device_status(const char* name, uint32_t query, char* output, int32_t length);

/* ---- Validation. Note the different results. ---- */

/* 1 for a canonical dotted-quad IPv4 address, else 0. */
KOVA_API int32_t checkValidIP(const char* text);

/* 0 for an IPv4 address or a host name of at most 256 characters, else -1. */
KOVA_API int32_t validityHost(const char* text);

/* Decimal digits only, and by kind 1: any; 2: at most 6 of them; 3: 1 to 65535. 0 valid, else -1. */
KOVA_API int32_t validityCheck(const char* text, int32_t kind);

/*
 * Six groups of two hexadecimal digits between colons, in a text longer than 17 characters (so with a separator more
 * than usual). The text is split in place. 1 valid; 0 a bad digit or not six groups; -1 too short, or a group that is
 * not two characters long.
 */
KOVA_API int32_t CheckValidMacAddr(char* text);

/* ---- Counters, board, channels ---- */

/* What get_TotalBytesAndPackets_by_name can count. */
enum interface_counter {
  COUNTER_BYTES_SENT = 0,
  COUNTER_BYTES_RECEIVED = 1,
  COUNTER_PACKETS_SENT = 2,
  COUNTER_PACKETS_RECEIVED = 3,
  COUNTER_ERRORS_SENT = 4,
  COUNTER_ERRORS_RECEIVED = 5
};

/*
 * Reads a counter of a kernel interface, in decimal, into `output`, cut to `length` bytes; left as it was when the
 * kernel's field is not a number. 0, or -1 for no such interface or counter.
 */
KOVA_API int32_t get_TotalBytesAndPackets_by_name(const char* name, int32_t counter, char* output, int32_t length);

/* The board's MAC address, the cloud serial number and the device serial number; all as util_exec. */
KOVA_API int32_t get_mac(char* output, int32_t length);
KOVA_API int32_t get_cloud_sn(char* output, int32_t length);
KOVA_API int32_t get_device_sn(char* output, int32_t length);

/*
 * The first 6 digits of the board's MAC address, as written, without separators. Returns their number; -1 when `length`
 * is below 6. With a length of just 6 a full text has no terminating zero.
 */
KOVA_API int32_t get_oui(char* output, int32_t length);

/* All digits of the board's MAC address. Returns their number; -1 when `length` is below 20. */
KOVA_API int32_t get_mac_last(char* output, int32_t length);

/*
 * The channels that a radio supports. `instances` names the radio's network as WLANConfiguration does: (1, i) or
 * (i, 0). `variant` 0 is its main network, 1 its extra one. With mode 0 `channel` receives the list, a space after each
 * number (512 bytes are enough), and 0 is returned; with another mode `channel` holds a number, and the result is the
 * mode when the radio supports it, else 0. -1 for no such network, or one without an interface.
 */
KOVA_API int32_t GetChannelPoll(int32_t mode, const void* unused, char* channel, const int32_t* instances,
                                int32_t variant);

/* ---- DHCP pool ---- */

/* The configured pool's first and last address, dotted quad, into two texts of at least 16 bytes. 0 or -1. */
KOVA_API int32_t dhcp_calc_ipaddr_pool(char* first, char* last);

/*
 * Checks a pool range that lies in the LAN subnet, or completes one of which one end is empty from the configured pool.
 * Both texts hold at least 16 bytes. 0, or -1 for addresses that are malformed, outside, or in the wrong order.
 */
KOVA_API int32_t dhcp_calc_pool_range(char* first, char* last);

#endif

// The functions of the C library's and the platform's through which the plug-in reaches the world: its commands, files,
// log, configuration and bus; and those through which the stand-ins' libraries write files, which can fail as well. The
// one list of them: whoever stands between the plug-in and the world includes it with definitions of
//
//   KOVA_CALL(type, name, parameters, arguments, failure, error)  failing means this result, and this errno
//   KOVA_PATH_CALL(...)                                           the same, of the file at `path`; else a KOVA_CALL
//   KOVA_SURE_CALL(type, name, parameters, arguments)             one that does not fail; else a KOVA_CALL
#ifndef KOVA_PATH_CALL
#define KOVA_PATH_CALL KOVA_CALL
#endif
#ifndef KOVA_SURE_CALL
#define KOVA_SURE_CALL(type, name, parameters, arguments) KOVA_CALL(type, name, parameters, arguments, , )
#endif

// ---- Commands ----
KOVA_CALL(FILE*, popen, (const char* command, const char* mode), (command, mode), nullptr, EMFILE)
KOVA_SURE_CALL(int, pclose, (FILE * pipe), (pipe))
KOVA_CALL(int, system, (const char* command), (command), -1, EAGAIN)
KOVA_SURE_CALL(int, sigaction, (int signal, const struct sigaction* action, struct sigaction* before),
               (signal, action, before))

// ---- Files ----
KOVA_PATH_CALL(FILE*, fopen, (const char* path, const char* mode), (path, mode), nullptr, EMFILE)
KOVA_PATH_CALL(int, open, (const char* path, int flags, mode_t mode), (path, flags, mode), -1, EMFILE)
KOVA_PATH_CALL(int, access, (const char* path, int mode), (path, mode), -1, EACCES)
KOVA_PATH_CALL(int, mkdir, (const char* path, mode_t mode), (path, mode), -1, ENOSPC)
KOVA_PATH_CALL(int, stat, (const char* path, struct stat* status), (path, status), -1, EIO)
KOVA_PATH_CALL(int, statfs, (const char* path, struct statfs* status), (path, status), -1, EIO)
KOVA_PATH_CALL(int, unlink, (const char* path), (path), -1, EIO)
KOVA_CALL(int, rename, (const char* from, const char* to), (from, to), -1, EIO)
KOVA_CALL(int, fclose, (FILE * file), (file), EOF, ENOSPC)
KOVA_CALL(int, fstat, (int file, struct stat* status), (file, status), -1, EIO)
KOVA_CALL(int, fseek, (FILE * file, long place, int from), (file, place, from), -1, EIO)
KOVA_CALL(size_t, fwrite, (const void* block, size_t size, size_t count, FILE* file), (block, size, count, file), 0,
          ENOSPC)
KOVA_CALL(ssize_t, read, (int file, void* block, size_t size), (file, block, size), -1, EIO)
KOVA_CALL(ssize_t, write, (int file, const void* block, size_t size), (file, block, size), -1, ENOSPC)
KOVA_CALL(int, ftruncate, (int file, off_t size), (file, size), -1, EIO)
KOVA_CALL(int, fsync, (int file), (file), -1, EIO)
KOVA_CALL(int, flock, (int file, int operation), (file, operation), -1, ENOLCK)

// ---- Log ----
KOVA_SURE_CALL(void, vsyslog, (int priority, const char* format, va_list arguments), (priority, format, arguments))
KOVA_SURE_CALL(int, vfprintf, (FILE * file, const char* format, va_list arguments), (file, format, arguments))

// ---- Configuration ----
KOVA_CALL(uci_context*, uci_alloc_context, (), (), nullptr, ENOMEM)
KOVA_SURE_CALL(void, uci_free_context, (uci_context * context), (context))
KOVA_CALL(int, uci_set_confdir, (uci_context * context, const char* directory), (context, directory), UCI_ERR_MEM, 0)
KOVA_CALL(int, uci_set_savedir, (uci_context * context, const char* directory), (context, directory), UCI_ERR_MEM, 0)
KOVA_CALL(int, uci_load, (uci_context * context, const char* name, uci_package** package), (context, name, package),
          UCI_ERR_IO, 0)
KOVA_SURE_CALL(int, uci_unload, (uci_context * context, uci_package* package), (context, package))
KOVA_SURE_CALL(int, uci_lookup_next, (uci_context * context, uci_element** element, uci_list* list, const char* name),
               (context, element, list, name))
KOVA_CALL(int, uci_lookup_ptr, (uci_context * context, uci_ptr* element, char* path, bool extended),
          (context, element, path, extended), UCI_ERR_MEM, 0)
KOVA_CALL(int, uci_set, (uci_context * context, uci_ptr* element), (context, element), UCI_ERR_MEM, 0)
KOVA_CALL(int, uci_commit, (uci_context * context, uci_package** package, bool overwrite),
          (context, package, overwrite), UCI_ERR_IO, 0)
KOVA_CALL(int, uci_revert, (uci_context * context, uci_ptr* element), (context, element), UCI_ERR_IO, 0)

// ---- Bus ----
KOVA_CALL(int, blob_buf_init, (blob_buf * buffer, int id), (buffer, id), -1, 0)
KOVA_CALL(int, blobmsg_add_string, (blob_buf * buffer, const char* name, const char* value), (buffer, name, value), -1,
          0)
KOVA_CALL(int, blobmsg_add_field, (blob_buf * buffer, int kind, const char* name, const void* data, unsigned size),
          (buffer, kind, name, data, size), -1, 0)
KOVA_CALL(int, blobmsg_parse, (const blobmsg_policy* policy, int count, blob_attr** fields, void* data, unsigned size),
          (policy, count, fields, data, size), -1, 0)
KOVA_CALL(ubus_context*, ubus_connect, (const char* socket), (socket), nullptr, 0)
KOVA_SURE_CALL(void, ubus_free, (ubus_context * bus), (bus))
KOVA_CALL(int, ubus_lookup_id, (ubus_context * bus, const char* object, uint32_t* id), (bus, object, id),
          UBUS_STATUS_NOT_FOUND, 0)
KOVA_CALL(int, ubus_invoke_fd,
          (ubus_context * bus, uint32_t id, const char* method, blob_attr* message, ubus_data_handler_t handler,
           void* context, int timeout, int file),
          (bus, id, method, message, handler, context, timeout, file), UBUS_STATUS_TIMEOUT, 0)

// ---- Patterns ----
KOVA_CALL(int, regcomp, (regex_t * expression, const char* pattern, int flags), (expression, pattern, flags),
          REG_ESPACE, 0)

#undef KOVA_CALL
#undef KOVA_PATH_CALL
#undef KOVA_SURE_CALL

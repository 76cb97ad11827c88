/*
 * libubus.h: stand-in for the header of libubus, for development on workstations where the real library is not
 * installed. There is no bus daemon behind it: a call is answered from a JSON file, one per object and method (see
 * lab/README.md). It never ships: on the router the agent brings the real libubus.
 */
#ifndef KOVA_STANDIN_LIBUBUS_H
#define KOVA_STANDIN_LIBUBUS_H

#include <libubox/blobmsg.h>

enum ubus_msg_status {
  UBUS_STATUS_OK,
  UBUS_STATUS_INVALID_COMMAND,
  UBUS_STATUS_INVALID_ARGUMENT,
  UBUS_STATUS_METHOD_NOT_FOUND,
  UBUS_STATUS_NOT_FOUND,
  UBUS_STATUS_NO_DATA,
  UBUS_STATUS_PERMISSION_DENIED,
  UBUS_STATUS_TIMEOUT,
  UBUS_STATUS_NOT_SUPPORTED,
  UBUS_STATUS_UNKNOWN_ERROR,
  UBUS_STATUS_CONNECTION_FAILED,
  UBUS_STATUS_NO_MEMORY,
  UBUS_STATUS_PARSE_ERROR,
  UBUS_STATUS_SYSTEM_ERROR,
  UBUS_STATUS_LAST
};

enum ubus_msg_type { UBUS_MSG_DATA = 2 };

struct ubus_context;

struct ubus_request {
  struct ubus_context* ctx;
  void* priv;
};

typedef void (*ubus_data_handler_t)(struct ubus_request* req, int type, struct blob_attr* msg);

/* NULL when there is no bus: no directory of answers that can be read. The path is not used. */
struct ubus_context* ubus_connect(const char* path);
void ubus_free(struct ubus_context* ctx);

int ubus_lookup_id(struct ubus_context* ctx, const char* object, uint32_t* id);
int ubus_invoke_fd(struct ubus_context* ctx, uint32_t id, const char* method, struct blob_attr* msg,
                   ubus_data_handler_t cb, void* priv, int timeout, int fd);
const char* ubus_strerror(int error);

static inline int ubus_invoke(struct ubus_context* ctx, uint32_t id, const char* method, struct blob_attr* msg,
                              ubus_data_handler_t cb, void* priv, int timeout) {
  return ubus_invoke_fd(ctx, id, method, msg, cb, priv, timeout, -1);
}

#endif

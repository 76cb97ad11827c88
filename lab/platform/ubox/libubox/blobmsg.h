/*
 * blobmsg.h: stand-in for the header of libubox: typed, named attributes in a blob. See blob.h.
 */
#ifndef KOVA_STANDIN_BLOBMSG_H
#define KOVA_STANDIN_BLOBMSG_H

#include "blob.h"

enum blobmsg_type {
  BLOBMSG_TYPE_UNSPEC,
  BLOBMSG_TYPE_ARRAY,
  BLOBMSG_TYPE_TABLE,
  BLOBMSG_TYPE_STRING,
  BLOBMSG_TYPE_INT64,
  BLOBMSG_TYPE_INT32,
  BLOBMSG_TYPE_INT16,
  BLOBMSG_TYPE_INT8,
  BLOBMSG_TYPE_DOUBLE,
  BLOBMSG_TYPE_BOOL = BLOBMSG_TYPE_INT8
};

struct blobmsg_policy {
  const char* name;
  enum blobmsg_type type;
};

int blobmsg_add_field(struct blob_buf* buf, int type, const char* name, const void* data, unsigned int len);
int blobmsg_add_u8(struct blob_buf* buf, const char* name, uint8_t value);
int blobmsg_add_u32(struct blob_buf* buf, const char* name, uint32_t value);
int blobmsg_add_u64(struct blob_buf* buf, const char* name, uint64_t value);
int blobmsg_add_string(struct blob_buf* buf, const char* name, const char* value);
void* blobmsg_open_table(struct blob_buf* buf, const char* name);
void* blobmsg_open_array(struct blob_buf* buf, const char* name);
void blobmsg_close_table(struct blob_buf* buf, void* cookie);
void blobmsg_close_array(struct blob_buf* buf, void* cookie);

const char* blobmsg_name(const struct blob_attr* attr);
int blobmsg_type(const struct blob_attr* attr);
void* blobmsg_data(const struct blob_attr* attr);
size_t blobmsg_data_len(const struct blob_attr* attr);
size_t blobmsg_len(const struct blob_attr* attr);
bool blobmsg_get_bool(struct blob_attr* attr);
uint8_t blobmsg_get_u8(struct blob_attr* attr);
uint32_t blobmsg_get_u32(struct blob_attr* attr);
uint64_t blobmsg_get_u64(struct blob_attr* attr);
char* blobmsg_get_string(struct blob_attr* attr);

/* Whether an attribute is well-formed: its name (with `name`), and the size that its type demands. */
bool blobmsg_check_attr(const struct blob_attr* attr, bool name);

/*
 * Fills `tb`, one entry per policy, with the attribute of that name and exactly that type, or NULL. Returns 0, -1 for a
 * malformed message, -22 for no data.
 */
int blobmsg_parse(const struct blobmsg_policy* policy, int policy_len, struct blob_attr** tb, void* data,
                  unsigned int len);

#define blobmsg_for_each_attr(pos, attr, rem)                                                                        \
  for ((rem) = (attr) ? blobmsg_data_len(attr) : 0, (pos) = (struct blob_attr*)((attr) ? blobmsg_data(attr) : NULL); \
       (rem) >= sizeof(struct blob_attr) && blob_pad_len(pos) <= (rem) &&                                            \
       blob_pad_len(pos) >= sizeof(struct blob_attr);                                                                \
       (rem) -= blob_pad_len(pos), (pos) = blob_next(pos))

#endif

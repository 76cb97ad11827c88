/*
 * blob.h: stand-in for the header of libubox, for development on workstations where the real library is not installed.
 * A blob is a tree of attributes: a 32-bit big-endian word (1 bit "extended", 7 bits id, 24 bits length with header),
 * then the data, padded to 4 bytes. It never ships: on the router the agent brings the real libubox.
 * As with the real one, C++ code includes it, and what includes it, within extern "C".
 */
#ifndef KOVA_STANDIN_BLOB_H
#define KOVA_STANDIN_BLOB_H

#include <stdbool.h>
#include <stddef.h>
#include <stdint.h>

struct blob_attr {
  uint32_t id_len;
};

struct blob_buf {
  struct blob_attr* head;
  bool (*grow)(struct blob_buf* buf, int minlen);
  int buflen;
  void* buf;
};

int blob_buf_init(struct blob_buf* buf, int id);
void blob_buf_free(struct blob_buf* buf);

void* blob_data(const struct blob_attr* attr);
unsigned int blob_id(const struct blob_attr* attr);
size_t blob_len(const struct blob_attr* attr);     /* of the data */
size_t blob_raw_len(const struct blob_attr* attr); /* with the header */
size_t blob_pad_len(const struct blob_attr* attr); /* with header and padding */
struct blob_attr* blob_next(const struct blob_attr* attr);

#endif

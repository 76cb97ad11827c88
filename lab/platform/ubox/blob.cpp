// Blobs: attributes in one growing block of memory.
#include "blob.hpp"

#include <arpa/inet.h>

#include <cstdlib>
#include <cstring>

extern "C" {
#include "libubox/blob.h"
}

namespace {

constexpr uint32_t kLengthMask = 0x00ffffff;
constexpr uint32_t kIdMask = 0x7f000000;
constexpr int kIdShift = 24;
constexpr size_t kAlign = 4;
constexpr int kFirstSize = 256;

uint32_t header(const blob_attr* attr) { return ntohl(attr->id_len); }

size_t padded(size_t length) { return (length + kAlign - 1) & ~(kAlign - 1); }

}  // namespace

namespace standin {

void set_header(blob_attr* attr, unsigned id, size_t raw_length, bool extended) {
  attr->id_len = htonl((extended ? kExtended : 0) | (id << kIdShift) | static_cast<uint32_t>(raw_length));
}

bool is_extended(const blob_attr* attr) { return (header(attr) & kExtended) != 0; }

blob_attr* append(blob_buf* buf, unsigned id, size_t data_length, bool extended) {
  const size_t raw_length = sizeof(blob_attr) + data_length;
  const size_t used = blob_raw_len(buf->head);
  const size_t needed = used + padded(raw_length);
  if (needed > kLengthMask) return nullptr;
  if (needed > static_cast<size_t>(buf->buflen)) {
    const size_t size = needed * 2;
    void* grown = realloc(buf->buf, size);
    if (grown == nullptr) return nullptr;
    buf->buf = grown;
    buf->head = static_cast<blob_attr*>(grown);
    buf->buflen = static_cast<int>(size);
  }
  auto* attr = reinterpret_cast<blob_attr*>(reinterpret_cast<char*>(buf->head) + used);
  memset(attr, 0, padded(raw_length));
  set_header(attr, id, raw_length, extended);
  set_header(buf->head, blob_id(buf->head), needed, is_extended(buf->head));
  return attr;
}

}  // namespace standin

int blob_buf_init(blob_buf* buf, int id) {
  if (buf->buf == nullptr) {
    buf->buf = malloc(kFirstSize);
    if (buf->buf == nullptr) return -1;
    buf->buflen = kFirstSize;
  }
  buf->head = static_cast<blob_attr*>(buf->buf);
  standin::set_header(buf->head, static_cast<unsigned>(id), sizeof(blob_attr), false);
  return 0;
}

void blob_buf_free(blob_buf* buf) {
  free(buf->buf);
  buf->buf = nullptr;
  buf->head = nullptr;
  buf->buflen = 0;
}

void* blob_data(const blob_attr* attr) { return const_cast<blob_attr*>(attr + 1); }

unsigned int blob_id(const blob_attr* attr) { return (header(attr) & kIdMask) >> kIdShift; }

size_t blob_raw_len(const blob_attr* attr) { return header(attr) & kLengthMask; }

size_t blob_len(const blob_attr* attr) {
  const size_t raw = blob_raw_len(attr);
  return raw >= sizeof(blob_attr) ? raw - sizeof(blob_attr) : 0;
}

size_t blob_pad_len(const blob_attr* attr) { return padded(blob_raw_len(attr)); }

blob_attr* blob_next(const blob_attr* attr) {
  return reinterpret_cast<blob_attr*>(reinterpret_cast<char*>(const_cast<blob_attr*>(attr)) + blob_pad_len(attr));
}

// Building blobs, for the messages on top.
#pragma once

extern "C" {
#include "libubox/blob.h"
}

namespace standin {

inline constexpr uint32_t kExtended = 0x80000000;  // the attribute begins with a name

void set_header(blob_attr* attr, unsigned id, size_t raw_length, bool extended);
bool is_extended(const blob_attr* attr);

// Adds a zeroed attribute at the end of the buffer's top level; nullptr when there is no room.
blob_attr* append(blob_buf* buf, unsigned id, size_t data_length, bool extended);

}  // namespace standin

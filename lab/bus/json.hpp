// Messages as JSON: how answers are written down, and how the ubus tool shows and takes them.
#pragma once

#include <nlohmann/json.hpp>

extern "C" {
#include <libubox/blobmsg.h>
}

namespace lab {

using Json = nlohmann::ordered_json;

// Adds a JSON object's members to a message. Integers become INT32, or INT64 when they do not fit; a member written
// "name:int64" is named "name" and has every integer at or below it as INT64. Throws std::runtime_error for what a
// message cannot hold.
void add_members(blob_buf& message, const Json& object);

// A message's attributes (`data`, `length`) as a JSON object. Throws std::runtime_error for a malformed message.
Json to_json(const void* data, size_t length);

}  // namespace lab

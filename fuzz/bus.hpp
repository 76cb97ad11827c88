// A bus in place of the real one: each call is answered with the same bytes.
#pragma once

#include <string>

namespace kova::fuzz {

extern std::string bus_reply;  // what is behind a reply's header
extern int bus_status;         // of every call; with another than 0 there is no reply

}  // namespace kova::fuzz

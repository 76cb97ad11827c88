#pragma once

namespace lab {

inline constexpr char kBusDirectory[] = "/etc/lab/bus";  // of the answers
inline constexpr char kBusDaemon[] = "lab";              // the object of who gives them on a real bus

}  // namespace lab

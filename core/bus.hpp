// The members of a bridge, however many they are; netif_get_device_status cuts their list to its caller's buffer.
#pragma once

namespace kova {

// Hands the name of each member to `take`, in the order of the bus. False when the bus has no answer.
bool for_each_bridge_member(const char* bridge, void (*take)(void* context, const char* name), void* context);

// The same with a function object, take(name).
template <typename Take>
bool for_each_bridge_member(const char* bridge, Take take) {
  const auto hand_on = [](void* context, const char* name) { (*static_cast<Take*>(context))(name); };
  return for_each_bridge_member(bridge, hand_on, &take);
}

}  // namespace kova

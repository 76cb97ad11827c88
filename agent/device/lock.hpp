// One at a time: calls of handlers must not overlap on a device.
#pragma once

namespace kovadm {

// The device, for its lifetime. Others that want it wait.
class DeviceLock {
 public:
  // Waits up to `seconds` for the one that has it, and tells a terminal so. Throws SetupError when that takes longer.
  explicit DeviceLock(int seconds);
  ~DeviceLock();
  DeviceLock(const DeviceLock&) = delete;
  DeviceLock& operator=(const DeviceLock&) = delete;

 private:
  int directory_;
};

}  // namespace kovadm

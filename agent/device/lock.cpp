#include "device/lock.hpp"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <string>
#include <system_error>
#include <thread>

#include "device/plugin.hpp"
#include "output/progress.hpp"
#include "seam/paths.hpp"

namespace kovadm {
namespace {

using std::chrono::steady_clock;

bool take(int directory) {
  if (flock(directory, LOCK_EX | LOCK_NB) == 0) return true;
  if (errno != EWOULDBLOCK && errno != EINTR)
    throw std::system_error(errno, std::generic_category(), std::string("a lock of ") + seam::kMainStore);
  return false;
}

void wait_for(int directory, int seconds) {
  constexpr auto kPause = std::chrono::milliseconds(50);
  Progress progress;
  const auto end = steady_clock::now() + std::chrono::seconds(seconds);
  while (!take(directory)) {
    if (steady_clock::now() >= end)
      throw SetupError("another kovadm is at work on this router; waited " + std::to_string(seconds) + " s for it");
    progress.show("waiting for another kovadm");
    std::this_thread::sleep_for(kPause);
  }
  progress.clear();
}

}  // namespace

// The store's directory needs no file of the lock's, and is the same for all.
DeviceLock::DeviceLock(int seconds) : directory_(open(seam::kMainStore, O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
  if (directory_ < 0) throw std::system_error(errno, std::generic_category(), seam::kMainStore);
  try {
    wait_for(directory_, seconds);
  } catch (...) {
    close(directory_);
    throw;
  }
}

DeviceLock::~DeviceLock() { close(directory_); }

}  // namespace kovadm

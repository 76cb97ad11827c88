#include "debug_switch.hpp"

#include <fcntl.h>
#include <unistd.h>

namespace kovadm {
namespace {

constexpr char kFile[] = "/tmp/cwmp_debug";

bool create_file() {
  const int descriptor = open(kFile, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644);
  if (descriptor < 0) return false;
  close(descriptor);
  return true;
}

}  // namespace

DebugSwitch::DebugSwitch() : created_(create_file()) {}

DebugSwitch::~DebugSwitch() {
  if (created_) unlink(kFile);
}

}  // namespace kovadm

// The file whose existence switches the plug-in's debug log on.
#pragma once

#include <string_view>

namespace kovadm {

// Switches the log on for its lifetime; one that was on before stays on.
class DebugSwitch {
 public:
  static constexpr std::string_view kFile = "/tmp/cwmp_debug";

  DebugSwitch();
  ~DebugSwitch();
  DebugSwitch(const DebugSwitch&) = delete;
  DebugSwitch& operator=(const DebugSwitch&) = delete;

 private:
  bool created_ = false;
};

}  // namespace kovadm

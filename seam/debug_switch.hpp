// The file whose existence switches the plug-in's debug log on.
#pragma once

namespace seam {

// Switches the log on for its lifetime; one that was on before stays on.
class DebugSwitch {
 public:
  DebugSwitch();
  ~DebugSwitch();
  DebugSwitch(const DebugSwitch&) = delete;
  DebugSwitch& operator=(const DebugSwitch&) = delete;

 private:
  bool created_ = false;
};

}  // namespace seam

#include "verify.hpp"

#include "store.hpp"

namespace kova {

bool VerifyCommand::run() const {
  if (!*this) return false;
  cwmp_system(c_str());
  return StateOption({"check", "result"}, "set_result") == "1";
}

}  // namespace kova

// Calls handlers as an agent does.
#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

#include "seam/handler.hpp"

namespace kova::test {

using seam::call;
using seam::running_agent;  // tests change what they are about

using Instances = std::vector<int32_t>;

// What an output buffer holds before a get; still there when the handler wrote nothing.
inline const std::string kUntouched = "<untouched>";

struct Answer {
  int32_t result;
  std::string text;
  bool operator==(const Answer&) const = default;
};

struct Outcome {
  int32_t result;
  uint32_t mask;
  bool operator==(const Outcome&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const Answer& answer) {
  return out << "result " << answer.result << ", text \"" << answer.text << '"';
}

inline std::ostream& operator<<(std::ostream& out, const Outcome& outcome) {
  return out << "result " << outcome.result << ", mask 0x" << std::hex << outcome.mask << std::dec;
}

inline Answer answered(const std::string& text) { return {0, text}; }
inline const Answer kGetFailed{-1, kUntouched};
inline const Outcome kRefused{-1, 0};
inline Outcome accepted(uint32_t mask = 0) { return {0, mask}; }

Answer get(parameter_handler handler, const Instances& instances = {1, 1, 1, 1});
Answer get(parameter_handler handler, agent_state& agent, const Instances& instances = {1, 1, 1, 1});
Outcome set(parameter_handler handler, const std::string& value, const Instances& instances = {1, 1, 1, 1});

}  // namespace kova::test

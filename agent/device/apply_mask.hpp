// The bits of the apply mask, by name.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace kovadm {

struct ApplyBit {
  uint32_t bit;
  std::string name;
  std::string work;  // what the agent does about it

  // The program of the router that does it, where it is installed; none for the recorded commands.
  std::string service() const;
};

// "0x2004".
std::string hexadecimal(uint32_t number);

// The bits that are raised, lowest first; an unknown one by its number.
std::vector<ApplyBit> raised_bits(uint32_t mask);

}  // namespace kovadm

// The profiles of the published data models, as far as the device serves them.
#pragma once

#include <string>
#include <vector>

#include "model/catalogue.hpp"

namespace kovadm {

// A parameter that a profile asks for.
struct Requirement {
  std::string path;    // as the catalogue spells it
  std::string access;  // the published models' word: "readOnly", "readWrite", "writeOnceReadOnly"
  const Row* row;      // nullptr where the device does not serve it

  // Whether the device lets it be written just where the profile does.
  bool access_differs() const;
};

struct Profile {
  std::string model;  // "TR-181 2.17"
  std::string name;   // "Time:1"
  std::vector<Requirement> requirements;

  std::size_t served() const;
  // Served with all its parameters, and all of them writable that are to be so.
  bool whole() const;
};

// In the order of their models and names.
const std::vector<Profile>& profiles();

// Why a parameter's access is not what the profiles require; empty where nobody has said.
std::string access_reason(const std::string& path);

}  // namespace kovadm

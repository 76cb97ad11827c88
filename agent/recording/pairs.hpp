// The readings of two routers side by side.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "recording/reading.hpp"

namespace kovadm {

// A parameter's readings in both; nullptr where one has no such instance.
template <typename OneReading>
struct Pair {
  const OneReading* a = nullptr;
  const OneReading* b = nullptr;

  // Between two values of one that does so by itself.
  bool moved() const {
    return a != nullptr && b != nullptr && a->value && b->value && !movement(parameter().path).empty();
  }
  bool differs() const { return a == nullptr || b == nullptr || a->value != b->value; }
  const Parameter& parameter() const { return (a != nullptr ? a : b)->parameter; }
};

// In the order of the first router's, then what only the second has.
template <typename OneReading>
std::vector<Pair<OneReading>> pairs_of(const std::vector<OneReading>& a, const std::vector<OneReading>& b) {
  std::vector<Pair<OneReading>> pairs;
  std::map<std::string, std::size_t> places;
  for (const OneReading& reading : a) {
    places[reading.parameter.path] = pairs.size();
    pairs.push_back({&reading, nullptr});
  }
  for (const OneReading& reading : b) {
    const auto place = places.find(reading.parameter.path);
    if (place != places.end()) {
      pairs[place->second].b = &reading;
    } else {
      pairs.push_back({nullptr, &reading});
    }
  }
  return pairs;
}

}  // namespace kovadm

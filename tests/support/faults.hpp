// Platform services that fail when they are told to. A program that links this is the loading process, so its own
// malloc, open, uci_load, ... come first for the plug-in and for the platform's libraries.
#pragma once

#include <string>

namespace kova::test {

#ifdef KOVA_SANITIZED
inline constexpr bool kMemoryFails = false;
#else
inline constexpr bool kMemoryFails = true;
#endif

class Service {
 public:
  explicit Service(const char* service) : name(service), next(first) { first = this; }

  const char* const name;
  Service* const next;  // of those that have been called at all
  int calls = 0;
  int fails_at = 0;  // the number of the call that fails; 0 for none

  bool strikes() { return may_fail() && ++calls == fails_at; }

  static Service* first;
  static bool armed;

 private:
  static bool may_fail();  // where the program is now
};

// What is held at one time, while services are not armed.
struct Held {
  int blocks;      // of memory
  int pipes;       // from popen
  int descriptor;  // the next one to be given out
  bool operator==(const Held&) const = default;

  static Held now();
};

// Works with all services armed, of which one may have been told to fail.
template <typename Work>
auto under_fire(Work work) {
  for (Service* service = Service::first; service != nullptr; service = service->next) service->calls = 0;
  Service::armed = true;
  auto result = work();
  Service::armed = false;
  return result;
}

}  // namespace kova::test

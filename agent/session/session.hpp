// What a session is asked to be.
#pragma once

#include <string>
#include <vector>

#include "session/transport.hpp"

namespace kovadm::session {

struct Options {
  ServerOptions server;
  std::vector<std::string> events = {"1 BOOT"};
  std::string tree = "Device";
  std::string transcript;  // a file
  bool apply = false;
  bool stay = false;
  std::string listen;
};

}  // namespace kovadm::session

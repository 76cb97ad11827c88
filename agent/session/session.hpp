// The command, apart from whether this kovadm can do it.
#pragma once

#include <string>
#include <vector>

#include "commands/context.hpp"

namespace kovadm::session {

struct ServerOptions {
  std::string url;
  std::string user;
  std::string password;
  std::string cacert;  // a file; empty: the system's
  bool insecure = false;
  long timeout = 60;  // seconds for an exchange
};

struct Options {
  ServerOptions server;
  std::vector<std::string> events = {"1 BOOT"};
  std::string tree = "Device";
  std::string transcript;  // a file
  bool apply = false;
  bool stay = false;
  std::string listen;
};

// Returns the exit status. Throws SetupError where it cannot be done.
int run_session(Context& context, Options& options);

}  // namespace kovadm::session

// The way to a server: HTTP, with what it asks of a client.
#pragma once

#include <curl/curl.h>

#include <memory>
#include <stdexcept>
#include <string>

#include "session/session.hpp"

namespace kovadm::session {

// Why an exchange failed.
class TransportError : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

struct Response {
  long status = 0;
  std::string text;
};

// One session's: its cookies, its connection, and where the server has sent it.
class Transport {
 public:
  explicit Transport(const ServerOptions& options);

  // Sends a message; the empty one is that of a device that has nothing to say. Throws TransportError.
  Response post(const std::string& message);

  const std::string& url() const { return url_; }

 private:
  std::unique_ptr<CURL, decltype(&curl_easy_cleanup)> curl_;
  std::string url_;
  std::string reason_;
};

}  // namespace kovadm::session

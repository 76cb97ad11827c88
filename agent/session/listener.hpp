// Where a server asks the device to call it: connection requests, by HTTP with digest authentication.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <mutex>
#include <string>

struct MHD_Daemon;
struct MHD_Connection;

namespace kovadm::session {

class Listener {
 public:
  // Listens at "ADDRESS:PORT"; port 0 is any that is free. `wake` is called, on another thread, when one comes. Throws
  // SetupError.
  Listener(const std::string& address, std::function<void()> wake);
  ~Listener();
  Listener(const Listener&) = delete;
  Listener& operator=(const Listener&) = delete;

  const std::string& host() const { return host_; }
  uint16_t port() const { return port_; }

  // Who may ask; nobody while the name is empty.
  void admit(const std::string& user, const std::string& password);

  // Whether a request has come since the last call.
  bool take_request() { return requested_.exchange(false); }

  // The answer to one request, for its connection.
  int answer(MHD_Connection* connection, const std::string& path, const std::string& method);

 private:
  std::string host_;
  uint16_t port_ = 0;
  std::function<void()> wake_;
  std::string seed_;
  std::atomic<bool> requested_ = false;
  std::mutex mutex_;
  std::string user_;
  std::string password_;
  MHD_Daemon* daemon_ = nullptr;
};

// What connection requests are sent to on this device.
inline constexpr char kRequestPath[] = "/kova";

}  // namespace kovadm::session

#include "session/listener.hpp"

#include <arpa/inet.h>
#include <microhttpd.h>
#include <sys/random.h>

#include <csignal>
#include <string_view>

#include "device/plugin.hpp"

namespace kovadm::session {
namespace {

constexpr char kRealm[] = "kovadm";
constexpr unsigned kNonceSeconds = 60;
constexpr unsigned kMostConnections = 16;
constexpr unsigned kIdleSeconds = 10;

MHD_Result handle(void* listener, MHD_Connection* connection, const char* url, const char* method, const char*,
                  const char*, size_t* size, void** seen) {
  if (*seen == nullptr) {
    *seen = listener;  // the head has come; a body may follow
    return MHD_YES;
  }
  if (*size != 0) {
    *size = 0;
    return MHD_YES;
  }
  return static_cast<MHD_Result>(static_cast<Listener*>(listener)->answer(connection, url, method));
}

sockaddr_in address_of(const std::string& text) {
  const std::size_t colon = text.rfind(':');
  sockaddr_in address = {};
  address.sin_family = AF_INET;
  const std::string port = colon == std::string::npos ? "" : text.substr(colon + 1);
  const bool is_port = !port.empty() && port.size() <= 5 && port.find_first_not_of("0123456789") == std::string::npos &&
                       std::stoi(port) <= 65535;
  if (!is_port || inet_pton(AF_INET, text.substr(0, colon).c_str(), &address.sin_addr) != 1)
    throw SetupError("--listen takes ADDRESS:PORT, an IPv4 address and a port: " + text);
  address.sin_port = htons(static_cast<uint16_t>(std::stoi(port)));
  return address;
}

std::string random_bytes() {
  std::string bytes(16, '\0');
  if (getrandom(bytes.data(), bytes.size(), 0) != static_cast<ssize_t>(bytes.size()))
    throw SetupError("no random numbers");
  return bytes;
}

// Signals are the main thread's.
class NoSignals {
 public:
  NoSignals() {
    sigset_t all = {};
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before_);
  }
  ~NoSignals() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }
  NoSignals(const NoSignals&) = delete;
  NoSignals& operator=(const NoSignals&) = delete;

 private:
  sigset_t before_ = {};
};

}  // namespace

Listener::Listener(const std::string& address, std::function<void()> wake)
    : wake_(std::move(wake)), seed_(random_bytes()) {
  sockaddr_in place = address_of(address);
  host_ = address.substr(0, address.rfind(':'));
  const NoSignals here;
  daemon_ = MHD_start_daemon(MHD_USE_INTERNAL_POLLING_THREAD, 0, nullptr, nullptr, &handle, this,  //
                             MHD_OPTION_SOCK_ADDR, reinterpret_cast<sockaddr*>(&place),            //
                             MHD_OPTION_DIGEST_AUTH_RANDOM, seed_.size(), seed_.data(),            //
                             MHD_OPTION_NONCE_NC_SIZE, 64U,                                        //
                             MHD_OPTION_CONNECTION_LIMIT, kMostConnections,                        //
                             MHD_OPTION_CONNECTION_TIMEOUT, kIdleSeconds, MHD_OPTION_END);
  if (daemon_ == nullptr) throw SetupError("cannot listen at " + address);
  port_ = MHD_get_daemon_info(daemon_, MHD_DAEMON_INFO_BIND_PORT)->port;
}

Listener::~Listener() { MHD_stop_daemon(daemon_); }

void Listener::admit(const std::string& user, const std::string& password) {
  const std::lock_guard lock(mutex_);
  user_ = user;
  password_ = password;
}

int Listener::answer(MHD_Connection* connection, const std::string& path, const std::string& method) {
  MHD_Response* empty = MHD_create_response_from_buffer(0, nullptr, MHD_RESPMEM_PERSISTENT);
  int result = MHD_NO;
  std::string user;
  std::string password;
  {
    const std::lock_guard lock(mutex_);
    user = user_;
    password = password_;
  }
  if (path != kRequestPath) {
    result = MHD_queue_response(connection, MHD_HTTP_NOT_FOUND, empty);
  } else if (method != MHD_HTTP_METHOD_GET) {
    result = MHD_queue_response(connection, MHD_HTTP_METHOD_NOT_ALLOWED, empty);
  } else {
    const int known = user.empty() ? MHD_NO
                                   : MHD_digest_auth_check2(connection, kRealm, user.c_str(), password.c_str(),
                                                            kNonceSeconds, MHD_DIGEST_ALG_MD5);
    if (known == MHD_YES) {
      result = MHD_queue_response(connection, MHD_HTTP_OK, empty);
      requested_ = true;
      wake_();
    } else {
      result = MHD_queue_auth_fail_response2(connection, kRealm, "kovadm", empty,
                                             known == MHD_INVALID_NONCE ? MHD_YES : MHD_NO, MHD_DIGEST_ALG_MD5);
    }
  }
  MHD_destroy_response(empty);
  return result;
}

}  // namespace kovadm::session

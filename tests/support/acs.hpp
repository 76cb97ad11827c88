// A small auto-configuration server for kovadm's sessions.
#pragma once

#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <vector>

struct MHD_Daemon;

namespace kova::test {

struct Post {
  std::string path;
  std::string text;
  std::string cookie;
};

struct Reply {
  unsigned status = 204;
  std::string text;
  std::map<std::string, std::string> headers = {};
};

using Serve = std::function<Reply(const Post&)>;

struct AcsOptions {
  uint16_t port = 7547;
  const char* authentication = "";         // "basic" or "digest": acs-user with password acs-password
  std::string key = {}, certificate = {};  // with both it is https
};

class Acs {
 public:
  explicit Acs(Serve serve, const AcsOptions& options = {});
  ~Acs();
  Acs(const Acs&) = delete;
  Acs& operator=(const Acs&) = delete;

  std::vector<Post> posts;              // that were let in; to be looked at between sessions
  std::vector<Post> all_posts() const;  // at any time

  struct Incoming;  // a request that comes

 private:
  int answer(void* connection, const Post& post);

  Serve serve_;
  AcsOptions options_;
  mutable std::mutex mutex_;
  MHD_Daemon* daemon_;
};

// What a body holds, as a whole message.
std::string message(const std::string& body, const std::string& id = "42");

// Accepts an Inform, then asks these bodies one by one; "{ID}" counts them. Others' sessions go the same way.
Serve asks(std::vector<std::string> bodies);

}  // namespace kova::test

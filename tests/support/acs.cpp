#include "support/acs.hpp"

#include <arpa/inet.h>
#include <microhttpd.h>

#include <cstring>
#include <memory>
#include <stdexcept>

namespace kova::test {
namespace {

constexpr char kUser[] = "acs-user";
constexpr char kPassword[] = "acs-password";

MHD_Response* response_of(const Reply& reply) {
  MHD_Response* response =
      MHD_create_response_from_buffer(reply.text.size(), const_cast<char*>(reply.text.data()), MHD_RESPMEM_MUST_COPY);
  for (const auto& [name, value] : reply.headers) MHD_add_response_header(response, name.c_str(), value.c_str());
  return response;
}

std::string header(MHD_Connection* connection, const char* name) {
  const char* value = MHD_lookup_connection_value(connection, MHD_HEADER_KIND, name);
  return value != nullptr ? value : "";
}

bool basic_is_right(MHD_Connection* connection) {
  char* password = nullptr;
  char* user = MHD_basic_auth_get_username_password(connection, &password);
  const bool right =
      user != nullptr && password != nullptr && std::strcmp(user, kUser) == 0 && std::strcmp(password, kPassword) == 0;
  MHD_free(user);
  MHD_free(password);
  return right;
}

}  // namespace

struct Acs::Incoming {
  static MHD_Result take(void* acs, MHD_Connection* connection, const char* path, const char*, const char*,
                         const char* part, size_t* size, void** state) {
    if (*state == nullptr) {
      *state = new Post{path, "", header(connection, "Cookie")};
      return MHD_YES;
    }
    auto& post = *static_cast<Post*>(*state);
    if (*size > 0) {
      post.text.append(part, *size);
      *size = 0;
      return MHD_YES;
    }
    return static_cast<MHD_Result>(static_cast<Acs*>(acs)->answer(connection, post));
  }
  static void end(void*, MHD_Connection*, void** state, MHD_RequestTerminationCode) {
    delete static_cast<Post*>(*state);
  }
};

Acs::Acs(Serve serve, const AcsOptions& options) : serve_(std::move(serve)), options_(options) {
  sockaddr_in address = {};
  address.sin_family = AF_INET;
  address.sin_port = htons(options.port);
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  const bool secure = !options_.key.empty();
  MHD_OptionItem more[] = {{MHD_OPTION_HTTPS_MEM_KEY, 0, options_.key.data()},
                           {MHD_OPTION_HTTPS_MEM_CERT, 0, options_.certificate.data()},
                           {MHD_OPTION_END, 0, nullptr}};
  daemon_ =
      MHD_start_daemon(MHD_USE_INTERNAL_POLLING_THREAD | (secure ? MHD_USE_TLS : MHD_NO_FLAG), 0, nullptr, nullptr,
                       &Incoming::take, this, MHD_OPTION_SOCK_ADDR, reinterpret_cast<sockaddr*>(&address),
                       MHD_OPTION_NOTIFY_COMPLETED, &Incoming::end, nullptr, MHD_OPTION_DIGEST_AUTH_RANDOM, size_t{4},
                       "seed", MHD_OPTION_ARRAY, secure ? more : more + 2, MHD_OPTION_END);
  if (daemon_ == nullptr) throw std::runtime_error("no server");
}

Acs::~Acs() { MHD_stop_daemon(daemon_); }

std::vector<Post> Acs::all_posts() const {
  const std::lock_guard lock(mutex_);
  return posts;
}

int Acs::answer(void* on, const Post& post) {
  auto* connection = static_cast<MHD_Connection*>(on);
  const std::string how = options_.authentication;
  MHD_Response* refusal = response_of({});
  int result = MHD_NO;
  if (how == "basic" && !basic_is_right(connection)) {
    result = MHD_queue_basic_auth_fail_response(connection, "acs", refusal);
  } else if (how == "digest" &&
             MHD_digest_auth_check2(connection, "acs", kUser, kPassword, 300, MHD_DIGEST_ALG_MD5) != MHD_YES) {
    result = MHD_queue_auth_fail_response2(connection, "acs", "opaque", refusal, MHD_NO, MHD_DIGEST_ALG_MD5);
  } else {
    {
      const std::lock_guard lock(mutex_);
      posts.push_back(post);
    }
    const Reply reply = serve_(post);
    MHD_Response* response = response_of(reply);
    if (reply.status != 0) result = MHD_queue_response(connection, reply.status, response);  // else it is dropped
    MHD_destroy_response(response);
  }
  MHD_destroy_response(refusal);
  return result;
}

std::string message(const std::string& body, const std::string& id) {
  return R"(<?xml version="1.0"?><s:Envelope xmlns:s="http://schemas.xmlsoap.org/soap/envelope/" )"
         R"(xmlns:e="http://schemas.xmlsoap.org/soap/encoding/" xmlns:xsd="http://www.w3.org/2001/XMLSchema" )"
         R"(xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance" xmlns:cwmp="urn:dslforum-org:cwmp-1-0">)"
         R"(<s:Header><cwmp:ID s:mustUnderstand="1">)" +
         id + "</cwmp:ID></s:Header><s:Body>" + body + "</s:Body></s:Envelope>";
}

Serve asks(std::vector<std::string> bodies) {
  return [bodies = std::move(bodies), next = size_t{0}](const Post& post) mutable -> Reply {
    if (post.text.find("<cwmp:Inform>") != std::string::npos) {
      next = 0;
      return {200, message("<cwmp:InformResponse><MaxEnvelopes>1</MaxEnvelopes></cwmp:InformResponse>", "1")};
    }
    if (next == bodies.size()) return {};
    const std::string& body = bodies[next++];
    return {200, body.starts_with("<?") ? body : message(body, "id-" + std::to_string(next))};
  };
}

}  // namespace kova::test

#include "session/transport.hpp"

#include "session/envelope.hpp"
#include "session/interrupt.hpp"

namespace kovadm::session {
namespace {

constexpr long kMostRedirects = 5;
constexpr long kConnectSeconds = 30;

std::size_t take(char* part, std::size_t one, std::size_t size, void* text) {
  auto& response = *static_cast<std::string*>(text);
  if (response.size() + one * size > kLargestMessage) return 0;
  response.append(part, one * size);
  return size;
}

int end_when_interrupted(void*, curl_off_t, curl_off_t, curl_off_t, curl_off_t) { return interrupted() != 0 ? 1 : 0; }

using Headers = std::unique_ptr<curl_slist, decltype(&curl_slist_free_all)>;

Headers headers_of(const std::string& message) {
  curl_slist* list = curl_slist_append(nullptr, "Expect:");
  list = curl_slist_append(list, message.empty() ? "Content-Type:" : "Content-Type: text/xml; charset=utf-8");
  if (!message.empty()) list = curl_slist_append(list, "SOAPAction;");  // there, and empty
  return {list, &curl_slist_free_all};
}

// What a redirect may lead to: nothing that is read by others.
const char* protocols(const std::string& url) { return url.starts_with("https:") ? "https" : "http,https"; }

}  // namespace

Transport::Transport(const ServerOptions& options)
    : curl_(curl_easy_init(), &curl_easy_cleanup), url_(options.url), reason_(CURL_ERROR_SIZE, '\0') {
  CURL* curl = curl_.get();
  if (curl == nullptr) throw TransportError("no HTTP client");
  curl_easy_setopt(curl, CURLOPT_ERRORBUFFER, reason_.data());
  curl_easy_setopt(curl, CURLOPT_HTTP_VERSION, CURL_HTTP_VERSION_1_1);
  curl_easy_setopt(curl, CURLOPT_NOSIGNAL, 1L);
  curl_easy_setopt(curl, CURLOPT_PROXY, "");  // the machine's is not the router's
  curl_easy_setopt(curl, CURLOPT_COOKIEFILE, "");
  curl_easy_setopt(curl, CURLOPT_FOLLOWLOCATION, 1L);
  curl_easy_setopt(curl, CURLOPT_MAXREDIRS, kMostRedirects);
  curl_easy_setopt(curl, CURLOPT_POSTREDIR, CURL_REDIR_POST_ALL);
  curl_easy_setopt(curl, CURLOPT_PROTOCOLS_STR, "http,https");
  curl_easy_setopt(curl, CURLOPT_REDIR_PROTOCOLS_STR, protocols(url_));
  curl_easy_setopt(curl, CURLOPT_CONNECTTIMEOUT, kConnectSeconds);
  curl_easy_setopt(curl, CURLOPT_TIMEOUT, options.timeout);
  curl_easy_setopt(curl, CURLOPT_WRITEFUNCTION, take);
  curl_easy_setopt(curl, CURLOPT_NOPROGRESS, 0L);
  curl_easy_setopt(curl, CURLOPT_XFERINFOFUNCTION, end_when_interrupted);
  if (!options.user.empty()) {
    curl_easy_setopt(curl, CURLOPT_HTTPAUTH, CURLAUTH_BASIC | CURLAUTH_DIGEST);
    curl_easy_setopt(curl, CURLOPT_UNRESTRICTED_AUTH, 1L);  // a server that redirects speaks for the other one
    curl_easy_setopt(curl, CURLOPT_USERNAME, options.user.c_str());
    curl_easy_setopt(curl, CURLOPT_PASSWORD, options.password.c_str());
  }
  if (!options.cacert.empty()) curl_easy_setopt(curl, CURLOPT_CAINFO, options.cacert.c_str());
  if (options.insecure) {
    curl_easy_setopt(curl, CURLOPT_SSL_VERIFYPEER, 0L);
    curl_easy_setopt(curl, CURLOPT_SSL_VERIFYHOST, 0L);
  }
}

Response Transport::post(const std::string& message) {
  CURL* curl = curl_.get();
  const Headers headers = headers_of(message);
  Response response;
  reason_.front() = '\0';
  curl_easy_setopt(curl, CURLOPT_URL, url_.c_str());
  curl_easy_setopt(curl, CURLOPT_HTTPHEADER, headers.get());
  curl_easy_setopt(curl, CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(message.size()));
  curl_easy_setopt(curl, CURLOPT_POSTFIELDS, message.c_str());
  curl_easy_setopt(curl, CURLOPT_WRITEDATA, &response.text);
  const CURLcode code = curl_easy_perform(curl);
  if (code == CURLE_WRITE_ERROR)
    throw TransportError("an answer of more than " + std::to_string(kLargestMessage) + " bytes");
  if (code != CURLE_OK) throw TransportError(reason_.front() != '\0' ? reason_.c_str() : curl_easy_strerror(code));
  curl_easy_getinfo(curl, CURLINFO_RESPONSE_CODE, &response.status);
  const char* reached = nullptr;
  curl_easy_getinfo(curl, CURLINFO_EFFECTIVE_URL, &reached);
  if (reached != nullptr) url_ = reached;
  return response;
}

}  // namespace kovadm::session

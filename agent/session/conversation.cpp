#include "session/conversation.hpp"

#include <chrono>
#include <cmath>

#include "output/progress.hpp"
#include "session/interrupt.hpp"

namespace kovadm::session {
namespace {

constexpr char kNewestVersion[] = "urn:dslforum-org:cwmp-1-2";
constexpr int kMostExchanges = 10000;
constexpr int kMostInforms = 3;  // where the server asks for it once more
constexpr char kRetryRequest[] = "8005";

// Why a session ends before its end.
class Broken : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

class Stopwatch {
 public:
  double seconds() const { return std::chrono::duration<double>(std::chrono::steady_clock::now() - start_).count(); }

 private:
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

std::string milliseconds(double seconds) { return std::to_string(std::lround(seconds * 1000)) + " ms"; }

bool is_fault(const Message& message) { return message.method() == "Fault"; }

// A fault of the server's, its code first.
std::string fault_of(const Message& message) {
  const pugi::xml_node fault = child(child(message.content, "detail"), "Fault");
  const std::string code = child_text(fault, "FaultCode");
  if (code.empty()) return child_text(message.content, "faultstring");
  return code + " " + child_text(fault, "FaultString");
}

Message expect_message(const Response& response) {
  if (response.status != 200) throw Broken("the server answers with status " + std::to_string(response.status));
  auto read = read_message(response.text);
  if (const auto* why = std::get_if<std::string>(&read)) throw Broken("the server's answer: " + *why);
  return std::get<Message>(std::move(read));
}

bool is_empty(const Response& response) {
  return response.status == 204 || response.text.find_first_not_of(" \t\r\n") == std::string::npos;
}

std::string list_of(const std::set<std::string>& events) {
  std::string text;
  for (const std::string& event : events) text += (text.empty() ? "" : ", ") + event;
  return text;
}

}  // namespace

bool Conversation::hold(const ServerOptions& server, const std::set<std::string>& events, int retries) {
  Json& sessions = output_.document()["sessions"];
  sessions.push_back({{"url", server.url}, {"events", events}, {"retries", retries}, {"exchanges", Json::array()}});
  try {
    version_ = kNewestVersion;
    Transport transport(server);
    open(transport, events, retries);
    answer_requests(transport);
    output_.line("end");
    return true;
  } catch (const TransportError& error) {
    sessions.back()["error"] = error.what();
    output_.failure(server.url + ": " + error.what());
  } catch (const Broken& error) {
    sessions.back()["error"] = error.what();
    output_.failure(server.url + ": " + error.what());
  }
  return false;
}

Conversation::Exchange Conversation::exchange(Transport& transport, const std::string& message) {
  if (interrupted() != 0) throw Broken("interrupted");
  Progress progress;
  progress.show("waiting for " + transport.url());
  transcript_.sent(transport.url(), message);
  const Stopwatch stopwatch;
  Response response = transport.post(message);
  const double seconds = stopwatch.seconds();
  transcript_.received(response.status, response.text);
  return {std::move(response), seconds};
}

void Conversation::open(Transport& transport, const std::set<std::string>& events, int retries) {
  for (int sent = 1;; ++sent) {
    const auto [response, seconds] = exchange(transport, inform(agent_, tree_, events, retries, version_));
    const Message message = expect_message(response);
    if (!message.version.empty()) version_ = message.version;
    const std::string told = message.method() == "InformResponse" ? "accepted" : fault_of(message);
    tell("Inform", {"", list_of(events) + ": " + told, {}}, seconds);
    if (message.method() == "InformResponse") {
      if (message.id != kInformId)
        output_.warning("the InformResponse has the ID \"" + message.id + "\", not \"" + kInformId + '"');
      return;
    }
    if (!is_fault(message)) throw Broken("an Inform is answered with " + std::string(message.method()));
    if (!told.starts_with(kRetryRequest) || sent == kMostInforms)
      throw Broken("the server refuses the Inform: " + told);
  }
}

void Conversation::answer_requests(Transport& transport) {
  std::string text;
  for (int count = 0; count < kMostExchanges; ++count) {
    const Response response = exchange(transport, text).response;
    if (response.status != 200 && response.status != 204)
      throw Broken("the server answers with status " + std::to_string(response.status));
    if (is_empty(response)) return;
    const Stopwatch stopwatch;
    std::string method;
    const Answer given = answer(response.text, method);
    tell(method, given, stopwatch.seconds());
    text = given.text;
  }
  throw Broken("the server goes on for more than " + std::to_string(kMostExchanges) + " requests");
}

Answer Conversation::answer(const std::string& text, std::string& method) {
  const auto read = read_message(text);
  if (const auto* why = std::get_if<std::string>(&read)) {
    method = "(unreadable)";
    return Methods::refusal({FaultCode::INVALID_ARGUMENTS, "", *why, ""}, version_);
  }
  const auto& message = std::get<Message>(read);
  if (is_fault(message)) throw Broken("the server reports " + fault_of(message));
  method = message.method();
  return methods_.answer(message, message.version.empty() ? version_ : message.version);
}

void Conversation::tell(const std::string& method, const Answer& answer, double seconds) {
  Json told = {{"method", method}, {"told", answer.told}, {"seconds", seconds}};
  output_.line(one_line(method + (answer.told.empty() ? "" : " " + answer.told) +
                        (answer.faults.empty() ? "" : ": fault") + ", " + milliseconds(seconds)));
  for (const Fault& fault : answer.faults) {
    output_.line("     " + one_line(fault_line(fault)));
    told["faults"].push_back({{"code", fault.code}, {"path", fault.path}, {"detail", fault.detail}});
  }
  output_.document()["sessions"].back()["exchanges"].push_back(told);
}

}  // namespace kovadm::session

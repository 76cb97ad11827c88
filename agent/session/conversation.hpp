// One session with a server, from the Inform to the end.
#pragma once

#include <set>
#include <stdexcept>
#include <string>

#include "session/inform.hpp"
#include "session/methods.hpp"
#include "session/transcript.hpp"
#include "session/transport.hpp"

namespace kovadm::session {

class Conversation {
 public:
  Conversation(Agent& agent, const Tree& tree, Methods& methods, Transcript& transcript, Output& output)
      : agent_(agent), tree_(tree), methods_(methods), transcript_(transcript), output_(output) {}

  // Whether it came to its end; why not has been told.
  bool hold(const ServerOptions& server, const std::set<std::string>& events, int retries);

 private:
  // What happens between the first byte of a message and the last of its answer.
  struct Exchange {
    Response response;
    double seconds;
  };

  Exchange exchange(Transport& transport, const std::string& message);
  void open(Transport& transport, const std::set<std::string>& events, int retries);
  void answer_requests(Transport& transport);
  Answer answer(const std::string& text, std::string& method);
  void tell(const std::string& method, const Answer& answer, double seconds);

  Agent& agent_;
  const Tree& tree_;
  Methods& methods_;
  Transcript& transcript_;
  Output& output_;
  std::string version_;
};

}  // namespace kovadm::session

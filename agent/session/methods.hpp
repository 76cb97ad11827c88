// What a server asks of a device, and the device's answers.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "device/call.hpp"
#include "output/output.hpp"
#include "session/envelope.hpp"
#include "session/tree.hpp"

namespace kovadm::session {

// An answer, and what there is to tell of it.
struct Answer {
  std::string text;           // the message
  std::string told;           // for people: what was asked, and how much was answered
  std::vector<Fault> faults;  // the first is the answer's
};

// "1 value", "2 values".
std::string counted(std::size_t number, const std::string& thing);

// A fault in one line, its code first.
std::string fault_line(const Fault& fault);

class Methods {
 public:
  Methods(Agent& agent, const Tree& tree, Output& output) : agent_(agent), tree_(tree), output_(output) {}

  // Answers in the given version of the protocol.
  Answer answer(const Message& request, const std::string& version);
  static Answer refusal(const Fault& fault, const std::string& version);

  // What the sets so far have raised.
  uint32_t raised() const { return raised_; }
  void forget_raised() { raised_ = 0; }

  struct Method;

 private:
  // Each takes the request's element, fills the response's, and tells what it did. Throws Refused.
  static std::string get_rpc_methods(Methods&, const pugi::xml_node& request, pugi::xml_node response);
  std::string get_names(const pugi::xml_node& request, pugi::xml_node response);
  std::string get_values(const pugi::xml_node& request, pugi::xml_node response);
  std::string set_values(const pugi::xml_node& request, pugi::xml_node response);
  std::string get_attributes(const pugi::xml_node& request, pugi::xml_node response);
  std::string set_attributes(const pugi::xml_node& request, pugi::xml_node response);
  std::string add_object(const pugi::xml_node& request, pugi::xml_node response);
  std::string delete_object(const pugi::xml_node& request, pugi::xml_node response);
  static std::string leave_undone(Methods&, const pugi::xml_node& request, pugi::xml_node response);

  void note_refused(const std::optional<Parameter>& parameter, const std::string& value);
  // All or nothing. Whether something waits to be applied.
  bool make_calls(const std::vector<Call>& calls, const std::string& key);

  static const std::vector<Method>& table();

  Agent& agent_;
  const Tree& tree_;
  Output& output_;
  uint32_t raised_ = 0;
};

// A request that is answered with a fault.
struct Refused {
  std::vector<Fault> faults;  // the first is the answer's; the others of the parameters that it is about
};

// An array's elements. Throws Refused where there is none, or more than kMostAsked.
inline constexpr std::size_t kMostAsked = 4096;
std::vector<pugi::xml_node> elements_of(const pugi::xml_node& request, const char* array);

// What an element of that name must say. Throws Refused where there is none.
std::string required_text(const pugi::xml_node& node, const char* name);
bool required_boolean(const pugi::xml_node& node, const char* name);

}  // namespace kovadm::session

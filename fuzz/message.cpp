// A server's message. What is taken for one can be answered, and the answer reads as what was put into it.
#include <algorithm>

#include "input.hpp"
#include "session/envelope.hpp"

using namespace kova::fuzz;
using namespace kovadm::session;

namespace {

// The ID and the texts of the message, sent back.
std::string echo(const Message& message) {
  Envelope envelope(message.version, message.id);
  pugi::xml_node content = envelope.add("Echo");
  for (const pugi::xml_node& part : message.content) add_text(content, "Text", element_text(part));
  return envelope.text();
}

auto carriage_returns(const Message& message) {
  std::string texts;
  for (const pugi::xml_node& part : message.content) texts += element_text(part);
  return std::count(texts.begin(), texts.end(), '\r');
}

Message read_again(const Message& message) {
  auto read = read_message(echo(message));
  require(std::holds_alternative<Message>(read));
  return std::get<Message>(std::move(read));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  auto read = read_message(Input(data, size).rest());
  if (auto* message = std::get_if<Message>(&read)) {
    require(!message->method().empty());
    const Message once = read_again(*message);
    require(once.version == message->version && once.method() == "Echo");
    require(carriage_returns(once) == carriage_returns(*message));
    require(echo(read_again(once)) == echo(once));
  } else {
    require(!std::get<std::string>(read).empty());
  }
  return 0;
}

// A recording's file. What is taken for one reads the same once it has been written anew, and its messages can be sent.
#include "recording/recording.hpp"

#include "input.hpp"
#include "recording/bus_message.hpp"
#include "recording/uci_text.hpp"

using namespace kova::fuzz;
using namespace kovadm;

namespace {

void expect_the_same_again(const Recording& recording) {
  const std::string text = to_text(recording);
  const auto again = parse_recording(text);
  require(std::holds_alternative<Recording>(again) && to_text(std::get<Recording>(again)) == text);
}

void send(const Recording& recording) {
  for (const auto& [call, answer] : recording.bus) {
    for (const auto& reply : answer.replies) require(is_message(to_json(BusMessage(reply).get())));
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string text = Input(data, size).rest();
  require(replace_option_values(text, [](auto&&...) { return std::nullopt; }) == text);
  const auto parsed = parse_recording(text);
  if (const auto* recording = std::get_if<Recording>(&parsed)) {
    expect_the_same_again(*recording);
    send(*recording);
  } else {
    require(std::get<std::string>(parsed).size() < 200 + size);
  }
  return 0;
}

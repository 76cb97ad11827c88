// The stand-ins' parsers. What one has understood is understood again once it is written.
#include <exception>

#include "input.hpp"
#include "json.hpp"
#include "parse.hpp"
#include "write.hpp"

using namespace kova::fuzz;
using namespace lab;
using namespace standin;

namespace {

std::string written(const std::string& text) {
  uci_context* const context = uci_alloc_context();
  Package* const package = make_package(static_cast<Context&>(*context), "fuzz");
  std::string result = "refused";
  try {
    parse_package(*package, text);
    result = format_package(*package);
  } catch (const Failure&) {
  }
  uci_free_context(context);
  return result;
}

void read_package(const std::string& text) {
  const std::string once = written(text);
  if (once != "refused") require(written(once) == once);
}

void read_delta(const std::string& text) {
  const std::string once = format_delta("fuzz", parse_delta(text));
  require(format_delta("fuzz", parse_delta(once)) == once);
}

void read_json(const std::string& text) {
  blob_buf message = {};
  blob_buf_init(&message, 0);
  try {
    add_members(message, Json::parse(text));
    to_json(blob_data(message.head), blob_len(message.head)).dump(-1, ' ', false, Json::error_handler_t::replace);
  } catch (const std::exception&) {
  }
  blob_buf_free(&message);
}

void read_message(const std::string& text) {
  static Guarded memory(1 << 16);
  try {
    to_json(memory.place(text), text.size() & ~size_t{3});
  } catch (const std::exception&) {
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  Input input(data, size);
  constexpr void (*kReaders[])(const std::string&) = {read_package, read_delta, read_json, read_message};
  kReaders[input.number(1) % 4](input.rest());
  return 0;
}

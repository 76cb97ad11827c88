#include "diagnostics.hpp"

#include "file.hpp"
#include "text.hpp"

namespace kova {

bool reply_diagnostics_state(Call& call, const char* file) {
  File state(file, "r");
  if (!state) {
    constexpr LogMessage kMissing = "FTGDS.\n";
    kMissing.print(call.origin());
    return call.reply("None");
  }
  Text<100> line;
  return call.reply(state.read_line(line.span()) ? line.c_str() : "None");
}

bool request_diagnostics(Call& call, const char* file, uint32_t bit) {
  if (!call.value_is("Requested")) return false;
  return replace_file(file, call.value()) == Left::DONE ? call.mark(bit) : call.refuse("FTSDS.\n");
}

}  // namespace kova

#include "commands/compared.hpp"

#include "recording/replay.hpp"

namespace kovadm {
namespace {

std::vector<std::string> common_prefixes(const Recording& a, const Recording& b) {
  if (a.prefixes == b.prefixes || b.prefixes.empty()) return a.prefixes;
  if (a.prefixes.empty()) return b.prefixes;
  throw SetupError("the two recordings are of different parameters");
}

// A recording made of this router now, as far and as discreet as another one.
Recording record_like(const Recording& other, Context& context) {
  Recording recording;
  recording.prefixes = other.prefixes;
  make_recording(context.agent_alone(), recording, context.output());
  return recording;
}

}  // namespace

Compared read_compared(Context& context, const std::vector<std::string>& files) {
  Compared compared;
  compared.before = read_recording(files.front());
  compared.after = files.size() == 2 ? read_recording(files.back()) : record_like(compared.before, context);
  compared.prefixes = common_prefixes(compared.before, compared.after);
  if (compared.before.with_secrets == compared.after.with_secrets) return compared;
  for (Recording* recording : {&compared.before, &compared.after}) {
    Agent agent(context.options().plugin, recording->agent, context.output().to_warn());
    remove_secrets(agent, *recording, context.output());
  }
  return compared;
}

}  // namespace kovadm

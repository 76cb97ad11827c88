#include "commands/effect.hpp"

#include "pkg-tool.h"

namespace kovadm {
namespace {

std::string to_text(Effect effect) {
  switch (effect) {
    case Effect::AS_ASKED:
      return "as asked";
    case Effect::HIDDEN:
      return "hidden";
    case Effect::DEFERRED:
      return "deferred";
    case Effect::DIFFERENT:
      return "differs";
    case Effect::UNREADABLE:
      return "unreadable";
    case Effect::NOTHING_CHANGED:
      return "nothing changed";
  }
  return "";
}

Effect effect_on(const Accepted& setting, const std::string& value, bool ran) {
  if (value == setting.passed) return Effect::AS_ASKED;
  if (value.empty() && is_secret(*setting.parameter.row)) return Effect::HIDDEN;
  if (setting.stored) return Effect::DIFFERENT;
  const bool recorded = (setting.raised & APPLY_TASK_COMMANDS) != 0 && !setting.commanded;
  return recorded && !ran ? Effect::DEFERRED : Effect::NOTHING_CHANGED;
}

// The parameter's value as it is now, where it has one.
std::optional<std::string> read_back(Agent& agent, const Accepted& setting, bool ran, Effect& effect) {
  const auto answer = agent.get(setting.parameter);
  if (const auto* value = std::get_if<std::string>(&answer)) {
    effect = effect_on(setting, *value, ran);
    return *value;
  }
  effect = Effect::UNREADABLE;
  return std::nullopt;
}

// For people, what of it is not as they would expect.
std::string note(Effect effect, const std::string& asked) {
  if (effect == Effect::AS_ASKED) return "";
  if (effect == Effect::HIDDEN) return "(hidden)";
  return "(" + to_text(effect) + ": asked for \"" + one_line(asked) + "\")";
}

}  // namespace

Effect tell_effect(Agent& agent, const Accepted& setting, bool ran, Output& output) {
  Effect effect = Effect::AS_ASKED;
  auto value = read_back(agent, setting, ran, effect);
  if (value && is_secret(*setting.parameter.row)) value = output.redaction().secret(*value);
  const std::string shown = one_line(value.value_or(""));
  const std::string remark = note(effect, setting.asked);
  output.line(setting.parameter.path + " = " + shown + (shown.empty() || remark.empty() ? "" : " ") + remark);
  Json told = {{"path", setting.parameter.path},
               {"value", value ? Json(*value) : Json()},
               {"asked", setting.asked},
               {"effect", to_text(effect)}};
  if (setting.passed != setting.asked) told["passed"] = setting.passed;
  output.document()["values"].push_back(told);
  return effect;
}

}  // namespace kovadm

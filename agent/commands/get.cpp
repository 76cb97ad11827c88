#include "commands/commands.hpp"
#include "device/instances.hpp"
#include "device/walk.hpp"
#include "output/progress.hpp"

namespace kovadm {
namespace {

// Reads parameters into the output.
class Reader {
 public:
  Reader(Agent& agent, Output& output) : agent_(agent), output_(output) { output.document()["values"] = Json::array(); }

  void parameter(const std::string& path) {
    const auto found = find_parameter(path);
    if (!found) {
      output_.fault(unknown_path(path));
    } else if (const auto missing = missing_instance(agent_, path)) {
      output_.fault(*missing);
    } else {
      read(*found);
    }
  }

  void below(const std::string& prefix) {
    const auto fault = walk(agent_, prefix, [this](const Parameter& parameter) {
      // Some take a while.
      progress_.show(std::to_string(++count_) + " " + parameter.path);
      return read(parameter);
    });
    if (fault) output_.fault(*fault);
  }

 private:
  bool read(const Parameter& parameter) {
    const auto answer = agent_.get(parameter);
    progress_.clear();
    const auto* value = std::get_if<std::string>(&answer);
    if (value != nullptr) {
      output_.value(parameter.path, *value);
    } else {
      output_.fault(std::get<Fault>(answer));
    }
    return value != nullptr;
  }

  Agent& agent_;
  Output& output_;
  Progress progress_;
  int count_ = 0;
};

}  // namespace

int get(Agent& agent, const std::vector<std::string>& paths, Output& output) {
  Reader reader(agent, output);
  for (const std::string& path : paths) {
    if (path.ends_with('.')) {
      reader.below(path);
    } else {
      reader.parameter(path);
    }
  }
  return output.finish();
}

int walk(Agent& agent, const std::vector<std::string>& prefixes, Output& output) {
  Reader reader(agent, output);
  for (const std::string& prefix : prefixes) reader.below(prefix);
  if (prefixes.empty()) reader.below("");
  return output.finish();
}

}  // namespace kovadm

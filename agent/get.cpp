#include <sys/ioctl.h>
#include <unistd.h>

#include "commands.hpp"
#include "walk.hpp"

namespace kovadm {
namespace {

int terminal_width() {
  winsize size = {};
  return ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : 80;
}

// Reads parameters into the output.
class Reader {
 public:
  Reader(Agent& agent, Output& output) : agent_(agent), output_(output) { output.document()["values"] = Json::array(); }

  void parameter(const std::string& path) {
    if (const auto found = find_parameter(path)) {
      read(*found);
    } else {
      output_.fault(unknown_path(path));
    }
  }

  void below(const std::string& prefix) {
    const bool known = walk(agent_, prefix, [this](const Parameter& parameter) {
      show_progress(parameter.path);
      read(parameter);
    });
    clear_progress();
    if (!known) output_.fault(unknown_path(prefix));
  }

 private:
  void read(const Parameter& parameter) {
    const auto answer = agent_.get(parameter);
    clear_progress();
    if (const auto* value = std::get_if<std::string>(&answer)) {
      output_.value(parameter.path, *value);
    } else {
      output_.fault(std::get<Fault>(answer));
    }
  }

  // On a terminal, the parameter that is being read: some take a while.
  void show_progress(const std::string& path) {
    if (!on_terminal_) return;
    const std::string line = std::to_string(++count_) + " " + path;
    std::fprintf(stderr, "\r\033[K%.*s", terminal_width() - 1, line.c_str());
  }
  void clear_progress() const {
    if (on_terminal_) std::fputs("\r\033[K", stderr);
  }

  Agent& agent_;
  Output& output_;
  bool on_terminal_ = isatty(STDERR_FILENO) == 1;
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

int walk(Agent& agent, const std::string& prefix, Output& output) {
  Reader(agent, output).below(prefix);
  return output.finish();
}

}  // namespace kovadm
